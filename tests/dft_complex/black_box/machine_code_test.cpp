/**
 * @file
 * @brief What the kernels' machine code is made of: straight lines of SSE2, with no loop.
 */

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "support/disassembly.hpp"
#include "support/kernel_table.hpp"

namespace qsvgen_test {
namespace {

const Disassembly& library() {
    static const Disassembly disassembly = disassemble(QSVGEN_LIBRARY);
    return disassembly;
}

const Function* find(const std::string& name) {
    const auto found = library().find(name);
    return found == library().end() || found->second.code.empty() ? nullptr : &found->second;
}

// Comparisons that set the processor's flags belong to a condition, not to the transform.
bool is_arithmetic(const Instruction& instruction) {
    const auto& mnemonic = instruction.mnemonic;
    if (mnemonic.starts_with("comi") || mnemonic.starts_with("ucomi")) return false;
    return is_packed_arithmetic(mnemonic) || is_scalar_arithmetic(mnemonic);
}

template <class E>
bool goes_to_twin(const Kernel<E>& kernel, const Function& function,
                  const Instruction& instruction) {
    return function.name == kernel.name && instruction.target_symbol == twin_name(kernel.name);
}

template <class E>
class MachineCode : public testing::Test {
  protected:
    using Check = std::function<void(const Kernel<E>&, const Function&)>;

    // Every kernel and every twin; a missing one is a failure, so that no check passes on nothing.
    static void for_each_function(const Check& check) {
        for (const auto& kernel : kernels<E>()) {
            std::vector<std::string> function_names = {kernel.name};
            if (has_twin(kernel)) function_names.push_back(twin_name(kernel.name));
            for (const auto& name : function_names) {
                const Function* function = find(name);
                if (function == nullptr) {
                    ADD_FAILURE() << "no machine code for " << name;
                } else {
                    check(kernel, *function);
                }
            }
        }
    }
};
TYPED_TEST_SUITE(MachineCode, ElementTypes, ElementNames);

/** From `target` to the return only the status is set and registers and the stack are restored. */
bool leads_to_the_return(const Function& function, std::uint32_t target) {
    for (const auto& instruction : function.code) {
        if (instruction.address < target) continue;
        if (instruction.mnemonic == "ret") return true;
        if (instruction.mnemonic != "pop" && instruction.mnemonic != "lea" &&
            instruction.mnemonic != "add" && instruction.mnemonic != "mov" &&
            instruction.mnemonic != "leave" && instruction.mnemonic != "xor")
            return false;
    }
    return false;
}

// A refusal may share the return of the transform, which stands before it.
TYPED_TEST(MachineCode, NoKernelJumpsBackwardsButToItsReturn) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        for (const auto& instruction : function.code) {
            if (!instruction.is_jump() || !instruction.is_direct()) continue;
            if (goes_to_twin(kernel, function, instruction)) continue;
            if (leads_to_the_return(function, instruction.target)) continue;
            EXPECT_GT(instruction.target, instruction.address)
                << function.name << ": " << to_string(instruction);
        }
    });
}

TYPED_TEST(MachineCode, AKernelJumpsOnlyWithinItselfAndToItsTwin) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        for (const auto& instruction : function.code) {
            if (!instruction.is_jump() || !instruction.is_direct()) continue;
            EXPECT_TRUE(function.holds(instruction.target) ||
                        goes_to_twin(kernel, function, instruction))
                << function.name << ": " << to_string(instruction);
        }
    });
}

TYPED_TEST(MachineCode, NoKernelJumpsOrCallsThroughARegisterOrMemory) {
    this->for_each_function([](const auto&, const Function& function) {
        for (const auto& instruction : function.code) {
            if (!instruction.is_jump() && !instruction.is_call()) continue;
            EXPECT_TRUE(instruction.is_direct()) << function.name << ": " << to_string(instruction);
        }
    });
}

/** Of the two ways to read the own address: a thunk (GCC), or a call to the pop behind it (Clang).
 */
bool reads_its_address(const Function& function, std::size_t i) {
    const auto& call = function.code[i];
    if (call.target_symbol.starts_with("__x86.get_pc_thunk.")) return true;
    if (i + 1 >= function.code.size()) return false;
    const auto& next = function.code[i + 1];
    return next.address == call.target && next.mnemonic == "pop";
}

TYPED_TEST(MachineCode, AKernelCallsNothingButItsTwinAndTheReadingOfItsAddress) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        for (std::size_t i = 0; i < function.code.size(); ++i) {
            const auto& instruction = function.code[i];
            if (!instruction.is_call()) continue;
            EXPECT_TRUE(reads_its_address(function, i) ||
                        goes_to_twin(kernel, function, instruction))
                << function.name << ": " << to_string(instruction);
        }
    });
}

/** A short kernel of 64fc is written with both copies in itself, so that the first may end so. */
template <class E>
bool ends_first_copy(const Kernel<E>& kernel, const Function& function,
                     const Instruction& instruction) {
    return std::is_same_v<E, Double> && !has_twin(kernel) && instruction.mnemonic == "jmp" &&
           instruction.is_direct() && leads_to_the_return(function, instruction.target);
}

