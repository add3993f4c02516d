#include <iostream>

#include "block_filter.hpp"
#include "command_line.hpp"
#include "common/run_program.hpp"
#include "picture.hpp"

namespace {

using namespace image_filter;

void FilterPicture(const CommandLine& command_line) {
    const Picture picture = ReadPng(command_line.picture);
    WritePng(command_line.before(), picture);
    const auto [filtered, work] = FilterBlocks(picture, command_line.filter, command_line.block);
    WritePng(command_line.result, filtered);
    std::cout << "picture      " << picture.width << " x " << picture.height
              << " pixels, blocks of " << command_line.block << " x " << command_line.block << "\n"
              << "filter       "
              << (command_line.filter == Filter::kLowPass ? "low-pass" : "sharpen") << "\n"
              << "transforms   " << work.transforms << " of length " << command_line.block << " in "
              << work.calls << " calls\n"
              << "before       " << command_line.before().string() << "\n"
              << "after        " << command_line.result.string() << "\n";
}

}  // namespace

int main(int argc, char** argv) {
    return example::RunProgram("image_filter", [&] {
        const auto command_line = ParseCommandLine(std::span(argv, argc).subspan(argc > 0 ? 1 : 0));
        if (command_line) {
            FilterPicture(*command_line);
        } else {
            std::cout << kUsage;
        }
    });
}
