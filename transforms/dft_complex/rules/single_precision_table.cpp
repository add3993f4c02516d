#include "transforms/dft_complex/rules/rules.hpp"

namespace dft_complex {

const std::vector<TableRow>& single_precision_table() {
    static const std::vector<TableRow> table = [] {
        const Rule n2 = small(2), n3 = small(3), n4 = small(4), n5 = small(5), n7 = small(7),
                   n8 = small(8), n11 = small(11);
        const Rule n6 = P(n3, n2), n9 = T(n3, n3), n10 = P(n5, n2), n12 = P(n4, n3),
                   n14 = P(n7, n2), n15 = P(n5, n3), n20 = P(n4, n5);
        const Rule n16 = T(n4, n4), n18 = T(n6, n3);
        const Rule n13 = R(n12), n17 = R(n16), n19 = R(n18), n23 = R(P(n2, n11)),
                   n29 = R(P(n4, n7)), n31 = R(P(n10, n3));
        // A prime that stands alone spreads over the lanes; beside a factor of 2 or more its
        // transforms share the lanes, each in its own, which takes fewer operations and shuffles.
        // Inside Rader's and the chirp convolution prime-factor splits save all twiddle factors.
        const Rule inner36 = P(n4, n9), inner40 = P(n8, n5), inner42 = P(n14, n3),
                   inner52 = P(n4, small(13)), inner60 = P(n15, n4);
        // With residues from zero on, neighbours in memory are neighbours in the lanes; only length
        // 3 gains more from conjugate factors.
        const Rule inner96 = T(n4, P(n8, n3)), inner128 = T(n8, n16);
        return std::vector<TableRow>{
            {2, n2, 2, 2, 4},
            {3, n3, 6, 4, 6},
            {4, n4, 8, 8, 8},
            {5, n5, 12, 8, 10},
            {6, P(n2, n3), 8, 8, 7},
            {7, R(P(n2, n3)), 24, 18, 29},
            {8, T(n4, n2), 11, 11, 8},
            {9, n9, 14, 14, 24},
            {10, n10, 22, 18, 22},
            {11, R(n10), 53, 39, 58},
            {12, n12, 14, 14, 10},
            {13, n13, 36, 30, 33},
            {14, P(n2, n7), 35, 33, 43},
            {15, n15, 30, 26, 33},
            {16, n16, 19, 19, 20},
            {17, n17, 47, 41, 53},
            {18, n18, 34, 34, 43},
            {19, n19, 79, 73, 109},
            {20, n20, 34, 30, 26},
            {21, P(n7, n3), 43, 41, 56},
            {22, P(n2, n11), 74, 78, 111},
            {23, n23, 164, 166, 261},
            {24, T(n12, n2), 39, 39, 40},
            {25, T(n5, n5, Residues::FromZero), 80, 64, 113},
            {26, P(small(13), n2), 96, 96, 86},
            {27, T(n9, n3), 64, 64, 93},
            {28, P(n4, n7), 47, 45, 50},
            {29, n29, 106, 96, 121},
            {30, P(n10, n3), 64, 56, 59},
            {31, n31, 142, 120, 149},
            {32, T(n4, n8), 49, 49, 48},
            {33, P(n11, n3), 86, 90, 130},
            {34, P(n2, small(17)), 148, 136, 125},
            {35, P(n5, n7), 98, 86, 125},
            {36, T(n12, n3), 64, 64, 58},
            {37, R(inner36), 142, 136, 141},
            {38, P(n2, small(19)), 198, 194, 251},
            {39, P(small(13), n3), 112, 112, 109},
            {40, T(n10, n4), 79, 71, 90},
            {41, R(inner40), 175, 153, 213},
            {42, P(n14, n3), 100, 96, 109},
            {43, R(inner42), 217, 203, 257},
            {44, P(n4, n11), 92, 96, 122},
            {45, T(n15, n3), 116, 104, 142},
            {46, T(small(23), n2), 354, 326, 518},
            {47, C(47, inner96), 404, 404, 464},
            {48, T(n12, n4), 83, 83, 84},
            {49, T(n7, n7, Residues::FromZero), 136, 128, 222},
            {50, T(n10, n5, Residues::FromZero), 158, 130, 187},
            {51, P(small(17), n3), 170, 154, 155},
            {52, P(n4, small(13)), 120, 120, 98},
            {53, R(inner52), 258, 252, 233},
            {54, T(T(P(n2, n3), n3), n3), 138, 138, 169},
            {55, P(n5, n11), 190, 186, 281},
            {56, T(n14, n4), 120, 116, 150},
            {57, P(small(19), n3), 218, 214, 282},
            {58, P(n2, small(29)), 344, 344, 425},
            {59, C(59, inner128), 571, 555, 646},
            {60, T(n20, n3), 130, 118, 154},
            {61, R(inner60), 280, 250, 345},
            {62, T(small(31), n2), 382, 358, 442},
            {63, P(n9, n7), 173, 167, 223},
            {64, T(n8, n8), 118, 118, 104},
        };
    }();
    return table;
}

}  // namespace dft_complex
