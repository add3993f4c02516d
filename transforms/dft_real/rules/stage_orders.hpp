#pragma once

/**
 * @file
 * @brief For each length the order of stages of its three networks, and what they may cost.
 */

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

/** The product of the factors. */
int length_of(const std::vector<int>& order);

/** Lengths 2 to 64 in order. */
const std::vector<TableRow>& table();
const TableRow& row_of(int length);

}  // namespace dft_real
