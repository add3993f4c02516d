#include <qsvgen.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>

#include "accuracy.hpp"
#include "fftw_peer.hpp"
#include "kernel_family.hpp"
#include "kissfft_peer.hpp"
#include "lengths.hpp"
#include "support/real_reference.hpp"
#include "support/reference_dft.hpp"
#include "support/signals.hpp"

namespace bench {
namespace {

namespace reference = qsvgen_test;

constexpr size_t kArray = 2 * kLongestLength + 2;

bool IsComplex(Transform transform) {
    return transform == Transform::kComplexForward || transform == Transform::kComplexInverse;
}

/** What the definition gives, as a function of the source's numbers. */
class Definition {
  public:
    Definition(Transform transform, int length)
        : transform_(transform),
          real_(DirectionOf(transform),
                transform == Transform::kHartley || IsComplex(transform)
                    ? reference::Layout::Natural
                    : reference::Layout::Ccs,
                length) {}

    template <typename Real>
    std::vector<long double> operator()(const std::vector<Real>& source) const {
        if (!IsComplex(transform_)) return real_(source);
        std::vector<reference::Wide> elements;
        for (size_t i = 0; i < source.size(); i += 2) {
            elements.push_back({source[i], source[i + 1]});
        }
        std::vector<long double> numbers;
        for (const auto& element : reference_dft(elements, DirectionOf(transform_))) {
            numbers.push_back(element.re);
            numbers.push_back(element.im);
        }
        return numbers;
    }

  private:
    static reference::Direction DirectionOf(Transform transform) {
        switch (transform) {
            case Transform::kComplexForward:
            case Transform::kRealForward:
                return reference::Direction::Forward;
            case Transform::kComplexInverse:
            case Transform::kRealInverse:
                return reference::Direction::Inverse;
            case Transform::kHartley:
                break;
        }
        return reference::Direction::Both;
    }

    Transform transform_;
    reference::RealReference real_;
};

size_t SourceNumbers(Transform transform, int length) {
    if (IsComplex(transform)) return static_cast<size_t>(2 * length);
    if (transform != Transform::kRealInverse) return static_cast<size_t>(length);
    return static_cast<size_t>(SpectrumElements(SpectrumLayout::kCcs, length));
}

template <typename Fftw>
class DftAccuracy {
  public:
    using Real = typename Fftw::Real;

    DftAccuracy(const TransformLibrary& library, const KernelFamily& family, int length)
        : transform_(family.transform),
          length_(length),
          definition_(family.transform, length),
          ours_(library.Exported<Kernel>(family.KernelName(length))),
          plan_(MakePlan<Fftw>(family.transform, length, src_.data(), dst_.data())),
          kiss_(KissPlan<Real>::Make(family.transform, length)) {}
    ~DftAccuracy() { Fftw::DestroyPlan(plan_); }
    DftAccuracy(const DftAccuracy&) = delete;
    DftAccuracy& operator=(const DftAccuracy&) = delete;

    void AddInput(uint32_t seed) {
        const std::vector<Real> input = Input(seed);
        const std::vector<long double> exact = definition_(input);
        const auto add = [&](RelativeError& error, const auto& run) {
            // FFTW's inverse real transform overwrites its source.
            std::copy(input.begin(), input.end(), src_.begin());
            run();
            error.Add(dst_.data(), exact);
        };
        add(ours_error_, [this] {
            if (ours_(src_.data(), dst_.data(), qsvScaleNone) != qsvStatusOk)
                throw std::runtime_error("a kernel of length " + std::to_string(length_) +
                                         " refused the call");
        });
        add(fftw_error_, [this] { Fftw::Execute(plan_); });
        if (kiss_ == nullptr) return;
        add(kiss_error_, [this] {
            kiss_->Execute(src_.data(), dst_.data());
            kiss_->FinishCcs(dst_.data());
        });
    }

    std::vector<std::pair<std::string, double>> Errors() const {
        std::vector<std::pair<std::string, double>> errors = {
            {"ours", ours_error_.RootMeanSquare()}, {"fftw", fftw_error_.RootMeanSquare()}};
        if (kiss_ != nullptr) errors.emplace_back("kissfft", kiss_error_.RootMeanSquare());
        return errors;
    }

  private:
    using Kernel = QsvStatus(const void*, void*, int32_t);

    std::vector<Real> Input(uint32_t seed) const {
        using E =
            std::conditional_t<sizeof(Real) == 4, reference::RealSingle, reference::RealDouble>;
        auto input = reference::random_signal<E>(SourceNumbers(transform_, length_), seed);
        if (transform_ == Transform::kRealInverse) {
            // Bins that are real by the signal's being real.
            input[1] = 0;
            if (length_ % 2 == 0) input[static_cast<size_t>(length_) + 1] = 0;
        }
        return input;
    }

    alignas(64) std::array<Real, kArray> src_ = {};
    alignas(64) std::array<Real, kArray> dst_ = {};
    const Transform transform_;
    const int length_;
    const Definition definition_;
    Kernel* const ours_;
    const typename Fftw::Plan plan_;
    const std::unique_ptr<KissPlan<Real>> kiss_;
    RelativeError ours_error_;
    RelativeError fftw_error_;
    RelativeError kiss_error_;
};

template <typename Fftw>
void MeasureFamily(const TransformLibrary& library, const AccuracyOptions& options,
                   const KernelFamily& family, std::vector<Accuracy>& found) {
    options.on_progress(family.name, family.type);
    const int inputs = options.quick ? 20 : 200;
    for (int length : kLengths) {
        const auto& wanted = options.lengths;
        if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), length) == wanted.end())
            continue;
        DftAccuracy<Fftw> accuracy(library, family, length);
        for (int i = 0; i < inputs; ++i) accuracy.AddInput(1000 + static_cast<uint32_t>(i));
        found.push_back({.family = family.name,
                         .type = family.type,
                         .length = length,
                         .inputs = inputs,
                         .errors = accuracy.Errors()});
    }
}

}  // namespace

void MeasureDfts(const TransformLibrary& library, const AccuracyOptions& options,
                 std::vector<Accuracy>& found) {
    for (const std::string type : {"32fc", "64fc", "32f", "64f"}) {
        for (const KernelFamily& family : FamiliesOf(type, SpectrumLayout::kCcs)) {
            if (type.starts_with("32")) {
                MeasureFamily<FftwSingle>(library, options, family, found);
            } else {
                MeasureFamily<FftwDouble>(library, options, family, found);
            }
        }
    }
}

}  // namespace bench
