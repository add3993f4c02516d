#include <qsvgen.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "accuracy.hpp"
#include "composed_dct4.hpp"
#include "fftw_peer.hpp"
#include "support/reference_dct4.hpp"
#include "support/signals.hpp"

namespace bench {
namespace {

/** A plan of ours in a buffer of its own. */
template <typename Real>
class OurPlan {
  public:
    OurPlan(const TransformLibrary& library, const std::string& type, int length)
        : run_(library.Exported<Run>("qsvgDCT4_" + type)) {
        int32_t size = 0;
        if (library.Exported<Size>("qsvgDCT4GetSize_" + type)(length, &size) != qsvStatusOk)
            throw std::runtime_error("no plan of length " + std::to_string(length));
        buffer_.resize(static_cast<size_t>(size));
        library.Exported<Init>("qsvgDCT4Init_" + type)(&plan_, length, buffer_.data());
    }
    void Execute(const Real* src, Real* dst) const {
        if (run_(src, dst, plan_) != qsvStatusOk)
            throw std::runtime_error("the DCT-IV refused the call");
    }

  private:
    using Size = QsvStatus(int32_t, int32_t*);
    using Init = QsvStatus(void**, int32_t, uint8_t*);
    using Run = QsvStatus(const Real*, Real*, void*);

    Run* run_;
    void* plan_ = nullptr;
    std::vector<uint8_t> buffer_;
};

template <typename Fftw, typename E>
Accuracy MeasureLength(const TransformLibrary& library, int length, bool quick) {
    using Real = typename Fftw::Real;
    struct Release {
        void operator()(Real* p) const { fftw_free(p); }
    };
    const auto size = static_cast<size_t>(length);
    const auto allocate = [size] {
        return std::unique_ptr<Real[], Release>(
            static_cast<Real*>(fftw_malloc(size * sizeof(Real))));
    };
    const auto src = allocate();
    const auto dst = allocate();
    const OurPlan<Real> ours(library, E::kSuffix, length);
    // Patient plans of the longest lengths take minutes, and hardly round otherwise.
    const auto redft11 =
        Fftw::kPlanRealToReal(length, src.get(), dst.get(), FFTW_REDFT11, FFTW_MEASURE);
    const ComposedDct4<Fftw> composed(size, FFTW_MEASURE);

    RelativeError our_error;
    RelativeError redft11_error;
    RelativeError composed_error;
    const int inputs = length <= 2048 ? (quick ? 10 : 100) : (quick ? 1 : 5);
    for (int i = 0; i < inputs; ++i) {
        const auto input = qsvgen_test::random_signal<E>(size, 1000 + static_cast<uint32_t>(i));
        const auto exact =
            qsvgen_test::fast_dct4(std::vector<long double>(input.begin(), input.end()));
        std::copy(input.begin(), input.end(), src.get());
        ours.Execute(src.get(), dst.get());
        our_error.Add(dst.get(), exact);
        Fftw::Execute(redft11);
        // FFTW's transform is twice as large; halving is exact.
        for (size_t k = 0; k < size; ++k) dst[k] /= 2;
        redft11_error.Add(dst.get(), exact);
        std::copy(input.begin(), input.end(), src.get());
        composed.Run(src.get(), dst.get());
        composed_error.Add(dst.get(), exact);
    }
    Fftw::DestroyPlan(redft11);
    return {.family = "dct4",
            .type = E::kSuffix,
            .length = length,
            .inputs = inputs,
            .errors = {{"ours", our_error.RootMeanSquare()},
                       {"redft11", redft11_error.RootMeanSquare()},
                       {"composed", composed_error.RootMeanSquare()}}};
}

template <typename Fftw, typename E>
void Measure(const TransformLibrary& library, const AccuracyOptions& options,
             std::vector<Accuracy>& found) {
    options.on_progress("dct4", E::kSuffix);
    for (int length = 2; length <= options.longest_dct4; length *= 2) {
        found.push_back(MeasureLength<Fftw, E>(library, length, options.quick));
    }
}

}  // namespace

void MeasureDct4(const TransformLibrary& library, const AccuracyOptions& options,
                 std::vector<Accuracy>& found) {
    Measure<FftwSingle, qsvgen_test::RealSingle>(library, options, found);
    Measure<FftwDouble, qsvgen_test::RealDouble>(library, options, found);
}

}  // namespace bench
