#include "dct4/recursion.hpp"

#include "dct4/analysis_of_columns.hpp"
#include "dct4/compute.hpp"

namespace dct4::QSVG_ELEMENT {
namespace {

template <class Analyse>
[[gnu::always_inline]] inline void for_each_part(const env9& node, const Real* source,
                                                 Real* scratch, ColumnGroups where,
                                                 const Analyse& analyse) {
    const AnalysisOfColumns columns{source, scratch, node.stride, node.step};
    QSVG_WRITTEN_OUT_ONCE for (int r = 0; r < node.factor; ++r) {
        analyse(columns, where);
        where.offset += node.parentStride;
        where.mirror -= 2 * node.parentStride;
        where.column += node.parentStep;
    }
}

template <int kRule>
void analyse_parts(const env9& node, const Real* source, Real* scratch, const ColumnGroups& where) {
    // Eight rows up to 4096 bytes apart keep their lines from group to group without being brought
    // together: those of 4096 points, in single precision of 8192 too.
    if constexpr (kRule == 4) {
        if (node.stride == 512 && node.step == 256)
            return for_each_part(node, source, scratch, where, analyse_direct<kRule, 512>);
    }
    if constexpr (kRule == 4 && sizeof(Real) == 4) {
        if (node.stride == 1024 && node.step == 512)
            return for_each_part(node, source, scratch, where, analyse_direct<kRule, 1024>);
    }
    AnalysisBatches<kRule> batches;
    for_each_part(node, source, scratch, where,
                  [&](const AnalysisOfColumns& columns, const ColumnGroups& part) {
                      analyse_batch<kRule>(columns, part, batches);
                  });
}

void split_parts(const env9& node, const Real* source, Real* scratch, ColumnGroups where) {
    const auto& child = *static_cast<const env7*>(EnvList_get(node.stage, 0));
    QSVG_WRITTEN_OUT_ONCE for (int r = 0; r < node.factor; ++r) {
        run_split(child, source, scratch, where);
        where.offset += node.parentStride;
        where.mirror -= 2 * node.parentStride;
        where.column += node.parentStep;
    }
}

}  // namespace

QsvStatus run_split(const env7& node, const Real* source, Real* destination,
                    const ColumnGroups& where) {
    if (node.valid != 1) return qsvStatusBadPlan;
    run_parts(*static_cast<const env9*>(EnvList_get(node.stage2, 0)), source, node.scratch, where);
    run_dfts(*static_cast<const env8*>(EnvList_get(node.stage1, 0)), node.scratch, destination,
             where);
    return qsvStatusOk;
}

QsvStatus run_parts(const env9& node, const Real* source, Real* scratch,
                    const ColumnGroups& where) {
    switch (node.rule) {
        case 1:
            analyse_parts<1>(node, source, scratch, where);
            break;
        case 2:
            analyse_parts<2>(node, source, scratch, where);
            break;
        case 3:
            analyse_parts<3>(node, source, scratch, where);
            break;
        case 4:
            analyse_parts<4>(node, source, scratch, where);
            break;
        case 5:
            analyse_parts<5>(node, source, scratch, where);
            break;
        case 6:
            analyse_parts<6>(node, source, scratch, where);
            break;
        case 7:
            split_parts(node, source, scratch, where);
            break;
        default:
            return qsvStatusBadPlan;
    }
    return qsvStatusOk;
}

extern "C" {

QsvStatus DCT4(env7_compute)(const env7* node, const Real* source, Real* destination,
                             std::int32_t offset, std::int32_t mirror, std::int32_t column) {
    return run_split(*node, source, destination, {offset, mirror, column, 1});
}

QsvStatus DCT4(env9_compute)(const env9* node, const Real* source, Real* scratch,
                             std::int32_t offset, std::int32_t mirror, std::int32_t column) {
    return run_parts(*node, source, scratch, {offset, mirror, column, 1});
}
}

}  // namespace dct4::QSVG_ELEMENT
