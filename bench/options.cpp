#include "options.hpp"

#include <stdexcept>
#include <string_view>
#include <vector>

#include "program.hpp"

namespace bench {

const char* const kUsage =
    "usage: bench_transforms [OPTION]...\n"
    "\n"
    "Times the transforms of one element type side by side with FFTW and, where it has them, with\n"
    "KissFFT, for all lengths.\n"
    "\n"
    "  --type=TYPE           32fc (if not given) or 64fc: the complex DFT;\n"
    "                        32f or 64f: the real DFT and the Hartley transform\n"
    "  --layout=LAYOUT       of the real DFT's spectra: ccs (if not given), pack or perm\n"
    "  --filter=REGEX        only these, by names such as dft_complex/fwd/15/32fc, "
    "dft_real/inv/15/32f\n"
    "                        or hartley/15/64f\n"
    "  --quick               fewer rounds: a first look, not a result\n"
    "  --library=FILE        the build to measure, instead of the one built with this program\n"
    "  --other=FILE          a second build of the library, to be timed in the same rounds\n"
    "  --out=STEM            write STEM.json and STEM.dat\n"
    "  --peer-figures=FILE   instead of bench/peers/TARGET.csv\n"
    "  --benchmark_...       handed on to Google Benchmark\n"
    "  --help                this text\n";

namespace {

SpectrumLayout LayoutNamed(const std::string& name) {
    if (name == "ccs") return SpectrumLayout::kCcs;
    if (name == "pack") return SpectrumLayout::kPack;
    if (name == "perm") return SpectrumLayout::kPerm;
    throw std::invalid_argument("unknown layout '" + name + "'");
}

}  // namespace

Options ParseOptions(int argc, char** argv) {
    Options options;
    options.library = DEFAULT_LIBRARY;
    options.peer_figures = DEFAULT_PEER_FIGURES;
    options.for_google_benchmark.push_back(argv[0]);
    std::string layout = "ccs";
    const TextOptions texts = {
        {"--type=", &options.type},
        {"--layout=", &layout},
        {"--filter=", &options.filter},
        {"--library=", &options.library},
        {"--other=", &options.other},
        {"--out=", &options.out},
        {"--peer-figures=", &options.peer_figures},
    };
    std::vector<char*> own = {argv[0]};
    for (int i = 1; i < argc; ++i) {
        const bool is_own = !std::string_view(argv[i]).starts_with("--benchmark_");
        (is_own ? own : options.for_google_benchmark).push_back(argv[i]);
    }
    options.help =
        !ReadOptions(static_cast<int>(own.size()), own.data(), kUsage, texts, options.quick);
    options.layout = LayoutNamed(layout);
    return options;
}

}  // namespace bench
