#pragma once

#include <optional>
#include <string>
#include <vector>

namespace bench {

struct Options {
    std::string library;  ///< the build that counts as ours
    std::string other;    ///< a second build to compare with it, or empty
    std::string type = "32fc";
    std::string filter;   ///< regular expression on names such as dft_complex/fwd/15/32fc
    std::string out_dir;  ///< where the figures go, or empty
    std::string peer_figures;
    bool quick = false;  ///< fewer rounds: a first look, not a result
    bool help = false;
    std::vector<char*> for_google_benchmark;  ///< the program's name and all --benchmark_ options
};

extern const char* const kUsage;

/** Throws std::invalid_argument on wrong use. */
Options ParseOptions(int argc, char** argv);

}  // namespace bench
