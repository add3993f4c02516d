#pragma once

#include <fftw3.h>
#include <qsvgen.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <stdexcept>
#include <vector>

#include "batch_calls.hpp"
#include "batch_clock.hpp"
#include "batch_comparison.hpp"
#include "fftw_batch.hpp"
#include "lengths.hpp"
#include "upper_halves.hpp"

namespace bench {

/** The arrays that all cases and parties of a precision share, whichever these are, so that none
 * has luckier addresses. */
template <typename Real>
class BatchArrays {
  public:
    /** Real numbers that there is room for. */
    static constexpr size_t kNumbers = size_t{2} * kLongestLength * kMostTransforms;

    BatchArrays() : src_(Allocate()), dst_(Allocate()), input_(kNumbers) {
        std::mt19937 random(1);
        std::uniform_real_distribution<Real> sample(-1, 1);
        for (Real& number : input_) number = sample(random);
        std::fill_n(src_.get(), kNumbers, Real(0));
        std::fill_n(dst_.get(), kNumbers, Real(0));
    }

    Real* src() const { return src_.get(); }
    Real* dst() const { return dst_.get(); }
    /** Random numbers between -1 and 1. */
    const std::vector<Real>& input() const { return input_; }

  private:
    struct Release {
        void operator()(Real* p) const { std::free(p); }
    };
    using Array = std::unique_ptr<Real[], Release>;

    static Array Allocate() {
        constexpr size_t kAlignment = 64;
        static_assert(kNumbers * sizeof(Real) % kAlignment == 0);
        return Array(static_cast<Real*>(std::aligned_alloc(kAlignment, kNumbers * sizeof(Real))));
    }

    const Array src_;
    const Array dst_;
    std::vector<Real> input_;
};

/** The parties of one case. */
template <typename Fftw>
class BatchRunner {
  public:
    using Real = typename Fftw::Real;

    BatchRunner(const BatchArrays<Real>& arrays, const BatchLibraries& libraries,
                const BatchCase& of, unsigned plan_flags)
        : arrays_(arrays),
          of_(of),
          ours_(libraries.ours, *of.family),
          source_numbers_(of.family->SourceNumbers(of.size)),
          result_numbers_(of.family->ResultNumbers(of.size)) {
        if (libraries.other) other_ = std::make_unique<BatchCalls>(*libraries.other, *of.family);
        if (of.has_plan) {
            plan_ = PlanMany<Fftw>(of.family->transform, of.layout, of.size, of.count, arrays.src(),
                                   arrays.dst(), plan_flags);
            if (plan_ == nullptr) throw std::runtime_error(of.Name() + ": FFTW has no plan");
        }
    }
    ~BatchRunner() {
        if (plan_ != nullptr) Fftw::DestroyPlan(plan_);
    }
    BatchRunner(const BatchRunner&) = delete;
    BatchRunner& operator=(const BatchRunner&) = delete;

    /** Rounds in which every party transforms for about the same time, one after the other. */
    void AddRounds(int rounds, BatchComparison& comparison) {
        const bool is_first_visit = calls_[kBatch] == 0;
        if (is_first_visit) CheckResults();
        comparison.leaves_upper_halves = leaves_upper_halves_;
        FillTimedSource();
        for (int round = 0; round < rounds; ++round) {
            for (size_t party = 0; party < kBatchParties; ++party) {
                WithCallOf(static_cast<BatchParty>(party), [&](auto call) {
                    int& calls = calls_[party];
                    ClearUpperHalves();
                    if (calls == 0) calls = CallsPerBatch(call, 1);
                    const double cycles = static_cast<double>(TimeBatch(calls, call)) /
                                          (static_cast<double>(calls) * of_.count);
                    comparison.cycles[party] = std::min(comparison.cycles[party], cycles);
                });
            }
        }
    }

    /** Work of the kind that is measured. */
    void RunBatch() const { Batched(ours_); }

  private:
    struct ComplexElement {
        Real re, im;
    };

    bool IsContiguous() const { return of_.layout == BatchLayout::kContiguous; }
    int PartsOfElement() const { return of_.family->IsComplex() ? 2 : 1; }

    template <typename Use>
    void WithCallOf(BatchParty party, Use use) {
        switch (party) {
            case kBatch:
                return use([this] { Batched(ours_); });
            case kPlanMany:
                if (plan_ == nullptr) return;
                return use([this] { Fftw::Execute(plan_); });
            case kSingleCalls:
                return ours_.WithSingle([&](auto single) {
                    if (of_.family->IsComplex()) {
                        use([this, single] { SingleCalls<ComplexElement>(single); });
                    } else {
                        use([this, single] { SingleCalls<Real>(single); });
                    }
                });
            case kOtherBatch:
                if (other_ == nullptr) return;
                return use([this] { Batched(*other_); });
            case kBatchParties:
                break;
        }
        throw std::logic_error("no such party");
    }

    /** Of a batch of ours whose transforms have so many real numbers. */
    BatchSteps Steps(int numbers) const {
        if (IsContiguous()) return {.stride = 1, .distance = numbers / PartsOfElement()};
        return {.stride = of_.count, .distance = 1};
    }

    void Batched(const BatchCalls& calls) const {
        calls.RunBatch(arrays_.src(), Steps(source_numbers_), arrays_.dst(), Steps(result_numbers_),
                       of_.size, of_.count);
    }

