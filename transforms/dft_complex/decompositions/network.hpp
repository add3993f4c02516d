#pragma once

/**
 * @file
 * @brief A DFT flattened into small transforms: who feeds whom, with which constant factors.
 *
 * A network says nothing of vectors, lanes or real and imaginary parts; both element types and both
 * directions are laid out from the same one. It always describes the forward direction.
 */

#include <optional>
#include <vector>

#include "kernelgen/graph/exact_constant.hpp"
#include "transforms/dft_complex/rules/rules.hpp"

namespace dft_complex {

using kernelgen::Exact;
using kernelgen::ExactComplex;

/** An output slot of a small transform, or an element of the kernel's input. */
struct Source {
    int transform = kInput;
    int slot = 0;

    static constexpr int kInput = -1;
    auto operator<=>(const Source&) const = default;
};

/** factor * source + addend; `absent` is a value known to be zero. */
struct Value {
    Source source;
    ExactComplex factor = {};
    std::optional<Source> addend = {};
    bool absent = false;

    static Value zero() {
        Value value;
        value.absent = true;
        return value;
    }
};

/** A signal is its values, by index. */
using Signal = std::vector<Value>;

/** DFT of `radix` points; radix kSum is the plain sum of two inputs. */
struct SmallTransform {
    static constexpr int kSum = 1;
    int radix;
    Signal inputs;
    SmallForm form = SmallForm::Usual;
};

class Network {
  public:
    Signal input(int length) const;
    Signal transform(int radix, const Signal& x, SmallForm form = SmallForm::Usual);
    Value sum(const Value& a, const Value& b);

    const std::vector<SmallTransform>& transforms() const { return transforms_; }

    /** Transforms of one radix that may run side by side, batches in an order that respects data
     * flow. A transform that could run in several batches joins the latest, unless it reads the
     * kernel's input. */
    std::vector<std::vector<int>> batches() const;

  private:
    std::vector<SmallTransform> transforms_;
};

Value operator*(const Value& x, const ExactComplex& factor);

/** What `x` holds plus `addend`, joined where the sum is used; the addend carries no factor. */
Value plus(const Value& x, const Value& addend);

}  // namespace dft_complex
