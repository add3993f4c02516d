#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "walsh_hadamard/kernels.hpp"

// What a kernel writes out, how it is divided, and the memory that follows from this.

namespace {

using namespace walsh_hadamard;

struct Row {
    int order;
    std::vector<int> stages;
    int sums;
    int differences;
    int products;
    int buffer_bytes;
};

const std::vector<Row> kSingle = {
    {1, {1}, 1, 1, 2, 0},
    {2, {2}, 4, 4, 4, 0},
    {3, {3}, 12, 12, 8, 0},
    {4, {4}, 8, 8, 4, 0},
    {5, {5}, 20, 20, 8, 0},
    {6, {6}, 48, 48, 16, 0},
    {7, {7}, 112, 112, 32, 0},
    {8, {5, 3}, 32, 32, 8, 1024},
    {9, {6, 3}, 60, 60, 8, 2048},
    {10, {6, 4}, 80, 80, 16, 4096},
    {11, {6, 5}, 128, 128, 32, 8192},
    {12, {6, 3, 3}, 72, 72, 8, 18432},
    {13, {6, 3, 4}, 92, 92, 16, 34816},
};

// Order 3 stands twice in its function.
const std::vector<Row> kDouble = {
    {1, {1}, 1, 1, 2, 0},
    {2, {2}, 4, 4, 4, 0},
    {3, {3}, 6, 6, 4, 0},
    {4, {4}, 16, 16, 8, 0},
    {5, {5}, 40, 40, 16, 0},
    {6, {6}, 96, 96, 32, 0},
    {7, {7}, 224, 224, 64, 0},
    {8, {5, 3}, 52, 52, 8, 2048},
    {9, {5, 4}, 72, 72, 16, 4096},
    {10, {7, 3}, 236, 236, 8, 8192},
    {11, {5, 3, 3}, 64, 64, 8, 18432},
    {12, {5, 3, 4}, 84, 84, 16, 34816},
    {13, {7, 3, 3}, 248, 248, 8, 73728},
};

template <class Check>
void for_each_row(const Check& check) {
    for (Element element : kElements) {
        for (const Row& row : element == Element::Real32 ? kSingle : kDouble)
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
            for (kernelgen::NodeId id : schedule_of(body).order) {
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
