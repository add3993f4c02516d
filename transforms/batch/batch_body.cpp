#include "transforms/batch/batch_body.hpp"

#include <stdexcept>

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/emission/lane_emission.hpp"
#include "kernelgen/values/graph_of_values.hpp"
#include "kernelgen/values/unfold.hpp"
#include "transforms/dft_complex/kernels/complex_kernel.hpp"
#include "transforms/dft_real/kernels/real_dft_kernel.hpp"
#include "transforms/hartley/hartley_kernel.hpp"
#include "transforms/walsh_hadamard/passes.hpp"
#include "transforms/walsh_hadamard/scales.hpp"
#include "transforms/walsh_hadamard/sequence.hpp"

namespace transforms::batch {
namespace {

using kernelgen::Graph;
using kernelgen::Outputs;
using kernelgen::ValueGraph;

/** Longer ones fill vectors by themselves, one after the other. */
constexpr int kHighestOrder = 6;

bool is_complex(Family family) {
    return family == Family::ComplexForward || family == Family::ComplexInverse;
}

Graph complex_kernel(int size, dft_complex::Direction direction, RealElement element) {
    return dft_complex::described_kernel(size, direction,
                                         element == RealElement::Real32
                                             ? dft_complex::Element::Complex32
                                             : dft_complex::Element::Complex64)
        .graph;
}

Graph single_kernel(Family family, int size, RealElement element) {
    switch (family) {
        case Family::ComplexForward:
            return complex_kernel(size, dft_complex::Direction::Forward, element);
        case Family::ComplexInverse:
            return complex_kernel(size, dft_complex::Direction::Inverse, element);
        case Family::RealForward:
            return dft_real::described_dft_kernel(size, dft_real::Direction::Forward,
                                                  dft_real::Layout::Pack, element)
                .graph;
        case Family::RealInverse:
            return dft_real::described_dft_kernel(size, dft_real::Direction::Inverse,
                                                  dft_real::Layout::Pack, element)
                .graph;
        case Family::Hartley:
            return hartley::hartley_kernel(size, element).graph;
        case Family::WalshHadamard:
            break;
    }
    return {};
}

}  // namespace

std::string name_of(Family family) {
    switch (family) {
        case Family::ComplexForward:
            return "complex_forward";
        case Family::ComplexInverse:
            return "complex_inverse";
        case Family::RealForward:
            return "real_forward";
        case Family::RealInverse:
            return "real_inverse";
        case Family::Hartley:
            return "hartley";
        case Family::WalshHadamard:
            return "walsh_hadamard";
    }
    return {};
}

std::string Body::name() const {
    return name_of(family) + "_" + std::to_string(size) + "_" + suffix(element);
}

std::vector<int> sizes_of(Family family) {
    if (is_complex(family)) return dft_complex::lengths();
    if (family != Family::WalshHadamard) return dft_real::lengths();
    std::vector<int> orders;
    for (int order = walsh_hadamard::kLowestOrder; order <= kHighestOrder; ++order)
        orders.push_back(order);
    return orders;
}

namespace {

/** Outputs before they are multiplied by the scale factor, where that is the last that each
 * undergoes. */
Outputs without_factor(const ValueGraph& values, const Outputs& outputs) {
    const auto is_factor = [&](kernelgen::SignedValue value) {
        return values.node(value.id).op == kernelgen::ValueOp::Scale;
    };
    Outputs bare;
    for (const auto& [element, value] : outputs) {
        const kernelgen::ValueNode& product = values.node(value.id);
        if (product.op != kernelgen::ValueOp::Mul) return outputs;
        if (!is_factor(product.a) && !is_factor(product.b)) return outputs;
        const kernelgen::SignedValue other = is_factor(product.a) ? product.b : product.a;
        bare[element] = value.negative ? -other : other;
    }
    return bare;
}

}  // namespace

Body body_of(Family family, int size, RealElement element) {
    ValueGraph values;
    const Outputs outputs = family == Family::WalshHadamard
                                ? walsh_hadamard::sums_of_reference(values, size, element)
                                : kernelgen::unfold(single_kernel(family, size, element), values);
    const Outputs bare = without_factor(values, outputs);
    Body body{family, size, element, kernelgen::graph_of_values(values, bare), bare == outputs};
    if (kernelgen::unfold(body.graph, values) != bare)
        throw std::logic_error("the batch body " + body.name() +
                               " has other values than its kernel");
    // In place, results go into a tile, whose places are not those of the source.
    body.graph.keep_arrays_apart();
    return body;
}

namespace {

/** "    run_groups<Body, RealElements<Real32>>(groups, NoFactor());" */
std::string call(const std::string& elements, const std::string& factor) {
    return "    run_groups<Body, " + elements + ">(groups, " + factor + ");\n";
}

/** The function that runs a body, which has its name. */
std::string function_of(const Body& body) {
    const std::string real = real_name(body.element);
    const std::string elements =
        (is_complex(body.family) ? "ComplexElements<" : "RealElements<") + real + ">";
    return "void " + body.name() + "(const Groups<" + real + ">& groups) {\n" +
           (body.has_factor ? "    if (groups.factor == 1) return run_groups<Body, " + elements +
                                  ">(groups, NoFactor());\n" +
                                  call(elements, "Factor<" + real + ">{groups.factor}")
                            : call(elements, "NoFactor()")) +
           "}\n";
}

}  // namespace

std::string body_source(const Body& body, const kernelgen::Target& target) {
    const kernelgen::Schedule schedule = kernelgen::schedule(body.graph, target);
    const auto elements =
        is_complex(body.family) ? kernelgen::LaneElements::Complex : kernelgen::LaneElements::Real;
    return "// Batch body of " + name_of(body.family) + " " + std::to_string(body.size) + ", " +
           precision_name(body.element) + " precision; order: " + schedule.method +
           ".\n// Made by the kernel compiler; do not edit.\n\n#include \"batch/body.hpp\"\n"
           "#include \"qsvgen.h\"\n\nnamespace batch {\nnamespace {\n\nstruct Body {\n"
           "    using Vector = batch::Vector<" +
           real_name(body.element) +
           ">;\n    using Half = Doubles;\n    template <class Source, class Destination, class "
           "FactorOrNone>\n"
           "    [[gnu::noinline]] static void run(const Source x, const Destination y,\n"
           "                                        [[maybe_unused]] const FactorOrNone factor) "
           "{\n" +
           kernelgen::emit_in_lanes(body.graph, schedule.order, scalar_type(body.element),
                                    elements) +
           "    }\n};\n\n}  // namespace\n" + "\n" + function_of(body) +
           "\n}  // namespace batch\n";
}

namespace {

std::string rounded(const kernelgen::Exact& value, RealElement element) {
    return element == RealElement::Real32 ? kernelgen::literal(value.to_binary32())
                                          : kernelgen::literal(value.to_binary64());
}

/** Walsh-Hadamard transforms are scaled beyond the orders that have bodies. */
std::vector<int> sizes_of_scales(Family family) {
    std::vector<int> sizes = sizes_of(family);
    if (family == Family::WalshHadamard) {
        while (sizes.back() < walsh_hadamard::kHighestOrder) sizes.push_back(sizes.back() + 1);
    }
    return sizes;
}

/** 1/N and 1/sqrt(N), as the single kernels have them, and whether the bodies multiply by them. */
std::string scales_source(Family family, RealElement element) {
    std::string text = "Scales<" + real_name(element) + "> " + name_of(family) + "_scales_" +
                       suffix(element) + "(int size) {\n    static constexpr Scales<" +
                       real_name(element) + "> kScales[] = {";
    for (int size : sizes_of_scales(family)) {
        const kernelgen::Exact by_length = kernelgen::Exact::rational(1, size);
        const kernelgen::Exact by_root =
            kernelgen::Exact::product({by_length, kernelgen::Exact::square_root(size)});
        const bool is_wht = family == Family::WalshHadamard;
        const bool has_body = size <= sizes_of(family).back();
        text += size == sizes_of(family).front() ? "\n" : ",\n";
        text +=
            "        {" +
            (is_wht ? walsh_hadamard::scale_by_length(size, element)
                    : rounded(by_length, element)) +
            ", " +
            (is_wht ? walsh_hadamard::scale_by_root(size, element) : rounded(by_root, element)) +
            (has_body && body_of(family, size, element).has_factor ? ", true}" : ", false}");
    }
    return text + "};\n    return kScales[size - " + std::to_string(sizes_of(family).front()) +
           "];\n}\n\n";
}

/** A function that runs the body of a size, and the declarations of those it chooses from. */
std::string choice_source(Family family, RealElement element) {
    const std::string groups = "const Groups<" + real_name(element) + ">& groups";
    const std::string end = "_" + suffix(element);
    const auto body = [&](int size) { return name_of(family) + "_" + std::to_string(size) + end; };
    std::string text;
    for (int size : sizes_of(family)) text += "void " + body(size) + "(" + groups + ");\n";
    text +=
        "\nvoid " + name_of(family) + end + "(int size, " + groups + ") {\n    switch (size) {\n";
    for (int size : sizes_of(family))
        text += "        case " + std::to_string(size) + ":\n            return " + body(size) +
                "(groups);\n";
    return text + "        default:\n            return;\n    }\n}\n\n";
}

}  // namespace

std::string chooser_source(Family family, RealElement element) {
    std::string text =
        "// Batch bodies of " + name_of(family) + " by size.\n" +
        "// Made by the kernel compiler; do not edit.\n\n#include \"batch/bodies.hpp\"\n"
        "\nnamespace batch {\n\n" +
        choice_source(family, element);
    return text + scales_source(family, element) + "}  // namespace batch\n";
}

}  // namespace transforms::batch
