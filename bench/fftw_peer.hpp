#pragma once

#include <fftw3.h>
#include <qsvgen.h>

#include <string>

namespace bench {

/** FFTW and our types for single-precision samples. */
struct SinglePeer {
    using Real = Real32;
    using Complex = Complex32;
    using Plan = fftwf_plan;
    static constexpr const char* kType = "32fc";
    static constexpr const char* kPeerFamily = "complex_forward_32";

    static Plan MakePlan(int length, Complex* src, Complex* dst, int sign) {
        return fftwf_plan_dft_1d(length, reinterpret_cast<fftwf_complex*>(src),
                                 reinterpret_cast<fftwf_complex*>(dst), sign, FFTW_PATIENT);
    }
    static void Execute(Plan plan) { fftwf_execute(plan); }
    static void DestroyPlan(Plan plan) { fftwf_destroy_plan(plan); }
    static std::string Version() { return fftwf_version; }
};

/** FFTW and our types for double-precision samples. */
struct DoublePeer {
    using Real = Real64;
    using Complex = Complex64;
    using Plan = fftw_plan;
    static constexpr const char* kType = "64fc";
    static constexpr const char* kPeerFamily = "complex_forward_64";

    static Plan MakePlan(int length, Complex* src, Complex* dst, int sign) {
        return fftw_plan_dft_1d(length, reinterpret_cast<fftw_complex*>(src),
                                reinterpret_cast<fftw_complex*>(dst), sign, FFTW_PATIENT);
    }
    static void Execute(Plan plan) { fftw_execute(plan); }
    static void DestroyPlan(Plan plan) { fftw_destroy_plan(plan); }
    static std::string Version() { return fftw_version; }
};

}  // namespace bench
