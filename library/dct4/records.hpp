#pragma once

/**
 * @file
 * @brief The objects that a plan is made of. A plan is a tree of them in one arena; children belong
 * to the node whose `children` list holds them, stage lists only say which of them run.
 *
 * Records are flat and copy what they need from above, so that a run computes no strides. Most end
 * in the parameters that their constructor takes. In the notes below N is the length, a the root's
 * factor, q = N/(2a), and n a length that is split by f.
 */

#include "dct4/element.hpp"
#include "plan/env_list.hpp"

namespace dct4::QSVG_ELEMENT {

/** The size of a record: plans of one length have one size, with pointers of 4 bytes or of 8. */
constexpr std::size_t bytes_by_pointer(std::size_t of_4, std::size_t of_8) {
    static_assert(sizeof(void*) == 4 || sizeof(void*) == 8);
    return sizeof(void*) == 4 ? of_4 : of_8;
}

/** Head of the nodes. */
struct PlanObject : EnvObject {
    QsvStatus (*plan)(EnvObject* object);
    Arena* arena;
};
static_assert(sizeof(PlanObject) == bytes_by_pointer(16, 32));

/** Head of the coefficient objects: functions of up to three indices. */
struct CoefficientObject : EnvObject {
    Real (*at)(const CoefficientObject* object, std::int32_t i, std::int32_t j, std::int32_t k);
    Arena* arena;
};
static_assert(sizeof(CoefficientObject) == bytes_by_pointer(16, 32));

/** The angle (i + 1/2) / (numerator / denominator) of block i, as a multiple of pi. */
struct envlambda : CoefficientObject {
    std::int32_t numerator;
    std::int32_t denominator;
};
static_assert(sizeof(envlambda) == bytes_by_pointer(24, 40));

/** Another object's rows, by a group of rows and the lane of one of them. */
struct envfsplit : CoefficientObject {
    std::int32_t columns;
    std::int32_t rowBlocks;
    const CoefficientObject* inner;
};
static_assert(sizeof(envfsplit) == bytes_by_pointer(28, 48));

struct envfCompose_parameters {
    std::int32_t columns;
    std::int32_t angleBase;
    std::int32_t rowCount;
    std::int32_t factor;
    std::int32_t rowStride;
};

/** Cosines and sines of the rotations, in even and odd columns. */
struct envfCompose : CoefficientObject, envfCompose_parameters {};
static_assert(sizeof(envfCompose) == bytes_by_pointer(36, 56));

/** The root. */
struct env1 : PlanObject {
    EnvList* children;
    EnvList* stage1;
    EnvList* stage2;
    Real* scratch; /**< N elements, null for a leaf */
    std::int32_t rule;
    std::int32_t factor; /**< a, not set in a leaf */
    std::int32_t length; /**< N */
};
static_assert(sizeof(env1) == bytes_by_pointer(44, 80));

/** Head of the owners of the two stages. */
struct StageObject : PlanObject {
    EnvList* children;
    EnvList* stage;
    std::int32_t done;  /**< 0 once planned */
    std::int32_t valid; /**< 1 if what the stage goes through fills whole vectors */
};

/** Head of what chooses between straight analyses and a split. */
struct AnalysesObject : PlanObject {
    EnvList* children;
    EnvList* stage;
    std::int32_t done; /**< 0 once planned */
    std::int32_t rule;
};

/** Head of the steps that read a table. */
struct TableObject : PlanObject {
    EnvList* children; /**< always empty */
    Real* table;
    std::int32_t rule;
};

struct env2_parameters {
    std::int32_t factor;    /**< a */
    std::int32_t length;    /**< N */
    std::int32_t twoFactor; /**< 2a */
    std::int32_t blocks;    /**< q */
    std::int32_t length2;   /**< N */
    std::int32_t lastIndex; /**< 2N - 1 */
    std::int32_t subLength; /**< N/a */
    envfCompose* coefficients;
};

/** Owner of stage B; valid if blocks is a multiple of the lanes. */
struct env2 : StageObject, env2_parameters {};
static_assert(sizeof(env2) == bytes_by_pointer(64, 96));

struct env3_parameters {
    std::int32_t subLength; /**< N/a */
    std::int32_t length;    /**< N */
    std::int32_t lastIndex; /**< 2N - 1 */
    std::int32_t twoFactor; /**< 2a */
    std::int32_t inner;     /**< a; in env5 divided by the lanes */
    std::int32_t length2;   /**< N */
    std::int32_t factor;    /**< a */
};

/** Owner of stage A; valid if inner is a multiple of the lanes. */
struct env3 : StageObject, env3_parameters {};
static_assert(sizeof(env3) == bytes_by_pointer(60, 88));

struct env4_parameters {
    std::int32_t factor;    /**< a */
    std::int32_t length;    /**< N */
    std::int32_t twoFactor; /**< 2a */
    std::int32_t span;      /**< 2a times the lanes */
    std::int32_t blocks;    /**< q divided by the lanes */
    std::int32_t length2;   /**< N */
    std::int32_t lastIndex; /**< 2N - 1 */
    std::int32_t subLength; /**< N/a */
    envfsplit* coefficients;
};

/** Stage B: rotations, then syntheses of 2a points. */
struct env4 : TableObject, env4_parameters {};
static_assert(sizeof(env4) == bytes_by_pointer(64, 96));

using env5_parameters = env3_parameters;

/** Stage A: analyses of N/a points, straight or by env7. */
struct env5 : AnalysesObject, env5_parameters {};
static_assert(sizeof(env5) == bytes_by_pointer(60, 88));

struct env7_parameters {
    std::int32_t subLength; /**< n */
    std::int32_t length;    /**< N */
    std::int32_t length2;   /**< N */
    std::int32_t stride;
    std::int32_t scratchLength; /**< N */
    std::int32_t step;
};

/** An analysis of n points split into f of n/f points. */
struct env7 : PlanObject {
    EnvList* children;
    EnvList* stage1;        /**< env8 */
    EnvList* stage2;        /**< env9 */
    Real* scratch;          /**< scratchLength elements */
    std::int32_t valid;     /**< 1 once planned */
    std::int32_t subLength; /**< n */
    std::int32_t factor;    /**< f; found by plan, so that the parameters stand around it */
    std::int32_t length;    /**< N */
    std::int32_t length2;   /**< N */
    std::int32_t stride;
    std::int32_t scratchLength; /**< N */
    std::int32_t step;
};
static_assert(sizeof(env7) == bytes_by_pointer(64, 96));

struct env8_parameters {
    std::int32_t factor; /**< f */
    std::int32_t scratchLength;
    std::int32_t step;
    std::int32_t span;   /**< 2 f step */
    std::int32_t blocks; /**< n/(2f) */
    std::int32_t scratchLength2;
    std::int32_t halfLength; /**< n/2 */
    std::int32_t lastIndex;  /**< n - 1 */
    std::int32_t step2;      /**< step once more */
    std::int32_t quotient;   /**< n/f */
    envlambda* coefficients;
};

/** Twiddle factors and complex DFTs of f points behind the analyses of n/f points. */
struct env8 : TableObject, env8_parameters {};
static_assert(sizeof(env8) == bytes_by_pointer(72, 104));

struct env9_parameters {
    std::int32_t subLength; /**< n/f */
    std::int32_t length;
    std::int32_t length2;
    std::int32_t stride; /**< f parentStride */
    std::int32_t parentStride;
    std::int32_t factor; /**< f */
    std::int32_t scratchLength;
    std::int32_t step; /**< f parentStep */
    std::int32_t parentStep;
};

/** The analyses of n/f points, straight or by another env7. */
struct env9 : AnalysesObject, env9_parameters {};
static_assert(sizeof(env9) == bytes_by_pointer(68, 96));

}  // namespace dct4::QSVG_ELEMENT
