#include "transforms/dft_complex/rules/rules.hpp"

namespace dft_complex {

// Coprime parts always run without twiddle factors, since a complex value fills its vector and no
// lanes are to be filled. A prime from 13 on takes Rader's form as one small transform.
const std::vector<TableRow>& double_precision_table() {
    static const std::vector<TableRow> table = [] {
        const Rule n2 = small(2), n3 = small(3), n4 = small(4), n5 = small(5), n7 = small(7),
                   n8 = S(8), n11 = small(11), n16 = S(16);
        const Rule n13 = small(13), n17 = small(17), n19 = small(19), n23 = small(23),
                   n29 = small(29), n31 = small(31);
        const Rule n9 = T(n3, n3), n15 = P(n5, n3), n25 = T(n5, n5), n27 = T(n9, n3);
        // Four of the twelve or so products of a 5-point transform less, for a longer chain of
        // sums.
        const Rule h5 = small(5, SmallForm::HalfSumOfTwo);
        const Rule r7 = small(7, SmallForm::RaderOfSeven);
        return std::vector<TableRow>{
            {2, n2, 2, 2, 4},
            {3, n3, 6, 6, 10},
            {4, n4, 8, 8, 8},
            {5, n5, 9, 7, 13},
            {6, P(n2, n3), 9, 9, 10},
            {7, n7, 16, 14, 25},
            {8, n8, 13, 13, 10},
            {9, n9, 20, 20, 29},
            {10, P(h5, n2), 21, 21, 22},
            {11, n11, 32, 38, 61},
            {12, P(n3, n4), 24, 24, 20},
            {13, n13, 45, 45, 54},
            {14, P(n2, n7), 37, 37, 50},
            {15, n15, 42, 36, 49},
            {16, n16, 36, 36, 28},
            {17, n17, 67, 67, 73},
            {18, P(n9, n2), 49, 49, 58},
            {19, n19, 91, 91, 127},
            {20, P(n5, n4), 56, 48, 52},
            {21, P(n7, n3), 66, 66, 89},
            {22, P(n11, n2), 73, 89, 122},
            {23, n23, 158, 164, 265},
            {24, P(n8, n3), 63, 63, 46},
            {25, n25, 97, 79, 137},
            {26, P(n13, n2), 103, 103, 108},
            {27, n27, 95, 95, 137},
            {28, P(n4, n7), 92, 84, 100},
            {29, n29, 171, 163, 239},
            {30, P(P(n2, n5), n3), 99, 87, 98},
            {31, n31, 180, 166, 223},
            {32, S(32), 94, 94, 76},
            {33, P(n11, n3), 141, 135, 205},
            {34, P(n2, n17), 151, 151, 146},
            {35, P(h5, n7, r7), 137, 129, 165},
            {36, P(n4, n9), 116, 116, 116},
            {37, small(37), 224, 224, 293},
            {38, P(n2, n19), 201, 201, 254},
            {39, P(n13, n3), 174, 174, 188},
            {40, P(n8, n5), 136, 122, 114},
            {41, small(41), 248, 240, 267},
            {42, P(P(n2, n7), n3), 153, 153, 178},
            {43, small(43), 294, 292, 420},
            {44, P(n4, n11), 168, 200, 244},
            {45, P(n5, n9), 181, 163, 217},
            {46, P(n23, n2), 337, 353, 530},
            {47, small(47), 672, 666, 1105},
            {48, P(n16, n3), 156, 156, 116},
            {49, T(n7, n7), 241, 215, 373},
            {50, P(T(h5, h5), n2), 207, 195, 250},
            {51, P(n17, n3), 252, 252, 253},
            {52, P(n13, n4), 232, 232, 216},
            {53, small(53), 454, 454, 541},
            {54, P(n2, n27), 217, 217, 274},
            {55, P(n11, n5), 263, 263, 393},
            {56, P(n7, n8), 219, 203, 214},
            {57, P(n19, n3), 330, 330, 419},
            {58, P(n29, n2), 371, 355, 478},
            {59, small(59), 720, 690, 1037},
            {60, P(P(n3, h5), n4), 224, 208, 188},
            {61, small(61), 429, 393, 478},
            {62, P(n31, n2), 391, 363, 446},
            {63, P(n7, n9), 275, 275, 365},
            {64, S(64), 230, 230, 196},
        };
    }();
    return table;
}

}  // namespace dft_complex
