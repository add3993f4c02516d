/**
 * @file
 * @brief Feeds the fuzzer's target where there is no libFuzzer: random_inputs SECONDS [FILE]...
 *
 * First the files, then random inputs until the time is over; prints how many there were.
 */

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    char* end = nullptr;
    const double seconds = argc > 1 ? std::strtod(argv[1], &end) : -1;
    if (argc < 2 || *end != 0 || seconds < 0) {
        std::fprintf(stderr, "usage: %s SECONDS [FILE]...\n", argv[0]);
        return 2;
    }
    for (int i = 2; i < argc; ++i) {
        std::ifstream file(argv[i], std::ios::binary);
        const std::vector<char> input{std::istreambuf_iterator<char>(file), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    }
    const auto start = std::chrono::steady_clock::now();
    std::mt19937_64 random(1);
    std::vector<std::uint8_t> input;
    long long count = 0;
    while (std::chrono::steady_clock::now() - start < std::chrono::duration<double>(seconds)) {
        for (int i = 0; i < 100; ++i, ++count) {
            input.resize(random() % 600);
            for (std::uint8_t& byte : input) byte = static_cast<std::uint8_t>(random());
            LLVMFuzzerTestOneInput(input.data(), input.size());
        }
    }
    std::printf("%lld random inputs and %d files\n", count, argc - 2);
    return 0;
}
