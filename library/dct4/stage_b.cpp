#include "dct4/batch.hpp"
#include "dct4/bodies_of_synthesis.hpp"
#include "dct4/compute.hpp"
#include "dct4/plan_shape.hpp"
#include "dct4/rule_switch.hpp"

namespace dct4::QSVG_VECTORS {
namespace {

int groups_of(const env4& node) {
    return node.blocks / kGroups;
}

/** Vectors of a group of blocks: a row for each, and their rotations. A piece of a vector belongs
 * to as many blocks as plans have lanes. */
template <int kRule>
struct RowsOfBlocks {
    static constexpr int kPoints = 1 << kRule;
    /** Pieces of a row; a row of two elements is half of one, which only the shortest body has. */
    static constexpr int kRowPlaces = kPoints < kPlanLanes ? 1 : kPoints / kPlanLanes;
    static constexpr std::int32_t kTable = kPoints * kPlanLanes;

    const Real* rows;
    std::int32_t row;
    std::int32_t span;  ///< of the blocks of a piece
    const Real* table;

    Vector load(int place) const {
        if (place >= kPoints) return load_groups(table + (place - kPoints) * kPlanLanes, kTable);
        if (kPoints < kPlanLanes) return load_groups(rows + place * kPlanLanes, span);
        return load_groups(rows + place / kRowPlaces * row + place % kRowPlaces * kPlanLanes, span);
    }
    void go_on() {
        rows += kGroups * span;
        table += kGroups * kTable;
    }
};

template <int kRule>
[[gnu::noinline]] void synthesise_batches(const env4& node, const Real* source, Real* destination) {
    constexpr int kPoints = 1 << kRule;
    constexpr int kHalf = kPoints / 2;
    Batch<kPoints> out;
    RowsOfBlocks<kRule> rows{source, node.twoFactor, node.span, node.table};
    const std::int32_t stride = node.subLength;
    const int all = groups_of(node);
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < all; i += kBatch) {
        const int groups = groups_from(i, all);
        QSVG_WRITTEN_OUT_ONCE for (int group = 0; group < groups; ++group) {
            Synthesis<kRule>::run(rows, out.group(group));
            rows.go_on();
        }
        // First the one half, then the other: where the length is no power of two, they overlap.
        std::int32_t forward = i * kLanes;
        QSVG_WRITTEN_OUT_ONCE for (int j = 0; j < kHalf; ++j) {
            spread(out.row(j), destination + forward, groups);
            forward += stride;
        }
        std::int32_t last = node.lastIndex - (kPoints - 1) * stride - i * kLanes;
        QSVG_WRITTEN_OUT_ONCE for (int j = 0; j < kHalf; ++j) {
            spread_backward(out.row(kHalf + j), destination + last, groups);
            last += stride;
        }
    }
}

/** Straight to the destination, rows of which are kStride elements apart. */
template <int kRule, int kStride>
struct DirectBlocks {
    static constexpr int kHalf = (1 << kRule) / 2;

    Real* forward;
    Real* backward;  ///< the lowest element of the first vector that runs backward

    void store(int place, Vector v) const {
        if (place < kHalf)
            store_unaligned(forward + place * kStride, v);
        else
            store_unaligned(backward + (place - kHalf) * kStride, reversed(v));
    }
};

template <int kRule, int kStride>
[[gnu::noinline]] void synthesise_direct(const env4& node, const Real* source, Real* destination) {
    constexpr int kPoints = 1 << kRule;
    RowsOfBlocks<kRule> rows{source, kPoints, kPoints * kPlanLanes, node.table};
    const std::int32_t backward = node.lastIndex - (kPoints - 1) * kStride - (kLanes - 1);
    DirectBlocks<kRule, kStride> blocks{destination, destination + backward};
    const int groups = groups_of(node);
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups; ++i) {
        Synthesis<kRule>::run(rows, blocks);
        rows.go_on();
        blocks.forward += kLanes;
        blocks.backward -= kLanes;
    }
}

/** Up to this length, rows as far apart as a plan has them are addressed by constants: that is
 * worth more than whole lines, even where rows share all their sets of the cache. */
constexpr int kLongestDirect = 65536;

template <int kRule>
void synthesise(const env4& node, const Real* source, Real* destination) {
    const std::int32_t stride = node.subLength;
    const bool is_plain =
        node.lastIndex + 1 == (1 << kRule) * stride && node.twoFactor == 1 << kRule;
    const auto synthesise_rows_of = [&]<int kLength>() {
        constexpr PlanShape kShape = plan_shape(kLength);
        if constexpr (kShape.synthesis_rule() == kRule) {
            if (is_plain && stride == kShape.destination_stride()) {
                synthesise_direct<kRule, kShape.destination_stride()>(node, source, destination);
                return true;
            }
        }
        return false;
    };
    if (any_length<kShortestTree, kLongestDirect>(synthesise_rows_of)) return;
    synthesise_batches<kRule>(node, source, destination);
}

}  // namespace

extern "C" QsvStatus COMPUTE(env4)(const env4* node, const Real* source, Real* destination) {
    return for_rule<6>(node->rule,
                       [&]<int kRule>() { synthesise<kRule>(*node, source, destination); });
}

}  // namespace dct4::QSVG_VECTORS
