/** @file @brief The bump allocator of plans. */

#include "plan/arena.hpp"

#include <gtest/gtest.h>

#include <array>

namespace {

class ArenaBlocks : public testing::Test {
  protected:
    ArenaBlocks() { arena_->bump = start_; }

    std::uintptr_t offset(const void* block) const {
        return reinterpret_cast<std::uintptr_t>(block) - start_;
    }
    std::uintptr_t used() const { return arena_->bump - start_; }

    alignas(32) std::array<unsigned char, 4096> buffer_ = {};
    Arena* arena_ = reinterpret_cast<Arena*>(buffer_.data());
    std::uintptr_t start_ = reinterpret_cast<std::uintptr_t>(buffer_.data()) + 64;
};

TEST(AlignedSize, IsTheNextMultipleOf32) {
    const std::array<std::array<std::uint32_t, 2>, 9> cases = {{{0, 0},
                                                                {1, 32},
                                                                {12, 32},
                                                                {31, 32},
                                                                {32, 32},
                                                                {33, 64},
                                                                {44, 64},
                                                                {72, 96},
                                                                {0xFFFFFFE0U, 0xFFFFFFE0U}}};
    for (const auto& [size, aligned] : cases)
        EXPECT_EQ(aligned, qsvgAlignSize32Bytes(size)) << size;
    for (std::uint32_t size = 0; size < 4096; ++size) {
        EXPECT_EQ((size + 31) / 32 * 32, qsvgAlignSize32Bytes(size)) << size;
    }
}

TEST(AlignedSize, WrapsToZeroAtTheTop) {
    for (std::uint32_t size = 0xFFFFFFE1U; size != 0; ++size)
        EXPECT_EQ(0u, qsvgAlignSize32Bytes(size)) << size;
}

TEST_F(ArenaBlocks, FollowOneAnotherOn32ByteBoundaries) {
    EXPECT_EQ(0u, offset(qsvgArenaMalloc(arena_, 1)));
    EXPECT_EQ(32u, offset(qsvgArenaMalloc(arena_, 1)));
    EXPECT_EQ(64u, offset(qsvgArenaMalloc(arena_, 44)));
    EXPECT_EQ(128u, offset(qsvgArenaMalloc(arena_, 32)));
    EXPECT_EQ(160u, used());
}

TEST_F(ArenaBlocks, ABlockOfNoBytesTakesNone) {
    qsvgArenaMalloc(arena_, 12);
    EXPECT_EQ(32u, offset(qsvgArenaMalloc(arena_, 0)));
    EXPECT_EQ(32u, used());
}

TEST_F(ArenaBlocks, MayBeFreedInAnyOrder) {
    void* const first = qsvgArenaMalloc(arena_, 12);
    void* const second = qsvgArenaMalloc(arena_, 44);
    void* const third = qsvgArenaMalloc(arena_, 36);
    EXPECT_EQ(160u, used());
    qsvgArenaFree(arena_, first, 12);
    EXPECT_EQ(128u, used());
    qsvgArenaFree(arena_, second, 44);
    EXPECT_EQ(64u, used());
    qsvgArenaFree(arena_, third, 36);
    EXPECT_EQ(0u, used());
}

TEST_F(ArenaBlocks, FreeingLooksAtTheSizeAlone) {
    qsvgArenaMalloc(arena_, 44);
    qsvgArenaMalloc(arena_, 44);
    const std::array<const void*, 3> blocks = {nullptr, &arena_, reinterpret_cast<void*>(7)};
    for (const void* block : blocks) {
        qsvgArenaFree(arena_, block, 0);
        EXPECT_EQ(128u, used());
        qsvgArenaFree(arena_, block, 12);
        EXPECT_EQ(96u, used());
        qsvgArenaMalloc(arena_, 12);
    }
}

TEST_F(ArenaBlocks, NothingButTheFirstWordIsWritten) {
    buffer_.fill(0xA5);
    arena_->bump = start_;
    qsvgArenaFree(arena_, qsvgArenaMalloc(arena_, 100), 100);
    for (std::size_t i = sizeof(Arena); i < buffer_.size(); ++i)
        ASSERT_EQ(0xA5, buffer_[i]) << "byte " << i;
}

TEST_F(ArenaBlocks, TheFirstWordMayStandAtAnyAddress) {
    for (std::size_t at = 0; at < 32; ++at) {
        auto* const arena = reinterpret_cast<Arena*>(buffer_.data() + at);
        arena->bump = start_;
        EXPECT_EQ(0u, offset(qsvgArenaMalloc(arena, 33))) << at;
        EXPECT_EQ(start_ + 64, arena->bump) << at;
    }
}

}  // namespace
