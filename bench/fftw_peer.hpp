#pragma once

#include <fftw3.h>
#include <qsvgen.h>

#include <stdexcept>
#include <string>

#include "kernel_family.hpp"

namespace bench {

/** FFTW's functions for single-precision samples. */
struct FftwSingle {
    using Real = Real32;
    using Complex = fftwf_complex;
    using Plan = fftwf_plan;
    static constexpr auto kPlanComplex = fftwf_plan_dft_1d;
    static constexpr auto kPlanRealForward = fftwf_plan_dft_r2c_1d;
    static constexpr auto kPlanRealInverse = fftwf_plan_dft_c2r_1d;
    static constexpr auto kPlanRealToReal = fftwf_plan_r2r_1d;
    static constexpr auto kPlanManyComplex = fftwf_plan_many_dft;
    static constexpr auto kPlanManyRealForward = fftwf_plan_many_dft_r2c;
    static constexpr auto kPlanManyRealInverse = fftwf_plan_many_dft_c2r;
    static constexpr auto kPlanManyRealToReal = fftwf_plan_many_r2r;

    static void Execute(Plan plan) { fftwf_execute(plan); }
    static void DestroyPlan(Plan plan) { fftwf_destroy_plan(plan); }
    static void SetTimeLimit(double seconds) { fftwf_set_timelimit(seconds); }
    static bool ImportWisdom(const std::string& path) {
        return fftwf_import_wisdom_from_filename(path.c_str()) != 0;
    }
    static bool ExportWisdom(const std::string& path) {
        return fftwf_export_wisdom_to_filename(path.c_str()) != 0;
    }
    static std::string Version() { return fftwf_version; }
};

/** FFTW's functions for double-precision samples. */
struct FftwDouble {
    using Real = Real64;
    using Complex = fftw_complex;
    using Plan = fftw_plan;
    static constexpr auto kPlanComplex = fftw_plan_dft_1d;
    static constexpr auto kPlanRealForward = fftw_plan_dft_r2c_1d;
    static constexpr auto kPlanRealInverse = fftw_plan_dft_c2r_1d;
    static constexpr auto kPlanRealToReal = fftw_plan_r2r_1d;
    static constexpr auto kPlanManyComplex = fftw_plan_many_dft;
    static constexpr auto kPlanManyRealForward = fftw_plan_many_dft_r2c;
    static constexpr auto kPlanManyRealInverse = fftw_plan_many_dft_c2r;
    static constexpr auto kPlanManyRealToReal = fftw_plan_many_r2r;

    static void Execute(Plan plan) { fftw_execute(plan); }
    static void DestroyPlan(Plan plan) { fftw_destroy_plan(plan); }
    static void SetTimeLimit(double seconds) { fftw_set_timelimit(seconds); }
    static bool ImportWisdom(const std::string& path) {
        return fftw_import_wisdom_from_filename(path.c_str()) != 0;
    }
    static bool ExportWisdom(const std::string& path) {
        return fftw_export_wisdom_to_filename(path.c_str()) != 0;
    }
    static std::string Version() { return fftw_version; }
};

/**
 * Plans the transform out of place, spectra of real samples in CCS. Executing the inverse real one
 * may leave anything in the source: to forbid that would make it slower by a quarter in the mean,
 * and up to three times.
 */
template <typename Fftw>
typename Fftw::Plan MakePlan(Transform transform, int length, typename Fftw::Real* src,
                             typename Fftw::Real* dst) {
    using Complex = typename Fftw::Complex;
    constexpr unsigned kFlags = FFTW_PATIENT;
    auto* const complex_src = reinterpret_cast<Complex*>(src);
    auto* const complex_dst = reinterpret_cast<Complex*>(dst);
    switch (transform) {
        case Transform::kComplexForward:
            return Fftw::kPlanComplex(length, complex_src, complex_dst, FFTW_FORWARD, kFlags);
        case Transform::kComplexInverse:
            return Fftw::kPlanComplex(length, complex_src, complex_dst, FFTW_BACKWARD, kFlags);
        case Transform::kRealForward:
            return Fftw::kPlanRealForward(length, src, complex_dst, kFlags);
        case Transform::kRealInverse:
            return Fftw::kPlanRealInverse(length, complex_src, dst, kFlags);
        case Transform::kHartley:
            return Fftw::kPlanRealToReal(length, src, dst, FFTW_DHT, kFlags);
    }
    throw std::logic_error("no such transform");
}

}  // namespace bench
