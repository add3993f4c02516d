#include "transforms/batch/piece_body.hpp"

#include "kernelgen/emission/emission.hpp"

namespace transforms::batch {
namespace {

/** Longer ones are faster in lanes on every level: the longest that library/batch/run.cpp runs. */
constexpr int kLongestColumn = 14;

std::string rows(RealElement element) {
    return "Rows<" + real_name(element) + ">";
}
std::string columns(RealElement element) {
    return "Columns<" + real_name(element) + ">";
}

/** Where an element fills a piece. */
bool has_columns(RealElement element) {
    return element == RealElement::Real64;
}

std::string parameters(const std::string& batch) {
    return "Pieces<kPieces> pieces, const " + batch + "& batch";
}

}  // namespace

std::string name_in_pieces(Family family, RealElement element) {
    return name_of(family) + "_in_pieces_" + suffix(element);
}

std::string body_name_in_pieces(Family family, int size, RealElement element) {
    return name_in_pieces(family, element) + "_" + std::to_string(size);
}

dft_complex::Kernel kernel_in_pieces(Family family, int size, RealElement element,
                                     const kernelgen::Target& target) {
    return dft_complex::described_kernel(
        size,
        family == Family::ComplexForward ? dft_complex::Direction::Forward
                                         : dft_complex::Direction::Inverse,
        element == RealElement::Real32 ? dft_complex::Element::Complex32
                                       : dft_complex::Element::Complex64,
        target);
}

std::vector<int> sizes_in_pieces(RealElement element, const kernelgen::Target& target) {
    std::vector<int> sizes;
    for (int size : dft_complex::lengths()) {
        if (!kernel_in_pieces(Family::ComplexForward, size, element, target).is_scalar())
            sizes.push_back(size);
    }
    return sizes;
}

std::string body_source_in_pieces(Family family, int size, RealElement element,
                                  const kernelgen::Target& target) {
    const dft_complex::Kernel kernel = kernel_in_pieces(family, size, element, target);
    const kernelgen::Schedule schedule = dft_complex::schedule_of(kernel);
    const kernelgen::EmittedBody body = kernelgen::emit_in_pieces(kernel.graph, schedule.order);
    std::string text =
        "// Batch body of " + name_of(family) + " " + std::to_string(size) + ", " +
        precision_name(element) +
        " precision, a transform in each piece of a vector.\n"
        "// Made by the kernel compiler; do not edit.\n\n#include "
        "\"batch/piece_body.hpp\"\n"
        "#include \"qsvgen.h\"\n\nnamespace batch {\nnamespace {\n\n" +
        body.constants +
        "\nstruct Body {\n"
        "    using Vector = batch::Vector<" +
        real_name(element) +
        ">;\n"
        "    template <class Source, class Destination>\n"
        "    [[gnu::always_inline]] static void run(const Source x, const Destination "
        "y,\n                                           const Vector scale) {\n" +
        body.statements + "    }\n};\n\n}  // namespace\n\n";
    const auto function = [&](const std::string& batch) {
        return "void " + body_name_in_pieces(family, size, element) + "([[maybe_unused]] " +
               parameters(batch) + ") {\n    run_in_pieces<Body>(batch);\n}\n\n";
    };
    text += function(rows(element));
    if (has_columns(element) && size <= kLongestColumn) text += function(columns(element));
    return text + "}  // namespace batch\n";
}

namespace {

/** The bodies of some sizes for one kind of batch, and the function that chooses one. */
std::string choice_source(Family family, RealElement element, const std::vector<int>& sizes,
                          const std::string& batch) {
    std::string text;
    for (int size : sizes)
        text +=
            "void " + body_name_in_pieces(family, size, element) + "(" + parameters(batch) + ");\n";
    text += "\nbool " + name_in_pieces(family, element) + "(int size, " + parameters(batch) +
            ") {\n    switch (size) {\n";
    for (int size : sizes) {
        text += "        case " + std::to_string(size) + ":\n            " +
                body_name_in_pieces(family, size, element) +
                "(pieces, batch);\n            return true;\n";
    }
    return text + "        default:\n            return false;\n    }\n}\n\n";
}

}  // namespace

std::string chooser_source_in_pieces(Family family, RealElement element,
                                     const kernelgen::Target& target) {
    std::vector<int> sizes = sizes_in_pieces(element, target);
    std::string text = "// Batch bodies of " + name_of(family) +
                       " by size, a transform in each piece of a vector.\n"
                       "// Made by the kernel compiler; do not edit.\n\n#include "
                       "\"batch/piece_body.hpp\"\n\nnamespace batch {\n\n" +
                       choice_source(family, element, sizes, rows(element));
    std::erase_if(sizes, [](int size) { return size > kLongestColumn; });
    if (has_columns(element)) text += choice_source(family, element, sizes, columns(element));
    return text + "}  // namespace batch\n";
}

}  // namespace transforms::batch
