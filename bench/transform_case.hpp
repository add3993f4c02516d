#pragma once

#include <benchmark/benchmark.h>
#include <qsvgen.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "batch_clock.hpp"
#include "comparison.hpp"
#include "fftw_peer.hpp"
#include "kernel_family.hpp"
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
    }
    TransformCase(const TransformCase&) = delete;
    TransformCase& operator=(const TransformCase&) = delete;
    ~TransformCase() { Fftw::DestroyPlan(plan_); }

    void Run(benchmark::State& state) {
        // Planning waits until here so that a filter saves its time.
        if (plan_ == nullptr) Prepare();
        if (!SameResults(ours_) || (other_ != nullptr && !SameResults(other_))) {
            state.SkipWithError("a library and the peer give different results");
            return;
        }
        FillTimedSource();
        const size_t parties = other_ != nullptr ? kParties : kOther;
        for ([[maybe_unused]] auto iteration : state) {
            std::array<double, kParties> cycles = {};
            for (size_t turn = 0; turn < parties; ++turn) {
                const auto party =
                    static_cast<Party>((turn + static_cast<size_t>(comparison_.rounds)) % parties);
                cycles[party] =
                    static_cast<double>(TimeParty(party, calls_[party])) / calls_[party];
            }
            comparison_.AddRound(cycles);
            state.SetIterationTime(cycles[kOurs] * 1e-9);
        }
        // For --benchmark_out; the last repetition's are the minima of all.
        state.counters["ours_cycles"] = comparison_.cycles[kOurs];
        state.counters["peer_cycles"] = comparison_.cycles[kPeer];
        state.counters["ratio"] = comparison_.Ratio();
    }

  private:
    // Elements of all types are handed over by address, in the same way.
    using Kernel = QsvStatus(const void*, void*, int32_t);
    // A complex source of 64 elements is the longest array.
    using Array = std::array<Real, 128>;

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
        for (const Party party : {kOurs, kPeer, kOther}) {
            if (party == kPeer) {
                calls_[party] = CallsPerBatch([&] { Fftw::Execute(plan_); });
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
        double error = 0;
        double norm = 0;
        for (size_t k = 0; k < ResultSize(); ++k) {
            error += std::pow(dst_[k] - expected[k], 2);
            norm += std::pow(expected[k], 2);
        }
        constexpr double kTolerance = 8 * std::numeric_limits<Real>::epsilon();
        return std::sqrt(error) <= kTolerance * std::sqrt(norm);
    }

    Kernel* KernelOf(Party party) const { return party == kOurs ? ours_ : other_; }

    uint64_t TimeParty(Party party, int calls) {
        if (party == kPeer) return TimeBatch(calls, [&] { Fftw::Execute(plan_); });
        return TimeBatch(calls, [kernel = KernelOf(party), src = src_.data(), dst = dst_.data()] {
            kernel(src, dst, qsvScaleNone);
        });
    }

    const KernelFamily& family_;
    Comparison& comparison_;
    Kernel* ours_ = nullptr;
    Kernel* other_ = nullptr;
    typename Fftw::Plan plan_ = nullptr;
    std::array<int, kParties> calls_ = {};
    Array input_ = {};
    // The same two arrays for everyone, so that no party has luckier addresses.
    alignas(64) Array src_ = {};
    alignas(64) Array dst_ = {};
};

}  // namespace bench
