#include <kissfft/kiss_fftr.h>

#include "kissfft_peer.hpp"

namespace bench {
namespace {

kiss_fft_cpx* AsComplex(float* numbers) {
    return reinterpret_cast<kiss_fft_cpx*>(numbers);
}
const kiss_fft_cpx* AsComplex(const float* numbers) {
    return reinterpret_cast<const kiss_fft_cpx*>(numbers);
}

void RunComplex(void* state, const float* src, float* dst) {
    kiss_fft(static_cast<kiss_fft_cfg>(state), AsComplex(src), AsComplex(dst));
}
void RunRealForward(void* state, const float* src, float* dst) {
    kiss_fftr(static_cast<kiss_fftr_cfg>(state), src, AsComplex(dst));
}
void RunRealInverse(void* state, const float* src, float* dst) {
    kiss_fftri(static_cast<kiss_fftr_cfg>(state), AsComplex(src), dst);
}

}  // namespace

template <>
std::unique_ptr<KissPlan<float>> KissPlan<float>::Make(Transform transform, int length) {
    const auto plan = [](Run* run, void* state) {
        return std::unique_ptr<KissPlan>(new KissPlan(run, State(state, std::free)));
    };
    const bool is_even = length % 2 == 0;
    switch (transform) {
        case Transform::kComplexForward:
            return plan(RunComplex, kiss_fft_alloc(length, 0, nullptr, nullptr));
        case Transform::kComplexInverse:
            return plan(RunComplex, kiss_fft_alloc(length, 1, nullptr, nullptr));
        case Transform::kRealForward:
            if (!is_even) return nullptr;
            return plan(RunRealForward, kiss_fftr_alloc(length, 0, nullptr, nullptr));
        case Transform::kRealInverse:
            if (!is_even) return nullptr;
            return plan(RunRealInverse, kiss_fftr_alloc(length, 1, nullptr, nullptr));
        case Transform::kHartley:
            break;
    }
    return nullptr;
}

}  // namespace bench
