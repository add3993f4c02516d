#include "transforms/dct4/recorded/tuning.hpp"

namespace dct4 {
namespace {

using kernelgen::SettledBody;

// Written by scripts/tune-orders.
const std::vector<SettledBody> kSingleOrders = {
#include "transforms/dct4/recorded/tuned_32f.inc"
};
const std::vector<SettledBody> kDoubleOrders = {
#include "transforms/dct4/recorded/tuned_64f.inc"
};

}  // namespace

const std::vector<SettledBody>& settled_bodies(Element element) {
    return element == Element::Real32 ? kSingleOrders : kDoubleOrders;
}

kernelgen::SettledOrder settled_order(const std::string& stem, Element element) {
    return kernelgen::settled_order(settled_bodies(element), stem);
}

}  // namespace dct4
