#pragma once

/** @file @brief IEEE 754 arithmetic of either type, in round-to-nearest, for interpreters. */

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** Binary32 values travel as doubles that hold them exactly. */
struct IeeeArithmetic {
    using Real = double;
    static double constant(Type type, const Exact& c) {
        return is_binary32(type) ? static_cast<double>(c.to_binary32()) : c.to_binary64();
    }
    static double add(Type type, double a, double b) {
        return is_binary32(type) ? static_cast<float>(a) + static_cast<float>(b) : a + b;
    }
    static double sub(Type type, double a, double b) {
        return is_binary32(type) ? static_cast<float>(a) - static_cast<float>(b) : a - b;
    }
    static double mul(Type type, double a, double b) {
        return is_binary32(type) ? static_cast<float>(a) * static_cast<float>(b) : a * b;
    }
    static double round_to_binary32(double a) { return static_cast<float>(a); }
};

}  // namespace kernelgen
