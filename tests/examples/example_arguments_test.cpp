/** @file @brief How the example programs tell the words of their command lines apart. */

#include "common/arguments.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/error.hpp"

namespace {

using example::Arguments;
using example::ParseNumber;
using Names = std::vector<std::string_view>;

Arguments parse(const std::vector<const char*>& words) {
    std::vector<char*> pointers;
    for (const char* word : words) pointers.push_back(const_cast<char*>(word));
    return Arguments(pointers, {.flags = {"--loud"}, .with_values = {"-o"}, .hint = "Read on."});
}

std::string complaint(const std::vector<const char*>& words) {
    try {
        parse(words);
    } catch (const example::Error& error) {
        EXPECT_EQ(example::ExitCode::kBadInput, error.exit_code());
        return error.what();
    }
    return "none";
}

TEST(ExampleArguments, OptionsAndNamesMayStandInAnyOrder) {
    const Arguments arguments = parse({"one", "-o", "out", "two", "--loud"});
    EXPECT_EQ((Names{"one", "two"}), arguments.names());
    EXPECT_EQ("out", arguments.value("-o"));
    EXPECT_TRUE(arguments.has("--loud"));
    EXPECT_FALSE(arguments.wants_help());
}

TEST(ExampleArguments, WhatIsNotGivenIsNotThere) {
    const Arguments arguments = parse({});
    EXPECT_EQ(Names{}, arguments.names());
    EXPECT_EQ(std::nullopt, arguments.value("-o"));
    EXPECT_FALSE(arguments.has("--loud"));
}

TEST(ExampleArguments, OfAnOptionGivenTwiceTheLastOneCounts) {
    EXPECT_EQ("second", parse({"-o", "first", "-o", "second"}).value("-o"));
}

TEST(ExampleArguments, AllBehindTwoDashesAreNames) {
    EXPECT_EQ((Names{"-o", "--", "--help"}), parse({"--", "-o", "--", "--help"}).names());
}

TEST(ExampleArguments, OneDashIsAName) {
    EXPECT_EQ(Names{"-"}, parse({"-"}).names());
}

TEST(ExampleArguments, TheValueOfAnOptionMayStartWithADash) {
    EXPECT_EQ("-x", parse({"-o", "-x"}).value("-o"));
}

TEST(ExampleArguments, EveryProgramHasHelp) {
    EXPECT_TRUE(parse({"one", "--help"}).wants_help());
}

TEST(ExampleArguments, ComplaintsEndWithTheHint) {
    EXPECT_EQ("-o needs a value.\nRead on.", complaint({"one", "-o"}));
    EXPECT_EQ("There is no option '--quiet'.\nRead on.", complaint({"--quiet"}));
}

TEST(ExampleArguments, OneRecordingIsTakenAndMayHaveAnotherNameWhereNoneIsGiven) {
    EXPECT_EQ("song.wav", parse({"song.wav"}).recording("bell.wav"));
    EXPECT_EQ("bell.wav", parse({}).recording("bell.wav"));
    EXPECT_THROW(parse({"one.wav", "two.wav"}).recording({}), example::Error);
    EXPECT_THROW(parse({}).recording({}), example::Error);
    EXPECT_THROW(parse({""}).recording("bell.wav"), example::Error);
}

TEST(ExampleArguments, OnePictureIsNamed) {
    EXPECT_EQ("face.png", parse({"face.png"}).picture());
    EXPECT_THROW(parse({"one.png", "two.png"}).picture(), example::Error);
    EXPECT_THROW(parse({}).picture(), example::Error);
    EXPECT_THROW(parse({""}).picture(), example::Error);
}

TEST(ExampleArguments, ANumberIsAllOfAWordOrNone) {
    EXPECT_EQ(12, ParseNumber<int>("12"));
    EXPECT_EQ(-1.5, ParseNumber<double>("-1.5"));
    for (const char* text : {"", "x", "12x", " 12", "99999999999"})
        EXPECT_EQ(std::nullopt, ParseNumber<int>(text)) << text;
}

}  // namespace
