#include "support/expected_plan.hpp"

#include <bit>

#include "dct4/operations.hpp"

// Numbers of a plan have 32 bits, whether signed or not.
// NOLINTBEGIN(bugprone-narrowing-conversions)
namespace qsvgen_test {
namespace {

using namespace dct4::QSVG_ELEMENT;

constexpr std::uint32_t kLaneCount = 16 / sizeof(Real);

template <class Function>
Address code(Function* function) {
    return {reinterpret_cast<std::uintptr_t>(function)};
}

/** A record's size, with pointers of 4 bytes and of 8. */
constexpr std::uint32_t size(std::uint32_t of_4, std::uint32_t of_8) {
    return sizeof(void*) == 4 ? of_4 : of_8;
}

/** The last field of what TableObject is in the library. */
Field last_of_table_object(std::uint32_t number) {
    Field field(number);
    field.ends_a_base = true;
    return field;
}

constexpr std::uint32_t kList = size(12, 24);
constexpr std::uint32_t kEnv1 = size(44, 80);
constexpr std::uint32_t kEnv2 = size(64, 96);
constexpr std::uint32_t kEnv3 = size(60, 88);
constexpr std::uint32_t kEnv4 = size(64, 96);
constexpr std::uint32_t kEnv5 = size(60, 88);
constexpr std::uint32_t kEnv7 = size(64, 96);
constexpr std::uint32_t kEnv8 = size(72, 104);
constexpr std::uint32_t kEnv9 = size(68, 96);
constexpr std::uint32_t kLambda = size(24, 40);
constexpr std::uint32_t kSplit = size(28, 48);
constexpr std::uint32_t kCompose = size(36, 56);

/** Rule of what is straight up to 2^highest. */
std::uint32_t rule_to(std::uint32_t highest, std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    const auto logarithm = static_cast<std::uint32_t>(std::bit_width(bits)) - 1;
    return std::has_single_bit(bits) && logarithm <= highest ? logarithm : highest + 1;
}

std::uint32_t word(std::int32_t value) {
    return static_cast<std::uint32_t>(value);
}

}  // namespace

std::int32_t ExpectedPlan::factor_of(std::int32_t length) {
    if (length < 32) return 2;
    if (length < 64) return 4;
    if (length < 256) return 8;
    return length < 1024 ? 16 : 32;
}

ExpectedPlan::ExpectedPlan(std::int32_t length, Address head, Address start)
    : length_(length), arena_(head), end_(start) {
    root();
}

Address ExpectedPlan::take(std::size_t bytes) {
    const Address address = end_;
    end_.value += (bytes + 31) / 32 * 32;
    return address;
}

Address ExpectedPlan::take_array(std::size_t elements) {
    return take(elements * sizeof(Real));
}

void ExpectedPlan::put(const std::string& name, Address address, Fields fields) {
    blocks_.push_back({name, address, std::move(fields)});
}

void ExpectedPlan::put_list(const std::string& name, Address head,
                            const std::vector<Address>& items, const std::vector<Address>& nodes) {
    if (!items.empty()) ++adds_into_heads_;
    const std::size_t count = items.empty() ? 1 : items.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Address place = i == 0 ? head : nodes[i - 1];
        put(name + " node " + std::to_string(i), place,
            {items.empty() ? Address{} : items[i], i + 1 < count ? nodes[i] : Address{}, arena_});
    }
}

