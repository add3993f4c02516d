#pragma once

#include <charconv>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace example {

/** The options that a program takes. */
struct KnownOptions {
    std::vector<std::string_view> flags;        ///< that stand alone, such as --inverse
    std::vector<std::string_view> with_values;  ///< that the next word belongs to, such as -o
    std::string hint;                           ///< what stands below a complaint: how to do better
};

/** Throws an Error that says what is wrong, with the hint below. */
[[noreturn]] void WrongUse(const std::string& what, const std::string& hint);

/**
 * The words of a command line, told apart. What starts with a dash is an option, but for "-" alone
 * and for all behind "--". Every program has --help.
 */
class Arguments {
  public:
    /** Throws Error for an option that is not known or lacks its value. */
    Arguments(std::span<char* const> words, const KnownOptions& known);

    /** What are no options, in their order. */
    const std::vector<std::string_view>& names() const { return names_; }
    bool wants_help() const { return has("--help"); }
    bool has(std::string_view flag) const { return options_.contains(flag); }
    /** The last one given, or nothing. */
    std::optional<std::string_view> value(std::string_view option) const;

    /** The name of the one recording that a program takes, or `unnamed`; throws Error where there
     * are several or it is empty. */
    std::filesystem::path recording(const std::filesystem::path& unnamed) const;
    /** Likewise that of the one picture, which must be named. */
    std::filesystem::path picture() const;

  private:
    std::filesystem::path only_name(const std::string& kind,
                                    const std::filesystem::path& unnamed) const;

    std::vector<std::string_view> names_;
    std::map<std::string_view, std::string_view> options_;
    std::string hint_;
};

/** The number that all of `text` is, or nothing. */
template <typename Number>
std::optional<Number> ParseNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace example
