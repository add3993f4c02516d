#include "support/disassembly.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <set>

#include "run_command.hpp"

namespace qsvgen_test {
namespace {

using Names = std::set<std::string>;

Names names(const std::string& text) {
    const auto words = split_words(text);
    return {words.begin(), words.end()};
}

bool is_prefix(const std::string& word) {
    static const Names prefixes =
        names("rep repz repe repnz repne lock bnd notrack data16 addr16 cs ds es ss fs gs");
    return prefixes.contains(word);
}

bool is_hexadecimal(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789abcdef") == std::string::npos;
}

// "    1a2b:\taddps  xmm0,xmm1"
bool parse_instruction(const std::string& line, Instruction& instruction) {
    const auto colon = line.find(":\t");
    if (colon == std::string::npos || colon == 0 || line[0] != ' ') return false;
    const auto digits = line.find_first_not_of(' ');
    if (!is_hexadecimal(line.substr(digits, colon - digits))) return false;
    instruction.address =
        static_cast<std::uint32_t>(std::strtoul(line.c_str() + digits, nullptr, 16));

    auto words = split_words(line.substr(colon + 2));
    std::size_t first = 0;
    while (first + 1 < words.size() && is_prefix(words[first])) ++first;
    if (words.empty()) return false;
    instruction.mnemonic = words[first];
    for (std::size_t i = first + 1; i < words.size(); ++i) {
        if (i > first + 1) instruction.operands += ' ';
        instruction.operands += words[i];
    }
    // A direct target is printed as "1a2b <symbol+0x10>"; a memory operand never starts so.
    if (instruction.is_jump() || instruction.is_call()) {
        const auto& operands = instruction.operands;
        const auto bracket = operands.find(" <");
        if (bracket != std::string::npos && is_hexadecimal(operands.substr(0, bracket))) {
            instruction.target =
                static_cast<std::uint32_t>(std::strtoul(operands.c_str(), nullptr, 16));
            instruction.target_symbol =
                operands.substr(bracket + 2, operands.rfind('>') - bracket - 2);
        }
    }
    return true;
}

// "00001a20 <name>:"
bool parse_header(const std::string& line, std::string& name) {
    if (line.empty() || line.back() != ':' || line[0] == ' ') return false;
    const auto bracket = line.find(" <");
    if (bracket == std::string::npos || !is_hexadecimal(line.substr(0, bracket))) return false;
    name = line.substr(bracket + 2, line.size() - bracket - 4);
    return true;
}

bool ends_with_any(const std::string& text, const std::vector<std::string>& endings) {
    return std::any_of(endings.begin(), endings.end(),
                       [&](const auto& ending) { return text.ends_with(ending); });
}

// Operation of "addps" is "add"; empty where the ending is another.
std::string stem(const std::string& mnemonic, const std::string& ending) {
    if (!mnemonic.ends_with(ending)) return "";
    return mnemonic.substr(0, mnemonic.size() - ending.size());
}

bool is_arithmetic_stem(const std::string& text) {
    static const Names stems = names(
        "add sub mul div sqrt rcp rsqrt min max cmp cmpeq cmplt cmple cmpunord cmpneq "
        "cmpnlt cmpnle cmpord comi ucomi");
    return stems.contains(text);
}

const Names& packed_conversions() {
    static const Names set =
        names("cvtps2pd cvtpd2ps cvtdq2ps cvtps2dq cvttps2dq cvtdq2pd cvtpd2dq cvttpd2dq");
    return set;
}

const Names& scalar_conversions() {
    static const Names set =
        names("cvtss2sd cvtsd2ss cvtsi2ss cvtsi2sd cvtss2si cvtsd2si cvttss2si cvttsd2si");
    return set;
}

const Names& moves_and_logic() {
    static const Names set = names(
        "movaps movups movapd movupd movss movsd movlps movhps movlpd movhpd movlhps movhlps "
        "movdqa movdqu movd movq movntps movntpd movntdq movmskps movmskpd shufps shufpd "
        "unpcklps unpckhps unpcklpd unpckhpd andps andnps orps xorps andpd andnpd orpd xorpd "
        "pand pandn por pxor pshufd pshuflw pshufhw punpcklbw punpcklwd punpckldq punpcklqdq "
        "punpckhbw punpckhwd punpckhdq punpckhqdq pslldq psrldq");
    return set;
}

const Names& integer_vectors() {
    static const Names set = names(
        "paddb paddw paddd paddq psubb psubw psubd psubq paddsb paddsw paddusb paddusw psubsb "
        "psubsw psubusb psubusw pmullw pmulhw pmulhuw pmuludq pmaddwd pcmpeqb pcmpeqw pcmpeqd "
        "pcmpgtb pcmpgtw pcmpgtd psllw pslld psllq psrlw psrld psrlq psraw psrad packsswb "
        "packssdw packuswb pavgb pavgw psadbw pmaxsw pmaxub pminsw pminub pmovmskb pextrw pinsrw");
    return set;
}

}  // namespace

bool Instruction::is_jump() const {
    return mnemonic[0] == 'j' || mnemonic.starts_with("loop");
}
bool Instruction::is_conditional_jump() const {
    return is_jump() && mnemonic != "jmp";
}
bool Instruction::is_call() const {
    return mnemonic == "call";
}
bool Instruction::uses_other_vector_registers() const {
    for (auto at = operands.find("mm"); at != std::string::npos; at = operands.find("mm", at + 1)) {
        const char before = at == 0 ? ',' : operands[at - 1];
        const char after = at + 2 < operands.size() ? operands[at + 2] : ' ';
        const bool is_register = after >= '0' && after <= '9';
        if (is_register && (before == ',' || before == 'y' || before == 'z')) return true;
    }
    return false;
}

std::string to_string(const Instruction& instruction) {
    char address[16];
    std::snprintf(address, sizeof address, "%x: ", instruction.address);
    return address + instruction.mnemonic + " " + instruction.operands;
}

bool Function::holds(std::uint32_t address) const {
    return !code.empty() && address >= code.front().address && address <= code.back().address;
}

Disassembly disassemble(const std::string& path) {
    const auto listing = run_command({"objdump", "-d", "-M", "intel", "--no-show-raw-insn", path});
    return listing.exit_code == 0 ? parse_disassembly(listing.output) : Disassembly();
}

Disassembly parse_disassembly(const std::string& listing) {
    Disassembly functions;
    Function* current = nullptr;
    for (const auto& line : split_lines(listing)) {
        std::string name;
        Instruction instruction;
        if (parse_header(line, name)) {
            current = &functions[name];
            current->name = name;
        } else if (current != nullptr && parse_instruction(line, instruction)) {
            current->code.push_back(instruction);
        }
    }
    return functions;
}

bool is_general_purpose(const std::string& mnemonic) {
    static const Names set = names(
        "mov movzx movsx lea push pop leave ret call jmp nop endbr32 xchg add sub and or xor not "
        "neg test cmp bt inc dec shl sal shr sar imul cdq");
    // Of programs of 64 bits alone: 32-bit code has none of these.
    static const Names of_64_bits = names("movsxd movabs cdqe cqo endbr64");
    if (set.contains(mnemonic) || of_64_bits.contains(mnemonic)) return true;
    // jecxz and loop are jumps as well; their direction is what other rules look at.
    return mnemonic[0] == 'j' || mnemonic.starts_with("loop") || mnemonic.starts_with("cmov") ||
           mnemonic.starts_with("set");
}

bool is_sse2_or_older(const std::string& mnemonic) {
    return moves_and_logic().contains(mnemonic) || integer_vectors().contains(mnemonic) ||
           is_packed_arithmetic(mnemonic) || is_scalar_arithmetic(mnemonic);
}

bool is_packed_arithmetic(const std::string& mnemonic) {
    return is_arithmetic_stem(stem(mnemonic, "ps")) || is_arithmetic_stem(stem(mnemonic, "pd")) ||
           packed_conversions().contains(mnemonic);
}

bool is_scalar_arithmetic(const std::string& mnemonic) {
    return is_arithmetic_stem(stem(mnemonic, "ss")) || is_arithmetic_stem(stem(mnemonic, "sd")) ||
           scalar_conversions().contains(mnemonic);
}

bool is_binary64_arithmetic(const std::string& mnemonic) {
    if (is_arithmetic_stem(stem(mnemonic, "pd")) || is_arithmetic_stem(stem(mnemonic, "sd"))) {
        return true;
    }
    const bool converts =
        packed_conversions().contains(mnemonic) || scalar_conversions().contains(mnemonic);
    return converts && (ends_with_any(mnemonic, {"pd", "sd"}) || mnemonic.starts_with("cvtpd") ||
                        mnemonic.starts_with("cvttpd") || mnemonic.starts_with("cvtsd") ||
                        mnemonic.starts_with("cvttsd"));
}

}  // namespace qsvgen_test
