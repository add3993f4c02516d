/** @file @brief The shared object as a file: names, needs, symbols and sections. */

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/kernel_table.hpp"
#include "support/run_command.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

using Names = std::set<std::string>;

#if defined(__x86_64__) || defined(__aarch64__)
constexpr char kName[] = "libqsvgen.so.6";
constexpr char kNameForLinkers[] = "libqsvgen.so";
constexpr char kVersionOfSymbols[] = "QSVGEN_6.1";
const Names kOwnLibraries = {};
#else
constexpr char kName[] = "libqsvgent7.so.6.1";
constexpr char kNameForLinkers[] = "libqsvgent7.so";
constexpr char kVersionOfSymbols[] = "";
const Names kOwnLibraries = {"libqsvcore.so.6.1"};
#endif

/** The baseline's, or that of the level that the test runs with. */
std::string library_file() {
    const char* const told = std::getenv("QSVGEN_LIBRARY");
    return told == nullptr ? QSVGEN_LIBRARY : told;
}

struct Symbol {
    std::string name;
    std::string version;  ///< empty where it has none
    std::string type;
    std::string binding;
    std::string section;  ///< its number, UND, ABS or COM
};

struct Section {
    std::string name;
    std::string number;
    unsigned long size;
};

std::vector<std::string> readelf(const char* what) {
    const auto result = run_command({"readelf", "-W", what, library_file()});
    EXPECT_EQ(0, result.exit_code) << "readelf " << what;
    return split_lines(result.output);
}

// Values of a kind of entry of the dynamic section, as in "(NEEDED) Shared library: [libc.so.6]".
Names dynamic_values(const std::string& tag) {
    Names values;
    for (const auto& line : readelf("-d")) {
        if (line.find("(" + tag + ")") == std::string::npos) continue;
        const auto open = line.find('[');
        values.insert(open == std::string::npos ? ""
                                                : line.substr(open + 1, line.find(']') - open - 1));
    }
    return values;
}

std::vector<Symbol> symbols(const char* table) {
    std::vector<Symbol> all;
    for (const auto& line : readelf(table)) {
        const auto words = split_words(line);
        if (words.size() < 8 || words[0].back() != ':' || words[0] == "Num:") continue;
        const auto at = words[7].find('@');
        const auto version = words[7].find_first_not_of('@', at);
        all.push_back({words[7].substr(0, at),
                       version == std::string::npos ? "" : words[7].substr(version), words[3],
                       words[4], words[6]});
    }
    return all;
}

std::vector<Section> sections() {
    std::vector<Section> all;
    for (const auto& line : readelf("-S")) {
        // "  [ 7] .text PROGBITS 00001000 001000 0a0b0c ..."
        const auto close = line.find(']');
        const auto open = line.find('[');
        if (open == std::string::npos || close == std::string::npos) continue;
        const auto number = split_words(line.substr(open + 1, close - open - 1));
        const auto words = split_words(line.substr(close + 1));
        if (number.size() != 1 || words.size() < 5 || words[0][0] != '.') continue;
        all.push_back({words[0], number[0], std::strtoul(words[4].c_str(), nullptr, 16)});
    }
    return all;
}

unsigned long section_size(const std::string& name) {
    for (const auto& section : sections()) {
        if (section.name == name) return section.size;
    }
    return 0;
}

std::string program_header(const std::string& type) {
    for (const auto& line : readelf("-l")) {
        const auto words = split_words(line);
        if (!words.empty() && words[0] == type) return line;
    }
    return "";
}

template <class E>
void add_operations(Names& all) {
    for (const auto& kernel : kernels<E>()) all.insert(kernel.name);
    for (const auto& dispatcher : dispatchers<E>()) all.insert(dispatcher.name);
}

template <class E>
void add_orders(Names& all) {
    for (const auto& kernel : order_kernels<E>()) all.insert(kernel.name);
    all.insert(std::string("qsvgWHT_") + E::kSuffix);
    all.insert(std::string("qsvgWHTGetBufferSize_") + E::kSuffix);
}

