#pragma once

#include <memory>

#include "kernel_family.hpp"

namespace bench {

/**
 * KissFFT's plan for one transform and length. Single precision is the packaged library, which the
 * distribution compiles for the x87 unit; the package has no library of double precision, so that
 * is KissFFT's own C++ class, compiled with the options of bench/CMakeLists.txt.
 */
template <typename Real>
class KissPlan {
  public:
    /** Nothing where KissFFT has no such transform. Real signals must be of even length. */
    static std::unique_ptr<KissPlan> Make(Transform transform, int length);

    void Execute(const Real* src, Real* dst) const { run_(state_.get(), src, dst); }

    /** Completes a spectrum of real samples where KissFFT packs its last bin into its first. */
    void FinishCcs(Real* dst) const {
        if (packed_bin_ == 0) return;
        dst[2 * packed_bin_] = dst[1];
        dst[2 * packed_bin_ + 1] = 0;
        dst[1] = 0;
    }

  private:
    using Run = void(void* state, const Real* src, Real* dst);
    using State = std::unique_ptr<void, void (*)(void*)>;

    KissPlan(Run* run, State state, int packed_bin = 0)
        : run_(run), state_(std::move(state)), packed_bin_(packed_bin) {}

    Run* run_;
    State state_;
    int packed_bin_;
};

template <>
std::unique_ptr<KissPlan<float>> KissPlan<float>::Make(Transform transform, int length);
template <>
std::unique_ptr<KissPlan<double>> KissPlan<double>::Make(Transform transform, int length);

}  // namespace bench
