#include "transforms/dft_real/rules/stage_orders.hpp"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>

#include "transforms/residues/residues.hpp"

namespace dft_real {
namespace {

using residues::is_prime;

const std::vector<TableRow>& checked_table() {
    static const bool checked = (check(table()), true);
    static_cast<void>(checked);
    return table();
}

}  // namespace

int length_of(const std::vector<int>& order) {
    int length = 1;
    for (int factor : order) length *= factor;
    return length;
}

bool TableRow::is_convolution(Kind kind) const {
    return length_of(order_of(kind)) != length;
}

std::vector<int> TableRow::factors_of(Kind kind) const {
    return is_convolution(kind) ? std::vector<int>{length} : order_of(kind);
}

const std::vector<TableRow>& table() {
    // clang-format off
    static const std::vector<TableRow> rows = {
        {2, {{2}, {2}, {2}}, {{2, 0}, {2, 0}, {2, 0}}},
        {3, {{3}, {3}, {3}}, {{5, 2}, {4, 2}, {6, 2}}},
        {4, {{2, 2}, {2, 2}, {2, 2}}, {{7, 0}, {6, 0}, {8, 0}}},
        {5, {{5}, {5}, {5}}, {{13, 8}, {12, 8}, {16, 8}}},
        {6, {{3, 2}, {2, 3}, {3, 2}}, {{15, 4}, {14, 4}, {18, 4}}},
        {7, {{7}, {7}, {7}}, {{25, 18}, {24, 18}, {30, 18}}},
        {8, {{2, 2, 2}, {2, 2, 2}, {2, 2, 2}}, {{23, 2}, {20, 2}, {26, 2}}},
        {9, {{3, 3}, {3, 3}, {3, 3}}, {{35, 20}, {32, 18}, {40, 20}}},
        {10, {{5, 2}, {2, 5}, {2, 5}}, {{37, 16}, {34, 16}, {42, 16}}},
        {11, {{11}, {5, 2}, {11}}, {{61, 50}, {68, 50}, {70, 50}}},
        {12, {{2, 2, 3}, {3, 2, 2}, {3, 2, 2}}, {{41, 8}, {38, 8}, {48, 8}}},
        {13, {{3, 2, 2}, {3, 2, 2}, {2, 3, 2}}, {{80, 41}, {80, 44}, {92, 44}}},
        {14, {{2, 7}, {2, 7}, {2, 7}}, {{65, 36}, {62, 36}, {74, 36}}},
        {15, {{3, 5}, {3, 5}, {3, 5}}, {{67, 34}, {64, 34}, {78, 34}}},
        {16, {{2, 2, 2, 2}, {2, 2, 2, 2}, {2, 2, 2, 2}}, {{64, 12}, {58, 12}, {72, 12}}},
        {17, {{2, 2, 2, 2}, {4, 2, 2}, {2, 2, 2, 2}}, {{121, 54}, {116, 54}, {132, 54}}},
        {18, {{2, 3, 3}, {2, 3, 3}, {2, 3, 3}}, {{86, 40}, {82, 36}, {98, 36}}},
        {19, {{3, 3, 2}, {3, 3, 2}, {3, 3, 2}}, {{168, 108}, {164, 110}, {182, 108}}},
        {20, {{5, 2, 2}, {5, 2, 2}, {5, 2, 2}}, {{91, 32}, {86, 32}, {104, 32}}},
        {21, {{7, 3}, {3, 7}, {7, 3}}, {{118, 68}, {112, 68}, {132, 68}}},
        {22, {{2, 11}, {11, 2}, {2, 11}}, {{147, 100}, {158, 100}, {162, 100}}},
        {23, {{2, 11}, {11, 2}, {2, 11}}, {{304, 242}, {284, 242}, {306, 242}}},
        {24, {{3, 2, 2, 2}, {2, 2, 2, 3}, {3, 2, 2, 2}}, {{109, 22}, {104, 22}, {126, 22}}},
        {25, {{5, 5}, {5, 5}, {5, 5}}, {{158, 112}, {152, 112}, {176, 112}}},
        {26, {{13, 2}, {2, 13}, {13, 2}}, {{189, 82}, {186, 88}, {206, 82}}},
        {27, {{3, 3, 3}, {3, 3, 3}, {3, 3, 3}}, {{172, 110}, {164, 100}, {190, 100}}},
        {28, {{2, 2, 7}, {2, 2, 7}, {2, 2, 7}}, {{157, 72}, {150, 72}, {176, 72}}},
        {29, {{7, 2, 2}, {4, 7}, {7, 2, 2}}, {{314, 210}, {306, 210}, {334, 210}}},
        {30, {{5, 3, 2}, {3, 5, 2}, {3, 5, 2}}, {{167, 68}, {158, 68}, {186, 68}}},
        {31, {{3, 2, 5}, {3, 5, 2}, {2, 3, 5}}, {{322, 192}, {316, 194}, {346, 194}}},
        {32, {{2, 2, 2, 2, 2}, {2, 2, 2, 2, 2}, {2, 2, 2, 2, 2}}, {{168, 44}, {156, 42}, {186, 42}}},
        {33, {{11, 3}, {3, 11}, {3, 11}}, {{252, 172}, {268, 172}, {300, 172}}},
        {34, {{2, 17}, {17, 2}, {17, 2}}, {{274, 108}, {266, 108}, {298, 108}}},
        {35, {{7, 5}, {5, 7}, {5, 7}}, {{236, 146}, {228, 146}, {262, 146}}},
        {36, {{3, 3, 2, 2}, {2, 2, 3, 3}, {2, 2, 3, 3}}, {{208, 80}, {198, 72}, {232, 72}}},
        {37, {{2, 2, 3, 3}, {4, 3, 3}, {2, 2, 3, 3}}, {{408, 228}, {402, 236}, {438, 236}}},
        {38, {{19, 2}, {2, 19}, {19, 2}}, {{378, 216}, {366, 220}, {402, 216}}},
        {39, {{13, 3}, {13, 3}, {13, 3}}, {{321, 149}, {308, 142}, {348, 149}}},
        {40, {{2, 2, 2, 5}, {5, 2, 2, 2}, {5, 2, 2, 2}}, {{231, 74}, {220, 74}, {258, 74}}},
        {41, {{5, 2, 2, 2}, {5, 2, 2, 2}, {5, 2, 2, 2}}, {{453, 242}, {444, 242}, {484, 242}}},
        {42, {{7, 3, 2}, {2, 3, 7}, {2, 3, 7}}, {{276, 136}, {266, 136}, {306, 136}}},
        {43, {{2, 7, 3}, {7, 3, 2}, {2, 7, 3}}, {{541, 352}, {532, 352}, {574, 352}}},
        {44, {{11, 2, 2}, {2, 2, 11}, {2, 2, 11}}, {{337, 200}, {358, 200}, {400, 200}}},
        {45, {{5, 3, 3}, {5, 3, 3}, {5, 3, 3}}, {{311, 172}, {300, 162}, {344, 162}}},
        {46, {{2, 23}, {23, 2}, {23, 2}}, {{657, 484}, {614, 484}, {658, 484}}},
        {47, {{23, 2}, {23, 2}, {23, 2}}, {{1269, 1058}, {1260, 1058}, {1306, 1058}}},
        {48, {{2, 2, 2, 2, 3}, {2, 2, 2, 2, 3}, {2, 2, 2, 2, 3}}, {{280, 68}, {270, 72}, {316, 72}}},
        {49, {{7, 7}, {7, 7}, {7, 7}}, {{419, 324}, {408, 324}, {456, 324}}},
        {50, {{5, 5, 2}, {5, 5, 2}, {5, 5, 2}}, {{372, 224}, {354, 224}, {402, 224}}},
        {51, {{17, 3}, {3, 17}, {3, 17}}, {{464, 196}, {448, 196}, {498, 196}}},
        {52, {{13, 2, 2}, {13, 2, 2}, {13, 2, 2}}, {{428, 164}, {414, 160}, {464, 164}}},
        {53, {{2, 2, 13}, {13, 2, 2}, {2, 13, 2}}, {{858, 456}, {840, 450}, {892, 450}}},
        {54, {{2, 3, 3, 3}, {3, 3, 3, 2}, {3, 3, 3, 2}}, {{395, 220}, {382, 200}, {434, 200}}},
        {55, {{11, 5}, {5, 11}, {5, 11}}, {{486, 338}, {512, 338}, {566, 338}}},
        {56, {{7, 2, 2, 2}, {2, 2, 2, 7}, {2, 2, 2, 7}}, {{382, 158}, {368, 158}, {422, 158}}},
        {57, {{19, 3}, {3, 19}, {19, 3}}, {{620, 362}, {604, 368}, {660, 362}}},
        {58, {{2, 29}, {29, 2}, {2, 29}}, {{684, 420}, {670, 420}, {726, 420}}},
        {59, {{29, 2}, {29, 2}, {29, 2}}, {{1350, 954}, {1340, 954}, {1398, 954}}},
        {60, {{3, 5, 2, 2}, {2, 2, 3, 5}, {2, 2, 3, 5}}, {{392, 136}, {374, 136}, {432, 136}}},
        {61, {{3, 5, 2, 2}, {5, 3, 2, 2}, {3, 5, 2, 2}}, {{776, 415}, {762, 418}, {822, 415}}},
        {62, {{31, 2}, {31, 2}, {31, 2}}, {{715, 384}, {694, 388}, {754, 388}}},
        {63, {{7, 3, 3}, {3, 3, 7}, {7, 3, 3}}, {{506, 302}, {488, 300}, {550, 302}}},
        {64, {{2, 2, 2, 2, 2, 2}, {2, 2, 2, 2, 2, 2}, {2, 2, 2, 2, 2, 2}}, {{417, 132}, {400, 134}, {462, 134}}},
    };
    // clang-format on
    return rows;
}

std::string in_words(const std::vector<int>& order) {
    std::string text;
    for (int factor : order) text += (text.empty() ? "" : " ") + std::to_string(factor);
    return text;
}

const TableRow& row_of(int length) {
    const std::vector<TableRow>& rows = checked_table();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const TableRow& r) { return r.length == length; });
    if (row == rows.end())
        throw std::out_of_range("there is no real transform of length " + std::to_string(length));
    return *row;
}

