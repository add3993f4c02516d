#include "transforms/dft_real/kernels/real_kernel_source.hpp"

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/emission/generated_files.hpp"
#include "kernelgen/values/value_hash.hpp"

namespace dft_real {
namespace {

using kernelgen::Exact;
using kernelgen::literal;

const char* scaling_name(Kind kind) {
    switch (kind) {
        case Kind::Forward:
            return "forward";
        case Kind::Inverse:
            return "inverse";
        case Kind::Hartley:
            break;
    }
    return "both";
}

std::string rounded(const Exact& value, Element element) {
    return element == Element::Real32 ? literal(value.to_binary32()) : literal(value.to_binary64());
}

std::string scale_table(const RealKernel& kernel) {
    const Exact by_n = Exact::rational(1, kernel.length);
    const Exact by_root = Exact::product({by_n, Exact::square_root(kernel.length)});
    return std::string("constexpr auto kScales = core::ScaleTable<") + real_name(kernel.element) +
           ">::" + scaling_name(kernel.family.kind) + "(" + rounded(by_n, kernel.element) + ", " +
           rounded(by_root, kernel.element) + ");\n";
}

std::string title_of(const RealKernel& kernel) {
    std::string title = kernel.family.title;
    return title.replace(title.find("{N}"), 3, std::to_string(kernel.length));
}

std::string counts_comment(const RealKernel& kernel) {
    const Cost cost = network_cost(kernel.graph);
    const kernelgen::Counts c = kernelgen::count(kernel.graph, kernel.element == Element::Real32);
    return std::to_string(cost.sums) + " sums, " + std::to_string(cost.products) +
           " products and one by the scale factor for each output, " +
           std::to_string(c.conversions) + " conversions, " + std::to_string(c.loads) + " loads, " +
           std::to_string(c.stores) + " stores";
}

}  // namespace

std::string kernel_source(const RealKernel& kernel) {
    const kernelgen::Schedule schedule = schedule_of(kernel);
    const bool whole_register = kernel.tuning.rounding == Rounding::WholeRegister;
    const bool in_packs = !kernel.tuning.packs.empty();
    const std::string rounding = whole_register ? "core::rounded" : "static_cast<float>";
    const kernelgen::EmittedBody body =
        in_packs ? kernelgen::emit_mixed(written_graph(kernel), schedule.order, kernel.target)
                 : kernelgen::emit(kernel.graph, schedule.order, kernel.target, rounding);
    const std::string real = real_name(kernel.element);
    const std::string arrays = "const " + real + "* src, " + real + "* dst, ";
    std::string text = "// " + title_of(kernel) + ", " + precision_name(kernel.element) +
                       " precision; order: " + schedule.method + ".\n// " + counts_comment(kernel) +
                       ".\n// Made by the kernel compiler; do not edit.\n\n";
    if (!kernel.tuning.option.empty()) {
        text +=
            "#if defined(__GNUC__) && !defined(__clang__)\n"
            "// Spares this kernel moves between registers and stack.\n"
            "#pragma GCC optimize(\"" +
            kernel.tuning.option + "\")\n#endif\n\n";
    }
    text += "#include \"core/frame.hpp\"\n";
    if (whole_register) text += "#include \"core/rounding.hpp\"\n";
    if (in_packs) text += "#include \"core/vector_access.hpp\"\n";
    text += "\nnamespace {\n\n" + scale_table(kernel);
    if (!body.constants.empty()) text += "\n" + body.constants;
    text += "\n[[gnu::always_inline]] inline void transform(const " + real + "* x, " + real +
            "* y, " + real + " scale) {\n" + body.statements +
            "}\n\n}  // namespace\n\nextern \"C\" {\n\n";
    return text + "QsvStatus " + kernel.name() + "(" + arrays +
           "int32_t flag) {\n"
           "    const QsvStatus status = core::check(src, dst, flag);\n"
           "    if (status != qsvStatusOk) return status;\n"
           "    transform(src, dst, *kScales[flag]);\n    return qsvStatusOk;\n}\n\n}\n";
}

std::string dispatcher_source(const Family& family, Element element) {
    const std::string real = real_name(element);
    const std::string stem = "qsvg" + family.name + "_";
    std::string text = "// " + family.name + " in " + precision_name(element) +
                       " precision by length.\n// Made by the kernel compiler; do not edit.\n\n"
                       "#include \"qsvgen.h\"\n\nextern \"C\" QsvStatus " +
                       stem + suffix(element) + "(const " + real + "* src, " + real +
                       "* dst, int32_t length, int32_t flag) {\n"
                       "    switch (static_cast<uint32_t>(length) - " +
                       std::to_string(lengths().front()) + ") {\n";
    for (int n : lengths()) {
        text += "        case " + std::to_string(n - lengths().front()) + ":\n            return " +
                stem + std::to_string(n) + "_" + suffix(element) + "(src, dst, flag);\n";
    }
    return text + "        default:\n            return qsvStatusBadLength;\n    }\n}\n";
}

std::string manifest_header() {
    return "kernel,sums,products,table_sums,table_products,outputs_scaled_in_rows,doubled_inputs,"
           "wide_sums,conversions,loads,stores,order,modelled_stack_accesses,rounding,option,hash,"
           "values";
}

std::string manifest_line(const RealKernel& kernel) {
    const Cost cost = network_cost(kernel.graph);
    const Cost table = row_of(kernel.length).cost_of(kernel.family.kind);
    const kernelgen::Counts c = kernelgen::count(kernel.graph, kernel.element == Element::Real32);
    const kernelgen::Schedule schedule = schedule_of(kernel);
    std::string line = kernel.name();
    for (int number : {cost.sums, cost.products, table.sums, table.products,
                       outputs_scaled_in_rows(kernel.graph), doubled_inputs(kernel.graph),
                       wide_sums(kernel.graph), c.conversions, c.loads, c.stores})
        line += "," + std::to_string(number);
    line += "," + schedule.method + "," + std::to_string(schedule.traffic.stack_accesses);
    line += "," + to_string(kernel.tuning.rounding) + "," + kernel.tuning.option;
    return line + "," + kernelgen::hash_of(kernel_source(kernel)) + "," +
           kernelgen::hash_of_values(kernel.graph);
}

}  // namespace dft_real
