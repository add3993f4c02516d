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

std::string name_in_table(int order, const std::string& body) {
    return std::to_string(order) + "_" + body;
}

kernelgen::SettledOrder settled_order(int order, Element element, const std::string& body) {
    return kernelgen::settled_order(element == Element::Real32 ? kSingleOrders : kDoubleOrders,
                                    name_in_table(order, body));
}

}  // namespace walsh_hadamard
