#pragma once

/**
 * @file
 * @brief For each length the order of stages of its three networks, and what they may cost.
 */

#include <span>
#include <string>
#include <vector>

namespace dft_real {

enum class Kind { Forward, Inverse, Hartley };

/** Sums, subtractions from 0 included, and products with constants, without the scale factor and
 * the doubling of an inverse transform's inputs. */
struct Cost {
    int sums;
    int products;
};

struct TableRow {
    int length;
    /** Factors from the first stage to the last, by Kind; for a prime from 13 on (and the inverse
     * of 11) those of the length less one, whose convolution takes its place. */
    std::vector<int> order[3];
    Cost cost[3];

    const std::vector<int>& order_of(Kind kind) const { return order[static_cast<int>(kind)]; }
    /** Whether that is the order of the convolution which takes a prime's place. */
    bool is_convolution(Kind kind) const;
    /** Factors of the length itself: of a prime with a convolution's order the prime alone. */
    std::vector<int> factors_of(Kind kind) const;
    const Cost& cost_of(Kind kind) const { return cost[static_cast<int>(kind)]; }
};

/** "3 2 2", by which tunings know the order that they were found for. */
std::string in_words(const std::vector<int>& order);

/** The product of the factors. */
int length_of(const std::vector<int>& order);

/** Rows in order of their lengths, which are those of the family (and of the Hartley transforms)
 * and stand nowhere else. */
const std::vector<TableRow>& table();
const TableRow& row_of(int length);
const std::vector<int>& lengths();

/** Throws std::invalid_argument, with a sentence, where rows do not ascend, where one stands twice,
 * or where an order is neither that of the length nor that of the convolution of an odd prime. */
void check(const std::vector<TableRow>& rows);

/** How a prime's forward convolution is written. */
enum class ConvolutionForm {
    Usual,
    SineWaits,  ///< the sine of the first three-point stage, until it meets that of the last
};
ConvolutionForm convolution_form(int prime);

/** Whether binary32 kernels form sums of three-point butterflies in the precision of their row,
 * where there are such: everywhere but in nine-point stages that are neither inside of a
 * convolution nor of the transform of 27 points. */
bool has_wide_sums(int length);

/** A constant of a convolution, the weighted spectrum of the prime at a frequency, that stands a
 * unit in the last place beside the nearest value. Results rest on it to the bit, so it stays. */
struct SettledConstant {
    int prime;
    int frequency;
    bool imaginary;
    const char* magnitude;
};
std::span<const SettledConstant> settled_constants();

}  // namespace dft_real
