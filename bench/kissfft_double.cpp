// Before KissFFT's header, which uses std::acos and std::exp of numbers without including it.
#include <cmath>

#include <kissfft/kissfft.hh>

#include "kissfft_peer.hpp"

namespace bench {
namespace {

using Kiss = kissfft<double>;

Kiss::cpx_t* AsComplex(double* numbers) {
    return reinterpret_cast<Kiss::cpx_t*>(numbers);
}

void RunComplex(void* state, const double* src, double* dst) {
    static_cast<const Kiss*>(state)->transform(reinterpret_cast<const Kiss::cpx_t*>(src),
                                               AsComplex(dst));
}
void RunRealForward(void* state, const double* src, double* dst) {
    static_cast<const Kiss*>(state)->transform_real(src, AsComplex(dst));
}
void Release(void* state) {
    delete static_cast<Kiss*>(state);
}

}  // namespace

template <>
std::unique_ptr<KissPlan<double>> KissPlan<double>::Make(Transform transform, int length) {
    const auto plan = [](Run* run, int points, bool inverse, int packed_bin) {
        State state(new Kiss(static_cast<std::size_t>(points), inverse), Release);
        return std::unique_ptr<KissPlan>(new KissPlan(run, std::move(state), packed_bin));
    };
    switch (transform) {
        case Transform::kComplexForward:
            return plan(RunComplex, length, false, 0);
        case Transform::kComplexInverse:
            return plan(RunComplex, length, true, 0);
        case Transform::kRealForward:
            if (length % 2 != 0) return nullptr;
            return plan(RunRealForward, length / 2, false, length / 2);
        case Transform::kRealInverse:
        case Transform::kHartley:
            break;
    }
    return nullptr;
}

}  // namespace bench
