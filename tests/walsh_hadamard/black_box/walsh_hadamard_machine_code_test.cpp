/** @file @brief What the machine code of the Walsh-Hadamard kernels is made of. */

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <utility>

#include "support/disassembly.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

/** Written-out sums, differences and products, all packed or all scalar. */
struct Operations {
    int sums;
    int differences;
    int products;
    bool operator==(const Operations&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Operations& o) {
    return out << o.sums << " sums, " << o.differences << " differences, " << o.products
               << " products";
}

constexpr std::array<Operations, kHighestOrder> kOperations32f = {{{1, 1, 2},
                                                                   {4, 4, 4},
                                                                   {12, 12, 8},
                                                                   {8, 8, 4},
                                                                   {20, 20, 8},
                                                                   {48, 48, 16},
                                                                   {112, 112, 32},
                                                                   {32, 32, 8},
                                                                   {60, 60, 8},
                                                                   {80, 80, 16},
                                                                   {128, 128, 32},
                                                                   {72, 72, 8},
                                                                   {92, 92, 16}}};
constexpr std::array<Operations, kHighestOrder> kOperations64f = {{{1, 1, 2},
                                                                   {4, 4, 4},
                                                                   {12, 12, 8},
                                                                   {16, 16, 8},
                                                                   {40, 40, 16},
                                                                   {96, 96, 32},
                                                                   {224, 224, 64},
                                                                   {52, 52, 8},
                                                                   {72, 72, 16},
                                                                   {236, 236, 8},
                                                                   {64, 64, 8},
                                                                   {84, 84, 16},
                                                                   {248, 248, 8}}};

template <class E>
Operations table_row(int order) {
    const auto row = static_cast<std::size_t>(order - kLowestOrder);
    return sizeof(typename E::Real) == 4 ? kOperations32f.at(row) : kOperations64f.at(row);
}

template <class E>
bool is_scalar(int order) {
    return order <= (sizeof(typename E::Real) == 4 ? 3 : 2);
}

const Function& function_named(const std::string& name) {
    static const Disassembly library = disassemble(QSVGEN_LIBRARY);
    static const Function missing;
    const auto found = library.find(name);
    EXPECT_NE(library.end(), found) << "no machine code for " << name;
    return found == library.end() ? missing : found->second;
}

int number_of(const Function& function, const std::string& mnemonic) {
    int number = 0;
    for (const auto& instruction : function.code) number += instruction.mnemonic == mnemonic;
    return number;
}

template <class E>
class WalshHadamardMachineCode : public testing::Test {
  protected:
    template <class Check>
    static void for_each_function(const Check& check) {
        for (const auto& kernel : order_kernels<E>()) {
            check(kernel, function_named(kernel.name));
            if (has_twin(kernel)) check(kernel, function_named(twin_name(kernel.name)));
        }
    }
};
TYPED_TEST_SUITE(WalshHadamardMachineCode, RealTypes, ElementNames);

TYPED_TEST(WalshHadamardMachineCode, HoldsExactlyTheOperationsOfTheTable) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        const std::string bits = sizeof(typename TypeParam::Real) == 4 ? "s" : "d";
        const std::string ending = (is_scalar<TypeParam>(kernel.order) ? "s" : "p") + bits;
        const Operations found = {number_of(function, "add" + ending),
                                  number_of(function, "sub" + ending),
                                  number_of(function, "mul" + ending)};
        EXPECT_EQ(table_row<TypeParam>(kernel.order), found) << function.name;
    });
}

TYPED_TEST(WalshHadamardMachineCode, HoldsNoOtherArithmetic) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        const Operations row = table_row<TypeParam>(kernel.order);
        int arithmetic = 0;
        for (const auto& instruction : function.code) {
            const bool packed = is_packed_arithmetic(instruction.mnemonic);
            const bool scalar = is_scalar_arithmetic(instruction.mnemonic);
            arithmetic += packed || scalar;
            EXPECT_FALSE(is_scalar<TypeParam>(kernel.order) ? packed : scalar)
                << function.name << ": " << to_string(instruction);
        }
        EXPECT_EQ(row.sums + row.differences + row.products, arithmetic) << function.name;
    });
}

TYPED_TEST(WalshHadamardMachineCode, HoldsOnlyIntegerAndSse2Instructions) {
    this->for_each_function([](const auto&, const Function& function) {
        for (const auto& instruction : function.code) {
            EXPECT_TRUE(is_general_purpose(instruction.mnemonic) ||
                        is_sse2_or_older(instruction.mnemonic))
                << function.name << ": " << to_string(instruction);
            EXPECT_FALSE(instruction.uses_other_vector_registers())
                << function.name << ": " << to_string(instruction);
        }
    });
}

