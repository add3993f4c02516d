#include "picture.hpp"

#include <lodepng.h>

#include <string>
#include <system_error>

#include "common/error.hpp"

namespace image_filter {

using example::Error;
using example::ExitCode;

Picture ReadPng(const std::filesystem::path& path) {
    unsigned width = 0;
    unsigned height = 0;
    Picture picture;
    const unsigned error = lodepng::decode(picture.samples, width, height, path.string());
    if (error != 0) {
        throw Error(ExitCode::kBadInput, "cannot read '" + path.string() +
                                             "': " + lodepng_error_text(error) +
                                             ".\nCheck the path, and that it is a PNG file.");
    }
    picture.width = width;
    picture.height = height;
    return picture;
}

void WritePng(const std::filesystem::path& path, const Picture& picture) {
    const auto fail = [&](const std::string& why) {
        throw Error(ExitCode::kFailed,
                    "cannot write '" + path.string() + "': " + why +
                        ".\nName a writable place by -o, with room on its disk.");
    };
    std::error_code cannot_create;
    if (path.has_parent_path())
        std::filesystem::create_directories(path.parent_path(), cannot_create);
    if (cannot_create) fail(cannot_create.message());
    const unsigned error =
        lodepng::encode(path.string(), picture.samples, static_cast<unsigned>(picture.width),
                        static_cast<unsigned>(picture.height));
    if (error != 0) fail(lodepng_error_text(error));
}

}  // namespace image_filter
