#include <gtest/gtest.h>

#include "tests/dft_real/white_box/support/all_kernels.hpp"
#include "transforms/dft_real/kernels/real_kernel_source.hpp"

namespace {

using dft_real::dispatcher_source;
using dft_real::family_of;
using dft_real::kernel_source;
using dft_real_test::Direction;
using dft_real_test::Element;
using dft_real_test::kDirections;
using dft_real_test::kElements;
using dft_real_test::kLayouts;
using dft_real_test::Layout;
using dft_real_test::RealKernel;

int occurrences(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
        ++count;
    return count;
}

std::string real_of(Element element) {
    return element == Element::Real32 ? "Real32" : "Real64";
}

/** A sample of all stages. */
template <class Check>
void for_some_kernels(const Check& check) {
    for (Element element : kElements) {
        for (Direction direction : kDirections) {
            for (Layout layout : kLayouts) {
                for (int length : {2, 3, 7, 8, 9, 12, 13, 15, 17}) {
                    const RealKernel& kernel =
                        dft_real_test::kernel(length, direction, layout, element);
                    SCOPED_TRACE(kernel.name());
                    check(kernel);
                }
            }
        }
    }
}

TEST(RealSource, AKernelDefinesItsFunctionOnce) {
    for_some_kernels([](const RealKernel& kernel) {
        const std::string real = real_of(kernel.element);
        const std::string definition = "QsvStatus " + kernel.name() + "(const " + real + "* src, " +
                                       real + "* dst, int32_t flag) {";
        EXPECT_EQ(occurrences(kernel_source(kernel), definition), 1);
        EXPECT_EQ(occurrences(kernel_source(kernel), "QsvStatus qsvg"), 1);
    });
}

TEST(RealSource, AKernelChecksItsArgumentsBeforeItCalculates) {
    for_some_kernels([](const RealKernel& kernel) {
        const std::string text = kernel_source(kernel);
        const std::string frame =
            "    const QsvStatus status = core::check(src, dst, flag);\n"
            "    if (status != qsvStatusOk) return status;\n"
            "    transform(src, dst, *kScales[flag]);\n"
            "    return qsvStatusOk;\n}\n";
        EXPECT_EQ(occurrences(text, frame), 1) << text;
    });
}

std::string scales(const std::string& element, const std::string& way, const std::string& factors) {
    return "constexpr auto kScales = core::ScaleTable<" + element + ">::" + way + "(" + factors +
           ");\n";
}

TEST(RealSource, AKernelHoldsTheScaleFactorsOfItsDirectionAndLength) {
    for (Layout layout : kLayouts) {
        const auto text = [&](Direction direction, Element element) {
            return kernel_source(dft_real_test::kernel(4, direction, layout, element));
        };
        EXPECT_NE(text(Direction::Forward, Element::Real32)
                      .find(scales("Real32", "forward", "0x1p-2f, 0x1p-1f")),
                  std::string::npos);
        EXPECT_NE(text(Direction::Inverse, Element::Real32)
                      .find(scales("Real32", "inverse", "0x1p-2f, 0x1p-1f")),
                  std::string::npos);
        EXPECT_NE(text(Direction::Forward, Element::Real64)
                      .find(scales("Real64", "forward", "0x1p-2, 0x1p-1")),
                  std::string::npos);
        EXPECT_NE(text(Direction::Inverse, Element::Real64)
                      .find(scales("Real64", "inverse", "0x1p-2, 0x1p-1")),
                  std::string::npos);
    }
}

TEST(RealSource, KernelsAreNamedByFamilyLengthAndElement) {
    const auto name = [](int length, Direction direction, Layout layout, Element element) {
        return dft_real_test::kernel(length, direction, layout, element).name();
    };
    EXPECT_EQ(name(15, Direction::Forward, Layout::CCS, Element::Real32),
              "qsvgDFTFwd_RToCCS_15_32f");
    EXPECT_EQ(name(7, Direction::Inverse, Layout::Pack, Element::Real64),
              "qsvgDFTInv_PackToR_7_64f");
    EXPECT_EQ(name(2, Direction::Forward, Layout::Perm, Element::Real64),
              "qsvgDFTFwd_RToPerm_2_64f");
}

TEST(RealSource, AKernelStoresEachElementOnceAndReadsEachPartOnce) {
    for_some_kernels([](const RealKernel& kernel) {
        const bool forward = kernel.family.kind == dft_real::Kind::Forward;
        const bool ccs = kernel.family.name.find("CCS") != std::string::npos;
        const int spectrum = ccs ? 2 * (kernel.length / 2) + 2 : kernel.length;
        const int stored = forward ? spectrum : kernel.length;
        const std::string text = kernel_source(kernel);
        for (int i = 0; i < stored; ++i)
            EXPECT_EQ(occurrences(text, " y[" + std::to_string(i) + "] = "), 1) << "element " << i;
        EXPECT_EQ(occurrences(text, " = x["), kernel.length);
    });
}

TEST(RealSource, ForwardCcsStoresZerosAsTheyAre) {
    for (int length : {2, 3, 7, 8, 12, 13}) {
        const std::string single = kernel_source(
            dft_real_test::kernel(length, Direction::Forward, Layout::CCS, Element::Real32));
        const std::string wide = kernel_source(
            dft_real_test::kernel(length, Direction::Forward, Layout::CCS, Element::Real64));
        EXPECT_EQ(occurrences(single, "y[1] = 0x0p+0f;"), 1) << "length " << length;
        EXPECT_EQ(occurrences(wide, "y[1] = 0x0p+0;"), 1) << "length " << length;
        if (length % 2 != 0) continue;
        const std::string last = "y[" + std::to_string(length + 1) + "] = ";
        EXPECT_EQ(occurrences(single, last + "0x0p+0f;"), 1) << "length " << length;
        EXPECT_EQ(occurrences(wide, last + "0x0p+0;"), 1) << "length " << length;
    }
}

TEST(RealSource, RoundsAsItsTuningSays) {
    RealKernel kernel = dft_real_test::kernel(7, Direction::Forward, Layout::Pack, Element::Real32);
    kernel.tuning.rounding = dft_real::Rounding::Conversion;
    EXPECT_GT(occurrences(kernel_source(kernel), " = static_cast<float>(v"), 0);
    EXPECT_EQ(occurrences(kernel_source(kernel), "rounded"), 0);
    kernel.tuning.rounding = dft_real::Rounding::WholeRegister;
    EXPECT_EQ(occurrences(kernel_source(kernel), "static_cast<float>"), 0);
    EXPECT_GT(occurrences(kernel_source(kernel), " = core::rounded(v"), 0);
    EXPECT_EQ(occurrences(kernel_source(kernel), "#include \"core/rounding.hpp\""), 1);
}

TEST(RealSource, NamesTheOrderAndTheOptionOfItsTuning) {
    RealKernel kernel = dft_real_test::kernel(9, Direction::Inverse, Layout::CCS, Element::Real64);
    kernel.tuning = {.order = "depth first", .option = "no-tree-ter"};
    const std::string text = kernel_source(kernel);
    EXPECT_EQ(occurrences(text, "order: depth first."), 1) << text;
    EXPECT_EQ(occurrences(text, "#pragma GCC optimize(\"no-tree-ter\")"), 1) << text;
}

TEST(RealSource, DoublePrecisionHoldsNoConversion) {
    for_some_kernels([](const RealKernel& kernel) {
        if (kernel.element != Element::Real64) return;
        EXPECT_EQ(occurrences(kernel_source(kernel), "static_cast"), 0);
        EXPECT_EQ(occurrences(kernel_source(kernel), "float"), 0);
    });
}

TEST(RealSource, AKernelMadeAgainHasTheSameSource) {
    for (Element element : kElements) {
        const RealKernel& kernel =
            dft_real_test::kernel(13, Direction::Forward, Layout::Perm, element);
        EXPECT_EQ(kernel_source(kernel), kernel_source(dft_real::dft_kernel(
                                             13, Direction::Forward, Layout::Perm, element)));
    }
}

template <class Check>
void for_each_dispatcher(const Check& check) {
    for (Element element : kElements) {
        for (Direction direction : kDirections) {
            for (Layout layout : kLayouts) {
                const dft_real::Family family = family_of(direction, layout);
                SCOPED_TRACE(family.name + ", " + suffix(element));
                check(dispatcher_source(family, element), "qsvg" + family.name + "_", element);
            }
        }
    }
}

TEST(RealSource, ADispatcherHasACaseForEachLength) {
    for_each_dispatcher([](const std::string& text, const std::string& stem, Element element) {
        EXPECT_EQ(occurrences(text, "case "), 63);
        for (int length = 2; length <= 64; ++length) {
            const std::string wanted = "case " + std::to_string(length - 2) +
                                       ":\n            return " + stem + std::to_string(length) +
                                       "_" + suffix(element) + "(src, dst, flag);";
            EXPECT_EQ(occurrences(text, wanted), 1) << "length " << length;
        }
    });
}

TEST(RealSource, ADispatcherIsDefinedForItsElement) {
    for_each_dispatcher([](const std::string& text, const std::string& stem, Element element) {
        const std::string real = real_of(element);
        EXPECT_EQ(
            occurrences(text, "QsvStatus " + stem + suffix(element) + "(const " + real + "* src, " +
                                  real + "* dst, int32_t length, int32_t flag) {"),
            1)
            << text;
    });
}

TEST(RealSource, ADispatcherRefusesOtherLengths) {
    for_each_dispatcher([](const std::string& text, const std::string&, Element) {
        EXPECT_EQ(occurrences(text, "switch (static_cast<uint32_t>(length) - 2) {"), 1);
        EXPECT_EQ(occurrences(text, "default:\n            return qsvStatusBadLength;"), 1);
    });
}

TEST(RealSource, TheManifestLineOfAKernelHasTheColumnsOfItsHeader) {
    const int columns = occurrences(dft_real::manifest_header(), ",");
    for_some_kernels([&](const RealKernel& kernel) {
        const std::string line = dft_real::manifest_line(kernel);
        EXPECT_EQ(occurrences(line, ","), columns) << line;
        EXPECT_EQ(line.rfind(kernel.name() + ",", 0), 0U) << line;
    });
}

}  // namespace
