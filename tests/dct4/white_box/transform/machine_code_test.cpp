/** @file @brief What the machine code that runs DCT-IV plans is made of, object file by object
 * file.
 */

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "support/disassembly.hpp"
#include "support/run_command.hpp"

namespace qsvgen_test {
namespace {

/** How often each body is written out in a source, by rule, and what one costs. */
struct Body {
    int times;
    int sums_and_differences;
    int products;
};

struct Source {
    const char* name;
    bool vectors;
    std::vector<Body> bodies;
};

/** Of single precision, where analyses of 16 points stand once more in `recursion`. */
std::vector<Source> sources(bool single) {
    return {
        {"stage_a",
         true,
         {{1, 1, 0}, {1, 6, 2}, {2, 24, 12}, {3, 68, 32}, {3, 184, 96}, {2, 448, 224}}},
        {"recursion",
         true,
         {{1, 1, 0},
          {1, 6, 2},
          {1, 24, 12},
          {single ? 3 : 2, 68, 32},
          {1, 184, 96},
          {1, 448, 224}}},
        {"stage_b",
         true,
         {{1, 2, 4}, {1, 10, 10}, {1, 32, 28}, {3, 88, 72}, {3, 224, 176}, {8, 512, 352}}},
        {"twiddled_dfts", true, {{2, 6, 4}, {2, 22, 12}, {3, 66, 32}, {2, 176, 96}, {2, 440, 224}}},
        {"transform", false, {{1, 2, 4}, {1, 12, 8}, {1, 32, 24}, {1, 88, 64}, {1, 216, 144}}},
    };
}

struct Element {
    const char* suffix;
    const char* bits;  ///< ending of the mnemonics
    std::vector<std::string> objects;
};

std::vector<std::string> split(const std::string& list, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(list);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

/** The object files of one element type, in the order of the build. */
std::vector<Element> elements() {
    return {{"32f", "s", split(DCT4_OBJECTS_32F, ',')}, {"64f", "d", split(DCT4_OBJECTS_64F, ',')}};
}

std::string object_of(const Element& element, const std::string& source) {
    for (const std::string& object : element.objects) {
        if (object.find("/" + source + ".cpp") != std::string::npos) return object;
    }
    ADD_FAILURE() << "no object of " << source << " in " << element.suffix;
    return {};
}

template <class Check>
void for_each_object(const Check& check) {
    for (const Element& element : elements()) {
        for (const Source& source : sources(element.bits[0] == 's')) {
            const std::string object = object_of(element, source.name);
            const Disassembly code = disassemble(object);
            EXPECT_FALSE(code.empty()) << object;
            check(element, source, code);
        }
    }
}

TEST(Dct4MachineCode, HoldsTheOperationsOfItsBodiesAndNoOthers) {
    for_each_object([](const Element& element, const Source& source, const Disassembly& code) {
        std::map<std::string, int> found;
        for (const auto& [name, function] : code) {
            for (const auto& instruction : function.code) {
                if (is_packed_arithmetic(instruction.mnemonic) ||
                    is_scalar_arithmetic(instruction.mnemonic))
                    ++found[instruction.mnemonic];
            }
        }
        const std::string ending = (source.vectors ? std::string("p") : "s") + element.bits;
        int sums_and_differences = 0;
        int products = 0;
        for (const Body& body : source.bodies) {
            sums_and_differences += body.times * body.sums_and_differences;
            products += body.times * body.products;
        }
        EXPECT_EQ(sums_and_differences, found["add" + ending] + found["sub" + ending])
            << source.name << ", " << element.suffix;
        EXPECT_EQ(products, found["mul" + ending]) << source.name << ", " << element.suffix;
        for (const std::string operation : {"add", "sub", "mul"}) found.erase(operation + ending);
        for (const auto& [mnemonic, number] : found)
            ADD_FAILURE() << source.name << ", " << element.suffix << ": " << number << " "
                          << mnemonic;
    });
}

TEST(Dct4MachineCode, HoldsOnlyIntegerAndSse2InstructionsAndNoDivision) {
    for_each_object([](const Element& element, const Source& source, const Disassembly& code) {
        for (const auto& [name, function] : code) {
            for (const auto& instruction : function.code) {
                EXPECT_TRUE(is_general_purpose(instruction.mnemonic) ||
                            is_sse2_or_older(instruction.mnemonic))
                    << source.name << ", " << element.suffix << ", " << name << ": "
                    << to_string(instruction);
                EXPECT_NE("div", instruction.mnemonic) << name;
                EXPECT_NE("idiv", instruction.mnemonic) << name;
            }
        }
    });
}

TEST(Dct4MachineCode, NeedsNothingButListsAndTheStepsThemselves) {
    for (const Element& element : elements()) {
        for (const Source& source : sources(element.bits[0] == 's')) {
            const std::string object = object_of(element, source.name);
            const auto listing = run_command({"nm", "--undefined-only", "--format=posix", object});
            ASSERT_EQ(0, listing.exit_code) << object;
            for (const std::string& line : split_lines(listing.output)) {
                const std::string symbol = split_words(line).at(0);
                EXPECT_TRUE(symbol == "EnvList_get" || symbol == "_GLOBAL_OFFSET_TABLE_" ||
                            symbol.starts_with("owngDCT4_" + std::string(element.suffix)) ||
                            symbol.starts_with("_ZN4dct4"))
                    << source.name << ", " << element.suffix << " needs " << symbol;
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
