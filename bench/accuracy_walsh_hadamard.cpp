#include <qsvgen.h>

#include <stdexcept>

#include "accuracy.hpp"
#include "support/signals.hpp"
#include "textbook_wht.hpp"
#include "wht_comparison.hpp"

namespace bench {
namespace {

/** Sums of numbers of far fewer bits: what the sums lose stands far below their last bits. */
template <typename Real>
std::vector<long double> Exact(const std::vector<Real>& x) {
    std::vector<long double> y(x.begin(), x.end());
    for (size_t h = 1; h < y.size(); h *= 2) {
        for (size_t i = 0; i < y.size(); ++i) {
            if ((i & h) != 0) continue;
            const long double a = y[i];
            y[i] = a + y[i + h];
            y[i + h] = a - y[i + h];
        }
    }
    return y;
}

template <typename E>
void Measure(const TransformLibrary& library, const AccuracyOptions& options,
             std::vector<Accuracy>& found) {
    using Real = typename E::Real;
    using Kernel = QsvStatus(const Real*, Real*, int32_t, uint8_t*);
    const std::string type = E::kSuffix;
    options.on_progress("walsh_hadamard", type);
    for (int order = 1; order <= kHighestOrder; ++order) {
        auto* const kernel =
            library.Exported<Kernel>("qsvgWHT_" + std::to_string(order) + "_" + type);
        const size_t size = size_t{1} << order;
        std::vector<Real> result(size);
        RelativeError ours;
        RelativeError loop;
        const int inputs = options.quick ? 10 : 100;
        for (int i = 0; i < inputs; ++i) {
            const auto input = qsvgen_test::random_signal<E>(size, 1000 + static_cast<uint32_t>(i));
            const std::vector<long double> exact = Exact(input);
            // Without a work buffer the transform takes one of its own.
            if (kernel(input.data(), result.data(), qsvScaleNone, nullptr) != qsvStatusOk)
                throw std::runtime_error("the Walsh-Hadamard transform of order " +
                                         std::to_string(order) + " refused the call");
            ours.Add(result.data(), exact);
            TextbookWht(input.data(), result.data(), size);
            loop.Add(result.data(), exact);
        }
        found.push_back(
            {.family = "walsh_hadamard",
             .type = type,
             .length = static_cast<int>(size),
             .inputs = inputs,
             .errors = {{"ours", ours.RootMeanSquare()}, {"loop", loop.RootMeanSquare()}}});
    }
}

}  // namespace

void MeasureWalshHadamard(const TransformLibrary& library, const AccuracyOptions& options,
                          std::vector<Accuracy>& found) {
    Measure<qsvgen_test::RealSingle>(library, options, found);
    Measure<qsvgen_test::RealDouble>(library, options, found);
}

}  // namespace bench
