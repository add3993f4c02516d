/** @file @brief Blocks from the platform library's allocator. */

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "qsvcore.h"

namespace {

/** Of the companion that 32-bit programs have, and of what is a part of the library. */
constexpr std::uintptr_t kBoundary = sizeof(void*) == 4 ? 16 : 64;

bool on_boundary(const void* block) {
    return reinterpret_cast<std::uintptr_t>(block) % kBoundary == 0;
}

TEST(PlatformAllocator, BlocksOfEverySizeStandOnTheBoundary) {
    for (std::int32_t size = 1; size <= 2048; ++size) {
        void* block = qsvMalloc(size);
        ASSERT_NE(nullptr, block) << size;
        EXPECT_TRUE(on_boundary(block)) << size;
        qsvFree(block);
    }
    for (const std::int32_t size : {4095, 4096, 4097, 65537, 1 << 20, (1 << 24) + 3}) {
        void* block = qsvMalloc(size);
        ASSERT_NE(nullptr, block) << size;
        EXPECT_TRUE(on_boundary(block)) << size;
        qsvFree(block);
    }
}

TEST(PlatformAllocator, BlocksStandOnTheBoundaryWhileOthersAreHeld) {
    std::vector<void*> held;
    for (std::int32_t size = 1; size <= 300; ++size) {
        held.push_back(qsvMalloc(size));
        ASSERT_NE(nullptr, held.back());
        EXPECT_TRUE(on_boundary(held.back())) << size;
    }
    for (void* block : held) qsvFree(block);
}

TEST(PlatformAllocator, BlocksAreWritableToTheLastByteAndApart) {
    std::vector<unsigned char*> blocks;
    for (int i = 0; i < 64; ++i) {
        auto* block = static_cast<unsigned char*>(qsvMalloc(i + 1));
        ASSERT_NE(nullptr, block);
        std::memset(block, i, static_cast<std::size_t>(i) + 1);
        blocks.push_back(block);
    }
    for (int i = 0; i < 64; ++i) {
        const auto* block = blocks[static_cast<std::size_t>(i)];
        EXPECT_TRUE(std::all_of(block, block + i + 1, [i](unsigned char b) { return b == i; }))
            << "block " << i;
    }
    for (auto* block : blocks) qsvFree(block);
}

TEST(PlatformAllocator, ReleasingNothingIsAllowed) {
    qsvFree(nullptr);
}

TEST(PlatformAllocator, ReleasedBlocksAreUsedAgain) {
    constexpr std::int32_t kLarge = 64 << 20;
    // Together more than twelve gigabytes: far more than a 32-bit program can address.
    for (int i = 0; i < 200; ++i) {
        void* block = qsvMalloc(kLarge);
        ASSERT_NE(nullptr, block) << "after " << i << " blocks";
        qsvFree(block);
    }
}

TEST(PlatformAllocator, NegativeSizesGiveNull) {
    EXPECT_EQ(nullptr, qsvMalloc(-1));
    EXPECT_EQ(nullptr, qsvMalloc(-16));
    EXPECT_EQ(nullptr, qsvMalloc(INT32_MIN));
}

/** While it lives the program gets no more than so much memory, however long its addresses are. */
class AddressSpace {
  public:
    explicit AddressSpace(rlim_t bytes) : bytes_(bytes) {
        getrlimit(RLIMIT_AS, &before_);
        const rlimit limited = {bytes, before_.rlim_max};
        setrlimit(RLIMIT_AS, &limited);
    }
    ~AddressSpace() { setrlimit(RLIMIT_AS, &before_); }
    AddressSpace(const AddressSpace&) = delete;
    AddressSpace& operator=(const AddressSpace&) = delete;

    /** An emulator, whose own memory that would be, takes no limit. */
    bool is_limited() const {
        rlimit now = {};
        getrlimit(RLIMIT_AS, &now);
        return now.rlim_cur == bytes_;
    }

  private:
    rlim_t bytes_;
    rlimit before_ = {};
};

TEST(PlatformAllocator, SizesThatCannotBeHadGiveNull) {
    const AddressSpace limited(INT32_MAX);
    if (!limited.is_limited()) GTEST_SKIP() << "memory cannot be limited here";
    EXPECT_EQ(nullptr, qsvMalloc(INT32_MAX));
}

TEST(PlatformAllocator, BlocksCanBeHadAgainBehindOneThatCouldNot) {
    {
        const AddressSpace limited(INT32_MAX);
        qsvFree(qsvMalloc(INT32_MAX));
    }
    void* block = qsvMalloc(1 << 20);
    EXPECT_NE(nullptr, block);
    qsvFree(block);
}

}  // namespace
