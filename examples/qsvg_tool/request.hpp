#pragma once

/** @file @brief Which transform is asked for. */

#include <cstdint>
#include <string>
#include <string_view>

#include "qsvgen.h"

namespace qsvg_tool {

enum class Family { kDftComplex, kDftReal, kHartley, kWalshHadamard, kDct4 };
inline constexpr Family kFamilies[] = {Family::kDftComplex, Family::kDftReal, Family::kHartley,
                                       Family::kWalshHadamard, Family::kDct4};

/** Of a real signal's spectrum. */
enum class Layout { kCcs, kPack, kPerm };

struct Request {
    Family family = Family::kDftComplex;
    int32_t length = 0;
    bool is_double = false;
    bool is_inverse = false;
    Layout layout = Layout::kCcs;
    int32_t flag = qsvScaleNone;  ///< of QsvScaleFlag; the DCT-IV takes none

    bool is_complex() const { return family == Family::kDftComplex; }
};

/** What a family is called and what it offers. */
struct FamilyWords {
    std::string_view name;
    std::string_view single_type;
    std::string_view double_type;
    std::string_view lengths;
    bool has_inverse;  ///< the others are their own inverse, up to a factor
    bool has_layout;
    bool has_flag;
};

const FamilyWords& WordsOf(Family family);

/** "dft-complex 15 32fc". */
std::string Title(const Request& request);

}  // namespace qsvg_tool
