/** @file @brief What the library tells of itself. */

#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

#include "qsvgen.h"

namespace {

#if defined(__x86_64__)
constexpr std::size_t kSizeOfRecord = 48;
constexpr char kTargetCodeOfBaseline[] = "x64";
constexpr char kName[] = "libqsvgen.so.6";
#elif defined(__aarch64__)
constexpr std::size_t kSizeOfRecord = 48;
constexpr char kTargetCodeOfBaseline[] = "a64";
constexpr char kName[] = "libqsvgen.so.6";
#else
constexpr std::size_t kSizeOfRecord = 32;
constexpr char kTargetCodeOfBaseline[] = "t7";
constexpr char kName[] = "libqsvgent7.so.6.1";
#endif

/** Of the level that the test runs with, where that is told. */
std::string target_code() {
    const char* const told = std::getenv("QSVGEN_TARGET_CODE");
    return told == nullptr ? kTargetCodeOfBaseline : told;
}

// The name that the loaded shared object carries in its own dynamic section.
std::string loaded_soname() {
    Dl_info info = {};
    link_map* map = nullptr;
    // A function's address may be that of a stub in the test program; the record's is not.
    const void* address = qsvgenGetLibVersion();
    if (dladdr1(address, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) == 0) return "";
    const char* strings = nullptr;
    const ElfW(Dyn)* soname = nullptr;
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_STRTAB) strings = reinterpret_cast<const char*>(entry->d_un.d_ptr);
        if (entry->d_tag == DT_SONAME) soname = entry;
    }
    if (strings == nullptr || soname == nullptr) return "";
    return strings + soname->d_un.d_val;
}

TEST(LibraryVersionRecord, IsTheSameAtEachCall) {
    ASSERT_NE(nullptr, qsvgenGetLibVersion());
    EXPECT_EQ(qsvgenGetLibVersion(), qsvgenGetLibVersion());
}

TEST(LibraryVersionRecord, TakesThirtyTwoBytesWithShortPointersAndFortyEightWithLongOnes) {
    EXPECT_EQ(kSizeOfRecord, sizeof(LibraryVersion));
}

TEST(LibraryVersionRecord, HoldsTheNumbers) {
    const LibraryVersion* version = qsvgenGetLibVersion();
    EXPECT_EQ(6, version->majorVersion);
    EXPECT_EQ(1, version->minorVersion);
    EXPECT_EQ(137, version->majorBuild);
    EXPECT_EQ(336, version->build);
}

TEST(LibraryVersionRecord, HoldsTheTexts) {
    const LibraryVersion* version = qsvgenGetLibVersion();
    char padded[4] = {};
    target_code().copy(padded, sizeof padded);
    EXPECT_EQ(0, std::memcmp(version->targetCode, padded, 4)) << version->targetCode;
    EXPECT_STREQ(kName, version->name);
    EXPECT_STREQ("6.1 build 137.56", version->versionText);
    EXPECT_STREQ("Mar 17 2010", version->buildDate);
}

TEST(LibraryVersionRecord, NamesTheSharedObjectThatIsLoaded) {
    EXPECT_EQ(loaded_soname(), qsvgenGetLibVersion()->name);
}

}  // namespace