Names plan_functions() {
    Names all;
    for (const std::string type : {"32f", "64f"}) {
        for (const std::string function : {"GetSize", "Init", "InitAlloc", "Free", ""})
            all.insert("qsvgDCT4" + function + "_" + type);
    }
    return all;
}

/** A companion of each dispatcher. */
Names batch_functions() {
    Names all;
    const auto add = [&](const std::string& single) { all.insert("qsvgBatch" + single.substr(4)); };
    for (const auto& dispatcher : dispatchers<Single>()) add(dispatcher.name);
    for (const auto& dispatcher : dispatchers<Double>()) add(dispatcher.name);
    for (const auto& dispatcher : dispatchers<RealSingle>()) add(dispatcher.name);
    for (const auto& dispatcher : dispatchers<RealDouble>()) add(dispatcher.name);
    add("qsvgWHT_32f");
    add("qsvgWHT_64f");
    return all;
}

Names interface() {
    Names all = {"qsvgenGetLibVersion"};
    add_operations<Single>(all);
    add_operations<Double>(all);
    add_operations<RealSingle>(all);
    add_operations<RealDouble>(all);
    add_orders<RealSingle>(all);
    add_orders<RealDouble>(all);
    all.merge(plan_functions());
    all.merge(batch_functions());
    return all;
}

template <class Kernels>
void add_twins(Names& all, const Kernels& kernels) {
    for (const auto& kernel : kernels) {
        if (has_twin(kernel)) all.insert(twin_name(kernel.name));
    }
}

/** Behind the names of what a level above the baseline, whose vectors are longer, has for these
 * beside what there is for 16 bytes; none of the baseline. */
std::vector<std::string> longer_vectors() {
    const char* const code = std::getenv("QSVGEN_TARGET_CODE");
    if (code == nullptr) return {};
    if (code == std::string("v3")) return {"_wide"};
    return {"_wide", "_widest"};
}

/** Lengths whose complex kernels of an element type are of packs at a level: vectors of 32 bytes
 * stand anywhere. */
std::set<int> lengths_of_packs(const std::string& type) {
    std::set<int> lengths;
    std::ifstream rows(std::string(RECORDED_PACKS) + "/tuned_" + type + ".inc");
    for (std::string row; std::getline(rows, row);) lengths.insert(std::stoi(row.substr(1)));
    EXPECT_FALSE(lengths.empty()) << "no packs of " << type << " are recorded";
    return lengths;
}

Names twins() {
    Names all;
    add_twins(all, kernels<Single>());
    add_twins(all, kernels<Double>());
    if (!longer_vectors().empty()) {
        for (const std::string type : {"32fc", "64fc"}) {
            for (int length : lengths_of_packs(type)) {
                for (const std::string direction : {"Fwd", "Inv"})
                    all.erase("owngDFT" + direction + "_CToC_" + std::to_string(length) + "_" +
                              type + "_unaligned");
            }
        }
    }
    Names of_orders;
    add_twins(of_orders, order_kernels<RealSingle>());
    add_twins(of_orders, order_kernels<RealDouble>());
    // Longer vectors stand anywhere. Sixteen values of binary32 are too few for them.
    if (!longer_vectors().empty()) of_orders = {"owngWHT_4_32f_unaligned"};
    all.insert(of_orders.begin(), of_orders.end());
    return all;
}

TEST(LibraryFile, IsNamedByItsVersion) {
    EXPECT_EQ(Names{kName}, dynamic_values("SONAME"));
}

TEST(LibraryFile, NeedsItsPlatformLibraryIfThatStandsApartAndAtMostThatOfC) {
    Names needed = dynamic_values("NEEDED");
    needed.erase("libc.so.6");
    EXPECT_EQ(kOwnLibraries, needed);
}