// From its first to its last arithmetic instruction the body is one straight line. Behind it
// only the ways out may follow, which need no condition.
TYPED_TEST(MachineCode, TheArithmeticIsOneStraightLineBehindAllConditions) {
    this->for_each_function([](const auto& kernel, const Function& function) {
        const auto& code = function.code;
        const auto first = std::find_if(code.begin(), code.end(), is_arithmetic);
        const auto last = std::find_if(code.rbegin(), code.rend(), is_arithmetic).base();
        EXPECT_NE(code.end(), first) << function.name << " has no arithmetic";
        int first_copies = 0;
        for (auto instruction = first; instruction < code.end(); ++instruction) {
            const bool leaves_line =
                instruction->is_jump() || instruction->is_call() || instruction->mnemonic == "ret";
            if (instruction < last && leaves_line) {
                EXPECT_TRUE(ends_first_copy(kernel, function, *instruction))
                    << function.name << ": " << to_string(*instruction);
                ++first_copies;
            }
            EXPECT_FALSE(instruction->is_conditional_jump() &&
                         !goes_to_twin(kernel, function, *instruction))
                << function.name << ": " << to_string(*instruction);
        }
        EXPECT_LE(first_copies, 1) << function.name;
    });
}

// x87, MMX, SSE3 and later, and instructions on the control state are in neither set.
TYPED_TEST(MachineCode, KernelsHoldOnlyIntegerAndSse2Instructions) {
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

TYPED_TEST(MachineCode, OnlyAKernelWithATwinHasOne) {
    for (const auto& kernel : kernels<TypeParam>()) {
        EXPECT_EQ(has_twin(kernel), find(twin_name(kernel.name)) != nullptr)
            << twin_name(kernel.name);
    }
}

TYPED_TEST(MachineCode, AKernelWithATwinTransfersToIt) {
    for (const auto& kernel : kernels<TypeParam>()) {
        if (!has_twin(kernel)) continue;
        const Function* function = find(kernel.name);
        ASSERT_NE(nullptr, function) << kernel.name;
        int transfers = 0;
        for (const auto& instruction : function->code) {
            if (goes_to_twin(kernel, *function, instruction)) ++transfers;
        }
        EXPECT_GT(transfers, 0) << kernel.name;
    }
}

TEST(MachineCodeOf32fc, KernelsFromLengthSixOnCalculateInPacksOfBinary32) {
    for (const auto& kernel : kernels<Single>()) {
        if (kernel.length < 6) continue;
        for (const auto& name : {std::string(kernel.name), twin_name(kernel.name)}) {
            const Function* function = find(name);
            ASSERT_NE(nullptr, function) << name;
            int packed = 0;
            for (const auto& instruction : function->code) {
                EXPECT_FALSE(is_binary64_arithmetic(instruction.mnemonic))
                    << name << ": " << to_string(instruction);
                if (is_packed_arithmetic(instruction.mnemonic)) ++packed;
            }
            EXPECT_GT(packed, 0) << name;
        }
    }
}

#if defined(__x86_64__)
constexpr bool kIsInPacks[] = {false, false, true, false, true, false};
#else
constexpr bool kIsInPacks[] = {false, false, false, false, false, false};
#endif

TEST(MachineCodeOf32fc, KernelsOfLengthsTwoToFiveCalculateInScalarsButTwoAndFourOf64Bits) {
    for (const auto& kernel : kernels<Single>()) {
        if (kernel.length > 5) continue;
        const Function* function = find(kernel.name);
        ASSERT_NE(nullptr, function) << kernel.name;
        const bool is_in_packs = kIsInPacks[kernel.length];
        for (const auto& instruction : function->code) {
            if (is_arithmetic(instruction)) {
                EXPECT_EQ(is_in_packs, is_packed_arithmetic(instruction.mnemonic))
                    << kernel.name << ": " << to_string(instruction);
            }
        }
    }
}

TEST(MachineCodeOf32fc, LengthsTwoAndFourHoldNoBinary64AndThreeAndFiveDo) {
    for (const auto& kernel : kernels<Single>()) {
        if (kernel.length > 5) continue;
        const Function* function = find(kernel.name);
        ASSERT_NE(nullptr, function) << kernel.name;
        int count = 0;
        for (const auto& instruction : function->code) {
            if (is_binary64_arithmetic(instruction.mnemonic)) ++count;
        }
        EXPECT_EQ(kernel.length % 2 == 1, count > 0) << kernel.name << ": " << count;
    }
}

TYPED_TEST(MachineCode, ADispatcherTestsTheRangeOnceAndJumpsOnceThroughATable) {
    for (const auto& dispatcher : dispatchers<TypeParam>()) {
        const Function* function = find(dispatcher.name);
        ASSERT_NE(nullptr, function) << dispatcher.name;
        int range_tests = 0;
        int indexed = 0;
        for (const auto& instruction : function->code) {
            if (!instruction.is_jump() && !instruction.is_call()) continue;
            if (instruction.is_conditional_jump()) ++range_tests;
            if (!instruction.is_direct()) ++indexed;
            EXPECT_FALSE(instruction.target_symbol.ends_with("@plt"))
                << dispatcher.name << ": " << to_string(instruction);
            if (instruction.is_jump() && function->holds(instruction.target)) {
                EXPECT_GT(instruction.target, instruction.address)
                    << dispatcher.name << ": " << to_string(instruction);
            }
        }
        EXPECT_EQ(1, range_tests) << dispatcher.name;
        EXPECT_EQ(1, indexed) << dispatcher.name;
    }
}

}  // namespace
}  // namespace qsvgen_test
