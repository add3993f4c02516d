#pragma once

/** @file @brief A plan in a buffer of its own, and arenas for single nodes. */

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "dct4/construct.hpp"
#include "dct4/operations.hpp"

namespace qsvgen_test {

using namespace dct4::QSVG_ELEMENT;

inline constexpr bool kSingle = sizeof(Real) == 4;

template <class Integer>
inline constexpr auto word(Integer value) {
    return static_cast<std::uint32_t>(value);
}

inline std::int32_t size_of_plan(std::int32_t length) {
    std::int32_t size = -1;
    EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4GetSize)(length, &size)) << length;
    return size;
}

/** An arena that starts at the first block of `bytes` bytes on a 32-byte boundary. */
class ArenaBuffer {
  public:
    explicit ArenaBuffer(std::size_t bytes) : memory_(bytes + 96, kUnwritten) {
        const auto address = reinterpret_cast<std::uintptr_t>(memory_.data());
        head_ = memory_.data() + (32 - address % 32) % 32;
        arena()->bump = start();
    }

    std::uint8_t* head() { return head_; }
    Arena* arena() { return reinterpret_cast<Arena*>(head_); }
    std::uintptr_t start() const { return reinterpret_cast<std::uintptr_t>(head_) + 64; }
    std::uintptr_t used() { return arena()->bump - start(); }

  private:
    static constexpr std::uint8_t kUnwritten = 0xA5;

    std::vector<std::uint8_t> memory_;
    std::uint8_t* head_;
};

/** A plan made by the Init function in a buffer of the size that the size query tells. */
class PlanBuffer {
  public:
    explicit PlanBuffer(std::int32_t length)
        : buffer_(static_cast<std::size_t>(size_of_plan(length))) {
        Plan* plan = nullptr;
        EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4Init)(&plan, length, buffer_.head())) << length;
        root_ = reinterpret_cast<env1*>(plan);
    }

    ArenaBuffer& buffer() { return buffer_; }
    env1& root() { return *root_; }

    env2& stage_b() { return *static_cast<env2*>(EnvList_get(root_->stage1, 0)); }
    env4& rotations() { return *static_cast<env4*>(EnvList_get(stage_b().stage, 0)); }
    env3& stage_a() { return *static_cast<env3*>(EnvList_get(root_->stage2, 0)); }
    env5& analyses() { return *static_cast<env5*>(EnvList_get(stage_a().stage, 0)); }
    /** The env7 nodes from the root downwards. */
    std::vector<env7*> splits() {
        std::vector<env7*> all;
        EnvList* stage = analyses().stage;
        while (EnvList_get(stage, 0) != nullptr) {
            all.push_back(static_cast<env7*>(EnvList_get(stage, 0)));
            stage = static_cast<env9*>(EnvList_get(all.back()->stage2, 0))->stage;
        }
        return all;
    }

  private:
    ArenaBuffer buffer_;
    env1* root_ = nullptr;
};

inline env8& twiddles_of(const env7& split) {
    return *static_cast<env8*>(EnvList_get(split.stage1, 0));
}

inline env9& analyses_of(const env7& split) {
    return *static_cast<env9*>(EnvList_get(split.stage2, 0));
}

/** Plans of powers of two alone: the 32-bit library makes some that are of no use, too. */
inline constexpr bool kOnlyPowersOfTwo = sizeof(void*) == 8;

/** The accepted lengths from 2 to `last`: powers of two, and those plus one that are accepted too.
 */
inline std::vector<std::int32_t> accepted_lengths(std::int32_t last) {
    std::vector<std::int32_t> lengths;
    for (std::int32_t power = 2; power <= last; power *= 2) {
        lengths.push_back(power);
        if (!kOnlyPowersOfTwo && power >= (kSingle ? 32 : 8) && power < last)
            lengths.push_back(power + 1);
    }
    return lengths;
}

}  // namespace qsvgen_test
