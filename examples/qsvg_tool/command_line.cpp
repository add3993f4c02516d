#include "command_line.hpp"

#include <string>
#include <string_view>
#include <vector>

#include "common/arguments.hpp"
#include "common/gnuplot.hpp"

namespace qsvg_tool {

const char* const kUsage =
    R"(usage: qsvg-tool transform FAMILY LENGTH TYPE [OPTION...] [FILE]
       qsvg-tool explain FAMILY LENGTH TYPE [--inverse] [--layout LAYOUT]
       qsvg-tool --help

transform reads numbers from FILE, or from standard input where FILE is - or left out, and prints
their transforms. A line holds one sample of each signal: one number of a real signal, two (re im)
of a complex one; further columns are further signals, each transformed by itself. Successive blocks
of LENGTH lines (of a spectrum, of as many as its layout has) are transformed one after the other,
with an empty line between their results. Empty lines and what follows a # are skipped. Numbers are
printed so that reading them gives the same bits again.

explain says how the library calculates a transform: by which decomposition, with how many
operations and which constants, and what that costs.

  FAMILY          TYPE         LENGTH
  dft-complex     32fc, 64fc   2 to 64
  dft-real        32f, 64f     2 to 64
  hartley         32f, 64f     2 to 64
  walsh-hadamard  32f, 64f     2, 4, 8, ... 8192
  dct4            32f, 64f     2, 4, 8, ... 67108864 (33554432 of 64f)

  --inverse       dft-complex and dft-real: the inverse transform; the others are their own
  --layout LAYOUT of the spectrum of dft-real, a number a line: ccs (R0 0 R1 I1 ..., the default),
                  pack (R0 R1 I1 ...) or perm (R0 R[N/2] R1 I1 ...)
  --scale SCALE   by what the result is multiplied, for N = LENGTH; dct4 has none alone
                    none         1 (the default)
                    fwd-by-n     1/N, but 1 for --inverse
                    inv-by-n     1/N for --inverse and for transforms without directions, else 1
                    by-sqrt-n    1/sqrt(N)
  --plot FILE.png draws the result by gnuplot instead of printing it

for example: qsvg-tool transform dft-complex 15 32fc signal.txt > spectrum.txt
             qsvg-tool transform dft-complex 15 32fc --inverse --scale inv-by-n spectrum.txt
)";

namespace {

constexpr const char* kHint = "Try 'qsvg-tool --help' for all families, types and options.";

}  // namespace

void WrongUse(const std::string& what) {
    example::WrongUse(what, kHint);
}

