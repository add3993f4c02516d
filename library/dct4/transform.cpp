#include "dct4/bodies_of_inline.hpp"
#include "dct4/compute.hpp"

namespace dct4::QSVG_ELEMENT {
namespace {

#ifdef QSVG_HAS_WIDE_VECTORS

extern "C" {
QsvStatus DCT4(env5_compute_wide)(const env5* node, const Real* source, Real* destination);
QsvStatus DCT4(env4_compute_wide)(const env4* node, const Real* source, Real* destination);
}

/** Two groups of columns or blocks at a time, where there are as many. */
void analyse(const env5* node, const Real* source, Real* destination) {
    (node->inner % 2 == 0 ? DCT4(env5_compute_wide) : DCT4(env5_compute))(node, source,
                                                                          destination);
}
void synthesise(const env4* node, const Real* source, Real* destination) {
    (node->blocks % 2 == 0 ? DCT4(env4_compute_wide) : DCT4(env4_compute))(node, source,
                                                                           destination);
}

#else

void analyse(const env5* node, const Real* source, Real* destination) {
    DCT4(env5_compute)(node, source, destination);
}
void synthesise(const env4* node, const Real* source, Real* destination) {
    DCT4(env4_compute)(node, source, destination);
}

#endif

/** Both stages. Those whose owner is not valid are passed over, as if they had been run. */
[[gnu::noinline]] void run_stages(const env1& root, const Real* source, Real* destination) {
    const auto& first = *static_cast<const env3*>(EnvList_get(root.stage2, 0));
    if (first.valid == 1)
        analyse(static_cast<const env5*>(EnvList_get(first.stage, 0)), source, root.scratch);
    const auto& second = *static_cast<const env2*>(EnvList_get(root.stage1, 0));
    if (second.valid == 1)
        synthesise(static_cast<const env4*>(EnvList_get(second.stage, 0)), root.scratch,
                   destination);
}

}  // namespace
}  // namespace dct4::QSVG_ELEMENT

using namespace dct4::QSVG_ELEMENT;

QsvStatus EXPORTED(DCT4)(const Real* src, Real* dst, Plan* plan) {
    if (plan == nullptr || src == nullptr || dst == nullptr) return qsvStatusNullPointer;
    const auto& root = *reinterpret_cast<const env1*>(plan);
    switch (root.rule) {
        case 1:
            inline_1(src, dst);
            break;
        case 2:
            inline_2(src, dst);
            break;
        case 3:
            inline_3(src, dst);
            break;
        case 4:
            inline_4(src, dst);
            break;
        case 5:
            inline_5(src, dst);
            break;
        case 6:
            run_stages(root, src, dst);
            break;
        default:
            return qsvStatusBadPlan;
    }
    return qsvStatusOk;
}
