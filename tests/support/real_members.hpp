#pragma once

/**
 * @file
 * @brief Real kernels whose operations are part of the interface, operation by operation.
 *
 * Between stages values are of the element's precision, in which sums of two of them are rounded
 * at once. Products stand in rows of the precision `Row`, which the interface has at binary64; a
 * row is rounded once, at its end. Spectra are in the Pack layout.
 */

#include <vector>

#include "support/elements.hpp"

namespace qsvgen_test {

template <class E, class Row = double>
struct RealMembers {
    using Real = typename E::Real;
    using Signal = std::vector<Real>;
    using Member = Signal (*)(const Signal& x, Real s);

    static constexpr Row kHalf = static_cast<Row>(0.5);
    static constexpr Row kSine3 = static_cast<Row>(0.8660254037844386);
    static constexpr Row kTwiceSine3 = static_cast<Row>(1.7320508075688772);
    static constexpr Row kEighth = static_cast<Row>(0.7071067811865476);
    // cos(2 pi/7), -cos(4 pi/7), -cos(6 pi/7) and the three sines
    static constexpr Row C1 = static_cast<Row>(0.6234898018587335);
    static constexpr Row C2 = static_cast<Row>(0.2225209339563144);
    static constexpr Row C3 = static_cast<Row>(0.9009688679024191);
    static constexpr Row S1 = static_cast<Row>(0.7818314824680298);
    static constexpr Row S2 = static_cast<Row>(0.9749279121818236);
    static constexpr Row S3 = static_cast<Row>(0.4338837391175581);

    static Signal forward2(const Signal& x, Real s) {
        return {(x[0] + x[1]) * s, (x[0] - x[1]) * s};
    }

    static Signal forward3(const Signal& x, Real s) {
        const Real u = x[1] + x[2];
        const Real d = x[1] - x[2];
        const Row factor = s;
        return {(x[0] + u) * s, round((wide(x[0]) - wide(u) * kHalf) * factor),
                round(Row{0} - factor * (wide(d) * kSine3))};
    }

    static Signal forward4(const Signal& x, Real s) {
        const Real a = x[0] + x[2];
        const Real b = x[1] + x[3];
        const Real r1 = x[0] - x[2];
        const Real i1 = x[1] - x[3];
        return {(a + b) * s, r1 * s, Real{0} - s * i1, (a - b) * s};
    }

    static Signal forward7(const Signal& x, Real s) {
        const Folded f(x);
        const Row x0 = x[0];
        const Row factor = s;
        return {(((x[1] + x[6]) + (x[5] + x[2]) + (x[4] + x[3])) + x[0]) * s,
                round((((f.a * C1 - f.b * C2) - f.c * C3) + x0) * factor),
                round(((f.e * S2 - f.d * S1) + f.f * S3) * factor),
                round((((x0 - f.a * C2) - f.b * C3) + f.c * C1) * factor),
                round(Row{0} - factor * ((f.d * S2 + f.e * S3) + f.f * S1)),
                round((((x0 - f.a * C3) + f.b * C1) - f.c * C2) * factor),
                round(((f.f * S2 - f.d * S3) - f.e * S1) * factor)};
    }

    // The even bins are those of length 4 of the sums x[i] + x[i+4].
    static Signal forward8(const Signal& x, Real s) {
        const Split8 h(x);
        const Signal even = forward4(h.u, s);
        const Real m = h.p - h.q;
        const Real t = h.p + h.q;
        return {even[0], (h.d[0] + m) * s, Real{0} - s * (t + h.d[2]), even[1],
                even[2], (h.d[0] - m) * s, (h.d[2] - t) * s,           even[3]};
    }

    static Signal inverse2(const Signal& x, Real s) { return forward2(x, s); }

    // I[1] has no other use, so its doubling is in the constant.
    static Signal inverse3(const Signal& x, Real s) {
        const Real d = x[1] * Real{2};
        const Real q = round(wide(x[2]) * kTwiceSine3);
        const Real w = round(wide(x[0]) - wide(d) * kHalf);
        return {(d + x[0]) * s, (w - q) * s, (w + q) * s};
    }

    static Signal inverse4(const Signal& x, Real s) {
        const Real a = x[1] * Real{2};
        const Real b = x[2] * Real{2};
        const Real sum = x[0] + x[3];
        const Real difference = x[0] - x[3];
        return {(sum + a) * s, (difference - b) * s, (sum - a) * s, (difference + b) * s};
    }