    /** As users wrote it before there were batches. */
    template <typename Element, typename Call>
    void SingleCalls(Call single) const {
        const auto* src = reinterpret_cast<const Element*>(arrays_.src());
        auto* dst = reinterpret_cast<Element*>(arrays_.dst());
        const ptrdiff_t source_elements = source_numbers_ / PartsOfElement();
        const ptrdiff_t result_elements = result_numbers_ / PartsOfElement();
        const ptrdiff_t count = of_.count;
        // A single column is contiguous.
        if (IsContiguous() || count == 1) {
            for (ptrdiff_t k = 0; k < count; ++k)
                single(src + k * source_elements, dst + k * result_elements, of_.size);
            return;
        }
        // 64 real samples have 66 numbers in their spectrum.
        alignas(64) std::array<Element, 66> x;
        alignas(64) std::array<Element, 66> y;
        for (ptrdiff_t k = 0; k < count; ++k) {
            for (ptrdiff_t j = 0; j < source_elements; ++j)
                x[static_cast<size_t>(j)] = src[j * count + k];
            single(x.data(), y.data(), of_.size);
            for (ptrdiff_t j = 0; j < result_elements; ++j)
                dst[j * count + k] = y[static_cast<size_t>(j)];
        }
    }

    /** Where number i of transform k stands. Numbers of complex elements stand in pairs. */
    size_t Place(int numbers, bool has_pairs, int i, int k) const {
        const auto place = [this, k](int elements, int element) {
            return IsContiguous() ? k * elements + element : element * of_.count + k;
        };
        return static_cast<size_t>(has_pairs ? 2 * place(numbers / 2, i / 2) + i % 2
                                             : place(numbers, i));
    }

    void FillSource(bool has_pairs) const {
        const bool is_spectrum = of_.family->transform == BatchTransform::kRealInverse;
        for (int k = 0; k < of_.count; ++k) {
            for (int i = 0; i < source_numbers_; ++i) {
                // Bins that are real by the signal's being real.
                const bool is_zero =
                    is_spectrum && (i == 1 || (of_.size % 2 == 0 && i == source_numbers_ - 1));
                const int number = k * source_numbers_ + i;
                arrays_.src()[Place(source_numbers_, has_pairs, i, k)] =
                    is_zero ? Real(0) : arrays_.input()[static_cast<size_t>(number)];
            }
        }
    }

    /**
     * The peer's inverse real transform writes into its source. Calls that read what the one before
     * left would soon meet infinities, but zeros stay zeros and take the time of ordinary values.
     */
    void FillTimedSource() const {
        if (of_.family->transform == BatchTransform::kRealInverse) {
            std::fill_n(arrays_.src(), source_numbers_ * of_.count, Real(0));
        } else {
            FillSource(of_.family->IsComplex());
        }
    }

    /** The numbers of all results, one transform behind the other. */
    std::vector<Real> ResultsOf(BatchParty party) {
        // FFTW's spectra have complex elements, ours real ones.
        const bool has_pairs = of_.family->IsComplex();
        const bool is_peer = party == kPlanMany;
        const BatchTransform transform = of_.family->transform;
        FillSource(has_pairs || (is_peer && transform == BatchTransform::kRealInverse));
        std::memset(arrays_.dst(), 0xFF, BatchArrays<Real>::kNumbers * sizeof(Real));
        WithCallOf(party, [](auto call) { call(); });
        std::vector<Real> results;
        for (int k = 0; k < of_.count; ++k) {
            for (int i = 0; i < result_numbers_; ++i) {
                results.push_back(arrays_.dst()[Place(
                    result_numbers_,
                    has_pairs || (is_peer && transform == BatchTransform::kRealForward), i, k)]);
            }
        }
        return results;
    }

    /** No time counts for a wrong result. */
    void CheckResults() {
        const std::vector<Real> ours = ResultsOf(kBatch);
        ClearUpperHalves();
        RunBatch();
        leaves_upper_halves_ = AreUpperHalvesInUse();
        for (const BatchParty party : {kSingleCalls, kOtherBatch}) {
            if (party == kOtherBatch && other_ == nullptr) continue;
            const std::vector<Real> same = ResultsOf(party);
            if (std::memcmp(ours.data(), same.data(), ours.size() * sizeof(Real)) != 0) {
                throw std::runtime_error(of_.Name() + ": the bits of the batch are not those of " +
                                         (party == kSingleCalls ? "single calls" : "the other"));
            }
        }
        if (plan_ == nullptr) return;
        const std::vector<Real> expected = ResultsOf(kPlanMany);
        double error = 0;
        double norm = 0;
        for (size_t i = 0; i < ours.size(); ++i) {
            error += std::pow(ours[i] - expected[i], 2);
            norm += std::pow(expected[i], 2);
        }
        if (!(std::sqrt(error) <= 8 * std::numeric_limits<Real>::epsilon() * std::sqrt(norm)))
            throw std::runtime_error(of_.Name() + ": FFTW and ours give different results");
    }

    const BatchArrays<Real>& arrays_;
    const BatchCase of_;
    const BatchCalls ours_;
    std::unique_ptr<BatchCalls> other_;
    const int source_numbers_;  ///< real numbers of one transform
    const int result_numbers_;
    typename Fftw::Plan plan_ = nullptr;
    std::array<int, kBatchParties> calls_ = {};
    bool leaves_upper_halves_ = false;
};

}  // namespace bench
