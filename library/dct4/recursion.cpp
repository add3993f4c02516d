#include "dct4/analysis_of_columns.hpp"
#include "dct4/compute.hpp"
#include "dct4/plan_shape.hpp"
#include "dct4/rule_switch.hpp"

namespace dct4::QSVG_VECTORS {
namespace {

/** `run` with the place of each part. */
template <class Run>
[[gnu::always_inline]] inline void for_each_part(const env9& node, ColumnGroups where,
                                                 const Run& run) {
    QSVG_WRITTEN_OUT_ONCE for (int r = 0; r < node.factor; ++r) {
        run(where);
        where.offset += node.parentStride;
        where.mirror -= 2 * node.parentStride;
        where.column += where.pitch;
    }
}

/** Up to this length the eight rows of a part, up to 4096 bytes apart, keep their lines from group
 * to group without being brought together; the twice as long rows of longer vectors do, too. A
 * vector of a whole line leaves nothing of it to the next group. */
constexpr int kLongestDirect = sizeof(Vector) == 64               ? 16 * kShortestSplit
                               : sizeof(Real) == 4 || kGroups > 1 ? 2 * kShortestSplit
                                                                  : kShortestSplit;

template <int kRule>
void analyse_parts(const env9& node, const Real* source, Real* scratch, const ColumnGroups& where) {
    const AnalysisOfColumns columns{source, scratch, node.stride, where.step};
    const auto analyse_parts_of = [&]<int kLength>() {
        constexpr PlanShape kShape = plan_shape(kLength);
        constexpr int kStride = kShape.split().factor * kShape.row();
        if constexpr (kShape.split().part_rule() == kRule) {
            constexpr int kStep = kShape.split().factor * kBatchElements;
            if (node.stride == kStride && where.step == kStep) {
                for_each_part(node, where, [&](const ColumnGroups& part) {
                    analyse_direct<kRule, kStride, kStep>(columns, part);
                });
                return true;
            }
        }
        return false;
    };
    if (any_length<kShortestSplit, kLongestDirect>(analyse_parts_of)) return;
    AnalysisBatches<kRule> batches;
    for_each_part(node, where,
                  [&](const ColumnGroups& part) { analyse_batch<kRule>(columns, part, batches); });
}

void split_parts(const env9& node, const Real* source, Real* scratch, const ColumnGroups& where) {
    const auto* const child = static_cast<const env7*>(EnvList_get(node.stage, 0));
    for_each_part(node, where, [&](const ColumnGroups& part) {
        COMPUTE(env7)(child, source, scratch, part);
    });
}

}  // namespace

extern "C" {

QsvStatus COMPUTE(env7)(const env7* node, const Real* source, Real* destination,
                        const ColumnGroups& where) {
    if (node->valid != 1) return qsvStatusBadPlan;
    const auto* const parts = static_cast<const env9*>(EnvList_get(node->stage2, 0));
    const auto* const dfts = static_cast<const env8*>(EnvList_get(node->stage1, 0));
    // Rows of scratch hold these columns alone: where parts are split again, those of a plan stand
    // pages apart, which share a few sets of the cache.
    const std::int32_t pitch =
        parts->parentStep < kBatchElements ? parts->parentStep : kBatchElements;
    ColumnGroups in_scratch = where;
    in_scratch.column = 0;
    in_scratch.pitch = pitch;
    COMPUTE(env9)(parts, source, node->scratch, in_scratch);
    ColumnGroups from_scratch = where;
    from_scratch.pitch = pitch;
    COMPUTE(env8)(dfts, node->scratch, destination, from_scratch);
    return qsvStatusOk;
}

QsvStatus COMPUTE(env9)(const env9* node, const Real* source, Real* scratch,
                        const ColumnGroups& where) {
    ColumnGroups to = where;
    if (to.pitch == 0) to.pitch = node->parentStep;
    to.step = node->factor * to.pitch;
    if (node->rule == 7) {
        split_parts(*node, source, scratch, to);
        return qsvStatusOk;
    }
    return for_rule<6>(node->rule,
                       [&]<int kRule>() { analyse_parts<kRule>(*node, source, scratch, to); });
}
}

}  // namespace dct4::QSVG_VECTORS