// An empty element of the path would be the folder that a program happens to run in.
TEST(LibraryFile, FindsItsPlatformLibraryBesideItselfInTheBuildFolderAndSearchesNowhereElse) {
    EXPECT_EQ(kOwnLibraries.empty() ? Names{} : Names{"$ORIGIN"}, dynamic_values("RUNPATH"));
    EXPECT_EQ(Names{}, dynamic_values("RPATH"));
}

TEST(LibraryFile, HasALinkForTheLinkerBesideIt) {
    namespace fs = std::filesystem;
    const fs::path library = fs::canonical(library_file());
    const fs::path link = library.parent_path() / kNameForLinkers;
    ASSERT_TRUE(fs::exists(link)) << link;
    EXPECT_EQ(library, fs::canonical(link));
    EXPECT_TRUE(fs::is_symlink(link)) << link;
}

TEST(LibraryFile, HasNoRelocationInItsCode) {
    EXPECT_TRUE(dynamic_values("TEXTREL").empty());
    for (const auto& line : readelf("-d")) {
        const bool flags = line.find("(FLAGS)") != std::string::npos;
        EXPECT_FALSE(flags && line.find("TEXTREL") != std::string::npos) << line;
    }
}

TEST(LibraryFile, HasNoExecutableStack) {
    const auto header = program_header("GNU_STACK");
    ASSERT_NE("", header);
    const auto words = split_words(header);
    EXPECT_EQ("RW", words[6]) << header;
}

TEST(LibraryFile, IsReadOnlyAfterRelocation) {
    EXPECT_NE("", program_header("GNU_RELRO"));
}

// One pointer each belongs to the tool chain's own start-up code, where it is linked in.
TEST(LibraryFile, RunsNoCodeOfItsOwnWhenLoaded) {
    constexpr unsigned long kPointer = sizeof(void*);
    bool tool_chain_starts = false;
    for (const auto& symbol : symbols("-s")) {
        tool_chain_starts = tool_chain_starts || symbol.name == "frame_dummy";
        EXPECT_FALSE(symbol.name.starts_with("_GLOBAL__")) << symbol.name;
    }
    const unsigned long allowed = tool_chain_starts ? kPointer : 0;
    EXPECT_LE(section_size(".init_array"), allowed);
    EXPECT_LE(section_size(".fini_array"), allowed);
    EXPECT_EQ(0u, section_size(".ctors"));
    EXPECT_EQ(0u, section_size(".dtors"));
    EXPECT_EQ(0u, section_size(".preinit_array"));
}

TEST(LibraryFile, HasNoWritableDataOfItsOwn) {
    const Names tool_chain = {"__dso_handle", "completed.0", "__TMC_END__", "dtor_idx.0"};
    Names writable;
    for (const auto& section : sections()) {
        if (section.name == ".data" || section.name == ".bss") writable.insert(section.number);
        EXPECT_FALSE(section.name == ".tdata" || section.name == ".tbss") << section.name;
    }
    for (const auto& symbol : symbols("-s")) {
        EXPECT_NE("COM", symbol.section) << symbol.name;
        if (symbol.type != "OBJECT" || !writable.contains(symbol.section)) continue;
        EXPECT_TRUE(tool_chain.contains(symbol.name)) << symbol.name;
    }
    // Data need not have a symbol; the tool chain's own is a pointer and a counter.
    EXPECT_LE(section_size(".data"), 8u);
    EXPECT_LE(section_size(".bss"), 8u);
}

