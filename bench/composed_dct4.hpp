#pragma once

#include <cmath>
#include <cstddef>
#include <memory>

#include "fftw_peer.hpp"

namespace bench {

/** Before the complex DFT: (x[2n] + i x[N-1-2n]) exp(-i pi (4n + 1) / (4N)). `factors` are the real
 * and imaginary parts of the factors in turn, as are `z`. */
void TwiddleBeforeDft(const float* x, const float* factors, float* z, size_t size);
void TwiddleBeforeDft(const double* x, const double* factors, double* z, size_t size);

/** Behind it: Z[k] exp(-i pi k / N), whose real part is y[2k] and whose imaginary part is
 * -y[N-1-2k]. */
void TwiddleAfterDft(const float* z, const float* factors, float* y, size_t size);
void TwiddleAfterDft(const double* z, const double* factors, double* y, size_t size);

/**
 * The DCT-IV as a good user of FFTW composes it: a complex transform of N/2 points between two
 * loops of products, which the compiler may vectorise.
 */
template <typename Fftw>
class ComposedDct4 {
  public:
    using Real = typename Fftw::Real;
    using Complex = typename Fftw::Complex;

    ComposedDct4(size_t size, unsigned flags)
        : size_(size),
          before_(Allocate(size)),
          after_(Allocate(size)),
          from_(Allocate(size)),
          to_(Allocate(size)),
          plan_(Fftw::kPlanComplex(static_cast<int>(size / 2), AsComplex(from_), AsComplex(to_),
                                   FFTW_FORWARD, flags)) {
        const double n = static_cast<double>(size);
        for (size_t i = 0; i < size / 2; ++i) {
            const double k = static_cast<double>(i);
            SetFactor(&before_[2 * i], (4 * k + 1) / (4 * n));
            SetFactor(&after_[2 * i], k / n);
        }
    }
    ~ComposedDct4() { Fftw::DestroyPlan(plan_); }
    ComposedDct4(const ComposedDct4&) = delete;
    ComposedDct4& operator=(const ComposedDct4&) = delete;

    void Run(const Real* x, Real* y) const {
        TwiddleBeforeDft(x, before_.get(), from_.get(), size_);
        Fftw::Execute(plan_);
        TwiddleAfterDft(to_.get(), after_.get(), y, size_);
    }

  private:
    struct Release {
        void operator()(Real* p) const { fftw_free(p); }
    };
    using Array = std::unique_ptr<Real[], Release>;

    static Array Allocate(size_t size) {
        return Array(static_cast<Real*>(fftw_malloc(size * sizeof(Real))));
    }
    static Complex* AsComplex(const Array& array) {
        return reinterpret_cast<Complex*>(array.get());
    }
    /** exp(-i pi multiple) */
    static void SetFactor(Real* factor, double multiple) {
        factor[0] = static_cast<Real>(std::cos(M_PI * multiple));
        factor[1] = static_cast<Real>(-std::sin(M_PI * multiple));
    }

    const size_t size_;
    const Array before_;
    const Array after_;
    const Array from_;
    const Array to_;
    const typename Fftw::Plan plan_;
};

}  // namespace bench
