#include "transforms/walsh_hadamard/sequence.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "kernelgen/values/value_hash.hpp"

// The proof that sums are formed as in the reference sequence, and that it would see others.

namespace {

using namespace walsh_hadamard;

bool is_reference_sequence(const Kernel& kernel) {
    kernelgen::ValueGraph values;
    const kernelgen::Outputs wanted = sums_of_reference(values, kernel.order, kernel.element);
    return sums_of_kernel(values, kernel) == wanted;
}

TEST(WalshHadamardSequence, IsThatOfEveryKernelSumBySum) {
    for (Element element : kElements) {
        for (int order = kLowestOrder; order <= kHighestOrder; ++order)
            EXPECT_TRUE(is_reference_sequence(described_kernel(order, element)))
                << "order " << order << ", " << suffix(element);
    }
}

TEST(WalshHadamardSequence, EveryKernelOfEveryTargetIsProven) {
    for (const kernelgen::Target& target : kernelgen::kTargets) {
        for (Element element : kElements) {
            for (int order = kLowestOrder; order <= kHighestOrder; ++order)
                EXPECT_NO_THROW(proven_kernel(order, element, target))
                    << order << ", " << suffix(element) << ", " << target.name;
        }
    }
}

// The matrix is the same for all of these, so only this proof tells them apart.
TEST(WalshHadamardSequence, IsNotThatOfDescendingStrides) {
    constexpr int kOrder = 3;
    kernelgen::Graph graph;
    std::vector<kernelgen::Ref> v;
    for (int i = 0; i < 8; ++i) v.push_back(graph.load(kernelgen::Type::Binary32, i));
    for (std::size_t h = 4; h > 0; h /= 2) {
        for (std::size_t j = 0; j < 8; ++j) {
            if ((j & h) != 0) continue;
            const kernelgen::Ref a = v[j];
            const kernelgen::Ref b = v[j + h];
            v[j] = graph.add(a, b);
            v[j + h] = graph.sub(a, b);
        }
    }
    const kernelgen::Ref scale = graph.scale(kernelgen::Type::Binary32);
    for (int i = 0; i < 8; ++i) graph.store(graph.mul(v[static_cast<std::size_t>(i)], scale), i);
    Kernel kernel = described_kernel(kOrder, Element::Real32);
    EXPECT_TRUE(is_reference_sequence(kernel));
    kernel.bodies[0].graph = graph;
    EXPECT_FALSE(is_reference_sequence(kernel));
}

TEST(WalshHadamardSequence, NeedsTheProduct) {
    Kernel kernel = described_kernel(4, Element::Real32);
    kernel.bodies[0].graph = row_body(Element::Real32, 4, Scaling::None);
    EXPECT_FALSE(is_reference_sequence(kernel));
}

TEST(WalshHadamardSequence, SeesAPassThatLeavesItsArray) {
    Kernel kernel = described_kernel(8, Element::Real32);
    kernel.bodies[1].graph = column_body(Element::Real32, 3, 64, Scaling::Last);
    kernelgen::ValueGraph values;
    EXPECT_THROW(sums_of_kernel(values, kernel), std::out_of_range);
}

TEST(WalshHadamardSequence, SeesAPassThatReadsWhatNoneHasWritten) {
    Kernel kernel = described_kernel(8, Element::Real32);
    kernel.bodies[0].graph = row_body(Element::Real32, 4, Scaling::None);
    kernelgen::ValueGraph values;
    std::string message;
    try {
        sums_of_kernel(values, kernel);
    } catch (const std::logic_error& error) {
        message = error.what();
    }
    EXPECT_EQ(message, "a pass reads what none has written");
}

TEST(WalshHadamardSequence, IsWhatTheHashOfTheValuesIsOf) {
    for (Element element : kElements) {
        for (int order : {3, 7, 8, 11}) {
            kernelgen::ValueGraph values;
            const kernelgen::Outputs wanted = sums_of_reference(values, order, element);
            EXPECT_EQ(hash_of_values(described_kernel(order, element)),
                      kernelgen::hash_of_values(values, wanted))
                << "order " << order << ", " << suffix(element);
        }
    }
}

/** What the proof says of a kernel one of whose bodies was replaced. */
std::string complaint(int order, std::size_t body, const kernelgen::Graph& graph,
                      const kernelgen::Target& target = kernelgen::kReference) {
    Kernel kernel = described_kernel(order, Element::Real32, target);
    kernel.bodies[body].graph = graph;
    try {
        prove(kernel);
    } catch (const std::exception& error) {
        return error.what();
    }
    return "none";
}

TEST(WalshHadamardProof, NamesTheOutputThatIsFormedOtherwise) {
    EXPECT_EQ("none", complaint(1, 0, scalar_body(Element::Real32, 1)));
    kernelgen::Graph exchanged;
    const auto a = exchanged.load(kernelgen::Type::Binary32, 0);
    const auto b = exchanged.load(kernelgen::Type::Binary32, 1);
    const auto scale = exchanged.scale(kernelgen::Type::Binary32);
    exchanged.store(exchanged.mul(exchanged.add(a, b), scale), 0);
    exchanged.store(exchanged.positive(-exchanged.mul(exchanged.sub(b, a), scale)), 1);
    for (const kernelgen::Target& target : kernelgen::kTargets) {
        const std::string message = complaint(1, 0, exchanged, target);
        EXPECT_NE(std::string::npos, message.find("qsvgWHT_1_32f: output 1"))
            << target.name << ": " << message;
    }
}

// Order 12 has rows of 64 elements, middle columns of 8 vectors and final columns of 8.
TEST(WalshHadamardProof, IsOfTheColumnBodiesThatAreEmitted) {
    const auto wrong_product = [](int stages, int stride) {
        kernelgen::Graph graph = column_body(Element::Real32, stages, stride, Scaling::None);
        const auto first = graph.load(kernelgen::Type::Binary32x4, 0);
        graph.store(first, 0);
        return graph;
    };
    EXPECT_EQ("none", complaint(12, 1, column_body(Element::Real32, 3, 64, Scaling::None)));
    EXPECT_NE(std::string::npos, complaint(12, 1, wrong_product(3, 64)).find("middle_columns"));
    EXPECT_NE(std::string::npos, complaint(12, 2, wrong_product(3, 512)).find("final_columns"));
    EXPECT_NE(std::string::npos,
              complaint(12, 1, column_body(Element::Real32, 3, 32, Scaling::None))
                  .find("middle_columns"));
}

}  // namespace
