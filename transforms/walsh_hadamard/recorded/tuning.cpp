#include "transforms/walsh_hadamard/recorded/tuning.hpp"

#include "transforms/walsh_hadamard/passes.hpp"

namespace walsh_hadamard {
namespace {

using kernelgen::SettledBody;

// Written by scripts/tune-orders.
const std::vector<SettledBody> kSingleOrders = {
#include "transforms/walsh_hadamard/recorded/tuned_32f.inc"
};
const std::vector<SettledBody> kDoubleOrders = {
#include "transforms/walsh_hadamard/recorded/tuned_64f.inc"
};

}  // namespace

const std::vector<SettledBody>& settled_bodies(Element element) {
    return element == Element::Real32 ? kSingleOrders : kDoubleOrders;
}

std::string name_in_table(int order, Element element, const std::string& body) {
    std::string stages;
    for (int number : stages_of(order, element))
        stages += (stages.empty() ? "" : "+") + std::to_string(number);
    return std::to_string(order) + "=" + stages + " " + body;
}

kernelgen::SettledOrder settled_order(int order, Element element, const std::string& body) {
    return kernelgen::settled_order(settled_bodies(element), name_in_table(order, element, body));
}

}  // namespace walsh_hadamard
