#pragma once

#include <string>
#include <vector>

#include "spectrum_layout.hpp"

namespace bench {

struct Options {
    std::string library;  ///< the build that counts as ours
    std::string other;    ///< a second build to compare with it, or empty
    std::string type = "32fc";
    SpectrumLayout layout = SpectrumLayout::kCcs;  ///< of the real transforms
    std::string filter;  ///< regular expression on names such as dft_real/fwd/15/32f
    std::string out;     ///< where the figures go, without their endings, or empty
    std::string peer_figures;
    bool quick = false;                       ///< fewer rounds: a first look, not a result
    bool help = false;                        ///< was asked for and has been given
    std::vector<char*> for_google_benchmark;  ///< the program's name and all --benchmark_ options
};

extern const char* const kUsage;

/** Throws std::invalid_argument on wrong use. */
Options ParseOptions(int argc, char** argv);

}  // namespace bench
