#include "wht_comparison.hpp"

#include <qsvgen.h>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <stdexcept>

#include "batch_clock.hpp"
#include "peer_figures.hpp"
#include "textbook_wht.hpp"

namespace bench {
namespace {

int Lanes(const std::string& type, int order) {
    if (type == "32f") return order <= 3 ? 1 : 4;
    return order <= 2 ? 1 : 2;
}

int Passes(const std::string& type, int order) {
    if (order <= 7) return 1;
    return order < (type == "32f" ? 12 : 11) ? 2 : 3;
}

/** The arrays of one type, the same for all orders and both parties. */
template <typename Real>
class WhtRunner {
  public:
    WhtRunner(const TransformLibrary& library, std::string type)
        : library_(library), type_(std::move(type)) {
        std::mt19937 random(1);
        std::uniform_real_distribution<Real> sample(-1, 1);
        for (Real& value : src_) value = sample(random);
    }

    /** One batch of each party, the one after the other. */
    void AddRound(WhtComparison& comparison) {
        const size_t size = size_t{1} << comparison.order;
        Kernel* const kernel = KernelOf(comparison.order);
        const auto ours = [&] { kernel(src_, dst_, qsvScaleNone, buffer_); };
        const auto textbook = [&] { TextbookWht(src_, dst_, size); };
        int& our_calls = calls_[2 * comparison.order];
        int& textbook_calls = calls_[2 * comparison.order + 1];
        if (our_calls == 0) {
            CheckResults(comparison.order);
            our_calls = CallsPerBatch(ours);
            textbook_calls = CallsPerBatch(textbook);
        }
        comparison.ours = std::min(comparison.ours, Cycles(our_calls, ours));
        comparison.textbook = std::min(comparison.textbook, Cycles(textbook_calls, textbook));
    }

  private:
    // The kernels of the orders 1 to 7 do not look at the buffer that they are given in excess.
    using Kernel = QsvStatus(const void*, void*, int32_t, uint8_t*);

    template <typename Call>
    static double Cycles(int calls, Call call) {
        return static_cast<double>(TimeBatch(calls, call)) / calls;
    }

    Kernel* KernelOf(int order) const {
        return library_.Exported<Kernel>("qsvgWHT_" + std::to_string(order) + "_" + type_);
    }

    /** No time counts for a wrong result; the two must agree to the bit. */
    void CheckResults(int order) {
        const size_t size = size_t{1} << order;
        TextbookWht(src_, expected_, size);
        std::memset(dst_, 0xFF, sizeof dst_);
        if (KernelOf(order)(src_, dst_, qsvScaleNone, buffer_) != qsvStatusOk ||
            std::memcmp(expected_, dst_, size * sizeof(Real)) != 0) {
            throw std::runtime_error("order " + std::to_string(order) + " of " + type_ +
                                     ": the library and the loop give different results");
        }
    }

    const TransformLibrary& library_;
    const std::string type_;
    int calls_[2 * kHighestOrder + 2] = {};
    static constexpr size_t kSize = size_t{1} << kHighestOrder;
    alignas(64) Real src_[kSize] = {};
    alignas(64) Real dst_[kSize] = {};
    alignas(64) Real expected_[kSize] = {};
    alignas(64) uint8_t buffer_[73728] = {};
};

}  // namespace

double WhtComparison::Bound() const {
    const double vectors = static_cast<double>(1 << order) / Lanes(type, order);
    const double sums = order * vectors;
    const double moves = Passes(type, order) * vectors;
    return std::max({sums / 2, moves / 2, moves});
}

std::vector<WhtComparison> CompareWht(const TransformLibrary& library,
                                      const std::string& peer_figures, bool quick) {
    static WhtRunner<float> singles(library, "32f");
    static WhtRunner<double> doubles(library, "64f");
    std::vector<WhtComparison> comparisons;
    for (const std::string type : {"32f", "64f"}) {
        const auto ratios = SpecialisedRatios(peer_figures, "walsh_hadamard_" + type.substr(0, 2));
        for (int order = 1; order <= kHighestOrder; ++order) {
            WhtComparison comparison;
            comparison.type = type;
            comparison.order = order;
            comparison.specialised_ratio = ratios.at(order);
            comparisons.push_back(comparison);
        }
    }
    // All orders in turn, again and again, spread the rounds of each over the whole run.
    const int repetitions = quick ? 10 : 300;
    const int rounds = quick ? 10 : 25;
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        for (WhtComparison& comparison : comparisons) {
            for (int round = 0; round < rounds; ++round) {
                if (comparison.type == "32f") {
                    singles.AddRound(comparison);
                } else {
                    doubles.AddRound(comparison);
                }
            }
        }
    }
    return comparisons;
}

}  // namespace bench
