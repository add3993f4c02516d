#include "dct4/analysis_of_columns.hpp"
#include "dct4/compute.hpp"
#include "dct4/plan_shape.hpp"
#include "dct4/rule_switch.hpp"

namespace dct4::QSVG_VECTORS {
namespace {

int groups_of(const env5& node) {
    return node.inner / kGroups;
}

/** The batch that begins with group `first`. */
ColumnGroups batch_of(const env5& node, int first) {
    const std::int32_t column = first * kLanes;
    return {column, node.lastIndex - 2 * column, column, groups_from(first, groups_of(node))};
}

/** Apart, so that short transforms need no work space on the stack and no boundary for it. */
template <int kRule>
[[gnu::noinline]] void analyse_in_batches(const env5& node, const AnalysisOfColumns& columns) {
    AnalysisBatches<kRule> batches;
    const int groups = groups_of(node);
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups; i += kBatch)
        analyse_batch<kRule>(columns, batch_of(node, i), batches);
}

/** A function for each rule, so that the registers of one are not those of another. */
template <int kRule>
[[gnu::noinline]] void analyse(const env5& node, const Real* source, Real* destination) {
    const int row = node.twoFactor;
    const AnalysisOfColumns columns{source, destination, row, row / 2};
    const ColumnGroups all{0, node.lastIndex, 0, groups_of(node)};
    // Rows of the plans without a split are addressed by constants.
    const auto analyse_rows_of = [&]<int kLength>() __attribute__((always_inline)) {
        constexpr PlanShape kShape = plan_shape(kLength);
        if constexpr (kShape.analysis_rule() == kRule) {
            if (row == kShape.row()) {
                analyse_direct<kRule, kShape.row()>(columns, all);
                return true;
            }
        }
        return false;
    };
    if (any_length<kShortestTree, kShortestSplit / 2>(analyse_rows_of)) return;
    analyse_in_batches<kRule>(node, columns);
}

void analyse_recursively(const env5& node, const Real* source, Real* destination) {
    const auto* const child = static_cast<const env7*>(EnvList_get(node.stage, 0));
    const int groups = groups_of(node);
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups; i += kBatch)
        COMPUTE(env7)(child, source, destination, batch_of(node, i));
}

}  // namespace

extern "C" QsvStatus COMPUTE(env5)(const env5* node, const Real* source, Real* destination) {
    if (node->rule == 7) {
        analyse_recursively(*node, source, destination);
        return qsvStatusOk;
    }
    return for_rule<6>(node->rule,
                       [&]<int kRule>() { analyse<kRule>(*node, source, destination); });
}

}  // namespace dct4::QSVG_VECTORS
