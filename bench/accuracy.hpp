#pragma once

/** @file @brief How far results of random inputs are from an evaluation in extended precision. */

#include <cmath>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "transform_library.hpp"

namespace bench {

/** The root mean square of relative errors in the Euclidean norm. */
class RelativeError {
  public:
    template <typename Real>
    void Add(const Real* result, const std::vector<long double>& exact) {
        long double error = 0;
        long double norm = 0;
        for (size_t k = 0; k < exact.size(); ++k) {
            const long double difference = result[k] - exact[k];
            error += difference * difference;
            norm += exact[k] * exact[k];
        }
        sum_ += error / norm;
        ++count_;
    }
    double RootMeanSquare() const { return static_cast<double>(std::sqrt(sum_ / count_)); }

  private:
    long double sum_ = 0;
    int count_ = 0;
};

/** Of one transform and length, by each party that has it, on the same inputs. */
struct Accuracy {
    std::string family;  ///< dft_complex/fwd, dft_real/inv, hartley, walsh_hadamard, dct4
    std::string type;    ///< 32fc, 64fc, 32f, 64f
    int length = 0;
    int inputs = 0;
    std::vector<std::pair<std::string, double>> errors;  ///< of "ours", "fftw", ...
};

struct AccuracyOptions {
    bool quick = false;        ///< few inputs: a first look, not a result
    std::vector<int> lengths;  ///< of the DFTs and Hartley, all of them if empty
    int longest_dct4 = 65536;  ///< powers of two from 2 on
    std::function<void(const std::string& family, const std::string& type)> on_progress;
};

// Each appends what it has found; all throw std::runtime_error where a call is refused.
void MeasureDfts(const TransformLibrary& library, const AccuracyOptions& options,
                 std::vector<Accuracy>& found);
void MeasureWalshHadamard(const TransformLibrary& library, const AccuracyOptions& options,
                          std::vector<Accuracy>& found);
void MeasureDct4(const TransformLibrary& library, const AccuracyOptions& options,
                 std::vector<Accuracy>& found);

}  // namespace bench
