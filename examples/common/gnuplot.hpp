#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace example {

struct PlotFiles {
    std::filesystem::path png;
    std::filesystem::path data;    ///< lines of numbers, as gnuplot reads them
    std::filesystem::path script;  ///< kept, so that the picture can be changed by hand
};

/** The files that go with a picture, beside it. */
PlotFiles PlotFilesFor(const std::filesystem::path& png);

/** Throws Error where that fails, as do the others. */
std::ofstream OpenForWriting(const std::filesystem::path& path);
void CloseChecked(std::ofstream& stream, const std::filesystem::path& path);

/** In gnuplot's single quotes, which take everything literally but the quote itself. */
std::string Quoted(const std::string& text);

void RunGnuplot(const std::filesystem::path& script);

}  // namespace example
