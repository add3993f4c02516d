#pragma once

/** @file @brief A folder of its own for each test that runs a program. */

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

namespace qsvgen_test {

/** The folder is empty before a test and gone after it. */
class ExampleFolderTest : public testing::Test {
  protected:
    /** Tests of builds in other places may run at the same time: the program's path tells them
     * apart. */
    explicit ExampleFolderTest(const std::filesystem::path& program)
        : folder_(std::filesystem::temp_directory_path() / name_for(program)) {}

    void SetUp() override {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    const std::filesystem::path folder_;

  private:
    static std::string name_for(const std::filesystem::path& program) {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        const std::string absolute = std::filesystem::absolute(program).string();
        return program.filename().string() + "_" + test->name() + "_" +
               std::to_string(std::hash<std::string>{}(absolute));
    }
};

}  // namespace qsvgen_test
