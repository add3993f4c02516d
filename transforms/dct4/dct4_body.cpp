#include "transforms/dct4/dct4_body.hpp"

#include "kernelgen/values/same_values.hpp"
#include "transforms/dct4/definitions.hpp"
#include "transforms/dct4/recorded/tuning.hpp"

namespace dct4 {

namespace {

void prove_matrix(const Kernel& kernel) {
    switch (kernel.step) {
        case Step::Analysis:
            return prove_analysis(kernel.name(), kernel.graph, kernel.element, kernel.points() / 2);
        case Step::Synthesis:
            return prove_synthesis(kernel.name(), kernel.graph, kernel.element,
                                   kernel.points() / 2);
        case Step::Dft:
            return prove_dft(kernel.name(), kernel.graph, kernel.element, kernel.rule);
        case Step::Inline:
            return prove_transform(kernel.name(), kernel.graph, kernel.points());
    }
}

}  // namespace

std::string Kernel::stem() const {
    const std::string number = std::to_string(rule);
    switch (step) {
        case Step::Analysis:
            return "analysis_" + number;
        case Step::Synthesis:
            return "synthesis_" + number;
        case Step::Dft:
            return "dft_" + number;
        case Step::Inline:
            return "inline_" + number;
    }
    return {};
}

std::string Kernel::name() const {
    return "dct4_" + stem() + "_" + suffix(element);
}

std::vector<BodyKey> all_bodies() {
    std::vector<BodyKey> keys;
    for (int rule = 1; rule <= kHighestRule; ++rule) keys.push_back({Step::Analysis, rule});
    for (int rule = 1; rule <= kHighestRule; ++rule) keys.push_back({Step::Synthesis, rule});
    for (int rule = 1; rule <= kHighestDftRule; ++rule) keys.push_back({Step::Dft, rule});
    for (int rule = 1; 1 << rule <= kLongestInlineLength; ++rule)
        keys.push_back({Step::Inline, rule});
    return keys;
}

Kernel described_kernel(BodyKey key, Element element, const kernelgen::Target& target) {
    const auto graph = [&] {
        switch (key.step) {
            case Step::Analysis:
                return analysis_body(element, key.rule);
            case Step::Synthesis:
                return synthesis_body(element, key.rule);
            case Step::Dft:
                return dft_body(element, key.rule);
            default:
                return inline_body(element, 1 << key.rule);
        }
    };
    Kernel kernel{target, key.step, key.rule, element, graph()};
    kernel.method = settled_order(kernel.stem(), element, target).method;
    return kernel;
}

void prove(const Kernel& kernel) {
    prove_matrix(kernel);
    kernelgen::prove_values_of_reference(kernel.name(), kernel.graph, kernel.target, [&] {
        return described_kernel({kernel.step, kernel.rule}, kernel.element).graph;
    });
}

Kernel proven_kernel(BodyKey key, Element element, const kernelgen::Target& target) {
    Kernel kernel = described_kernel(key, element, target);
    prove(kernel);
    return kernel;
}

kernelgen::Counts counts_of(const Kernel& kernel) {
    return kernelgen::count(kernel.graph, kernel.element == Element::Real32);
}

kernelgen::Schedule schedule_of(const Kernel& kernel) {
    return kernelgen::settled_schedule(kernel.method, kernel.graph, kernel.target);
}

}  // namespace dct4
