#pragma once

/** @file @brief In which order the tables of a plan hold their cosines and sines. */

namespace dct4 {

/**
 * Column of the `place`-th pair of a block of the rotations by `columns` columns: the first of each
 * two are half of the columns, ascending, but for 32 columns in the order of the digits of their
 * body, whose inner part takes every fourth column; the second are the others from the end.
 */
constexpr int rotation_column(int columns, int place) {
    const int t = place / 2;
    const int first = columns == 32 ? 16 * (t % 2) + 4 * (t / 2 % 4) + t / 8 : t;
    return place % 2 == 0 ? first : columns - 1 - first;
}

/**
 * Pairs of a block of the DFTs of `points` points. In one level: r times the angle of the block for
 * r from 1 on, all of them outer pairs. Of 16 and 32 points, in two levels, a fourth of the points
 * times 4: inner pairs with r1 = 1, 2, 3 for each t1, and outer pairs with 4 r2 in the place of r.
 */
class DftTable {
  public:
    explicit constexpr DftTable(int points) : points_(points) {}

    constexpr bool has_two_levels() const { return points_ > 8; }
    /** Points of the first level. */
    constexpr int outer_points() const { return has_two_levels() ? points_ / 4 : points_; }
    constexpr int inner_pairs() const { return has_two_levels() ? 3 * outer_points() : 0; }
    constexpr int outer_pairs() const { return outer_points() - 1; }
    static constexpr int inner_pair(int t1, int r1) { return 3 * t1 + r1 - 1; }
    static constexpr int outer_pair(int r) { return r - 1; }

  private:
    int points_;
};

}  // namespace dct4
