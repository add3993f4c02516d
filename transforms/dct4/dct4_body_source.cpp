#include "transforms/dct4/dct4_body_source.hpp"

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/emission/generated_files.hpp"
#include "kernelgen/values/value_hash.hpp"

namespace dct4 {
namespace {

using kernelgen::Counts;
using std::to_string;

std::string what(const Kernel& kernel) {
    const std::string points = to_string(kernel.points()) + " points";
    switch (kernel.step) {
        case Step::Analysis:
            return "Analysis of " + points + " at odd frequencies";
        case Step::Synthesis:
            return "Rotations and synthesis of " + points + " at odd frequencies";
        case Step::Dft:
            return "DFT of " + points + " behind analyses";
        case Step::Inline:
            return "DCT-IV of " + points;
    }
    return {};
}

std::string head(const Kernel& kernel) {
    const Counts c = counts_of(kernel);
    return "// " + what(kernel) + ", " + precision_name(kernel.element) +
           " precision; order: " + schedule_of(kernel).method + ".\n// " + to_string(c.sums) +
           " sums, " + to_string(c.differences) + " differences, " + to_string(c.products) +
           " products, " + to_string(c.shuffles) + " shuffles, " + to_string(c.loads) + " loads, " +
           to_string(c.stores) + " stores.\n// Made by the kernel compiler; do not edit.\n\n";
}

std::string inline_function(const Kernel& kernel) {
    const std::string real = kernel.element == Element::Real32 ? "float" : "double";
    return "[[gnu::always_inline]] inline void " + kernel.stem() + "(const " + real + "* x, " +
           real + "* y) {\n" +
           kernelgen::emit(kernel.graph, schedule_of(kernel).order, kernel.target).statements +
           "}\n";
}

std::string type_name(const Kernel& kernel) {
    switch (kernel.step) {
        case Step::Analysis:
            return "Analysis";
        case Step::Synthesis:
            return "Synthesis";
        default:
            return "Dft";
    }
}

/** A specialisation of the class template by rule, in the namespace of the element and of its
 * vectors: longer ones hold several of the graph's, each in a piece of its own. */
std::string place_body(const Kernel& kernel) {
    const int bytes = kernel.target.vector_bytes;
    kernelgen::Target target = kernel.target;
    if (bytes > 16) target.spelling = kernelgen::Spelling::Pieces;
    const kernelgen::EmittedBody code =
        kernelgen::emit_between_places(kernel.graph, schedule_of(kernel).order, target);
    std::string text = std::string("namespace dct4::") +
                       (kernel.element == Element::Real32 ? "real32" : "real64") +
                       (bytes == 64   ? "_widest"
                        : bytes == 32 ? "_wide"
                                      : "") +
                       " {\n\n";
    if (!code.constants.empty())
        text += "namespace " + kernel.stem() + " {\n" + code.constants + "}  // namespace " +
                kernel.stem() + "\n\n";
    text += "template <>\nstruct " + type_name(kernel) + "<" + to_string(kernel.rule) +
            "> {\n    template <class Source, class Destination>\n"
            "    [[gnu::always_inline]] static void run(const Source& x, const Destination& y) {\n";
    if (!code.constants.empty()) text += "    using " + kernel.stem() + "::kConstants;\n";
    return text + code.statements + "    }\n};\n\n}\n";
}

}  // namespace

std::string kernel_source(const Kernel& kernel) {
    if (kernel.step == Step::Inline)
        return head(kernel) + "#pragma once\n\nnamespace {\n\n" + inline_function(kernel) +
               "\n}  // namespace\n";
    return head(kernel) + "#pragma once\n\n#include \"dct4/body.hpp\"\n\n" + place_body(kernel);
}

std::string manifest_header() {
    return "kernel,sums,differences,products,shuffles,loads,stores,order,modelled_stack_accesses,"
           "hash,values";
}

std::string manifest_line(const Kernel& kernel) {
    const Counts c = counts_of(kernel);
    const kernelgen::Schedule schedule = schedule_of(kernel);
    std::string line = kernel.name();
    for (int value : {c.sums, c.differences, c.products, c.shuffles, c.loads, c.stores})
        line += "," + to_string(value);
    return line + "," + schedule.method + "," + to_string(schedule.traffic.stack_accesses) + "," +
           kernelgen::hash_of(kernel_source(kernel)) + "," +
           kernelgen::hash_of_values(kernel.graph);
}

}  // namespace dct4