void ExpectedPlan::root() {
    const auto N = word(length_);
    const Address root = take(kEnv1);
    const Address children = take(kList);
    const Address stage1 = take(kList);
    const Address stage2 = take(kList);
    const Fields head = {
        code(DCT4(env1___del__)), kEnv1, code(DCT4(env1_plan)), arena_, children, stage1, stage2};
    const auto put_root = [&](Address scratch, std::uint32_t rule,
                              std::optional<std::uint32_t> factor) {
        Fields fields = head;
        fields.insert(fields.end(), {scratch, rule, factor, N});
        put("env1", root, fields);
    };
    if (length_ <= 32 && rule_to(5, length_) <= 5) {
        put_root({}, rule_to(5, length_), std::nullopt);
        put_list("env1 children", children, {}, {});
        put_list("env1 stage1", stage1, {}, {});
        put_list("env1 stage2", stage2, {}, {});
        return;
    }
    const auto a = word(factor_of(length_));
    const std::uint32_t q = N / (2 * a);
    const std::uint32_t last = 2 * N - 1;

    const Address env2 = take(kEnv2);
    const Address compose = take(kCompose);
    const Address env2_children = take(kList);
    const Address env2_stage = take(kList);
    const Address second = take(kList);
    const Address env4 = take(kEnv4);
    const Address fsplit = take(kSplit);
    const Address env4_children = take(kList);
    const Address env2_second = take(kList);
    const std::uint32_t groups = q / kLaneCount;
    const Address table = take_array(groups * 2 * a * kLaneCount);
    put("envfCompose", compose,
        {code(DCT4(envfCompose___del__)), kCompose, code(DCT4(envfCompose_at)), arena_, 2 * a,
         8 * N, q, a, 2 * a});
    put("env2", env2,
        {code(DCT4(env2___del__)), kEnv2, code(DCT4(env2_plan)), arena_, env2_children, env2_stage,
         0, 1, a, N, 2 * a, q, N, last, N / a, compose});
    put("envfsplit", fsplit,
        {code(DCT4(envfsplit___del__)), kSplit, code(DCT4(envfsplit_at)), arena_, 2 * a, groups,
         compose});
    put("env4", env4,
        {code(DCT4(env4___del__)), kEnv4, code(DCT4(env4_plan)), arena_, env4_children, table,
         last_of_table_object(rule_to(5, static_cast<std::int32_t>(a)) + 1), a, N, 2 * a,
         2 * a * kLaneCount, groups, N, last, N / a, fsplit});
    put_list("env4 children", env4_children, {}, {});
    put_list("env2 children", env2_children, {fsplit, env4}, {env2_second});
    put_list("env2 stage", env2_stage, {env4}, {});

    const Address env3 = take(kEnv3);
    const Address env3_children = take(kList);
    const Address env3_stage = take(kList);
    const Address third = take(kList);
    const Address env5 = take(kEnv5);
    const Address env5_children = take(kList);
    const Address env5_stage = take(kList);
    const std::uint32_t env5_rule = rule_to(6, word(N / a));
    std::vector<Address> splits;
    if (env5_rule == 7) splits = {split(word(N / a), word(2 * a), word(a))};
    put("env3", env3,
        {code(DCT4(env3___del__)), kEnv3, code(DCT4(env3_plan)), arena_, env3_children, env3_stage,
         0, 1, N / a, N, last, 2 * a, a, N, a});
    put("env5", env5,
        {code(DCT4(env5___del__)), kEnv5, code(DCT4(env5_plan)), arena_, env5_children, env5_stage,
         0, env5_rule, N / a, N, last, 2 * a, a / kLaneCount, N, a});
    put_list("env3 children", env3_children, {env5}, {});
    put_list("env3 stage", env3_stage, {env5}, {});
    put_list("env5 children", env5_children, splits, {});
    put_list("env5 stage", env5_stage, splits, {});

    put_root(take_array(N), 6, a);
    put_list("env1 children", children, {compose, env2, env3}, {second, third});
    put_list("env1 stage1", stage1, {env2}, {});
    put_list("env1 stage2", stage2, {env3}, {});
}

Address ExpectedPlan::split(std::int32_t points, std::int32_t stride, std::int32_t step) {
    const auto N = word(length_);
    const auto n = word(points);
    const auto f = word(factor_of(points));
    const auto S = word(stride);
    const auto W = word(step);
    const Address env7 = take(kEnv7);
    const Address children = take(kList);
    const Address stage1 = take(kList);
    const Address stage2 = take(kList);
    const Address env8 = take(kEnv8);
    const Address lambda = take(kLambda);
    const Address env8_children = take(kList);
    const Address second = take(kList);
    const Address table = take(std::size_t{2 * f - 2} * 16 * (n / (2 * f)));
    const Address env9 = take(kEnv9);
    const Address env9_children = take(kList);
    const Address env9_stage = take(kList);
    const Address third = take(kList);
    const std::uint32_t env9_rule = rule_to(6, word(n / f));
    std::vector<Address> splits;
    if (env9_rule == 7) splits = {split(word(n / f), word(f * S), word(f * W))};
    const Address scratch = take_array(N);

    put("env7", env7,
        {code(DCT4(env7___del__)), kEnv7, code(DCT4(env7_plan)), arena_, children, stage1, stage2,
         scratch, 1, n, f, N, N, S, N, W});
    put("env8", env8,
        {code(DCT4(env8___del__)), kEnv8, code(DCT4(env8_plan)), arena_, env8_children, table,
         last_of_table_object(rule_to(5, word(f))), f, N, W, 2 * f * W, n / (2 * f), N, n / 2,
         n - 1, W, n / f, lambda});
    put("envlambda", lambda,
        {code(DCT4(envlambda___del__)), kLambda, code(DCT4(envlambda_at)), arena_, n, f});
    put("env9", env9,
        {code(DCT4(env9___del__)), kEnv9, code(DCT4(env9_plan)), arena_, env9_children, env9_stage,
         0, env9_rule, n / f, N, N, f * S, S, f, N, f * W, W});
    put_list("env7 children", children, {lambda, env8, env9}, {second, third});
    put_list("env7 stage1", stage1, {env8}, {});
    put_list("env7 stage2", stage2, {env9}, {});
    put_list("env8 children", env8_children, {}, {});
    put_list("env9 children", env9_children, splits, {});
    put_list("env9 stage", env9_stage, splits, {});
    return env7;
}

}  // namespace qsvgen_test
// NOLINTEND(bugprone-narrowing-conversions)
