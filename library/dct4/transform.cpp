#include "dct4/bodies_of_inline.hpp"
#include "dct4/compute.hpp"

namespace dct4::QSVG_ELEMENT {
namespace {

extern "C" {
QsvStatus DCT4(env5_compute_wide)(const env5* node, const Real* source, Real* destination);
QsvStatus DCT4(env4_compute_wide)(const env4* node, const Real* source, Real* destination);
QsvStatus DCT4(env5_compute_widest)(const env5* node, const Real* source, Real* destination);
QsvStatus DCT4(env4_compute_widest)(const env4* node, const Real* source, Real* destination);
}

/** Scratch vectors of fewer bytes than these are read again before vectors of 64 bytes have reached
 * the cache, which costs more than these save. */
constexpr std::int32_t kShortestOfWidest = 1024;

/** Whether a stage runs on vectors of so many bytes, each lane of which one of its groups of
 * columns or blocks is for. */
constexpr bool runs_on(int vector_bytes, int groups, const env1& root) {
    return QSVG_VECTOR_BYTES >= vector_bytes && groups % (vector_bytes / 16) == 0 &&
           (vector_bytes < 64 ||
            root.length * static_cast<std::int32_t>(sizeof(Real)) >= kShortestOfWidest);
}

void analyse(const env1& root, const env5* node, const Real* source) {
    if (runs_on(64, node->inner, root))
        DCT4(env5_compute_widest)(node, source, root.scratch);
    else if (runs_on(32, node->inner, root))
        DCT4(env5_compute_wide)(node, source, root.scratch);
    else
        DCT4(env5_compute)(node, source, root.scratch);
}
void synthesise(const env1& root, const env4* node, Real* destination) {
    if (runs_on(64, node->blocks, root))
        DCT4(env4_compute_widest)(node, root.scratch, destination);
    else if (runs_on(32, node->blocks, root))
        DCT4(env4_compute_wide)(node, root.scratch, destination);
    else
        DCT4(env4_compute)(node, root.scratch, destination);
}

/** Both stages. Those whose owner is not valid are passed over, as if they had been run. */
[[gnu::noinline]] void run_stages(const env1& root, const Real* source, Real* destination) {
    const auto& first = *static_cast<const env3*>(EnvList_get(root.stage2, 0));
    if (first.valid == 1)
        analyse(root, static_cast<const env5*>(EnvList_get(first.stage, 0)), source);
    const auto& second = *static_cast<const env2*>(EnvList_get(root.stage1, 0));
    if (second.valid == 1)
        synthesise(root, static_cast<const env4*>(EnvList_get(second.stage, 0)), destination);
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
