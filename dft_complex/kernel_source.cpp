#include "dft_complex/kernel_source.hpp"

#include <cstdint>
#include <cstdio>

#include "dft_complex/short_lengths.hpp"
#include "kernelgen/counts.hpp"
#include "kernelgen/emission.hpp"
#include "kernelgen/schedule.hpp"

namespace dft_complex {
namespace {

using kernelgen::Counts;
using kernelgen::literal;

const char* word(Direction direction) {
    return direction == Direction::Forward ? "forward" : "inverse";
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

std::string scale_table(const Kernel& kernel) {
    const std::string by_n = literal(Exact::rational(1, kernel.length).to_binary32());
    const std::string by_root = literal(
        Exact::product({Exact::rational(1, kernel.length), Exact::square_root(kernel.length)})
            .to_binary32());
    return "constexpr auto kScales = core::ScaleTable<float>::" +
           std::string(word(kernel.direction)) + "(" + by_n + ", " + by_root + ");\n";
}

std::string frame(const std::string& name, const char* linkage, const std::string& before,
                  const std::string& call) {
    return std::string(linkage) + "QsvStatus " + name +
           "(const Complex32* src, Complex32* dst, int32_t flag) {\n" + before +
           "    const QsvStatus status = core::check(src, dst, flag, kScales);\n"
           "    if (status != qsvStatusOk) return status;\n" +
           "    " + call + "\n" + "    return qsvStatusOk;\n}\n";
}

std::string scalar_functions(const Kernel& kernel) {
    return frame(kernel.name(), "", "", "transform(&src->re, &dst->re, *kScales[flag]);");
}

std::string packed_functions(const Kernel& kernel) {
    const auto call = [](const char* memory) {
        return "transform<core::" + std::string(memory) +
               ">(&src->re, &dst->re, _mm_load_ps(kScales[flag]));";
    };
    const std::string twin = kernel.twin_name();
    return frame(twin, "[[gnu::visibility(\"hidden\"), gnu::noinline]] ", "", call("Unaligned")) +
           "\n" +
           frame(kernel.name(), "",
                 "    if (!core::aligned(src) || !core::aligned(dst))\n        return " + twin +
                     "(src, dst, flag);\n",
                 call("Aligned"));
}

std::uint64_t fnv1a(const std::string& text) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (unsigned char c : text) hash = (hash ^ c) * 1099511628211ULL;
    return hash;
}

}  // namespace

std::string kernel_source(const Kernel& kernel) {
    const kernelgen::Schedule schedule = schedule_of(kernel);
    const kernelgen::EmittedBody body = kernelgen::emit(kernel.graph, schedule.order);
    const bool scalar = kernel.length <= kLongestShortLength;
    std::string text = "// DFT of " + std::to_string(kernel.length) +
                       " complex points in single precision, " + word(kernel.direction) + ".\n";
    text += "// Rule " + to_string(kernel.rule) + "; order: " + schedule.method + ".\n";
    text += "// " + counts_comment(kernelgen::count(kernel.graph, true)) + ".\n";
    text += "// Made by the kernel compiler; do not edit.\n\n";
    text += "#include \"core/frame.hpp\"\n";
    if (!scalar) text += "#include \"core/vector_access.hpp\"\n";
    text += "\nnamespace {\n\n" + scale_table(kernel);
    if (!body.constants.empty()) text += "\n" + body.constants;
    if (scalar) {
        text += "\ninline void transform(const float* x, float* y, float scale) {\n";
    } else {
        text +=
            "\nusing core::load_high;\nusing core::load_low;\nusing core::move_low;\n"
            "using core::store_high;\nusing core::store_low;\nusing core::Unaligned;\n"
            "\ntemplate <class Memory>\n"
            "[[gnu::always_inline]] inline void transform(const float* x, float* y, __m128 "
            "scale) {\n";
    }
    text += body.statements + "}\n\n}  // namespace\n\nextern \"C\" {\n\n";
    text += (scalar ? scalar_functions(kernel) : packed_functions(kernel)) + "\n}\n";
    return text;
}

std::string manifest_header() {
    return "kernel,rule,sums,differences,products,table,wide_sums,wide_differences,wide_products,"
           "flips,shuffles,loads,stores,order,modelled_stack_accesses,lanes,hash";
}

std::string manifest_line(const Kernel& kernel) {
    const Counts c = kernelgen::count(kernel.graph, true);
    const kernelgen::Schedule schedule = schedule_of(kernel);
    std::string line = kernel.name() + ",\"" + to_string(kernel.rule) + "\"";
    for (int number :
         {c.sums, c.differences, c.products, row_of(kernel.length).arithmetic(), c.wide_sums,
          c.wide_differences, c.wide_products, c.flips, c.shuffles, c.loads, c.stores})
        line += "," + std::to_string(number);
    line += "," + schedule.method + "," + std::to_string(schedule.traffic.stack_accesses) + ",";
    for (const LaneChoice& choice : kernel.choices)
        line += (&choice == kernel.choices.data() ? "" : " ") + choice.to_string();
    char hash[20];
    std::snprintf(hash, sizeof hash, "%016llx",
                  static_cast<unsigned long long>(fnv1a(kernel_source(kernel))));
    return line + "," + hash;
}

std::string dispatcher_source(Direction direction) {
    const std::string family =
        direction == Direction::Forward ? "qsvgDFTFwd_CToC_" : "qsvgDFTInv_CToC_";
    std::string text =
        "// Complex DFT in single precision by length, " + std::string(word(direction)) +
        ".\n// Made by the kernel compiler; do not edit.\n\n#include \"qsvgen.h\"\n\n"
        "extern \"C\" QsvStatus " +
        family +
        "32fc(const Complex32* src, Complex32* dst, int32_t length, int32_t flag) {\n"
        "    switch (static_cast<uint32_t>(length) - " +
        std::to_string(kShortestLength) + ") {\n";
    for (int n = kShortestLength; n <= kLongestLength; ++n) {
        const std::string length = std::to_string(n);
        text += "        case " + std::to_string(n - kShortestLength) + ":\n            return " +
                family + length + "_32fc(src, dst, flag);\n";
    }
    return text + "        default:\n            return qsvStatusBadLength;\n    }\n}\n";
}

}  // namespace dft_complex
