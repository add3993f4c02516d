#include "transforms/dct4/definitions.hpp"

#include "kernelgen/proof/proof.hpp"
#include "transforms/dct4/bodies.hpp"

namespace dct4 {
namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Wide;

Wide cosine(long numerator, long denominator) {
    return Exact::cosine(numerator, denominator).value();
}

Wide sine(long numerator, long denominator) {
    return Exact::sine(numerator, denominator).value();
}

/** g[j] stands at this place: those with a negative index behind the others, counted backwards. */
int index_at(int place, int half) {
    return place < half ? place : half - 1 - place;
}

/** An angle of 2 pi numerator / denominator. */
struct Turn {
    long numerator;
    long denominator;

    Turn operator*(long factor) const { return {numerator * factor, denominator}; }
    Turn operator+(Turn other) const {
        return {numerator * other.denominator + other.numerator * denominator,
                denominator * other.denominator};
    }
    Wide cosine() const { return dct4::cosine(numerator, denominator); }
    Wide sine() const { return dct4::sine(numerator, denominator); }
};

/** A table with a pair of places, cosines and sines, for each of the turns, one turn a lane. */
class Table {
  public:
    explicit Table(Element element) : lanes_(lanes(element)) {}

    template <class TurnOfLane>
    void add_pair(const TurnOfLane& turn) {
        for (int lane = 0; lane < lanes_; ++lane) values_.push_back(turn(lane).cosine());
        for (int lane = 0; lane < lanes_; ++lane) values_.push_back(turn(lane).sine());
    }
    const std::vector<Wide>& values() const { return values_; }

  private:
    int lanes_;
    std::vector<Wide> values_;
};

/** What a real or imaginary input contributes to the real or imaginary part of a product with
 * exp(i turn), conjugated or not. */
Wide part_of_product(Turn turn, bool from_imaginary, bool to_imaginary, bool conjugated) {
    if (!to_imaginary) return from_imaginary ? Wide(-turn.sine()) : turn.cosine();
    const Wide value = from_imaginary ? turn.cosine() : turn.sine();
    return conjugated ? Wide(-value) : value;
}

void prove_synthesis_of_group(const std::string& kernel, const Graph& graph, Element element, int m,
                              int n, int first_block) {
    const int width = lanes(element);
    const auto rotation = [&](int lane, int c) {
        return Turn{(2L * (first_block + lane) + 1) * (2 * c + 1), 16L * n * m};
    };
    Table table(element);
    for (int c : table_columns(m)) table.add_pair([&](int lane) { return rotation(lane, c); });
    const auto entry = [&](int row, int column) -> Wide {
        const int lane = column / (2 * m);
        if (row % width != lane) return 0;
        const int c = column % m;
        const int j = index_at(row / width, m);
        const Turn turn = rotation(lane, c) + Turn{(2L * c + 1) * j, 4L * m};
        return part_of_product(turn, column % (2 * m) >= m, false, false);
    };
    kernelgen::prove(kernel, graph, 2 * m * width, 2 * m * width, entry, table.values());
}

/** `angle` of a lane stands for the angle of a block. */
template <class AngleOfLane>
void prove_dft_at(const std::string& kernel, const Graph& graph, Element element, int rule,
                  const AngleOfLane& angle) {
    const int width = lanes(element);
    const int s = 1 << rule;
    const int h = s / 4;
    Table table(element);
    if (rule >= 4) {
        for (int t1 = 0; t1 < h; ++t1) {
            for (int r1 = 1; r1 < 4; ++r1)
                table.add_pair([&](int lane) { return (angle(lane) + Turn{t1, s}) * r1; });
        }
        for (int r2 = 1; r2 < h; ++r2)
            table.add_pair([&](int lane) { return angle(lane) * (4 * r2); });
    } else {
        for (int r = 1; r < s; ++r) table.add_pair([&](int lane) { return angle(lane) * r; });
    }
    const auto entry = [&](int row, int column) -> Wide {
        const int lane = column % width;
        if (row % width != lane) return 0;
        const int r = column / width % s;
        const int t = row / width / 2;
        return part_of_product(angle(lane) * r + Turn{static_cast<long>(t) * r, s},
                               column / width >= s, row / width % 2 == 1, t >= s / 2);
    };
    kernelgen::prove(kernel, graph, 2 * s * width, 2 * s * width, entry, table.values());
}

}  // namespace

void prove_analysis(const std::string& kernel, const Graph& graph, Element element, int n) {
    const int width = lanes(element);
    const auto entry = [&](int row, int column) -> Wide {
        if (row % width != column % width) return 0;
        const int a = row / width / 2;
        const long numerator = (2L * a + 1) * index_at(column / width, n);
        return row / width % 2 == 0 ? cosine(numerator, 4L * n) : sine(numerator, 4L * n);
    };
    kernelgen::prove(kernel, graph, 2 * n * width, 2 * n * width, entry);
}

void prove_synthesis(const std::string& kernel, const Graph& graph, Element element, int m) {
    // Each output is a sum of cosine and sine times something: two angles settle it.
    const int n = 2 * lanes(element);
    for (int block : {0, lanes(element)})
        prove_synthesis_of_group(kernel, graph, element, m, n, block);
}

void prove_dft(const std::string& kernel, const Graph& graph, Element element, int rule) {
    // The outputs are polynomials of degree below s in exp(i angle), settled by s angles.
    const int s = 1 << rule;
    for (int first = 0; first < s; first += lanes(element))
        prove_dft_at(kernel, graph, element, rule, [&](int lane) {
            return Turn{2 * (first + lane) + 1, 8L * s};
        });
}

void prove_transform(const std::string& kernel, const Graph& graph, int length) {
    const auto entry = [&](int row, int column) {
        return cosine((2L * column + 1) * (2 * row + 1), 8L * length);
    };
    kernelgen::prove(kernel, graph, length, length, entry);
}

}  // namespace dct4
