#pragma once

/** @file @brief The table that the operations of the Walsh-Hadamard kernels are held to. */

#include <vector>

namespace walsh_hadamard_test {

/** What a kernel writes out: its bodies once each, however often its loops run them. */
struct ExpectedCounts {
    int order;
    std::vector<int> stages;
    int sums;
    int differences;
    int products;
    int buffer_bytes;
};

inline const std::vector<ExpectedCounts> kSingleCounts = {
    {1, {1}, 1, 1, 2, 0},
    {2, {2}, 4, 4, 4, 0},
    {3, {3}, 12, 12, 8, 0},
    {4, {4}, 8, 8, 4, 0},
    {5, {5}, 20, 20, 8, 0},
    {6, {6}, 48, 48, 16, 0},
    {7, {7}, 112, 112, 32, 0},
    {8, {5, 3}, 32, 32, 8, 1024},
    {9, {6, 3}, 60, 60, 8, 2048},
    {10, {6, 4}, 80, 80, 16, 4096},
    {11, {6, 5}, 128, 128, 32, 8192},
    {12, {6, 3, 3}, 72, 72, 8, 18432},
    {13, {6, 3, 4}, 92, 92, 16, 34816},
};

// Order 3 stands twice in its function.
inline const std::vector<ExpectedCounts> kDoubleCounts = {
    {1, {1}, 1, 1, 2, 0},
    {2, {2}, 4, 4, 4, 0},
    {3, {3}, 6, 6, 4, 0},
    {4, {4}, 16, 16, 8, 0},
    {5, {5}, 40, 40, 16, 0},
    {6, {6}, 96, 96, 32, 0},
    {7, {7}, 224, 224, 64, 0},
    {8, {5, 3}, 52, 52, 8, 2048},
    {9, {5, 4}, 72, 72, 16, 4096},
    {10, {7, 3}, 236, 236, 8, 8192},
    {11, {5, 3, 3}, 64, 64, 8, 18432},
    {12, {5, 3, 4}, 84, 84, 16, 34816},
    {13, {7, 3, 3}, 248, 248, 8, 73728},
};

inline const std::vector<ExpectedCounts>& expected_counts(bool single_precision) {
    return single_precision ? kSingleCounts : kDoubleCounts;
}

}  // namespace walsh_hadamard_test