    static Signal inverse7(const Signal& x, Real s) {
        const Real r1 = x[1] * Real{2};
        const Real i1 = x[2] * Real{2};
        const Real r2 = x[3] * Real{2};
        const Real i2 = x[4] * Real{2};
        const Real r3 = x[5] * Real{2};
        const Real i3 = x[6] * Real{2};
        const Row A = r1, B = r3, M = r2, T = i1, F = i3, G = i2, D = x[0];
        const Real p1 = round(((A * C1 - B * C3) - M * C2) + D);
        const Real p2 = round(((D - A * C2) + B * C1) - M * C3);
        const Real p3 = round(((D - A * C3) - B * C2) + M * C1);
        const Real q1 = round((T * S1 + F * S3) + G * S2);
        const Real q2 = round((T * S2 - F * S1) - G * S3);
        const Real q3 = round((T * S3 + F * S2) - G * S1);
        return {(((r1 + r3) + r2) + x[0]) * s,
                (p1 - q1) * s,
                (p2 - q2) * s,
                (p3 - q3) * s,
                (p3 + q3) * s,
                (p2 + q2) * s,
                (p1 + q1) * s};
    }

    static Signal hartley2(const Signal& x, Real s) { return forward2(x, s); }

    static Signal hartley3(const Signal& x, Real s) {
        const Real u = x[1] + x[2];
        const Real d = x[1] - x[2];
        const Real w = round(wide(x[0]) - wide(u) * kHalf);
        const Real q = round(wide(d) * kSine3);
        return {(u + x[0]) * s, (w + q) * s, (w - q) * s};
    }

    static Signal hartley4(const Signal& x, Real s) {
        const Real a = x[0] + x[2];
        const Real b = x[0] - x[2];
        const Real c = x[1] + x[3];
        const Real d = x[1] - x[3];
        return {(c + a) * s, (d + b) * s, (a - c) * s, (b - d) * s};
    }

    static Signal hartley7(const Signal& x, Real s) {
        const Folded f(x);
        const Row x0 = x[0];
        const Real p1 = round(((f.a * C1 - f.b * C2) - f.c * C3) + x0);
        const Real p2 = round(((x0 - f.a * C2) - f.b * C3) + f.c * C1);
        const Real p3 = round(((x0 - f.a * C3) + f.b * C1) - f.c * C2);
        const Real q1 = round((f.d * S1 - f.e * S2) - f.f * S3);
        const Real q2 = round((f.d * S2 + f.e * S3) + f.f * S1);
        const Real q3 = round((f.d * S3 + f.e * S1) - f.f * S2);
        return {(((x[1] + x[6]) + (x[5] + x[2]) + (x[4] + x[3])) + x[0]) * s,
                (p1 + q1) * s,
                (p2 + q2) * s,
                (p3 + q3) * s,
                (p3 - q3) * s,
                (p2 - q2) * s,
                (p1 - q1) * s};
    }

    // The sums and products of the forward transform, closed by y[k], y[8-k] = R[k] -+ I[k].
    static Signal hartley8(const Signal& x, Real s) {
        const Split8 h(x);
        const Signal even = hartley4(h.u, s);
        const Real m = h.p - h.q;
        const Real t = h.p + h.q;
        const Real r1 = h.d[0] + m;
        const Real r3 = h.d[0] - m;
        const Real minus_i1 = t + h.d[2];
        const Real minus_i3 = t - h.d[2];
        return {even[0], (r1 + minus_i1) * s, even[1], (r3 + minus_i3) * s,
                even[2], (r3 - minus_i3) * s, even[3], (r1 - minus_i1) * s};
    }

  private:
    static Row wide(Real value) { return value; }
    static Real round(Row row) { return static_cast<Real>(row); }

    /** Length 7: sums and differences in the element's precision, widened for the rows. */
    struct Folded {
        explicit Folded(const Signal& x)
            : a(wide(x[1] + x[6])),
              b(wide(x[5] + x[2])),
              c(wide(x[4] + x[3])),
              d(wide(x[1] - x[6])),
              e(wide(x[5] - x[2])),
              f(wide(x[4] - x[3])) {}
        Row a, b, c, d, e, f;
    };

    /** Length 8: p and q are rounded before anything is added to them. */
    struct Split8 {
        explicit Split8(const Signal& x) {
            for (std::size_t i = 0; i < 4; ++i) {
                u.push_back(x[i] + x[i + 4]);
                d.push_back(x[i] - x[i + 4]);
            }
            p = round(wide(d[1]) * kEighth);
            q = round(wide(d[3]) * kEighth);
        }
        Signal u, d;
        Real p = 0;
        Real q = 0;
    };
};

}  // namespace qsvgen_test
