#include <gtest/gtest.h>

#include <ctime>
#include <regex>

#include "tests/dft_complex/white_box/support/all_kernels.hpp"
#include "transforms/dft_complex/kernels/complex_kernel_source.hpp"

namespace {

using dft_complex::dispatcher_source;
using dft_complex::kernel_source;
using dft_complex_test::describe;
using dft_complex_test::Direction;
using dft_complex_test::Element;
using dft_complex_test::kDirections;
using dft_complex_test::kElements;
using dft_complex_test::Kernel;

/** A sample of all rules; every source is compared by the manifest's hashes anyway. */
constexpr int kSomeLengths[] = {2, 3, 4, 5, 6, 8, 13, 15, 16, 17, 31, 45};

int occurrences(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
        ++count;
    return count;
}

template <class Check>
void for_some_kernels(const Check& check) {
    for (Element element : kElements) {
        for (Direction direction : kDirections) {
            for (int length : kSomeLengths) {
                SCOPED_TRACE(describe(length, direction, element));
                check(dft_complex_test::kernel(length, direction, element));
            }
        }
    }
}

TEST(Source, AKernelMadeAgainHasTheSameSource) {
    for_some_kernels([](const Kernel& kernel) {
        const Kernel again =
            dft_complex::proven_kernel(kernel.length, kernel.direction, kernel.element);
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

std::string defined(const std::string& name, Element element) {
    return "QsvStatus " + name + "(const " +
           (element == Element::Complex32 ? "Complex32*" : "Complex64*");
}

TEST(Source, EveryKernelDefinesItsFunctionOnce) {
    for_some_kernels([](const Kernel& kernel) {
        const std::string text = kernel_source(kernel);
        EXPECT_EQ(occurrences(text, defined(kernel.name(), kernel.element)), 1) << kernel.name();
    });
}

/** Single precision of lengths 2 to 5 is scalar; short vectors hold both copies in one function. */
bool has_twin(const Kernel& kernel) {
    return kernel.length >= (kernel.element == Element::Complex32 ? 6 : 5);
}

TEST(Source, LongerKernelsHaveAHiddenTwinForUnalignedArrays) {
    for_some_kernels([](const Kernel& kernel) {
        if (!has_twin(kernel)) return;
        const std::string text = kernel_source(kernel);
        EXPECT_NE(kernel.twin_name(), "");
        const std::string definition = defined(kernel.twin_name(), kernel.element);
        EXPECT_EQ(occurrences(text, definition), 1) << kernel.twin_name();
        EXPECT_EQ(occurrences(text, "return " + kernel.twin_name() + "(src, dst, flag);"), 1);
        const std::size_t at = text.find(definition);
        EXPECT_NE(text.rfind("gnu::visibility(\"hidden\")", at), std::string::npos);
    });
}

TEST(Source, ShorterKernelsHaveNoTwin) {
    for_some_kernels([](const Kernel& kernel) {
        if (has_twin(kernel)) return;
        EXPECT_EQ(kernel.twin_name(), "");
        EXPECT_EQ(occurrences(kernel_source(kernel), "unaligned"), 0);
        EXPECT_EQ(occurrences(kernel_source(kernel), "QsvStatus qsvg"), 1);
    });
}

TEST(Source, ShortKernelsOfDoublePrecisionChooseBetweenTheirTwoCopiesByTheAddresses) {
    for (Direction direction : kDirections) {
        for (int length : {2, 3, 4}) {
            const std::string text =
                kernel_source(dft_complex_test::kernel(length, direction, Element::Complex64));
            const std::string where = describe(length, direction, Element::Complex64);
            EXPECT_EQ(occurrences(text, "!core::aligned(src) || !core::aligned(dst)"), 1) << where;
            EXPECT_EQ(occurrences(text, "transform<core::Unaligned>("), 1) << where;
            EXPECT_EQ(occurrences(text, "transform<core::Aligned>("), 1) << where;
        }
    }
}

TEST(Source, KernelsAreNamedByDirectionLengthAndElement) {
    const auto name = [](int length, Direction direction, Element element) {
        return dft_complex_test::kernel(length, direction, element).name();
    };
    EXPECT_EQ(name(15, Direction::Forward, Element::Complex32), "qsvgDFTFwd_CToC_15_32fc");
    EXPECT_EQ(name(6, Direction::Inverse, Element::Complex32), "qsvgDFTInv_CToC_6_32fc");
    EXPECT_EQ(name(15, Direction::Forward, Element::Complex64), "qsvgDFTFwd_CToC_15_64fc");
    EXPECT_EQ(name(6, Direction::Inverse, Element::Complex64), "qsvgDFTInv_CToC_6_64fc");
}

template <class Check>
void for_each_dispatcher(const Check& check) {
    for (Element element : kElements) {
        for (Direction direction : kDirections) {
            SCOPED_TRACE(std::string(dft_complex_test::name_of(direction)) + ", " +
                         suffix(element));
            const std::string family =
                direction == Direction::Forward ? "qsvgDFTFwd_CToC_" : "qsvgDFTInv_CToC_";
            check(dispatcher_source(direction, element), family, element);
        }
    }
}

TEST(Source, ADispatcherHasACaseForEachLength) {
    for_each_dispatcher([](const std::string& text, const std::string& family, Element element) {
        EXPECT_EQ(occurrences(text, "case "), 63);
        for (int length = 2; length <= 64; ++length) {
            const std::string wanted = "case " + std::to_string(length - 2) +
                                       ":\n            return " + family + std::to_string(length) +
                                       "_" + suffix(element) + "(src, dst, flag);";
            EXPECT_EQ(occurrences(text, wanted), 1) << "length " << length;
        }
    });
}

TEST(Source, ADispatcherIsDefinedForItsElement) {
    for_each_dispatcher([](const std::string& text, const std::string& family, Element element) {
        EXPECT_EQ(occurrences(text, defined(family + suffix(element), element)), 1);
    });
}

TEST(Source, ADispatcherRefusesOtherLengths) {
    for_each_dispatcher([](const std::string& text, const std::string&, Element) {
        EXPECT_EQ(occurrences(text, "default:\n            return qsvStatusBadLength;"), 1);
    });
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
