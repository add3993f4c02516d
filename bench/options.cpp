#include "options.hpp"

#include <stdexcept>
#include <string_view>
#include <utility>

namespace bench {

const char* const kUsage =
    "usage: bench_dft_complex [OPTION]...\n"
    "\n"
    "Times the complex transforms side by side with FFTW, for all lengths and both directions.\n"
    "\n"
    "  --filter=REGEX        only these, by names such as dft_complex/fwd/15/32fc\n"
    "  --quick               fewer rounds: a first look, not a result\n"
    "  --type=TYPE           32fc (if not given) or 64fc\n"
    "  --library=FILE        the build to measure, instead of the one built with this program\n"
    "  --other=FILE          a second build of the library, to be timed in the same rounds\n"
    "  --out-dir=DIR         write dft_complex_TYPE.json and .dat there\n"
    "  --peer-figures=FILE   instead of bench/peers.csv\n"
    "  --benchmark_...       handed on to Google Benchmark\n"
    "  --help                this text\n";

Options ParseOptions(int argc, char** argv) {
    Options options;
    options.library = DEFAULT_LIBRARY;
    options.peer_figures = DEFAULT_PEER_FIGURES;
    options.for_google_benchmark.push_back(argv[0]);
    const std::pair<std::string_view, std::string*> texts[] = {
        {"--filter=", &options.filter},   {"--type=", &options.type},
        {"--library=", &options.library}, {"--other=", &options.other},
        {"--out-dir=", &options.out_dir}, {"--peer-figures=", &options.peer_figures},
    };
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        bool known = true;
        if (argument == "--help") {
            options.help = true;
        } else if (argument == "--quick") {
            options.quick = true;
        } else if (argument.starts_with("--benchmark_")) {
            options.for_google_benchmark.push_back(argv[i]);
        } else {
            known = false;
            for (const auto& [name, text] : texts) {
                if (!argument.starts_with(name)) continue;
                *text = argument.substr(name.size());
                known = true;
            }
        }
        if (!known) throw std::invalid_argument("unknown option '" + std::string(argument) + "'");
    }
    return options;
}

}  // namespace bench
