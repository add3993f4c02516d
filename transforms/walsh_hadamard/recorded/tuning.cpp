#include "transforms/walsh_hadamard/recorded/tuning.hpp"

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

std::string name_in_table(int order, const std::string& body) {
    return std::to_string(order) + "_" + body;
}

kernelgen::SettledOrder settled_order(int order, Element element, const std::string& body) {
    return kernelgen::settled_order(settled_bodies(element), name_in_table(order, body));
}

}  // namespace walsh_hadamard