TEST(LibraryFile, ExportsItsInterfaceByTheVersionOfItsTargetAndNothingElse) {
    Names exported;
    for (const auto& symbol : symbols("--dyn-syms")) {
        const bool is_version = symbol.section == "ABS" && symbol.name == kVersionOfSymbols;
        // What a linker for AArch64 leaves of sections has no name that anybody finds.
        const bool is_of_section = symbol.type == "SECTION" && symbol.binding == "LOCAL";
        if (symbol.section == "UND" || is_version || is_of_section) continue;
        exported.insert(symbol.name);
        EXPECT_EQ(kVersionOfSymbols, symbol.version) << symbol.name;
        EXPECT_TRUE(symbol.name.starts_with("qsvg")) << symbol.name;
        EXPECT_EQ("FUNC", symbol.type) << symbol.name;
        EXPECT_EQ("GLOBAL", symbol.binding) << symbol.name;
    }
    EXPECT_EQ(interface(), exported);
}

TEST(LibraryFile, HoldsTheMemoryOfPlansWhereThatIsNoLibraryOfItsOwnAndKeepsItToItself) {
    Names local;
    for (const auto& symbol : symbols("-s")) {
        const bool of_memory = symbol.name == "qsvMalloc" || symbol.name == "qsvFree";
        if (of_memory && symbol.binding == "LOCAL") local.insert(symbol.name);
    }
    EXPECT_EQ(kOwnLibraries.empty() ? Names({"qsvMalloc", "qsvFree"}) : Names{}, local);
}

/** Operations of the DCT-IV's plan objects, by class. */
const std::map<std::string, std::vector<std::string>>& plan_operations() {
    static const std::map<std::string, std::vector<std::string>> operations = {
        {"env1", {"___init__", "___del__", "_plan", "_mem", "__chooseRule"}},
        {"env2", {"___init__", "___del__", "_plan", "_mem"}},
        {"env3", {"___init__", "___del__", "_plan", "_mem"}},
        {"env4", {"___del__", "_plan", "__chooseRule", "_compute"}},
        {"env5", {"___init__", "___del__", "_plan", "_mem", "__chooseRule", "_compute"}},
        {"env7", {"___init__", "___del__", "_plan", "_mem", "_compute"}},
        {"env8", {"___init__", "___del__", "_plan", "__chooseRule", "_compute"}},
        {"env9", {"___init__", "___del__", "_plan", "_mem", "__chooseRule", "_compute"}},
        {"envlambda", {"___init__", "___del__", "_at"}},
        {"envfsplit", {"___del__", "_at"}},
        {"envfCompose", {"___init__", "___del__", "_at"}}};
    return operations;
}

/** What plans are made of, whatever is in them. */
const Names& plan_runtime() {
    static const Names names = {"qsvgAlignSize32Bytes", "qsvgArenaMalloc",    "qsvgArenaFree",
                                "qsvgCosPi_32f",        "qsvgSinPi_32f",      "qsvgCosPi_64f",
                                "qsvgSinPi_64f",        "divisorsIntNonTriv", "EnvList___init__",
                                "EnvList_add",          "EnvList_add_mem",    "EnvList_get",
                                "EnvList_freeChildren", "EnvList___del__"};
    return names;
}

// That none of them is exported is in the test of the interface.
TEST(LibraryFile, KeepsTwinsAndPlansAndNoOtherPartOfAKernelToItself) {
    Names expected = twins();
    expected.insert(plan_runtime().begin(), plan_runtime().end());
    for (const std::string type : {"32f", "64f"}) {
        for (const auto& [name, operations] : plan_operations()) {
            for (const auto& operation : operations) {
                expected.insert("owngDCT4_" + type + "w7_" + name + operation);
                if (operation != "_compute") continue;
                for (const auto& vectors : longer_vectors())
                    expected.insert("owngDCT4_" + type + "w7_" + name + operation + vectors);
            }
        }
    }
    Names local;
    for (const auto& symbol : symbols("-s")) {
        const bool of_kernel = symbol.name.starts_with("own") || symbol.name.starts_with("qsvg") ||
                               plan_runtime().contains(symbol.name) ||
                               symbol.name.starts_with("EnvList");
        if (of_kernel && symbol.binding == "LOCAL") local.insert(symbol.name);
    }
    EXPECT_EQ(expected, local);
}

}  // namespace
}  // namespace qsvgen_test
