#include "tests/dft_real/support/networks.hpp"

#include <map>
#include <tuple>

namespace dft_real_test {
namespace {

using dft_real::Direction;
using dft_real::Layout;

RealKernel made(int length, Kind kind, Element element) {
    if (kind == Kind::Hartley) return hartley::hartley_kernel(length, element);
    const Direction direction = kind == Kind::Forward ? Direction::Forward : Direction::Inverse;
    return dft_kernel(length, direction, Layout::CCS, element);
}

}  // namespace

const RealKernel& kernel(int length, Kind kind, Element element) {
    static std::map<std::tuple<int, Kind, Element>, RealKernel> known;
    const std::tuple key{length, kind, element};
    const auto found = known.find(key);
    if (found != known.end()) return found->second;
    return known.emplace(key, made(length, kind, element)).first->second;
}

}  // namespace dft_real_test
