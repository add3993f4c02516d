#include "transforms/dft_complex/kernels/complex_kernel_source.hpp"

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/emission/generated_files.hpp"
#include "kernelgen/emission/spelling.hpp"
#include "kernelgen/graph/counts.hpp"
#include "kernelgen/schedule/schedule.hpp"
#include "kernelgen/values/value_hash.hpp"
#include "transforms/dft_complex/small_transforms/short_lengths.hpp"

namespace dft_complex {
namespace {

using kernelgen::Counts;
using kernelgen::literal;

/** How one element type is spelled in the library's code. */
struct Spelling {
    const char* precision;
    const char* complex;
    const char* real;
    kernelgen::Type vector;
};

const Spelling& spelling(Element element) {
    static const Spelling single{"single", "Complex32", "float", kernelgen::Type::Binary32x4};
    static const Spelling doubled{"double", "Complex64", "double", kernelgen::Type::Binary64x2};
    return element == Element::Complex32 ? single : doubled;
}

const char* word(Direction direction) {
    return direction == Direction::Forward ? "forward" : "inverse";
}

Counts counts_of(const Kernel& kernel) {
    return kernelgen::count(kernel.graph, kernel.element == Element::Complex32);
}

std::string counts_comment(const Counts& c) {
    std::string text = std::to_string(c.sums) + " sums, " + std::to_string(c.differences) +
                       " differences, " + std::to_string(c.products) + " products, ";
    if (c.wide_products > 0) {
        text += std::to_string(c.wide_sums) + " + " + std::to_string(c.wide_differences) + " + " +
                std::to_string(c.wide_products) + " of them in binary64, ";
    }
    return text + std::to_string(c.shuffles) + " shuffles, " + std::to_string(c.flips) +
           " sign flips, " + std::to_string(c.loads) + " loads, " + std::to_string(c.stores) +
           " stores";
}

std::string rounded(const Exact& value, Element element) {
    return element == Element::Complex32 ? literal(value.to_binary32())
                                         : literal(value.to_binary64());
}

std::string scale_table(const Kernel& kernel) {
    const Exact by_n = Exact::rational(1, kernel.length);
    const Exact by_root = Exact::product({by_n, Exact::square_root(kernel.length)});
    return std::string("constexpr auto kScales = core::ScaleTable<") +
           spelling(kernel.element).real + ">::" + word(kernel.direction) + "(" +
           rounded(by_n, kernel.element) + ", " + rounded(by_root, kernel.element) + ");\n";
}

std::string signature(const Kernel& kernel, const std::string& name) {
    const std::string complex = spelling(kernel.element).complex;
    return "QsvStatus " + name + "(const " + complex + "* src, " + complex +
           "* dst, int32_t flag) {\n";
}

constexpr const char* kCheck =
    "    const QsvStatus status = core::check(src, dst, flag);\n"
    "    if (status != qsvStatusOk) return status;\n";

std::string checked(const std::string& call) {
    return std::string(kCheck) + "    " + call + "\n    return qsvStatusOk;\n}\n";
}

std::string packed_call(const Kernel& kernel, const std::string& memory) {
    return "transform<" + memory + ">(&src->re, &dst->re, " +
           kernelgen::aligned_load(spelling(kernel.element).vector, kernel.target) +
           "(kScales[flag]));";
}

constexpr const char* kMisaligned = "    if (!core::aligned(src) || !core::aligned(dst))";

std::string scalar_functions(const Kernel& kernel) {
    return signature(kernel, kernel.name()) +
           checked("transform(&src->re, &dst->re, *kScales[flag]);");
}

/** 32-bit programs have both copies, of which a compiler may find that one does for both; elsewhere
 * finding out takes longer than the few moves that alignment makes faster. */
std::string function_without_twin(const Kernel& kernel) {
    if (kernel.target.spelling != kernelgen::Spelling::SseIntrinsics)
        return signature(kernel, kernel.name()) + checked(packed_call(kernel, "core::Unaligned"));
    return signature(kernel, kernel.name()) + kCheck + kMisaligned + "\n        " +
           packed_call(kernel, "core::Unaligned") + "\n    else\n        " +
           packed_call(kernel, "core::Aligned") + "\n    return qsvStatusOk;\n}\n";
}

std::string function_and_twin(const Kernel& kernel) {
    const std::string twin = kernel.twin_name();
    return "[[gnu::visibility(\"hidden\"), gnu::noinline]] " + signature(kernel, twin) +
           checked(packed_call(kernel, "core::Unaligned")) + "\n" +
           signature(kernel, kernel.name()) + kMisaligned + "\n        return " + twin +
           "(src, dst, flag);\n" + checked(packed_call(kernel, "core::Aligned"));
}

/** Of vectors of 16 and of 32 bytes, at any address. */
std::string mixed_functions(const Kernel& kernel) {
    return signature(kernel, kernel.name()) +
           checked("transform(&src->re, &dst->re, core::Unaligned::load(kScales[flag]));");
}

std::string functions(const Kernel& kernel) {
    if (kernel.is_scalar()) return scalar_functions(kernel);
    if (!kernel.packs.empty()) return mixed_functions(kernel);
    return kernel.twin_name().empty() ? function_without_twin(kernel) : function_and_twin(kernel);
}

std::string transform_head(const Kernel& kernel) {
    const Spelling& s = spelling(kernel.element);
    const std::string arrays = std::string("const ") + s.real + "* x, " + s.real + "* y, ";
    if (kernel.is_scalar()) return "\ninline void transform(" + arrays + s.real + " scale) {\n";
    const std::string scale = kernelgen::type_name(s.vector, kernel.target) + " scale) {\n";
    if (!kernel.packs.empty())
        return "\n[[gnu::always_inline]] inline void transform(" + arrays + scale;
    std::string text;
    if (kernel.element == Element::Complex32) {
        text =
            "\nusing core::load_high;\nusing core::load_low;\nusing core::move_low;\n"
            "using core::store_high;\nusing core::store_low;\nusing core::Unaligned;\n";
    }
    return text + "\ntemplate <class Memory>\n[[gnu::always_inline]] inline void transform(" +
           arrays + scale;
}

}  // namespace

std::string kernel_source(const Kernel& kernel) {
    const kernelgen::Schedule schedule = schedule_of(kernel);
    const auto emit = kernel.packs.empty() ? kernelgen::emit : kernelgen::emit_mixed;
    const kernelgen::EmittedBody body =
        emit(written_graph(kernel), schedule.order, kernel.target, "static_cast<float>");
    std::string text = "// DFT of " + std::to_string(kernel.length) + " complex points in " +
                       spelling(kernel.element).precision + " precision, " +
                       word(kernel.direction) + ".\n";
    text += "// Rule " + to_string(kernel.rule) + "; order: " + schedule.method + ".\n";
    text += "// " + counts_comment(counts_of(kernel)) + ".\n";
    text += "// Made by the kernel compiler; do not edit.\n\n";
    if (!kernel.option.empty()) {
        text +=
            "#if defined(__GNUC__) && !defined(__clang__)\n"
            "// Spares this kernel moves between registers and stack.\n"
            "#pragma GCC optimize(\"" +
            kernel.option + "\")\n#endif\n\n";
    }
    text += "#include \"core/frame.hpp\"\n";
    if (!kernel.is_scalar() || !kernel.packs.empty())
        text += "#include \"core/vector_access.hpp\"\n";
    text += "\nnamespace {\n\n" + scale_table(kernel);
    if (!body.constants.empty()) text += "\n" + body.constants;
    text += transform_head(kernel) + body.statements + "}\n";
    return text + "\n}  // namespace\n\nextern \"C\" {\n\n" + functions(kernel) + "\n}\n";
}

std::string manifest_header() {
    return "kernel,rule,sums,differences,products,table_sums,table_products,wide_sums,"
           "wide_differences,wide_products,flips,shuffles,loads,stores,order,"
           "modelled_stack_accesses,lanes,option,hash,values";
}

std::string manifest_line(const Kernel& kernel) {
    const Counts c = counts_of(kernel);
    const TableRow& row = row_of(kernel.length, kernel.element);
    const kernelgen::Schedule schedule = schedule_of(kernel);
    std::string line = kernel.name() + ",\"" + to_string(kernel.rule) + "\"";
    for (int number :
         {c.sums, c.differences, c.products, row.sums + row.differences, row.products, c.wide_sums,
          c.wide_differences, c.wide_products, c.flips, c.shuffles, c.loads, c.stores})
        line += "," + std::to_string(number);
    line += "," + schedule.method + "," + std::to_string(schedule.traffic.stack_accesses) + ",";
    for (const LaneChoice& choice : kernel.choices)
        line += (&choice == kernel.choices.data() ? "" : " ") + choice.to_string();
    return line + "," + kernel.option + "," + kernelgen::hash_of(kernel_source(kernel)) + "," +
           kernelgen::hash_of_values(kernel.graph);
}

std::string dispatcher_source(Direction direction, Element element) {
    const std::string family =
        direction == Direction::Forward ? "qsvgDFTFwd_CToC_" : "qsvgDFTInv_CToC_";
    const std::string complex = spelling(element).complex;
    std::string text = std::string("// Complex DFT in ") + spelling(element).precision +
                       " precision by length, " + word(direction) +
                       ".\n// Made by the kernel compiler; do not edit.\n\n#include "
                       "\"qsvgen.h\"\n\nextern \"C\" QsvStatus " +
                       family + suffix(element) + "(const " + complex + "* src, " + complex +
                       "* dst, int32_t length, int32_t flag) {\n"
                       "    switch (static_cast<uint32_t>(length) - " +
                       std::to_string(lengths().front()) + ") {\n";
    for (int n : lengths()) {
        text += "        case " + std::to_string(n - lengths().front()) + ":\n            return " +
                family + std::to_string(n) + "_" + suffix(element) + "(src, dst, flag);\n";
    }
    return text + "        default:\n            return qsvStatusBadLength;\n    }\n}\n";
}

}  // namespace dft_complex
