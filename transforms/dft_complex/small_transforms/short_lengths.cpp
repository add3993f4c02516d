#include "transforms/dft_complex/small_transforms/short_lengths.hpp"

#include <stdexcept>
#include <utility>
#include <vector>

namespace dft_complex {
namespace {

/** A complex value of two scalars. */
struct Complex {
    Ref re;
    Ref im;
};

class ShortLength {
  public:
    explicit ShortLength(int length) : y_(static_cast<std::size_t>(length)) {
        for (int n = 0; n < length; ++n)
            x_.push_back({g_.load(Type::Binary32, 2 * n), g_.load(Type::Binary32, 2 * n + 1)});
    }

    Graph run(Direction direction) {
        switch (y_.size()) {
            case 2:
                two();
                break;
            case 3:
                three();
                break;
            case 4:
                four();
                break;
            case 5:
                five();
                break;
            default:
                throw std::logic_error("no short length");
        }
        const std::size_t length = y_.size();
        for (std::size_t k = 0; k < length; ++k) {
            const Complex& y = y_[direction == Direction::Forward ? k : (length - k) % length];
            g_.store(scaled(y.re), static_cast<int>(2 * k));
            g_.store(scaled(y.im), static_cast<int>(2 * k + 1));
        }
        return std::move(g_);
    }

  private:
    void two() {
        y_[0] = add(x_[0], x_[1]);
        y_[1] = sub(x_[0], x_[1]);
    }

    void three() {
        const Exact half = Exact::rational(1, 2);
        const Exact c = Exact::sine(1, 3);
        const Complex u = add(x_[1], x_[2]);
        const Complex d = sub(x_[1], x_[2]);
        const auto w = [&](Ref x, Ref part) {
            const Ref halved = product(part, half);
            return g_.round(g_.sub(g_.widen(x), halved));
        };
        const Complex even = {w(x_[0].re, u.re), w(x_[0].im, u.im)};
        const Ref p = g_.round(product(d.im, c));
        const Ref q = g_.round(product(d.re, c));
        y_[0] = add(x_[0], u);
        y_[1] = {g_.add(even.re, p), g_.sub(even.im, q)};
        y_[2] = {g_.sub(even.re, p), g_.add(even.im, q)};
    }

    void four() {
        const Complex a = add(x_[0], x_[2]);
        const Complex b = sub(x_[0], x_[2]);
        const Complex c = add(x_[1], x_[3]);
        const Complex d = sub(x_[1], x_[3]);
        y_[0] = add(a, c);
        y_[1] = {g_.add(b.re, d.im), g_.sub(b.im, d.re)};
        y_[2] = sub(a, c);
        y_[3] = {g_.sub(b.re, d.im), g_.add(b.im, d.re)};
    }

    void five() {
        const Exact c1 = Exact::cosine(1, 5);
        const Exact c2 = -Exact::cosine(2, 5);
        const Exact s1 = Exact::sine(1, 5);
        const Exact s2 = Exact::sine(2, 5);
        const Complex a = add(x_[1], x_[4]);
        const Complex b = add(x_[3], x_[2]);
        const Complex c = sub(x_[1], x_[4]);
        const Complex d = sub(x_[3], x_[2]);
        const auto p = [&](Ref x, Ref pa, Ref pb) {
            const Ref second = product(pb, c2);
            const Ref wide = g_.widen(x);
            const Ref first = product(pa, c1);
            return g_.round(g_.sub(g_.add(first, wide), second));
        };
        const auto q = [&](Ref x, Ref pa, Ref pb) {
            const Ref second = product(pb, c1);
            const Ref first = product(pa, c2);
            const Ref wide = g_.widen(x);
            return g_.round(g_.add(g_.sub(wide, first), second));
        };
        const Complex P = {p(x_[0].re, a.re, b.re), p(x_[0].im, a.im, b.im)};
        const Complex Q = {q(x_[0].re, a.re, b.re), q(x_[0].im, a.im, b.im)};
        const Ref d_im_s2 = product(d.im, s2);
        const Ref R = g_.round(g_.sub(product(c.im, s1), d_im_s2));
        const Ref d_im_s1 = product(d.im, s1);
        const Ref T = g_.round(g_.add(product(c.im, s2), d_im_s1));
        const Ref c_re_s1 = product(c.re, s1);
        const Ref U = g_.round(g_.sub(product(d.re, s2), c_re_s1));
        const Ref d_re_s1 = product(d.re, s1);
        const Ref V = g_.round(g_.add(product(c.re, s2), d_re_s1));
        y_[0] = add(add(x_[0], a), b);
        y_[1] = {g_.add(P.re, R), g_.add(P.im, U)};
        y_[2] = {g_.add(Q.re, T), g_.sub(Q.im, V)};
        y_[3] = {g_.sub(Q.re, T), g_.add(Q.im, V)};
        y_[4] = {g_.sub(P.re, R), g_.sub(P.im, U)};
    }

    Complex add(const Complex& a, const Complex& b) {
        return {g_.add(a.re, b.re), g_.add(a.im, b.im)};
    }
    Complex sub(const Complex& a, const Complex& b) {
        return {g_.sub(a.re, b.re), g_.sub(a.im, b.im)};
    }
    Ref product(Ref single, const Exact& c) { return g_.mul(g_.widen(single), {c}); }
    Ref scaled(Ref value) { return g_.mul(value, g_.scale(Type::Binary32)); }

    Graph g_;
    std::vector<Complex> x_;
    std::vector<Complex> y_;
};

}  // namespace

Graph short_length(int length, Direction direction) {
    return ShortLength(length).run(direction);
}

}  // namespace dft_complex