namespace {

template <class Value>
struct Word {
    std::string_view text;
    Value value;
};

constexpr Word<Layout> kLayouts[] = {
    {"ccs", Layout::kCcs}, {"pack", Layout::kPack}, {"perm", Layout::kPerm}};
constexpr Word<int32_t> kScales[] = {{"none", qsvScaleNone},
                                     {"fwd-by-n", qsvScaleFwdByN},
                                     {"inv-by-n", qsvScaleInvByN},
                                     {"by-sqrt-n", qsvScaleBySqrtN}};
constexpr Word<Action> kActions[] = {{"transform", Action::kTransform},
                                     {"explain", Action::kExplain}};

std::string Quote(std::string_view text) {
    return "'" + std::string(text) + "'";
}

/** The value of `text`; `what` names the place in the message for a word that is none of these. */
template <class Value>
Value Choose(std::span<const Word<Value>> words, std::string_view text, const std::string& what) {
    std::string known;
    for (const auto& word : words) {
        if (word.text == text) return word.value;
        known += (known.empty() ? "" : ", ") + std::string(word.text);
    }
    WrongUse(what + " must be one of " + known + ", not " + Quote(text) + ".");
}

Family ParseFamily(std::string_view text) {
    std::vector<Word<Family>> words;
    for (const Family family : kFamilies) words.push_back({WordsOf(family).name, family});
    return Choose<Family>(words, text, "The family");
}

int32_t ParseLength(std::string_view text) {
    const auto length = example::ParseNumber<int32_t>(text);
    if (!length)
        WrongUse("The length must be a whole number, such as 16, not " + Quote(text) + ".");
    return *length;
}

bool ParseIsDouble(std::string_view text, Family family) {
    const FamilyWords& words = WordsOf(family);
    const Word<bool> types[] = {{words.single_type, false}, {words.double_type, true}};
    return Choose<bool>(types, text, "The type of " + std::string(words.name));
}

void RefuseWhatTheFamilyLacks(const example::Arguments& arguments, Family family) {
    const FamilyWords& words = WordsOf(family);
    const std::string name(words.name);
    if (arguments.has("--inverse") && !words.has_inverse) {
        WrongUse(name + " is its own inverse up to a factor: leave --inverse out, and " +
                 (words.has_flag ? "take --scale inv-by-n one way or by-sqrt-n both ways."
                                 : "multiply by 2/LENGTH one way."));
    }
    if (arguments.has("--layout") && !words.has_layout)
        WrongUse("Only dft-real has layouts: leave --layout out for " + name + ".");
    if (!words.has_flag && arguments.value("--scale").value_or("none") != "none")
        WrongUse(name + " is never scaled: leave --scale out, and scale its result yourself.");
}

void RefuseToOverwriteTheInput(const CommandLine& command_line) {
    if (command_line.reads_standard_input()) return;
    const example::PlotFiles files = example::PlotFilesFor(command_line.plot);
    std::error_code ignored;
    for (const auto& result : {files.png, files.data, files.script}) {
        if (std::filesystem::equivalent(command_line.input, result, ignored)) {
            WrongUse("The plot would overwrite the input: it writes " + Quote(files.data.string()) +
                     " and " + Quote(files.script.string()) + " beside the picture.");
        }
    }
}

}  // namespace

CommandLine ParseCommandLine(std::span<char* const> words) {
    const example::Arguments arguments(
        words,
        {.flags = {"--inverse"}, .with_values = {"--layout", "--scale", "--plot"}, .hint = kHint});
    CommandLine command_line;
    if (arguments.wants_help()) return command_line;
    const auto& names = arguments.names();
    const auto layout = arguments.value("--layout");
    const auto scale = arguments.value("--scale");
    const auto plot = arguments.value("--plot");
    if (names.empty()) WrongUse("Say what to do: 'qsvg-tool transform ...' or 'explain ...'.");
    command_line.action = Choose<Action>(kActions, names[0], "The first word");
    const bool transforms = command_line.action == Action::kTransform;
    if (names.size() < 4) {
        WrongUse(std::string(names[0]) + " needs a family, a length and a type, as in 'qsvg-tool " +
                 std::string(names[0]) + " dft-complex 15 32fc'.");
    }

    Request& request = command_line.request;
    request.family = ParseFamily(names[1]);
    request.length = ParseLength(names[2]);
    request.is_double = ParseIsDouble(names[3], request.family);
    if (!transforms && (scale || plot || names.size() > 4))
        WrongUse("explain takes neither --scale nor --plot nor a file.");
    if (names.size() > 5) WrongUse("One file at a time: there is also " + Quote(names[5]) + ".");
    RefuseWhatTheFamilyLacks(arguments, request.family);

    request.is_inverse = arguments.has("--inverse");
    if (layout) request.layout = Choose<Layout>(kLayouts, *layout, "The layout");
    if (scale) request.flag = Choose<int32_t>(kScales, *scale, "The scale");
    if (names.size() == 5) command_line.input = names[4];
    if (plot) {
        command_line.plot = *plot;
        if (command_line.plot.extension() != ".png")
            WrongUse("The plot must be called FILE.png, not " + Quote(*plot) + ".");
        RefuseToOverwriteTheInput(command_line);
    }
    return command_line;
}

}  // namespace qsvg_tool
