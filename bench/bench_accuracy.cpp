#include <iomanip>
#include <iostream>
#include <sstream>

#include "accuracy.hpp"
#include "program.hpp"

namespace bench {
namespace {

const char* const kUsage =
    "usage: bench_accuracy [OPTION]...\n"
    "\n"
    "Measures the errors of all transforms and of their peers on random inputs, against "
    "evaluations\n"
    "in extended precision.\n"
    "\n"
    "  --quick              few inputs: a first look, not a result\n"
    "  --lengths=N,N,...    of the DFTs and the Hartley transform; all of them if not given\n"
    "  --longest=N          the last length of the DCT-IV; 65536 if not given\n"
    "  --library=FILE       the build to measure, instead of the one built with this program\n"
    "  --out=STEM           write STEM.json\n"
    "  --help               this text\n";

std::vector<int> Numbers(const std::string& list) {
    std::vector<int> numbers;
    std::istringstream stream(list);
    for (std::string number; std::getline(stream, number, ',');) {
        numbers.push_back(std::stoi(number));
    }
    return numbers;
}

void WriteJson(std::ostream& out, const std::vector<Accuracy>& found) {
    out << std::scientific << std::setprecision(4) << "{\n  \"results\": [";
    const char* separator = "";
    for (const Accuracy& accuracy : found) {
        out << separator << "\n    {\"family\": \"" << accuracy.family << "\", \"type\": \""
            << accuracy.type << "\", \"length\": " << accuracy.length
            << ", \"inputs\": " << accuracy.inputs;
        for (const auto& [party, error] : accuracy.errors) {
            out << ", \"" << party << "\": " << error;
        }
        out << '}';
        separator = ",";
    }
    out << "\n  ]\n}\n";
}

int Main(int argc, char** argv) {
    std::string library = DEFAULT_LIBRARY;
    std::string out;
    std::string lengths;
    AccuracyOptions options;
    std::string longest = std::to_string(options.longest_dct4);
    const TextOptions texts = {{"--library=", &library},
                               {"--lengths=", &lengths},
                               {"--longest=", &longest},
                               {"--out=", &out}};
    if (!ReadOptions(argc, argv, kUsage, texts, options.quick)) return 0;
    options.lengths = Numbers(lengths);
    options.longest_dct4 = std::stoi(longest);
    options.on_progress = [](const std::string& family, const std::string& type) {
        std::cerr << "  accuracy: " << family << ", " << type << '\n';
    };

    const TransformLibrary ours(library);
    std::vector<Accuracy> found;
    MeasureDfts(ours, options, found);
    MeasureWalshHadamard(ours, options, found);
    MeasureDct4(ours, options, found);
    if (out.empty()) {
        WriteJson(std::cout, found);
        return 0;
    }
    std::ofstream file = Created(out + ".json");
    WriteJson(file, found);
    Finish(file, out + ".json");
    return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    return bench::Run("bench_accuracy", bench::kUsage, bench::Main, argc, argv);
}
