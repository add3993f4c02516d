/** @file @brief What is told of networks, against the constants that stand in them. */

#include "transforms/dft_real/decompositions/decomposition.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <set>

#include "tests/dft_real/white_box/support/network_shape.hpp"
#include "tests/dft_real/white_box/support/networks.hpp"
#include "transforms/hartley/hartley_transform.hpp"

namespace {

using dft_real::Decomposition;
using dft_real::length_of;
using dft_real::Method;
using dft_real_test::kernel;
using dft_real_test::Kind;
using dft_real_test::kKinds;

Decomposition decomposition_of(int length, Kind kind) {
    return kind == Kind::Hartley ? hartley::decomposition(length)
                                 : dft_real::decomposition(length, kind);
}

void visit(const Decomposition& network, const std::function<void(const Decomposition&)>& look) {
    look(network);
    for (const Decomposition& part : network.parts) visit(part, look);
}

bool is_prime(int n) {
    for (int d = 2; d * d <= n; ++d) {
        if (n % d == 0) return false;
    }
    return n >= 2;
}

class DecompositionOfReals : public testing::Test {
  protected:
    using Check = std::function<void(int length, Kind kind, const std::set<double>& constants)>;

    static void for_each_network(const Check& check) {
        for (int length : dft_real::lengths()) {
            for (Kind kind : kKinds) {
                const auto& k = kernel(length, kind);
                SCOPED_TRACE(k.name());
                const auto constants = dft_real_test::constants(k.graph);
                check(length, kind, {constants.begin(), constants.end()});
            }
        }
    }

    /** Times 2 as well: an inverse transform's doubling may be in it. */
    static bool holds(const std::set<double>& constants, double constant) {
        const auto is_near = [&](double value) {
            const auto next = constants.lower_bound(value * (1 - 1e-12));
            return next != constants.end() && *next < value * (1 + 1e-12);
        };
        return is_near(constant) || is_near(2 * constant);
    }
};

// Nothing else divides by the length of a convolution.
TEST_F(DecompositionOfReals, TellsOfTheConvolutionsByWhoseLengthsTheNetworkDivides) {
    for_each_network([](int length, Kind kind, const std::set<double>& constants) {
        std::set<int> told;
        visit(decomposition_of(length, kind), [&](const Decomposition& network) {
            if (network.method == Method::Rader) told.insert(length_of(network.order) - 1);
        });
        std::set<int> held;
        for (int L = 10; L < dft_real::lengths().back(); ++L) {
            if (is_prime(L + 1) && constants.contains(1.0 / L)) held.insert(L);
        }
        EXPECT_EQ(held, told);
    });
}

TEST_F(DecompositionOfReals, TellsOfDenseRowsWhereTheirCosinesStand) {
    for_each_network([](int length, Kind kind, const std::set<double>& constants) {
        std::set<int> told;
        visit(decomposition_of(length, kind), [&](const Decomposition& network) {
            if (network.method == Method::Dense || network.method == Method::PowerOfOddPrime)
                told.insert(network.order.begin(), network.order.end());
        });
        for (int prime : {5, 7, 11}) {
            const double cosine = std::cos(2 * std::numbers::pi / prime);
            EXPECT_EQ(told.contains(prime), holds(constants, cosine)) << "dense rows of " << prime;
        }
    });
}

TEST_F(DecompositionOfReals, MakesTheLengthOfItsParts) {
    for_each_network([](int length, Kind kind, const std::set<double>&) {
        const Decomposition whole = decomposition_of(length, kind);
        EXPECT_EQ(length, length_of(whole.order));
        visit(whole, [](const Decomposition& network) {
            if (network.method != Method::Coprime) return;
            ASSERT_EQ(2u, network.parts.size());
            EXPECT_EQ(length_of(network.order),
                      length_of(network.parts[0].order) * length_of(network.parts[1].order));
        });
    });
}

}  // namespace
