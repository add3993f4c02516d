#pragma once

#include <benchmark/benchmark.h>
#include <qsvgen.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <random>

#include "batch_clock.hpp"
#include "comparison.hpp"
#include "fftw_peer.hpp"
#include "kernel_family.hpp"
#include "kissfft_peer.hpp"
#include "lengths.hpp"
#include "transform_library.hpp"

namespace bench {

/** One kernel, the peer's plan and the arrays that all parties share. */
template <typename Fftw>
class TransformCase {
  public:
    using Real = typename Fftw::Real;

    TransformCase(const KernelFamily& family, const TransformLibrary& ours,
                  const TransformLibrary* other, Comparison& comparison)
        : family_(family), comparison_(comparison) {
        const std::string kernel = family.KernelName(comparison.length);
        ours_ = ours.Exported<Kernel>(kernel);
        if (other != nullptr) other_ = other->Exported<Kernel>(kernel);
        comparison.has_other = other != nullptr;
        kiss_ = KissPlan<Real>::Make(family.transform, comparison.length);
        comparison.has_kiss = kiss_ != nullptr;
    }
    TransformCase(const TransformCase&) = delete;
    TransformCase& operator=(const TransformCase&) = delete;
    ~TransformCase() { Fftw::DestroyPlan(plan_); }

    void Run(benchmark::State& state) {
        // Planning waits until here so that a filter saves its time.
        if (plan_ == nullptr) Prepare();
        if (!SameResults(ours_) || (other_ != nullptr && !SameResults(other_)) ||
            !KissGivesTheSame()) {
            state.SkipWithError("a library and the peer give different results");
            return;
        }
        FillTimedSource();
        for ([[maybe_unused]] auto iteration : state) {
            std::array<double, kParties> cycles = {};
            for (size_t turn = 0; turn < kParties; ++turn) {
                const auto party =
                    static_cast<Party>((turn + static_cast<size_t>(comparison_.rounds)) % kParties);
                if (!comparison_.Has(party)) continue;
                cycles[party] =
                    static_cast<double>(TimeParty(party, calls_[party])) / calls_[party];
            }
            comparison_.AddRound(cycles);
            state.SetIterationTime(cycles[kOurs] * 1e-9);
        }
        // For --benchmark_out; the last repetition's are the minima of all.
        state.counters["ours_cycles"] = comparison_.cycles[kOurs];
        state.counters["peer_cycles"] = comparison_.cycles[kPeer];
        if (comparison_.has_kiss) state.counters["kiss_cycles"] = comparison_.cycles[kKiss];
        state.counters["ratio"] = comparison_.Ratio();
    }

  private:
    // Elements of all types are handed over by address, in the same way.
    using Kernel = QsvStatus(const void*, void*, int32_t);
    // A complex source is the longest array.
    using Array = std::array<Real, 2 * kLongestLength>;

    bool IsComplex() const {
        return family_.transform == Transform::kComplexForward ||
               family_.transform == Transform::kComplexInverse;
    }
    /** Real numbers in the result. */
    size_t ResultSize() const {
        const int length = comparison_.length;
        if (IsComplex()) return static_cast<size_t>(2 * length);
        if (family_.transform != Transform::kRealForward) return static_cast<size_t>(length);
        return static_cast<size_t>(SpectrumElements(family_.layout, length));
    }

    void Prepare() {
        plan_ = MakePlan<Fftw>(family_.transform, comparison_.length, src_.data(), dst_.data());
        std::mt19937 random(1);
        std::uniform_real_distribution<Real> sample(-1, 1);
        for (Real& element : input_) element = sample(random);
        if (family_.transform == Transform::kRealInverse) {
            // Bins that are real by the signal's being real.
            input_[1] = 0;
            if (comparison_.length % 2 == 0)
                input_[static_cast<size_t>(comparison_.length) + 1] = 0;
        }
        FillTimedSource();
        CalibrateCalls();
    }

    /**
     * The peer's inverse real transform writes into its source. Calls that read what the one before
     * left would soon meet infinities, but zeros stay zeros and take the time of ordinary values.
     */
    void FillTimedSource() {
        if (family_.transform == Transform::kRealInverse) {
            src_.fill(0);
        } else {
            src_ = input_;
        }
    }

    void CalibrateCalls() {
        for (const Party party : {kOurs, kPeer, kKiss, kOther}) {
            if (!comparison_.Has(party)) continue;
            if (party == kPeer) {
                calls_[party] = CallsPerBatch([&] { Fftw::Execute(plan_); });
            } else if (party == kKiss) {
                calls_[party] = CallsPerBatch([&] { kiss_->Execute(src_.data(), dst_.data()); });
            } else if (Kernel* const kernel = KernelOf(party)) {
                calls_[party] =
                    CallsPerBatch([&] { kernel(src_.data(), dst_.data(), qsvScaleNone); });
            }
        }
    }

    /** No time counts for a wrong result. */
    bool SameResults(Kernel* kernel) {
        const int length = comparison_.length;
        src_ = input_;
        Fftw::Execute(plan_);
        Array expected = dst_;
        src_ = input_;
        if (family_.transform == Transform::kRealForward) {
            RearrangeFromCcs(family_.layout, length, expected.data());
        } else if (family_.transform == Transform::kRealInverse) {
            RearrangeFromCcs(family_.layout, length, src_.data());
        }
        dst_.fill(std::numeric_limits<Real>::quiet_NaN());
        if (kernel(src_.data(), dst_.data(), qsvScaleNone) != qsvStatusOk) return false;
        return IsClose(expected, 8);
    }

    /** Held to a wider tolerance: its accuracy is not ours to promise. In CCS, as FFTW's. */
    bool KissGivesTheSame() {
        if (kiss_ == nullptr) return true;
        src_ = input_;
        Fftw::Execute(plan_);
        const Array expected = dst_;
        src_ = input_;
        dst_.fill(std::numeric_limits<Real>::quiet_NaN());
        kiss_->Execute(src_.data(), dst_.data());
        kiss_->FinishCcs(dst_.data());
        return IsClose(expected, 100);
    }

    bool IsClose(const Array& expected, double roundings) const {
        double error = 0;
        double norm = 0;
        for (size_t k = 0; k < ResultSize(); ++k) {
            error += std::pow(dst_[k] - expected[k], 2);
            norm += std::pow(expected[k], 2);
        }
        const double tolerance = roundings * std::numeric_limits<Real>::epsilon();
        return std::sqrt(error) <= tolerance * std::sqrt(norm);
    }

    Kernel* KernelOf(Party party) const { return party == kOurs ? ours_ : other_; }

    uint64_t TimeParty(Party party, int calls) {
        if (party == kPeer) return TimeBatch(calls, [&] { Fftw::Execute(plan_); });
        if (party == kKiss) {
            return TimeBatch(calls, [plan = kiss_.get(), src = src_.data(), dst = dst_.data()] {
                plan->Execute(src, dst);
            });
        }
        return TimeBatch(calls, [kernel = KernelOf(party), src = src_.data(), dst = dst_.data()] {
            kernel(src, dst, qsvScaleNone);
        });
    }

    const KernelFamily& family_;
    Comparison& comparison_;
    Kernel* ours_ = nullptr;
    Kernel* other_ = nullptr;
    typename Fftw::Plan plan_ = nullptr;
    std::unique_ptr<KissPlan<Real>> kiss_;
    std::array<int, kParties> calls_ = {};
    Array input_ = {};
    // The same two arrays for everyone, so that no party has luckier addresses.
    alignas(64) Array src_ = {};
    alignas(64) Array dst_ = {};
};

}  // namespace bench
