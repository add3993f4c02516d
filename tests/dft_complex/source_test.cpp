#include <gtest/gtest.h>

#include <ctime>
#include <regex>

#include "dft_complex/kernel_source.hpp"
#include "tests/dft_complex/support/all_kernels.hpp"

namespace {

using dft_complex::dispatcher_source;
using dft_complex::kernel_source;
using dft_complex_test::Direction;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;

/** A sample of all rules; every source is compared by the manifest's hashes anyway. */
constexpr int kSomeLengths[] = {2, 3, 5, 6, 8, 13, 15, 16, 17, 31, 45};

int occurrences(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
        ++count;
    return count;
}

template <class Check>
void for_some_kernels(const Check& check) {
    for (Direction direction : {Direction::Forward, Direction::Inverse}) {
        for (int length : kSomeLengths) {
            SCOPED_TRACE(std::string(dft_complex_test::name_of(direction)) + ", length " +
                         std::to_string(length));
            check(dft_complex_test::kernel(length, direction));
        }
    }
}

TEST(Source, AKernelMadeAgainHasTheSameSource) {
    for_some_kernels([](const Kernel& kernel) {
        const Kernel again = dft_complex::single_precision_kernel(kernel.length, kernel.direction);
        EXPECT_EQ(kernel_source(kernel), kernel_source(again));
    });
}

TEST(Source, NoSourceNamesADateATimeOrAPath) {
    const std::time_t now = std::time(nullptr);
    const std::string year = std::to_string(1900 + std::gmtime(&now)->tm_year);
    for_some_kernels([&](const Kernel& kernel) {
        const std::string text = kernel_source(kernel);
        EXPECT_EQ(text.find("__DATE__"), std::string::npos);
        EXPECT_EQ(text.find("__TIME__"), std::string::npos);
        EXPECT_EQ(text.find("__FILE__"), std::string::npos);
        EXPECT_FALSE(std::regex_search(text, std::regex("\\b" + year + "\\b")));
        EXPECT_FALSE(std::regex_search(text, std::regex("\\d\\d:\\d\\d")));
        // A slash stands in comments and in the names of the library's own headers only.
        EXPECT_FALSE(std::regex_search(text, std::regex("(^|[\\s\"<(])/(?!/)")));
    });
}

std::string defined(const std::string& name) {
    return "QsvStatus " + name + "(const Complex32*";
}

TEST(Source, EveryKernelDefinesItsFunctionOnce) {
    for_some_kernels([](const Kernel& kernel) {
        EXPECT_EQ(occurrences(kernel_source(kernel), defined(kernel.name())), 1) << kernel.name();
    });
}

TEST(Source, KernelsFromLengthSixHaveAHiddenTwinForUnalignedArrays) {
    for_some_kernels([](const Kernel& kernel) {
        if (kernel.length < 6) return;
        const std::string text = kernel_source(kernel);
        EXPECT_NE(kernel.twin_name(), "");
        EXPECT_EQ(occurrences(text, defined(kernel.twin_name())), 1) << kernel.twin_name();
        EXPECT_EQ(occurrences(text, "return " + kernel.twin_name() + "(src, dst, flag);"), 1);
        const std::size_t at = text.find(defined(kernel.twin_name()));
        EXPECT_NE(text.rfind("gnu::visibility(\"hidden\")", at), std::string::npos);
    });
}

TEST(Source, ShorterKernelsHaveNoTwin) {
    for_some_kernels([](const Kernel& kernel) {
        if (kernel.length >= 6) return;
        EXPECT_EQ(kernel.twin_name(), "");
        EXPECT_EQ(occurrences(kernel_source(kernel), "unaligned"), 0);
        EXPECT_EQ(occurrences(kernel_source(kernel), "QsvStatus qsvg"), 1);
    });
}

TEST(Source, KernelsAreNamedByDirectionAndLength) {
    EXPECT_EQ(dft_complex_test::kernel(15, Direction::Forward).name(), "qsvgDFTFwd_CToC_15_32fc");
    EXPECT_EQ(dft_complex_test::kernel(6, Direction::Inverse).name(), "qsvgDFTInv_CToC_6_32fc");
}

TEST(Source, ADispatcherHasACaseForEachLength) {
    for (Direction direction : {Direction::Forward, Direction::Inverse}) {
        const std::string text = dispatcher_source(direction);
        EXPECT_EQ(occurrences(text, "case "), 63) << dft_complex_test::name_of(direction);
        const std::string family =
            direction == Direction::Forward ? "qsvgDFTFwd_CToC_" : "qsvgDFTInv_CToC_";
        for (int length = 2; length <= 64; ++length) {
            const std::string n = std::to_string(length);
            EXPECT_EQ(
                occurrences(text, "case " + std::to_string(length - 2) + ":\n            return " +
                                      family + n + "_32fc(src, dst, flag);"),
                1)
                << dft_complex_test::name_of(direction) << ", length " << n;
        }
    }
}

TEST(Source, ADispatcherRefusesOtherLengths) {
    for (Direction direction : {Direction::Forward, Direction::Inverse}) {
        EXPECT_EQ(occurrences(dispatcher_source(direction),
                              "default:\n            return qsvStatusBadLength;"),
                  1);
    }
}

TEST(Source, LengthsWithoutAKernelAreRefused) {
    for (int length : {-1, 0, 1, 65})
        EXPECT_THROW(dft_complex::row_of(length), std::out_of_range) << length;
}

TEST(Source, TheManifestLineOfAKernelHasTheColumnsOfItsHeader) {
    // The rule is quoted, for it may hold a comma.
    const std::regex quoted("\"[^\"]*\"");
    const int columns = occurrences(dft_complex::manifest_header(), ",");
    for_some_kernels([&](const Kernel& kernel) {
        const std::string line = std::regex_replace(dft_complex::manifest_line(kernel), quoted, "");
        EXPECT_EQ(occurrences(line, ","), columns) << line;
    });
}

}  // namespace
