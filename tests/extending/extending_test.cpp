/** @file @brief The worked examples of docs/extending.md, followed. */
#include <gtest/gtest.h>

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/graph/counts.hpp"
#include "tests/extending/by_definition.hpp"
#include "tests/extending/haar.hpp"
#include "transforms/dft_complex/kernels/complex_kernel.hpp"
#include "transforms/dft_complex/layouts/element_layout.hpp"

namespace {

using dft_complex::Direction;
using dft_complex::Element;
using dft_complex::Kernel;
using dft_complex::Network;
using dft_complex::Signal;

Kernel kernel_by_definition(int length, Direction direction, Element element) {
    Network net;
    const Signal y = extending::by_definition(net, net.input(length));
    Kernel kernel{kernelgen::kReference,      length, direction, element,
                  dft_complex::small(length), {}};
    if (element == Element::Complex64)
        kernel.graph = lay_out_by_elements(net, y, direction);
    else
        kernel.graph =
            lay_out_packed(net, y, direction, dft_complex::LanePolicy::InterleavedEnds, {}).graph;
    return kernel;
}

TEST(ADecompositionThatIsAdded, IsProvenInBothTypesAndDirections) {
    for (int length : {2, 3, 4, 5, 6, 7}) {
        for (Element element : dft_complex::kElements) {
            for (Direction direction : dft_complex::kDirections)
                EXPECT_NO_THROW(
                    dft_complex::prove_dft(kernel_by_definition(length, direction, element)))
                    << "length " << length << ", " << suffix(element);
        }
    }
}

TEST(ADecompositionThatIsAdded, IsHeldAgainstThatOfTheTable) {
    const auto operations = [](const Kernel& kernel) {
        return kernelgen::count(kernel.graph, false).arithmetic();
    };
    const Kernel added = kernel_by_definition(7, Direction::Forward, Element::Complex64);
    const auto& row = dft_complex::row_of(7, Element::Complex64);
    EXPECT_GT(operations(added), row.arithmetic());
}

TEST(AFamilyThatIsAdded, IsProvenAndWritten) {
    const extending::Graph graph = extending::haar_of_four();
    ASSERT_NO_THROW(
        kernelgen::prove("Haar transform of 4 points", graph, 4, 4, extending::haar_matrix));
    const kernelgen::Schedule schedule = kernelgen::schedule(graph, kernelgen::kReference);
    const std::string statements =
        kernelgen::emit(graph, schedule.order, kernelgen::kReference).statements;
    for (const char* store : {"y[0] = ", "y[1] = ", "y[2] = ", "y[3] = "})
        EXPECT_NE(statements.find(store), std::string::npos) << store << "\n" << statements;
}

TEST(ATargetThatIsAdded, IsScheduledForItsOwnRegisters) {
    const Kernel kernel = dft_complex::proven_kernel(32, Direction::Forward, Element::Complex32);
    constexpr kernelgen::Target kThirtyTwoRegisters{
        .name = "added", .vector_registers = 32, .spelling = kernelgen::Spelling::VectorTypes};
    EXPECT_LT(kernelgen::schedule(kernel.graph, kThirtyTwoRegisters).traffic.stack_accesses,
              kernelgen::schedule(kernel.graph, kernelgen::kReference).traffic.stack_accesses);
}

}  // namespace
