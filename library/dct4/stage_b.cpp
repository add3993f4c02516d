#include "dct4/batch.hpp"
#include "dct4/bodies_of_synthesis.hpp"
#include "dct4/compute.hpp"

namespace dct4::QSVG_ELEMENT {
namespace {

/** Vectors of a group of blocks: a row for each, and their rotations. */
template <int kRule>
struct RowsOfBlocks {
    static constexpr int kPoints = 1 << kRule;
    /** Vectors of a row; a row of two elements is half of one, which only the shortest body has. */
    static constexpr int kRowPlaces = kPoints < kLanes ? 1 : kPoints / kLanes;

    const Real* rows;
    std::int32_t row;
    const Real* table;

    Vector load(int place) const {
        if (place >= kPoints) return QSVG_ELEMENT::load(table + (place - kPoints) * kLanes);
        if (kPoints < kLanes) return QSVG_ELEMENT::load(rows + place * kLanes);
        return QSVG_ELEMENT::load(rows + place / kRowPlaces * row + place % kRowPlaces * kLanes);
    }
};

template <int kRule>
void synthesise_batches(const env4& node, const Real* source, Real* destination) {
    constexpr int kPoints = 1 << kRule;
    constexpr int kHalf = kPoints / 2;
    Batch<kPoints> out;
    RowsOfBlocks<kRule> rows{source, node.twoFactor, node.table};
    const std::int32_t stride = node.subLength;
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < node.blocks; i += kBatch) {
        const int groups = groups_from(i, node.blocks);
        QSVG_WRITTEN_OUT_ONCE for (int group = 0; group < groups; ++group) {
            Synthesis<kRule>::run(rows, out.group(group));
            rows.rows += node.span;
            rows.table += kPoints * kLanes;
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
void synthesise_direct(const env4& node, const Real* source, Real* destination) {
    constexpr int kPoints = 1 << kRule;
    RowsOfBlocks<kRule> rows{source, kPoints, node.table};
    const std::int32_t backward = node.lastIndex - (kPoints - 1) * kStride - (kLanes - 1);
    DirectBlocks<kRule, kStride> blocks{destination, destination + backward};
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < node.blocks; ++i) {
        Synthesis<kRule>::run(rows, blocks);
        rows.rows += kPoints * kLanes;
        rows.table += kPoints * kLanes;
        blocks.forward += kLanes;
        blocks.backward -= kLanes;
    }
}

/** Rows this far apart, which the plans of 64 to 65536 points have, are addressed by constants:
 * that is worth more than whole lines, even where rows share all their sets of the cache. */
constexpr bool is_direct(int rule, int stride) {
    const int points = 1 << rule;
    return rule == 6 ? stride >= 32 && stride <= 2048
                     : rule >= 4 && (stride == points || stride == points / 2);
}

template <int kRule>
void synthesise(const env4& node, const Real* source, Real* destination) {
    const std::int32_t stride = node.subLength;
    const bool is_plain =
        node.lastIndex + 1 == (1 << kRule) * stride && node.twoFactor == 1 << kRule;
    // Each where it may be the stride of this rule.
    const auto direct = [&]<int kStride>() {
        if constexpr (is_direct(kRule, kStride)) {
            if (is_plain && stride == kStride) {
                synthesise_direct<kRule, kStride>(node, source, destination);
                return true;
            }
        }
        return false;
    };
    if (direct.template operator()<8>() || direct.template operator()<16>() ||
        direct.template operator()<32>() || direct.template operator()<64>() ||
        direct.template operator()<128>() || direct.template operator()<256>() ||
        direct.template operator()<512>() || direct.template operator()<1024>() ||
        direct.template operator()<2048>())
        return;
    synthesise_batches<kRule>(node, source, destination);
}

}  // namespace

extern "C" QsvStatus DCT4(env4_compute)(const env4* node, const Real* source, Real* destination) {
    switch (node->rule) {
        case 1:
            synthesise<1>(*node, source, destination);
            break;
        case 2:
            synthesise<2>(*node, source, destination);
            break;
        case 3:
            synthesise<3>(*node, source, destination);
            break;
        case 4:
            synthesise<4>(*node, source, destination);
            break;
        case 5:
            synthesise<5>(*node, source, destination);
            break;
        case 6:
            synthesise<6>(*node, source, destination);
            break;
        default:
            return qsvStatusBadPlan;
    }
    return qsvStatusOk;
}

}  // namespace dct4::QSVG_ELEMENT
