#pragma once

#include <benchmark/benchmark.h>
#include <qsvgen.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "batch_clock.hpp"
#include "comparison.hpp"
#include "fftw_peer.hpp"
#include "transform_library.hpp"

namespace bench {

/** One length and direction: the kernels, the peer's plan and the arrays that all parties share. */
template <typename Peer>
class DftComplexCase {
  public:
    using Real = typename Peer::Real;
    using Complex = typename Peer::Complex;

    DftComplexCase(const TransformLibrary& ours, const TransformLibrary* other,
                   Comparison& comparison)
        : comparison_(comparison) {
        const std::string direction = IsForward() ? "Fwd" : "Inv";
        const std::string kernel = "qsvgDFT" + direction + "_CToC_" +
                                   std::to_string(comparison.length) + "_" + Peer::kType;
        ours_ = ours.Exported<Kernel>(kernel);
        if (other != nullptr) other_ = other->Exported<Kernel>(kernel);
        comparison.has_other = other != nullptr;
    }
    DftComplexCase(const DftComplexCase&) = delete;
    DftComplexCase& operator=(const DftComplexCase&) = delete;
    ~DftComplexCase() { Peer::DestroyPlan(plan_); }

    std::string Name() const {
        return std::string("dft_complex/") + ShortName(comparison_.direction) + "/" +
               std::to_string(comparison_.length) + "/" + Peer::kType;
    }

    void Run(benchmark::State& state) {
        // Planning waits until here so that a filter saves its time.
        if (plan_ == nullptr) Prepare();
        if (!SameResults(ours_) || (other_ != nullptr && !SameResults(other_))) {
            state.SkipWithError("a library and the peer give different results");
            return;
        }
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
    using Kernel = QsvStatus(const Complex*, Complex*, int32_t);
    static constexpr size_t kMaxLength = 64;

    bool IsForward() const { return comparison_.direction == Direction::kForward; }

    void Prepare() {
        plan_ = Peer::MakePlan(comparison_.length, src_.data(), dst_.data(),
                               IsForward() ? FFTW_FORWARD : FFTW_BACKWARD);
        std::mt19937 random(1);
        std::uniform_real_distribution<Real> sample(-1, 1);
        for (Complex& element : src_) element = {sample(random), sample(random)};
        CalibrateCalls();
    }

    void CalibrateCalls() {
        calls_[kOurs] = CallsPerBatch([&] { ours_(src_.data(), dst_.data(), qsvScaleNone); });
        calls_[kPeer] = CallsPerBatch([&] { Peer::Execute(plan_); });
        if (other_ == nullptr) return;
        calls_[kOther] = CallsPerBatch([&] { other_(src_.data(), dst_.data(), qsvScaleNone); });
    }

    /** No time counts for a wrong result. */
    bool SameResults(Kernel* kernel) {
        Peer::Execute(plan_);
        const std::array<Complex, kMaxLength> expected = dst_;
        dst_.fill({std::numeric_limits<Real>::quiet_NaN(), 0});
        if (kernel(src_.data(), dst_.data(), qsvScaleNone) != qsvStatusOk) return false;
        double error = 0;
        double norm = 0;
        for (size_t k = 0; k < static_cast<size_t>(comparison_.length); ++k) {
            error +=
                std::pow(dst_[k].re - expected[k].re, 2) + std::pow(dst_[k].im - expected[k].im, 2);
            norm += std::pow(expected[k].re, 2) + std::pow(expected[k].im, 2);
        }
        constexpr double kTolerance = 8 * std::numeric_limits<Real>::epsilon();
        return std::sqrt(error) <= kTolerance * std::sqrt(norm);
    }

    uint64_t TimeParty(Party party, int calls) {
        if (party == kPeer) return TimeBatch(calls, [&] { Peer::Execute(plan_); });
        Kernel* const kernel = party == kOurs ? ours_ : other_;
        return TimeBatch(
            calls, [=, src = src_.data(), dst = dst_.data()] { kernel(src, dst, qsvScaleNone); });
    }

    Comparison& comparison_;
    Kernel* ours_ = nullptr;
    Kernel* other_ = nullptr;
    typename Peer::Plan plan_ = nullptr;
    std::array<int, kParties> calls_ = {};
    // The same two arrays for everyone, so that no party has luckier addresses.
    alignas(64) std::array<Complex, kMaxLength> src_ = {};
    alignas(64) std::array<Complex, kMaxLength> dst_ = {};
};

}  // namespace bench