const std::vector<int>& lengths() {
    static const std::vector<int> all = [] {
        std::vector<int> result;
        for (const TableRow& row : checked_table()) result.push_back(row.length);
        return result;
    }();
    return all;
}

ConvolutionForm convolution_form(int prime) {
    return prime == 13 ? ConvolutionForm::SineWaits : ConvolutionForm::Usual;
}

bool has_wide_sums(int length) {
    static const std::set<int> without = {9, 18, 36, 45, 63};
    return !without.contains(length);
}

std::span<const SettledConstant> settled_constants() {
    static constexpr SettledConstant settled[] = {
        {11, 5, false, "0.33166247903554"},
        {13, 2, true, "0.30711137115908277"},
        {13, 5, true, "0.6004772719326652"},
        {13, 6, false, "0.3004626062886657"},
    };
    return settled;
}

void check(const std::vector<TableRow>& rows) {
    int last = 0;
    for (const TableRow& row : rows) {
        const std::string name =
            "the table of stage orders: the row of length " + std::to_string(row.length);
        if (row.length < 2) throw std::invalid_argument(name + " is too short for a transform");
        if (row.length == last) throw std::invalid_argument(name + " stands twice");
        if (row.length < last)
            throw std::invalid_argument(name + " stands behind that of " + std::to_string(last));
        last = row.length;
        for (const std::vector<int>& order : row.order) {
            const int product = length_of(order);
            const bool makes_sense = std::all_of(order.begin(), order.end(), [](int factor) {
                return factor == 4 || is_prime(factor);
            });
            if (order.empty() || !makes_sense)
                throw std::invalid_argument(name + " has the order " + in_words(order) +
                                            ", whose factors are to be primes or 4");
            if (product != row.length && (product != row.length - 1 || !is_prime(row.length)))
                throw std::invalid_argument(name + " has the order " + in_words(order) +
                                            ", which makes " + std::to_string(product) + " points");
        }
    }
}

}  // namespace dft_real
