#include "transforms/batch/piece_body.hpp"

#include "kernelgen/emission/emission.hpp"

namespace transforms::batch {
namespace {

std::string parameters(RealElement element) {
    return "Pieces<kPieces> pieces, const Rows<" + real_name(element) + ">& rows";
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
    const std::string real = real_name(element);
    return "// Batch body of " + name_of(family) + " " + std::to_string(size) + ", " +
           precision_name(element) +
           " precision, a transform in each piece of a vector.\n"
           "// Made by the kernel compiler; do not edit.\n\n#include \"batch/piece_body.hpp\"\n"
           "#include \"qsvgen.h\"\n\nnamespace batch {\nnamespace {\n\n" +
           body.constants +
           "\nstruct Body {\n"
           "    using Vector = batch::Vector<" +
           real +
           ">;\n"
           "    [[gnu::always_inline]] static void run(const RowSource<" +
           real + "> x, const RowDestination<" + real + "> y, const Vector scale) {\n" +
           body.statements + "    }\n};\n\n}  // namespace\n\nvoid " +
           body_name_in_pieces(family, size, element) + "([[maybe_unused]] " + parameters(element) +
           ") {\n    run_rows<Body>(rows);\n}\n\n}  // namespace batch\n";
}

std::string chooser_source_in_pieces(Family family, RealElement element,
                                     const kernelgen::Target& target) {
    const std::vector<int> sizes = sizes_in_pieces(element, target);
    std::string text = "// Batch bodies of " + name_of(family) +
                       " by size, a transform in each piece of a vector.\n"
                       "// Made by the kernel compiler; do not edit.\n\n#include "
                       "\"batch/piece_body.hpp\"\n\nnamespace batch {\n\n";
    for (int size : sizes)
        text += "void " + body_name_in_pieces(family, size, element) + "(" + parameters(element) +
                ");\n";
    text += "\nbool " + name_in_pieces(family, element) + "(int size, " + parameters(element) +
            ") {\n    switch (size) {\n";
    for (int size : sizes) {
        text += "        case " + std::to_string(size) + ":\n            " +
                body_name_in_pieces(family, size, element) +
                "(pieces, rows);\n            return true;\n";
    }
    return text +
           "        default:\n            return false;\n    }\n}\n\n}  // namespace batch\n";
}

}  // namespace transforms::batch
