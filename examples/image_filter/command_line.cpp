#include "command_line.hpp"

#include <string>

#include "common/arguments.hpp"

namespace image_filter {

const char* const kUsage =
    "usage: image_filter [--filter FILTER] [--block SIDE] [-o OUT.png] PICTURE.png\n"
    "\n"
    "Cuts a picture into blocks and filters each by its two-dimensional spectrum: transforms of "
    "its\n"
    "rows, then of its columns, as many as possible in a call. Blocks at the right and the lower\n"
    "edge are filled up by the mirrored picture.\n"
    "\n"
    "  --filter FILTER  low-pass, which blurs, or sharpen; low-pass if not given\n"
    "  --block SIDE     16 or 64 pixels; 16 if not given\n"
    "  -o OUT.png       where the filtered picture goes (build/image_filter.png if not given);\n"
    "                   the one before goes beside it, as OUT_before.png\n"
    "  --help           this text\n";

std::filesystem::path CommandLine::before() const {
    std::filesystem::path path = result;
    path.replace_filename(result.stem().string() + "_before.png");
    return path;
}

std::optional<CommandLine> ParseCommandLine(std::span<char* const> words) {
    const example::Arguments arguments(
        words, {.flags = {}, .with_values = {"-o", "--filter", "--block"}, .hint = kUsage});
    if (arguments.wants_help()) return std::nullopt;
    CommandLine command_line;
    command_line.picture = arguments.picture();
    command_line.result = arguments.value("-o").value_or(command_line.result.native());
    if (command_line.result.extension() != ".png")
        example::WrongUse("The picture must end in .png.", kUsage);
    const auto filter = arguments.value("--filter").value_or("low-pass");
    if (filter != "low-pass" && filter != "sharpen")
        example::WrongUse("There is no filter '" + std::string(filter) + "'.", kUsage);
    command_line.filter = filter == "sharpen" ? Filter::kSharpen : Filter::kLowPass;
    const auto block = arguments.value("--block").value_or("16");
    if (block != "16" && block != "64")
        example::WrongUse("Blocks have sides of 16 or of 64 pixels.", kUsage);
    command_line.block = block == "64" ? 64 : 16;
    for (const auto& written : {command_line.result, command_line.before()}) {
        std::error_code ignored;
        if (std::filesystem::equivalent(command_line.picture, written, ignored))
            example::WrongUse("The result would overwrite the picture.", kUsage);
    }
    return command_line;
}

}  // namespace image_filter
