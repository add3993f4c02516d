#include "kernel_facts.hpp"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <set>

#include "columns.hpp"
#include "kernelgen/emission/emission.hpp"

#include "targets/targets.hpp"

namespace qsvg_tool {
namespace {

using kernelgen::Exact;

/** Formulas of convolutions' spectra are sums over all roots of unity: too long to be read. */
constexpr size_t kLongestFormula = 72;

/** "2 pi 3/7". */
std::string Angle(long numerator, long denominator) {
    const long divisor = std::gcd(numerator, denominator);
    return "2 pi " + std::to_string(numerator / divisor) + "/" +
           std::to_string(denominator / divisor);
}

/** cos(2 pi p/q), p/q between 0 and 1/4, or the same as a sine: by parts of the length where that
 * is possible, else by the fewest parts. */
std::string Cosine(long p, long q, long length) {
    struct Form {
        const char* name;
        long numerator;
        long denominator;
    };
    // Sines of the turn 1/4 - p/q and of what that leaves of a half.
    const Form forms[] = {{"cos", p, q}, {"sin", q - 4 * p, 4 * q}, {"sin", q + 4 * p, 4 * q}};
    const auto parts = [](const Form& form) {
        return form.denominator / std::gcd(form.numerator, form.denominator);
    };
    const auto* chosen =
        std::ranges::find_if(forms, [&](const Form& form) { return length % parts(form) == 0; });
    if (chosen == std::end(forms)) chosen = std::ranges::min_element(forms, {}, parts);
    return std::string(chosen->name) + "(" + Angle(chosen->numerator, chosen->denominator) + ")";
}

std::string Whole(const Exact& constant, long length);

std::string Joined(const std::vector<Exact>& terms, const char* sign, long length) {
    std::string text;
    for (const Exact& term : terms) text += (text.empty() ? "" : sign) + Whole(term, length);
    return "(" + text + ")";
}

std::string Whole(const Exact& constant, long length) {
    const Exact::Expression& e = constant.expression();
    switch (e.kind) {
        case Exact::Kind::Rational:
            return std::to_string(e.numerator) +
                   (e.denominator == 1 ? "" : "/" + std::to_string(e.denominator));
        case Exact::Kind::CosineOfTurn:
            return Cosine(e.numerator, e.denominator, length);
        case Exact::Kind::SquareRoot:
            return "sqrt(" + std::to_string(e.numerator) + ")";
        case Exact::Kind::Pinned:
            return Whole(e.terms.front(), length);
        case Exact::Kind::Sum:
            return Joined(e.terms, " + ", length);
        case Exact::Kind::Product:
            if (e.terms.size() == 2 && e.terms.front().value() == -1)
                return "-" + Whole(e.terms.back(), length);
            return Joined(e.terms, " ", length);
    }
    return {};
}

int CountCosines(const Exact& constant) {
    const Exact::Expression& e = constant.expression();
    int count = e.kind == Exact::Kind::CosineOfTurn ? 1 : 0;
    for (const Exact& term : e.terms) count += CountCosines(term);
    return count;
}

}  // namespace

std::string Formula(const Exact& constant, int length) {
    const int cosines = CountCosines(constant);
    std::string text = cosines > 8 ? std::string() : Whole(constant, length);
    if (!text.empty() && text.size() <= kLongestFormula) return text;
    return "a formula of " + std::to_string(cosines) + " cosines";
}

Section Constants(const kernelgen::Graph& graph, int length) {
    struct Use {
        Exact magnitude;
        bool is_binary32;
        int nodes = 0;
    };
    std::map<std::pair<bool, std::string>, Use> found;
    int nodes = 0;
    for (const kernelgen::NodeId id : graph.live()) {
        const kernelgen::Node& node = graph.node(id);
        if (node.op != kernelgen::Op::Constant) continue;
        ++nodes;
        const bool is_binary32 = kernelgen::is_binary32(node.type);
        std::set<std::string> in_node;
        for (const Exact& lane : graph.constants()[static_cast<size_t>(node.constant)]) {
            const Exact magnitude = lane.is_negative() ? -lane : lane;
            if (lane.is_zero() || !in_node.insert(magnitude.key()).second) continue;
            const auto key = std::pair(is_binary32, magnitude.key());
            ++found.try_emplace(key, Use{magnitude, is_binary32}).first->second.nodes;
        }
    }
    std::vector<Use> uses;
    for (const auto& [key, use] : found) uses.push_back(use);
    std::ranges::stable_sort(uses, {}, [](const Use& use) { return use.magnitude.value(); });

    Section section{"constants (as rounded, without signs, and what they mean)"};
    section.Add("constants", nodes, "vectors or scalars in the code");
    for (const Use& use : uses) {
        const std::string value = use.is_binary32 ? ShortestDecimal(use.magnitude.to_binary32())
                                                  : ShortestDecimal(use.magnitude.to_binary64());
        section.lines.push_back(
            {value + (use.is_binary32 ? "f" : ""), "= " + Formula(use.magnitude, length),
             use.nodes > 1 ? "in " + std::to_string(use.nodes) + " of them" : ""});
    }
    return section;
}

void AddSchedule(Section& section, const kernelgen::Schedule& schedule) {
    section.lines.push_back({"order", schedule.method, "of the operations in the code"});
    section.Add(
        "modelled stack accesses", schedule.traffic.stack_accesses,
        "spills and reloads with " + std::to_string(BuiltFor().vector_registers) + " registers");
    section.Add("modelled copies", schedule.traffic.copies,
                "of operands that an instruction overwrites");
}

void AddCodeSize(Section& section, const std::string& function) {
    void* const address = dlsym(RTLD_DEFAULT, function.c_str());
    Dl_info info = {};
    void* symbol = nullptr;
    if (address == nullptr || dladdr1(address, &info, &symbol, RTLD_DL_SYMENT) == 0 ||
        symbol == nullptr) {
        return;
    }
    section.Add("code bytes", static_cast<int>(static_cast<const ElfW(Sym)*>(symbol)->st_size),
                "of " + function + " in this build");
}

const kernelgen::Target& BuiltFor() {
    return kernelgen::target_named(QSVG_TARGET);
}

std::string Precision(bool is_double) {
    return is_double ? "double precision" : "single precision";
}

}  // namespace qsvg_tool
