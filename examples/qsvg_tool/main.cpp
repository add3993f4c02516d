#include <iostream>

#include "command_line.hpp"
#include "common/error.hpp"
#include "common/run_program.hpp"
#include "explain.hpp"
#include "transform.hpp"
#include "transform_columns.hpp"

namespace {

using namespace qsvg_tool;

void Run(const CommandLine& command_line) {
    switch (command_line.action) {
        case Action::kHelp:
            std::cout << kUsage;
            return;
        case Action::kTransform:
            TransformColumns(command_line);
            return;
        case Action::kExplain:
            CheckLength(command_line.request);
            Print(std::cout, Explain(command_line.request));
            return;
    }
}

}  // namespace

int main(int argc, char** argv) {
    return example::RunProgram("qsvg-tool", [&] {
        Run(ParseCommandLine(std::span(argv, argc).subspan(argc > 0 ? 1 : 0)));
    });
}
