#include "arguments.hpp"

#include <algorithm>

#include "error.hpp"

namespace example {
namespace {

bool Holds(const std::vector<std::string_view>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

void WrongUse(const std::string& what, const std::string& hint) {
    throw Error(ExitCode::kBadInput, what + "\n" + hint);
}

Arguments::Arguments(std::span<char* const> words, const KnownOptions& known) : hint_(known.hint) {
    bool only_names = false;
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (only_names || word == "-" || !word.starts_with('-')) {
            names_.push_back(word);
        } else if (word == "--") {
            only_names = true;
        } else if (word == "--help" || Holds(known.flags, word)) {
            options_[word] = {};
        } else if (Holds(known.with_values, word)) {
            if (++i == words.size()) WrongUse(std::string(word) + " needs a value.", hint_);
            options_[word] = words[i];
        } else {
            WrongUse("There is no option '" + std::string(word) + "'.", hint_);
        }
    }
}

std::optional<std::string_view> Arguments::value(std::string_view option) const {
    const auto found = options_.find(option);
    if (found == options_.end()) return std::nullopt;
    return found->second;
}

std::filesystem::path Arguments::recording(const std::filesystem::path& unnamed) const {
    return only_name("recording", unnamed);
}

std::filesystem::path Arguments::picture() const {
    return only_name("picture", {});
}

std::filesystem::path Arguments::only_name(const std::string& kind,
                                           const std::filesystem::path& unnamed) const {
    if (names_.size() > 1) WrongUse("One " + kind + " at a time.", hint_);
    std::filesystem::path name = names_.empty() ? unnamed : names_.front();
    if (name.empty()) WrongUse("Name a " + kind + ".", hint_);
    return name;
}

}  // namespace example
