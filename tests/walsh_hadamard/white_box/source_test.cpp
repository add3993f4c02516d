#include <gtest/gtest.h>

#include <set>

#include "transforms/walsh_hadamard/recorded/tuning.hpp"
#include "transforms/walsh_hadamard/walsh_hadamard_source.hpp"

// The text of the kernels.

namespace {

using namespace walsh_hadamard;

int occurrences(const std::string& text, const std::string& word) {
    int number = 0;
    for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++number;
    return number;
}

TEST(WalshHadamardSource, IsTheSameEveryTime) {
    for (Element element : kElements) {
        for (int order = kLowestOrder; order <= kHighestOrder; ++order)
            EXPECT_EQ(kernel_source(described_kernel(order, element)),
                      kernel_source(described_kernel(order, element)));
    }
}

// A row of no body would be passed over, and of two rows of one body the second.
TEST(WalshHadamardSource, HasTheRowsOfItsTuningOnce) {
    for (const kernelgen::Target& target : kernelgen::kTargets) {
        for (Element element : kElements) {
            std::multiset<std::string> names;
            for (int order = kLowestOrder; order <= kHighestOrder; ++order) {
                for (const Body& body : described_kernel(order, element).bodies)
                    names.insert(name_in_table(order, element, body.name));
            }
            for (const kernelgen::SettledBody& row : settled_bodies(element, target)) {
                const auto found = names.find(row.name);
                EXPECT_NE(names.end(), found)
                    << row.name << ", " << suffix(element) << ", " << target.name;
                if (found != names.end()) names.erase(found);
            }
        }
    }
}

TEST(WalshHadamardSource, LoopsOnlyAroundTheBodiesOfPasses) {
    for (Element element : kElements) {
        for (int order = kLowestOrder; order <= kHighestOrder; ++order) {
            const Kernel kernel = described_kernel(order, element);
            const std::string source = kernel_source(kernel);
            const int loops = kernel.stages.size() == 3 ? 4 : kernel.stages.size() == 2 ? 2 : 0;
            EXPECT_EQ(loops, occurrences(source, "QSVG_FOR_EACH_BLOCK(")) << kernel.name();
            EXPECT_EQ(0, occurrences(source, "for (")) << kernel.name();
        }
    }
}

TEST(WalshHadamardSource, HoldsTheRootsOfOddOrdersAsLiterals) {
    for (int order = 1; order <= kHighestOrder; order += 2) {
        const std::string exponent = "p-" + std::to_string(order / 2 + 1);
        EXPECT_EQ(1, occurrences(kernel_source(described_kernel(order, Element::Real32)),
                                 "0x1.6a09e6" + exponent + "f"))
            << order;
        EXPECT_EQ(1, occurrences(kernel_source(described_kernel(order, Element::Real64)),
                                 "0x1.6a09e667f3bcc" + exponent))
            << order;
    }
}

TEST(WalshHadamardSource, HasATwinFromOrderFourOn) {
    for (Element element : kElements) {
        for (int order = kLowestOrder; order <= kHighestOrder; ++order) {
            const Kernel kernel = described_kernel(order, element);
            EXPECT_EQ(order >= 4, occurrences(kernel_source(kernel), "_unaligned") > 0)
                << kernel.name();
        }
    }
}

}  // namespace
