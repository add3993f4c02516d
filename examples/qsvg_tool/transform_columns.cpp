#include "transform_columns.hpp"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

#include "columns.hpp"
#include "common/error.hpp"
#include "plot.hpp"
#include "transform.hpp"

namespace qsvg_tool {
namespace {

template <class Real>
Columns<Real> Read(const CommandLine& command_line, const std::string& name, size_t parts) {
    if (command_line.reads_standard_input()) return ReadColumns<Real>(std::cin, name, parts);
    std::ifstream file(command_line.input);
    if (!file) {
        throw example::Error(
            example::ExitCode::kFailed,
            "cannot read '" + name + "': " + std::strerror(errno) + ".\nCheck the path.");
    }
    return ReadColumns<Real>(file, name, parts);
}

/** Says how many lines are missing from whole blocks. */
template <class Real>
void CheckWholeBlocks(const Columns<Real>& columns, size_t lines_of_block,
                      const std::string& name) {
    const size_t rest = columns.lines % lines_of_block;
    if (columns.lines > 0 && rest == 0) return;
    throw example::Error(
        example::ExitCode::kFailed,
        name + ":" + std::to_string(columns.last_line) + ": a transform reads " +
            std::to_string(lines_of_block) + " lines of numbers; of " +
            std::to_string(columns.lines) + " lines the last transform has " +
            std::to_string(rest) + ": " + std::to_string(lines_of_block - rest) +
            " lines are missing.\nAdd them, zeros for example, or take another length.");
}

template <class Real>
Columns<Real> Transformed(const Request& request, const Columns<Real>& source,
                          const BlockTransforms<Real>& transforms) {
    const BlockLines lines = BlockLinesOf(request);
    return {.parts = source.parts,
            .lines = source.lines / lines.source * lines.destination,
            .signals = source.signals,
            .numbers = transforms(source.numbers)};
}

template <class Real>
void Run(const CommandLine& command_line) {
    const Request& request = command_line.request;
    const BlockLines lines = BlockLinesOf(request);
    // Before anything is read, so that an impossible length is told at once.
    const BlockTransforms<Real> transforms = TransformsOf<Real>(request);
    const std::string name =
        command_line.reads_standard_input() ? "(standard input)" : command_line.input.string();
    const auto source = Read<Real>(command_line, name, request.is_complex() ? 2 : 1);
    CheckWholeBlocks(source, lines.source, name);
    const Columns<Real> result = Transformed(request, source, transforms);
    if (!command_line.plot.empty()) {
        PlotColumns(example::PlotFilesFor(command_line.plot), request, result, lines.destination);
        return;
    }
    errno = 0;
    PrintColumns(std::cout, result, lines.destination);
    if (!std::cout.flush()) {
        throw example::Error(example::ExitCode::kFailed,
                             std::string("cannot write the result: ") + std::strerror(errno) + ".");
    }
}

}  // namespace

void TransformColumns(const CommandLine& command_line) {
    if (command_line.request.is_double) {
        Run<Real64>(command_line);
    } else {
        Run<Real32>(command_line);
    }
}

}  // namespace qsvg_tool
