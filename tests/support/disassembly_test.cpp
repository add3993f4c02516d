/** @file @brief The reader of machine code sees what a listing says. */

#include "support/disassembly.hpp"

#include <gtest/gtest.h>

namespace qsvgen_test {
namespace {

constexpr const char* kListing =
    "\n"
    "lib.so:     file format elf32-i386\n"
    "\n"
    "Disassembly of section .text:\n"
    "\n"
    "00001000 <first>:\n"
    "    1000:\tmov    eax,DWORD PTR [esp+0x4]\n"
    "    1004:\ttest   eax,eax\n"
    "    1006:\tje     1010 <first+0x10>\n"
    "    1008:\tnotrack jmp DWORD PTR [ebx+eax*4+0x20]\n"
    "    100c:\tcall   2000 <second>\n"
    "    1010:\taddps  xmm0,XMMWORD PTR [eax+0x10]\n"
    "    1014:\tret    \n"
    "\n"
    "00002000 <second>:\n"
    "    2000:\tjmp    1000 <first>\n"
    "    2002:\tcall   eax\n"
    "    2004:\tpaddd  mm0,mm1\n"
    "    2008:\tvaddps ymm0,ymm1,ymm2\n";

TEST(DisassemblyReader, FindsEachFunctionWithItsInstructions) {
    const auto functions = parse_disassembly(kListing);
    ASSERT_EQ(2u, functions.size());
    ASSERT_EQ(7u, functions.at("first").code.size());
    ASSERT_EQ(4u, functions.at("second").code.size());
    EXPECT_EQ("addps", functions.at("first").code[5].mnemonic);
    EXPECT_EQ("xmm0,XMMWORD PTR [eax+0x10]", functions.at("first").code[5].operands);
    EXPECT_TRUE(functions.at("first").holds(0x1010));
    EXPECT_FALSE(functions.at("first").holds(0x2000));
}

TEST(DisassemblyReader, TellsDirectTargetsFromIndirectOnes) {
    const auto functions = parse_disassembly(kListing);
    const auto& first = functions.at("first").code;
    EXPECT_TRUE(first[2].is_direct());
    EXPECT_EQ(0x1010u, first[2].target);
    EXPECT_TRUE(first[2].is_conditional_jump());
    EXPECT_TRUE(first[3].is_jump());
    EXPECT_FALSE(first[3].is_conditional_jump());
    EXPECT_FALSE(first[3].is_direct());
    EXPECT_TRUE(first[4].is_call());
    EXPECT_EQ("second", first[4].target_symbol);
    const auto& second = functions.at("second").code;
    EXPECT_EQ(0x1000u, second[0].target);
    EXPECT_TRUE(second[1].is_call());
    EXPECT_FALSE(second[1].is_direct());
}

TEST(DisassemblyReader, SeesRegistersOtherThanXmm) {
    const auto functions = parse_disassembly(kListing);
    EXPECT_FALSE(functions.at("first").code[5].uses_other_vector_registers());
    EXPECT_TRUE(functions.at("second").code[2].uses_other_vector_registers());
    EXPECT_TRUE(functions.at("second").code[3].uses_other_vector_registers());
}

/** Of a 64-bit program, whose addresses have more digits and whose registers other names. */
constexpr const char* kListingOf64Bits =
    "0000000000001000 <first>:\n"
    "    1000:\tmovsxd rdx,DWORD PTR [rdi+rax*4]\n"
    "    1004:\tja     1020 <first+0x20>\n"
    "    1008:\tmulps  xmm15,XMMWORD PTR [rip+0x5c803d]        # 80bdc0 <kScales+0xe0>\n"
    "    100f:\tvaddps ymm8,ymm9,ymm10\n"
    "    1013:\tcs nop WORD PTR [rax+rax*1+0x0]\n"
    "    101c:\tjmp    r8\n"
    "    1020:\tcall   2010 <free@plt>\n";

TEST(DisassemblyReader, ReadsProgramsOf64BitsAlike) {
    const auto functions = parse_disassembly(kListingOf64Bits);
    const auto& code = functions.at("first").code;
    ASSERT_EQ(7u, code.size());
    EXPECT_EQ(0x1000u, functions.at("first").begin());
    EXPECT_EQ("movsxd", code[0].mnemonic);
    EXPECT_EQ(0x1020u, code[1].target);
    EXPECT_FALSE(code[2].uses_other_vector_registers());
    EXPECT_TRUE(code[3].uses_other_vector_registers());
    EXPECT_EQ("nop", code[4].mnemonic);
    EXPECT_FALSE(code[5].is_direct());
    EXPECT_EQ("free@plt", code[6].target_symbol);
}

TEST(InstructionSets, HaveTheGeneralInstructionsOf64Bits) {
    for (const char* name : {"movsxd", "movabs", "cdqe", "cqo", "endbr64"})
        EXPECT_TRUE(is_general_purpose(name)) << name;
    for (const char* name : {"syscall", "swapgs", "vmovq", "movbe", "andn", "mulx", "rorx"})
        EXPECT_FALSE(is_general_purpose(name) || is_sse2_or_older(name)) << name;
}

TEST(InstructionSets, EndBeforeSse3) {
    for (const char* name : {"addps", "mulss", "subsd", "cvtss2sd", "movaps", "movlhps", "shufps",
                             "unpcklpd", "pxor", "ucomiss", "cmpltps"}) {
        EXPECT_TRUE(is_sse2_or_older(name)) << name;
    }
    for (const char* name :
         {"addsubps",    "haddps",  "movddup",  "movsldup", "movshdup", "lddqu",   "pshufb",
          "palignr",     "blendps", "insertps", "dpps",     "roundps",  "pmulld",  "vaddps",
          "vmovaps",     "fld",     "fstp",     "fldcw",    "ldmxcsr",  "stmxcsr", "emms",
          "vfmadd213ps", "rdtsc",   "cpuid",    "fnstcw"}) {
        EXPECT_FALSE(is_sse2_or_older(name) || is_general_purpose(name)) << name;
    }
}

TEST(InstructionSets, TellArithmeticFromMoves) {
    for (const char* name : {"addps", "mulpd", "sqrtps", "cvtps2pd", "rcpps", "maxps"}) {
        EXPECT_TRUE(is_packed_arithmetic(name)) << name;
        EXPECT_FALSE(is_scalar_arithmetic(name)) << name;
    }
    for (const char* name : {"addss", "mulsd", "cvtss2sd", "cvtsd2ss", "comiss"}) {
        EXPECT_TRUE(is_scalar_arithmetic(name)) << name;
        EXPECT_FALSE(is_packed_arithmetic(name)) << name;
    }
    for (const char* name : {"movaps", "movsd", "movss", "xorps", "shufps", "unpcklpd", "movhpd"}) {
        EXPECT_FALSE(is_packed_arithmetic(name) || is_scalar_arithmetic(name)) << name;
    }
}

TEST(InstructionSets, KnowWhatWorksInBinary64) {
    for (const char* name : {"addpd", "mulsd", "cvtps2pd", "cvtss2sd", "cvtsd2ss", "cvtpd2ps",
                             "cvttsd2si", "ucomisd", "cvtsi2sd"}) {
        EXPECT_TRUE(is_binary64_arithmetic(name)) << name;
    }
    for (const char* name :
         {"addps", "mulss", "cvtsi2ss", "movsd", "movapd", "movhpd", "unpcklpd", "shufpd"}) {
        EXPECT_FALSE(is_binary64_arithmetic(name)) << name;
    }
}

}  // namespace
}  // namespace qsvgen_test
