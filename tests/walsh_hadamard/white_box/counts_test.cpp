#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/walsh_hadamard/white_box/support/expected_counts.hpp"
#include "transforms/walsh_hadamard/walsh_hadamard_kernel.hpp"

// What a kernel writes out, how it is divided, and the memory that follows from this.

namespace {

using namespace walsh_hadamard;
using Row = walsh_hadamard_test::ExpectedCounts;

template <class Check>
void for_each_row(const Check& check) {
    for (Element element : kElements) {
        for (const Row& row : walsh_hadamard_test::expected_counts(element == Element::Real32))
            check(row, described_kernel(row.order, element));
    }
}

TEST(WalshHadamardCounts, AreThoseOfTheTable) {
    for_each_row([](const Row& row, const Kernel& kernel) {
        const kernelgen::Counts c = written_out(kernel);
        EXPECT_EQ(row.sums, c.sums) << kernel.name();
        EXPECT_EQ(row.differences, c.differences) << kernel.name();
        EXPECT_EQ(row.products, c.products) << kernel.name();
    });
}

TEST(WalshHadamardCounts, OfAWholeTransformAreHalfOfKTimesNSumsAndAsManyDifferences) {
    for_each_row([](const Row& row, const Kernel& kernel) {
        const int width = is_scalar(row.order, kernel.element) ? 1 : lanes(kernel.element);
        int sums = 0;
        int differences = 0;
        int products = 0;
        for (std::size_t i = 0; i < kernel.bodies.size(); ++i) {
            // A row body works on 2^stages elements, a column body on as many vectors.
            const int elements = (1 << kernel.stages[i]) * (i == 0 ? 1 : width);
            const int times = kernel.length() / elements * width;
            const kernelgen::Counts c =
                kernelgen::count(kernel.bodies[i].graph, kernel.element == Element::Real32);
            sums += times * c.sums;
            differences += times * c.differences;
            products += times * c.products;
        }
        EXPECT_EQ(row.order * kernel.length() / 2, sums) << kernel.name();
        EXPECT_EQ(row.order * kernel.length() / 2, differences) << kernel.name();
        EXPECT_EQ(kernel.length(), products) << kernel.name();
    });
}

// The shortest transforms in vectors of 32 bytes, of 32 and of 8 elements, and those in vectors of
// 64 hold as many vectors as a transpose takes.
TEST(WalshHadamardVectors, AreThoseOfALevelWhereATransformIsLongEnough) {
    for_each_row([](const Row& row, const Kernel& kernel) {
        const int shortest = kernel.element == Element::Real32 ? 5 : 3;
        const auto bytes = [&](const kernelgen::Target& target) {
            return described_kernel(row.order, kernel.element, target).vector_bytes;
        };
        const int of_v3 = row.order >= shortest ? 32 : 16;
        EXPECT_EQ(16, bytes(kernelgen::kX86_64)) << kernel.name();
        EXPECT_EQ(of_v3, bytes(kernelgen::kX86_64_v3)) << kernel.name();
        EXPECT_EQ(row.order > shortest ? 64 : of_v3, bytes(kernelgen::kX86_64_v4)) << kernel.name();
    });
}

TEST(WalshHadamardCounts, OfLongerVectorsAreFewerByAsMuch) {
    for_each_row([](const Row& row, const Kernel& kernel) {
        const bool single = kernel.element == Element::Real32;
        for (const kernelgen::Target& level : {kernelgen::kX86_64_v3, kernelgen::kX86_64_v4}) {
            const Kernel wide = described_kernel(row.order, kernel.element, level);
            for (std::size_t i = 0; i < kernel.bodies.size(); ++i) {
                // A column of longer vectors is as many columns more.
                const int times = i == 0 ? wide.vector_bytes / 16 : 1;
                const std::string what = kernel.name() + " of " + std::string(level.name) +
                                         ", body " + std::to_string(i);
                const kernelgen::Counts narrow = kernelgen::count(kernel.bodies[i].graph, single);
                const kernelgen::Counts c = kernelgen::count(wide.bodies[i].graph, single);
                EXPECT_EQ(narrow.sums, times * c.sums) << what;
                EXPECT_EQ(narrow.differences, times * c.differences) << what;
                EXPECT_EQ(narrow.products, times * c.products) << what;
            }
        }
    });
}

TEST(WalshHadamardPasses, AreThoseOfTheTable) {
    for_each_row([](const Row& row, const Kernel& kernel) {
        EXPECT_EQ(row.stages, kernel.stages) << kernel.name();
        EXPECT_EQ(row.stages.size(), kernel.bodies.size()) << kernel.name();
    });
}

TEST(WalshHadamardPasses, TakeABufferOfTheToldSize) {
    for_each_row([](const Row& row, const Kernel& kernel) {
        EXPECT_EQ(row.buffer_bytes, buffer_size(row.order, kernel.element)) << kernel.name();
    });
}

TEST(WalshHadamardBodies, LoadEachElementOnceAndStoreItOnce) {
    for_each_row([](const Row&, const Kernel& kernel) {
        for (std::size_t i = 0; i < kernel.bodies.size(); ++i) {
            const int elements = 1 << kernel.stages[i];
            const bool vectors_are_lanes = i == 0 && !is_scalar(kernel.order, kernel.element);
            const int accesses = vectors_are_lanes ? elements / lanes(kernel.element) : elements;
            const kernelgen::Counts c = kernelgen::count(kernel.bodies[i].graph, true);
            EXPECT_EQ(accesses, c.loads) << kernel.name() << ", " << kernel.bodies[i].name;
            EXPECT_EQ(accesses, c.stores) << kernel.name() << ", " << kernel.bodies[i].name;
        }
    });
}

// Source and destination may be one array.
TEST(WalshHadamardBodies, StoreNoElementBeforeItIsLoaded) {
    for_each_row([](const Row&, const Kernel& kernel) {
        for (const Body& body : kernel.bodies) {
            std::vector<int> stored;
            for (kernelgen::NodeId id : schedule_of(body, kernel.target).order) {
                const kernelgen::Node& node = body.graph.node(id);
                if (node.op == kernelgen::Op::Store) stored.push_back(node.offset);
                if (node.op != kernelgen::Op::Load) continue;
                EXPECT_EQ(0, std::count(stored.begin(), stored.end(), node.offset))
                    << kernel.name() << ", " << body.name << ", offset " << node.offset;
            }
        }
    });
}

}  // namespace
