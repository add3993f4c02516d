#include "dct4/analysis_of_columns.hpp"
#include "dct4/compute.hpp"
#include "dct4/recursion.hpp"

namespace dct4::QSVG_ELEMENT {
namespace {

/** Rows of these lengths, which the plans of up to 2048 points have, are addressed by constants. */
constexpr bool is_direct(int rule, int row) {
    return row >= 16 && row <= 64 && row >= 1 << rule && row <= 2 << rule;
}

/** The batch that begins with group `first`. */
ColumnGroups batch_of(const env5& node, int first) {
    const std::int32_t column = first * kLanes;
    return {column, node.lastIndex - 2 * column, column, groups_from(first, node.inner)};
}

template <int kRule>
void analyse(const env5& node, const Real* source, Real* destination) {
    const int row = node.twoFactor;
    const AnalysisOfColumns columns{source, destination, row, row / 2};
    const ColumnGroups all{0, node.lastIndex, 0, node.inner};
    if constexpr (is_direct(kRule, 16)) {
        if (row == 16) return analyse_direct<kRule, 16>(columns, all);
    }
    if constexpr (is_direct(kRule, 32)) {
        if (row == 32) return analyse_direct<kRule, 32>(columns, all);
    }
    if constexpr (is_direct(kRule, 64)) {
        if (row == 64) return analyse_direct<kRule, 64>(columns, all);
    }
    AnalysisBatches<kRule> batches;
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < node.inner; i += kBatch)
        analyse_batch<kRule>(columns, batch_of(node, i), batches);
}

void analyse_recursively(const env5& node, const Real* source, Real* destination) {
    const auto& child = *static_cast<const env7*>(EnvList_get(node.stage, 0));
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < node.inner; i += kBatch) {
        run_split(child, source, destination, batch_of(node, i));
    }
}

}  // namespace

extern "C" QsvStatus DCT4(env5_compute)(const env5* node, const Real* source, Real* destination) {
    switch (node->rule) {
        case 1:
            analyse<1>(*node, source, destination);
            break;
        case 2:
            analyse<2>(*node, source, destination);
            break;
        case 3:
            analyse<3>(*node, source, destination);
            break;
        case 4:
            analyse<4>(*node, source, destination);
            break;
        case 5:
            analyse<5>(*node, source, destination);
            break;
        case 6:
            analyse<6>(*node, source, destination);
            break;
        case 7:
            analyse_recursively(*node, source, destination);
            break;
        default:
            return qsvStatusBadPlan;
    }
    return qsvStatusOk;
}

}  // namespace dct4::QSVG_ELEMENT