/** Between the target of a backward jump and the jump there is arithmetic. */
bool is_loop(const Function& function, const Instruction& jump) {
    if (!jump.is_jump() || !jump.is_direct() || !function.holds(jump.target)) return false;
    if (jump.target > jump.address) return false;
    for (const auto& instruction : function.code) {
        if (instruction.address < jump.target || instruction.address > jump.address) continue;
        if (is_packed_arithmetic(instruction.mnemonic) ||
            is_scalar_arithmetic(instruction.mnemonic))
            return true;
    }
    return false;
}

/** Conditional backward jumps over arithmetic. An unconditional one may share the return. */
int loops(const Function& function) {
    int number = 0;
    for (const auto& instruction : function.code)
        number += instruction.is_conditional_jump() && is_loop(function, instruction);
    return number;
}

TYPED_TEST(WalshHadamardMachineCode, LoopsOverItsPassesFromOrderEightOnAndNowhereBelow) {
    // Three passes are a loop of two loops, and a third one.
    const std::size_t bytes = sizeof(typename TypeParam::Real);
    this->for_each_function([&](const auto& kernel, const Function& function) {
        const int first_of_three_passes = bytes == 4 ? 12 : 11;
        const int wanted = kernel.order < kFirstLongOrder         ? 0
                           : kernel.order < first_of_three_passes ? 2
                                                                  : 4;
        EXPECT_EQ(wanted, loops(function)) << function.name;
    });
}

/** How a function of the core library is called: 32-bit programs link that one, in others it is
 * hidden inside this. */
std::string of_core(const std::string& function) {
    return sizeof(void*) == 4 ? function + "@plt" : function;
}

TYPED_TEST(WalshHadamardMachineCode, CallsOnlyItsTwinAndTheTwoOfTheCoreLibrary) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        std::map<std::string, int> calls;
        for (std::size_t i = 0; i < function.code.size(); ++i) {
            const auto& call = function.code[i];
            if (!call.is_call()) continue;
            const std::string& target = call.target_symbol;
            // The own address is read by a thunk (GCC) or by a call to the pop behind it (Clang).
            if (target.starts_with("__x86.get_pc_thunk.")) continue;
            if (i + 1 < function.code.size() && function.code[i + 1].address == call.target &&
                function.code[i + 1].mnemonic == "pop")
                continue;
            ++calls[target];
            const bool is_of_core = target == of_core("qsvMalloc") || target == of_core("qsvFree");
            const bool of_twin = function.name == kernel.name && target == twin_name(kernel.name);
            EXPECT_TRUE((is_of_core && kernel.has_buffer()) || of_twin)
                << function.name << ": " << to_string(call);
        }
        EXPECT_EQ(kernel.has_buffer() ? 1 : 0, calls[of_core("qsvMalloc")]) << function.name;
        EXPECT_EQ(kernel.has_buffer() ? 1 : 0, calls[of_core("qsvFree")]) << function.name;
    });
}

TEST(CoreInsideTheLibrary, CallsTheCLibraryOnceEach) {
    if (sizeof(void*) == 4) GTEST_SKIP() << "32-bit programs link a core library of its own";
    for (const auto& [name, wanted] :
         {std::pair("qsvMalloc", "posix_memalign@plt"), std::pair("qsvFree", "free@plt")}) {
        const Function& function = function_named(name);
        int calls = 0;
        for (const auto& instruction : function.code) {
            if (!instruction.is_call() && !instruction.is_jump()) continue;
            if (function.holds(instruction.target)) continue;
            EXPECT_EQ(wanted, instruction.target_symbol) << name << ": " << to_string(instruction);
            ++calls;
        }
        EXPECT_EQ(1, calls) << name;
    }
}

// The buffer is aligned on both paths, so a twin moves whole aligned vectors to and from it.
TYPED_TEST(WalshHadamardMachineCode, OnlyTwinsAndTheShortKernelOfBothCopiesMoveUnaligned) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        const int unaligned = number_of(function, "movups") + number_of(function, "movupd") +
                              number_of(function, "movdqu");
        if (function.name == kernel.name && has_twin(kernel)) {
            EXPECT_EQ(0, unaligned) << function.name;
        }
        if (function.name != kernel.name && kernel.has_buffer()) {
            EXPECT_GT(number_of(function, "movaps") + number_of(function, "movapd"), 0)
                << function.name;
        }
    });
}

TYPED_TEST(WalshHadamardMachineCode, TheDispatcherTestsTheOrderOnceAndJumpsOnceThroughATable) {
    const std::string name = std::string("qsvgWHT_") + TypeParam::kSuffix;
    const Function& function = function_named(name);
    int range_tests = 0;
    int indexed = 0;
    for (const auto& instruction : function.code) {
        if (!instruction.is_jump() && !instruction.is_call()) continue;
        range_tests += instruction.is_conditional_jump();
        indexed += !instruction.is_direct();
        EXPECT_FALSE(instruction.target_symbol.ends_with("@plt")) << to_string(instruction);
    }
    EXPECT_EQ(1, range_tests) << name;
    EXPECT_EQ(1, indexed) << name;
}

}  // namespace
}  // namespace qsvgen_test
