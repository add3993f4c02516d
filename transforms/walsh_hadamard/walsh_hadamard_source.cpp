#include "transforms/walsh_hadamard/walsh_hadamard_source.hpp"

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/emission/generated_files.hpp"
#include "kernelgen/emission/spelling.hpp"
#include "transforms/walsh_hadamard/scales.hpp"
#include "transforms/walsh_hadamard/sequence.hpp"

namespace walsh_hadamard {
namespace {

using kernelgen::Counts;
using std::to_string;

/** How a kernel's vectors are spelled in the library's code. */
struct Spelling {
    kernelgen::Type vector;
    std::string work;       ///< access to the work buffer
    std::string unaligned;  ///< and to arrays anywhere
    std::string scale;      ///< what loads the scale factor into all lanes
};

Spelling spelling(const Kernel& kernel) {
    const kernelgen::Type vector = vector_type(kernel.element, kernel.vector_bytes);
    if (kernel.is_wide()) {
        const std::string access = kernelgen::wide_access(vector);
        return {vector, access, access,
                access + (kernel.vector_bytes == 64 ? "::load_four_times" : "::load_twice")};
    }
    // Unaligned vectors of binary64 are written as two halves, of which compilers make one move.
    return {vector, "core::Aligned",
            kernel.element == Element::Real32 ? "core::Unaligned" : "core::Halves",
            kernelgen::aligned_load(vector, kernel.target)};
}

std::string stages_text(const Kernel& kernel) {
    std::string text;
    for (int stages : kernel.stages) text += (text.empty() ? "" : "+") + to_string(stages);
    return text;
}

std::string orders_text(const Kernel& kernel) {
    std::string text;
    for (const Body& body : kernel.bodies)
        text += (text.empty() ? "" : ", ") + schedule_of(body, kernel.target).method;
    return text;
}

std::string head(const Kernel& kernel) {
    const Counts c = written_out(kernel);
    return "// Walsh-Hadamard transform of order " + to_string(kernel.order) + ", " +
           precision_name(kernel.element) + " precision; stages: " + stages_text(kernel) +
           "; order: " + orders_text(kernel) + ".\n// Written out: " + to_string(c.sums) +
           " sums, " + to_string(c.differences) + " differences, " + to_string(c.products) +
           " products, " + to_string(c.shuffles) + " shuffles, " + to_string(c.loads) + " loads, " +
           to_string(c.stores) + " stores.\n// Made by the kernel compiler; do not edit.\n\n";
}

std::string option_pragma(const Kernel& kernel) {
    if (kernel.option.empty()) return {};
    return "#if defined(__GNUC__) && !defined(__clang__)\n"
           "// Spares this kernel moves between registers and stack.\n#pragma GCC optimize(\"" +
           kernel.option + "\")\n#endif\n\n";
}

std::string scale_table(const Kernel& kernel) {
    return std::string("constexpr auto kScales = core::ScaleTable<") + real_name(kernel.element) +
           ">::both(" + scale_by_length(kernel.order, kernel.element) + ", " +
           scale_by_root(kernel.order, kernel.element) + ");\n";
}

std::string arrays(const Kernel& kernel, const char* source, const char* destination) {
    const std::string real = real_name(kernel.element);
    return "const " + real + "* " + source + ", " + real + "* " + destination;
}

std::string body_function(const Kernel& kernel, const Body& body) {
    const bool scalar = is_scalar(kernel.order, kernel.element);
    const Spelling s = spelling(kernel);
    const kernelgen::EmittedBody code =
        kernelgen::emit(body.graph, schedule_of(body, kernel.target).order, kernel.target);
    std::string text = scalar ? "\n" : "\ntemplate <class Memory>\n";
    text += "[[gnu::always_inline]] inline void " + body.name + "(" + arrays(kernel, "x", "y");
    if (body.scaling == Scaling::Last)
        text +=
            std::string(", ") +
            (scalar ? real_name(kernel.element) : kernelgen::type_name(s.vector, kernel.target)) +
            " scale";
    return text + ") {\n" + code.statements + "}\n";
}

/** The loops around the bodies; `work` is the main region, behind it the temporary one. */
std::string passes_function(const Kernel& kernel) {
    const Spelling s = spelling(kernel);
    const std::vector<int>& stages = kernel.stages;
    const std::string length = to_string(kernel.length());
    const std::string row = to_string(1 << stages[0]);
    const std::string width = to_string(kernel.width());
    const std::string block = to_string(big_block(kernel.order, kernel.element));
    std::string text = "\ntemplate <class Memory>\n[[gnu::always_inline]] inline void transform(" +
                       arrays(kernel, "src", "dst") + ", " +
                       kernelgen::type_name(s.vector, kernel.target) + " scale, " +
                       real_name(kernel.element) +
                       "* work) {\n    using Rows = core::Between<Memory, " + s.work +
                       ">;\n    using Columns = core::Between<" + s.work + ", Memory>;\n";
    if (stages.size() == 2)
        return text + "    QSVG_FOR_EACH_BLOCK(i, " + length + ", " + row +
               ") row<Rows>(src + i, work + i);\n    QSVG_FOR_EACH_BLOCK(c, " + row + ", " + width +
               ") final_columns<Columns>(work + c, dst + c, scale);\n}\n";
    return text + "    " + real_name(kernel.element) + "* const temporary = work + " + length +
           ";\n    QSVG_FOR_EACH_BLOCK(b, " + length + ", " + block +
           ") {\n        QSVG_FOR_EACH_BLOCK(i, " + block + ", " + row +
           ") row<Rows>(src + b + i, temporary + i);\n        QSVG_FOR_EACH_BLOCK(c, " + row +
           ", " + width + ")\n        middle_columns<" + s.work +
           ">(temporary + c, work + b + c);\n    }\n"
           "    QSVG_FOR_EACH_BLOCK(c, " +
           block + ", " + width + ") final_columns<Columns>(work + c, dst + c, scale);\n}\n";
}

std::string signature(const Kernel& kernel, const std::string& name) {
    return "QsvStatus " + name + "(" + arrays(kernel, "src", "dst") + ", int32_t flag" +
           (kernel.has_passes() ? ", uint8_t* buffer" : "") + ") {\n";
}

constexpr const char* kCheck =
    "    const QsvStatus status = core::check(src, dst, flag);\n"
    "    if (status != qsvStatusOk) return status;\n";

std::string transform_call(const Kernel& kernel, const std::string& memory) {
    if (is_scalar(kernel.order, kernel.element)) return "transform(src, dst, *kScales[flag]);\n";
    return "transform<" + memory + ">(src, dst, " + spelling(kernel).scale + "(kScales[flag])" +
           (kernel.has_passes() ? ", work.begin()" : "") + ");\n";
}

std::string work_buffer(const Kernel& kernel) {
    if (!kernel.has_passes()) return {};
    return std::string("    const core::WorkBuffer<") + real_name(kernel.element) +
           "> work(buffer, " + to_string(buffer_size(kernel.order, kernel.element)) + ");\n";
}

std::string checked_transform(const Kernel& kernel, const std::string& memory) {
    return kCheck + work_buffer(kernel) + "    " + transform_call(kernel, memory) +
           "    return qsvStatusOk;\n}\n";
}

constexpr const char* kMisaligned = "    if (!core::aligned(src) || !core::aligned(dst))";

std::string functions(const Kernel& kernel) {
    const std::string unaligned = spelling(kernel).unaligned;
    if (is_scalar(kernel.order, kernel.element))
        return signature(kernel, kernel.name()) + checked_transform(kernel, "");
    if (kernel.is_wide())
        return signature(kernel, kernel.name()) + checked_transform(kernel, unaligned);
    if (kernel.twin_name().empty())
        return signature(kernel, kernel.name()) + kCheck + kMisaligned + "\n        " +
               transform_call(kernel, unaligned) + "    else\n        " +
               transform_call(kernel, "core::Aligned") + "    return qsvStatusOk;\n}\n";
    const std::string twin = kernel.twin_name();
    return "[[gnu::visibility(\"hidden\"), gnu::noinline]] " + signature(kernel, twin) +
           checked_transform(kernel, unaligned) + "\n" + signature(kernel, kernel.name()) +
           kMisaligned + "\n        return " + twin + "(src, dst, flag" +
           (kernel.has_passes() ? ", buffer" : "") + ");\n" +
           checked_transform(kernel, "core::Aligned");
}

}  // namespace

std::string kernel_source(const Kernel& kernel) {
    std::string text = head(kernel) + option_pragma(kernel) + "#include \"core/frame.hpp\"\n";
    if (!is_scalar(kernel.order, kernel.element)) text += "#include \"core/vector_access.hpp\"\n";
    if (kernel.has_passes()) text += "#include \"core/passes.hpp\"\n";
    text += "\nnamespace {\n\n" + scale_table(kernel);
    for (const Body& body : kernel.bodies) text += body_function(kernel, body);
    if (kernel.has_passes()) text += passes_function(kernel);
    return text + "\n}  // namespace\n\nextern \"C\" {\n\n" + functions(kernel) + "\n}\n";
}

std::string dispatcher_source(Element element) {
    const std::string real = real_name(element);
    const std::string type = suffix(element);
    const std::string orders = to_string(kHighestOrder - kLowestOrder + 1);
    std::string text = std::string("// Walsh-Hadamard transform in ") + precision_name(element) +
                       " precision by order, and the size of its work buffer.\n"
                       "// Made by the kernel compiler; do not edit.\n\n#include \"qsvgen.h\"\n\n"
                       "namespace {\n\nconstexpr int32_t kBufferSizes[] = {";
    for (int order = kLowestOrder; order <= kHighestOrder; ++order)
        text += (order == kLowestOrder ? "" : ", ") + to_string(buffer_size(order, element));
    text += "};\n\n}  // namespace\n\nextern \"C\" {\n\nQsvStatus qsvgWHT_" + type + "(const " +
            real + "* src, " + real +
            "* dst, int32_t order, int32_t flag, uint8_t* buffer) {\n"
            "    switch (static_cast<uint32_t>(order) - " +
            to_string(kLowestOrder) + ") {\n";
    for (int order = kLowestOrder; order <= kHighestOrder; ++order) {
        text += "        case " + to_string(order - kLowestOrder) +
                ":\n            return qsvgWHT_" + to_string(order) + "_" + type +
                "(src, dst, flag" + (order > kHighestStraightOrder ? ", buffer" : "") + ");\n";
    }
    return text +
           "        default:\n            return qsvStatusBadLength;\n    }\n}\n\n"
           "QsvStatus qsvgWHTGetBufferSize_" +
           type +
           "(int32_t order, int32_t* size) {\n"
           "    const uint32_t entry = static_cast<uint32_t>(order) - " +
           to_string(kLowestOrder) + ";\n    if (entry >= " + orders +
           ") return qsvStatusBadLength;\n    *size = kBufferSizes[entry];\n"
           "    return qsvStatusOk;\n}\n\n}\n";
}

std::string manifest_header() {
    return "kernel,stages,buffer_bytes,sums,differences,products,shuffles,loads,stores,orders,"
           "modelled_stack_accesses,option,hash,values";
}

std::string manifest_line(const Kernel& kernel) {
    const Counts c = written_out(kernel);
    std::string line = kernel.name() + "," + stages_text(kernel);
    for (int value : {buffer_size(kernel.order, kernel.element), c.sums, c.differences, c.products,
                      c.shuffles, c.loads, c.stores})
        line += "," + to_string(value);
    int stack_accesses = 0;
    for (const Body& body : kernel.bodies)
        stack_accesses += schedule_of(body, kernel.target).traffic.stack_accesses;
    line += ",\"" + orders_text(kernel) + "\"," + to_string(stack_accesses) + "," + kernel.option;
    return line + "," + kernelgen::hash_of(kernel_source(kernel)) + "," + hash_of_values(kernel);
}

}  // namespace walsh_hadamard
