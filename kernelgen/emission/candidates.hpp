#pragma once

/** @file @brief What a tuning program hands to scripts/tune-orders. */

#include <cstdio>
#include <filesystem>
#include <string>

#include "kernelgen/emission/generated_files.hpp"
#include "kernelgen/schedule/schedule.hpp"

namespace kernelgen {

/** Sources 0.cpp, 1.cpp and so on in a folder; for each a line: the modelled traffic of its order,
 * a tab, and the row of the table that would make it the kernel. */
class Candidates {
  public:
    explicit Candidates(std::filesystem::path folder) : folder_(std::move(folder)) {
        std::filesystem::create_directories(folder_);
    }

    /** The stem of the next candidate's files. */
    std::string stem() const { return std::to_string(number_); }

    void add(const std::string& source, const Schedule& schedule, const std::string& row) {
        write_if_changed(folder_ / (stem() + ".cpp"), source);
        std::printf("%d\t%s\n", schedule.traffic.total(), row.c_str());
        ++number_;
    }

  private:
    std::filesystem::path folder_;
    int number_ = 0;
};

}  // namespace kernelgen
