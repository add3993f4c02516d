#pragma once

/** @file @brief How many operations each real transform may cost, and where some of them stand. */

#include <array>

#include "support/kernel.hpp"

namespace qsvgen_test {

/**
 * Sums and differences, and products with constants of the network: without the factor of the flag
 * (one product an output) and without the doubling of bins before an inverse transform.
 */
struct OperationCounts {
    int sums;
    int products;
};

struct RealCounts {
    int length;
    OperationCounts forward;
    OperationCounts inverse;
    OperationCounts hartley;
    /** Forward outputs of binary32 kernels whose factor stands in a row of products. */
    int scaled_in_rows;
    /** Bins of an inverse transform whose doubling is in the constant of their one product. */
    int folded_doublings;
};

// clang-format off
inline constexpr std::array<RealCounts, kLengthCount> kRealCounts = {{
    {2, {2, 0}, {2, 0}, {2, 0}, 0, 0},
    {3, {5, 2}, {4, 2}, {6, 2}, 2, 1},
    {4, {7, 0}, {6, 0}, {8, 0}, 0, 0},
    {5, {13, 8}, {12, 8}, {16, 8}, 4, 0},
    {6, {15, 4}, {14, 4}, {18, 4}, 0, 0},
    {7, {25, 18}, {24, 18}, {30, 18}, 6, 0},
    {8, {23, 2}, {20, 2}, {26, 2}, 0, 0},
    {9, {35, 20}, {32, 18}, {40, 20}, 2, 1},
    {10, {37, 16}, {34, 16}, {42, 16}, 0, 0},
    {11, {61, 50}, {68, 50}, {70, 50}, 10, 0},
    {12, {41, 8}, {38, 8}, {48, 8}, 4, 2},
    {13, {80, 41}, {80, 44}, {92, 44}, 0, 0},
    {14, {65, 36}, {62, 36}, {74, 36}, 12, 0},
    {15, {67, 34}, {64, 34}, {78, 34}, 4, 1},
    {16, {64, 12}, {58, 12}, {72, 12}, 0, 0},
    {17, {121, 54}, {116, 54}, {132, 54}, 4, 2},
    {18, {86, 40}, {82, 36}, {98, 36}, 4, 0},
    {19, {168, 108}, {164, 110}, {182, 108}, 0, 0},
    {20, {91, 32}, {86, 32}, {104, 32}, 0, 0},
    {21, {118, 68}, {112, 68}, {132, 68}, 2, 1},
    {22, {147, 100}, {158, 100}, {162, 100}, 20, 0},
    {23, {304, 242}, {284, 242}, {306, 242}, 0, 0},
    {24, {109, 22}, {104, 22}, {126, 22}, 0, 0},
    {25, {158, 112}, {152, 112}, {176, 112}, 4, 0},
    {26, {189, 82}, {186, 88}, {206, 82}, 0, 0},
    {27, {172, 110}, {164, 100}, {190, 100}, 2, 1},
    {28, {157, 72}, {150, 72}, {176, 72}, 12, 0},
    {29, {314, 210}, {306, 210}, {334, 210}, 0, 0},
    {30, {167, 68}, {158, 68}, {186, 68}, 0, 2},
    {31, {322, 192}, {316, 194}, {346, 194}, 0, 0},
    {32, {168, 44}, {156, 42}, {186, 42}, 0, 0},
    {33, {252, 172}, {268, 172}, {300, 172}, 2, 1},
    {34, {274, 108}, {266, 108}, {298, 108}, 8, 4},
    {35, {236, 146}, {228, 146}, {262, 146}, 4, 0},
    {36, {208, 80}, {198, 72}, {232, 72}, 0, 0},
    {37, {408, 228}, {402, 236}, {438, 236}, 0, 0},
    {38, {378, 216}, {366, 220}, {402, 216}, 0, 0},
    {39, {321, 149}, {308, 142}, {348, 149}, 2, 0},
    {40, {231, 74}, {220, 74}, {258, 74}, 8, 0},
    {41, {453, 242}, {444, 242}, {484, 242}, 0, 0},
    {42, {276, 136}, {266, 136}, {306, 136}, 0, 0},
    {43, {541, 352}, {532, 352}, {574, 352}, 0, 0},
    {44, {337, 200}, {358, 200}, {400, 200}, 0, 0},
    {45, {311, 172}, {300, 162}, {344, 162}, 2, 0},
    {46, {657, 484}, {614, 484}, {658, 484}, 0, 0},
    {47, {1269, 1058}, {1260, 1058}, {1306, 1058}, 0, 0},
    {48, {280, 68}, {270, 72}, {316, 72}, 4, 0},
    {49, {419, 324}, {408, 324}, {456, 324}, 6, 0},
    {50, {372, 224}, {354, 224}, {402, 224}, 0, 0},
    {51, {464, 196}, {448, 196}, {498, 196}, 2, 1},
    {52, {428, 164}, {414, 160}, {464, 164}, 0, 0},
    {53, {858, 456}, {840, 450}, {892, 450}, 0, 0},
    {54, {395, 220}, {382, 200}, {434, 200}, 4, 2},
    {55, {486, 338}, {512, 338}, {566, 338}, 4, 0},
    {56, {382, 158}, {368, 158}, {422, 158}, 0, 0},
    {57, {620, 362}, {604, 368}, {660, 362}, 2, 1},
    {58, {684, 420}, {670, 420}, {726, 420}, 0, 0},
    {59, {1350, 954}, {1340, 954}, {1398, 954}, 0, 0},
    {60, {392, 136}, {374, 136}, {432, 136}, 0, 0},
    {61, {776, 415}, {762, 418}, {822, 415}, 0, 0},
    {62, {715, 384}, {694, 388}, {754, 388}, 0, 0},
    {63, {506, 302}, {488, 300}, {550, 302}, 2, 1},
    {64, {417, 132}, {400, 134}, {462, 134}, 0, 0},
}};
// clang-format on

constexpr const RealCounts& real_counts(int length) {
    return kRealCounts[place_in_header(length)];
}

constexpr const OperationCounts& operation_counts(int length, Direction direction) {
    const auto& counts = real_counts(length);
    if (direction == Direction::Forward) return counts.forward;
    return direction == Direction::Inverse ? counts.inverse : counts.hartley;
}

/** At these lengths the last half of a convolution is free in form, and the numbers of scaled and
 * of folded values are upper bounds. */
constexpr bool is_open_by_half(int length) {
    return length == 17 || length == 34;
}

}  // namespace qsvgen_test
