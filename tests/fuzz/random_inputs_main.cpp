/**
 * @file
 * @brief Feeds the fuzzer's target where there is no libFuzzer: random_inputs SECONDS [CORPUS]
 *
 * First the inputs of the corpus, a line of hexadecimal digits each, then random ones until the
 * time is over; prints how many there were.
 */

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

void run(const Input& input) {
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

Input from_hexadecimal(const std::string& line) {
    Input input;
    for (std::size_t i = 0; i + 1 < line.size(); i += 2)
        input.push_back(static_cast<std::uint8_t>(std::stoul(line.substr(i, 2), nullptr, 16)));
    return input;
}

/** How many there are; none where the file is missing, too. */
long run_corpus(const char* path) {
    std::ifstream file(path);
    long count = 0;
    for (std::string line; std::getline(file, line); ++count) run(from_hexadecimal(line));
    return count;
}

long run_random_inputs(double seconds) {
    const auto start = std::chrono::steady_clock::now();
    std::mt19937_64 random(1);
    Input input;
    long count = 0;
    while (std::chrono::steady_clock::now() - start < std::chrono::duration<double>(seconds)) {
        for (int i = 0; i < 100; ++i, ++count) {
            input.resize(random() % 600);
            for (std::uint8_t& byte : input) byte = static_cast<std::uint8_t>(random());
            run(input);
        }
    }
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    char* end = nullptr;
    const double seconds = argc > 1 ? std::strtod(argv[1], &end) : -1;
    if (argc < 2 || argc > 3 || *end != 0 || seconds < 0) {
        std::fprintf(stderr, "usage: %s SECONDS [CORPUS]\n", argv[0]);
        return 2;
    }
    if (argc == 3) {
        const long count = run_corpus(argv[2]);
        if (count == 0) {
            std::fprintf(stderr, "%s: there are no inputs in %s\n", argv[0], argv[2]);
            return 1;
        }
        std::printf("%ld inputs of the corpus\n", count);
    }
    std::printf("%ld random inputs\n", run_random_inputs(seconds));
    return 0;
}
