#include "kernelgen/emission/spelling.hpp"

#include <stdexcept>

namespace kernelgen {
namespace {

bool by_intrinsics(const Target& target) {
    return target.spelling == Spelling::SseIntrinsics;
}

bool in_pieces(const Target& target) {
    return target.spelling == Spelling::Pieces;
}

const char* suffix(Type type) {
    return is_binary32(type) ? "ps" : "pd";
}

std::string pair(const std::string& a, const std::string& b) {
    return "(" + a + ", " + b + ")";
}

const char* sign_of(Op op) {
    return op == Op::Add ? "+" : op == Op::Sub ? "-" : "*";
}

const char* word_of(Op op) {
    return op == Op::Add ? "add" : op == Op::Sub ? "sub" : "mul";
}

std::string shuffled_by_sse(const Node& n, const std::string& a, const std::string& b) {
    const Selection& s = n.selection;
    const std::logic_error no_instruction("no instruction picks these lanes");
    if (n.type == Type::Binary64x2) {
        if (s[0] > 1 || (s[1] < 2 && n.a != n.b)) throw no_instruction;
        return "_mm_shuffle_pd(" + a + ", " + b + ", " + std::to_string(s[0] + 2 * (s[1] % 2)) +
               ")";
    }
    const auto is = [&](std::uint8_t i, std::uint8_t j, std::uint8_t k, std::uint8_t l) {
        return s == Selection{i, j, k, l};
    };
    if (is(4, 1, 2, 3)) return "_mm_move_ss" + pair(a, b);
    if (is(4, 5, 2, 3)) return "move_low" + pair(a, b);
    if (is(0, 4, 1, 5)) return "_mm_unpacklo_ps" + pair(a, b);
    if (is(2, 6, 3, 7)) return "_mm_unpackhi_ps" + pair(a, b);
    if (is(0, 1, 4, 5)) return "_mm_movelh_ps" + pair(a, b);
    if (is(2, 3, 6, 7)) return "_mm_movehl_ps" + pair(b, a);
    if (s[0] > 3 || s[1] > 3 || s[2] < 4 || s[3] < 4) throw no_instruction;
    return "_mm_shuffle_ps(" + a + ", " + b + ", _MM_SHUFFLE(" + std::to_string(s[3] - 4) + ", " +
           std::to_string(s[2] - 4) + ", " + std::to_string(s[1]) + ", " + std::to_string(s[0]) +
           "))";
}

}  // namespace

std::string type_name(Type type, const Target& target) {
    if (in_pieces(target) && lane_count(type) > 1) return "Vector";
    switch (type) {
        case Type::Binary32:
            return "float";
        case Type::Binary64:
            return "double";
        case Type::Binary32x4:
            return by_intrinsics(target) ? "__m128" : "core::Float4";
        case Type::Binary64x2:
            return by_intrinsics(target) ? "__m128d" : "core::Double2";
        case Type::Binary32x8:
            return "core::Float8";
        case Type::Binary64x4:
            return "core::Double4";
        case Type::Binary32x16:
            return "core::Float16";
        case Type::Binary64x8:
            return "core::Double8";
    }
    return {};
}

std::string wide_access(Type type) {
    return byte_count(type) == 64 ? "core::Widest" : "core::Wide";
}

std::string aligned_load(Type type, const Target& target) {
    if (in_pieces(target)) return "in_each_piece";
    if (is_wide(type)) return wide_access(type) + "::load";
    return by_intrinsics(target) ? std::string("_mm_load_") + suffix(type) : "core::Aligned::load";
}

std::string arithmetic(const Node& n, const std::string& a, const std::string& b,
                       const Target& target) {
    if (lane_count(n.type) == 1 || !by_intrinsics(target)) return a + " " + sign_of(n.op) + " " + b;
    return std::string("_mm_") + word_of(n.op) + "_" + suffix(n.type) + pair(a, b);
}

std::string flipped(const Node& n, const std::string& a, const std::string& mask,
                    const Target& target) {
    if (in_pieces(target)) return "flipped" + pair(a, mask);
    if (!by_intrinsics(target)) return "core::flipped" + pair(a, mask);
    return std::string("_mm_xor_") + suffix(n.type) + pair(a, mask);
}

std::string shuffled(const Node& n, const std::string& a, const std::string& b,
                     const Target& target) {
    if (by_intrinsics(target)) return shuffled_by_sse(n, a, b);
    std::string lanes;
    for (int lane = 0; lane < lane_count(n.type); ++lane)
        lanes += ", " + std::to_string(n.selection[static_cast<std::size_t>(lane)]);
    if (in_pieces(target)) return "shuffled<" + lanes.substr(2) + ">" + pair(a, b);
    return "__builtin_shufflevector(" + a + ", " + b + lanes + ")";
}

std::string scalar_load(const std::string& address, const Target& target) {
    return (by_intrinsics(target) ? "_mm_load_ss(" : "core::load_scalar(") + address + ")";
}

std::string zero(Type type, const Target& target) {
    if (!by_intrinsics(target)) return type_name(type, target) + "{}";
    return std::string("_mm_setzero_") + suffix(type) + "()";
}

}  // namespace kernelgen
