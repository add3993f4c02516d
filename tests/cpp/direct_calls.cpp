/** @file @brief Functions that call a transform of a fixed length and do nothing else, for the test
 * that reads their machine code. Each is named after the kernel that it is to call. */

#include <array>
#include <complex>
#include <span>

#include "qsvgen.hpp"

namespace {

template <class T, std::size_t Size>
using In = std::span<const T, Size>;
template <class T, std::size_t Size>
using Out = std::span<T, Size>;
using Single = std::complex<float>;
using Double = std::complex<double>;

}  // namespace

extern "C" {

QsvStatus call_qsvgDFTFwd_CToC_15_32fc(In<Single, 15> x, Out<Single, 15> y) {
    return qsvgen::dft<15>(x, y);
}
QsvStatus call_qsvgDFTInv_CToC_64_64fc(In<Double, 64> x, Out<Double, 64> y) {
    return qsvgen::inverse_dft<64>(x, y, qsvgen::Scale::inv_by_n);
}
QsvStatus call_qsvgDFTFwd_RToCCS_16_32f(In<float, 16> x, Out<float, 18> y) {
    return qsvgen::real_dft<16>(x, y, qsvgen::ccs);
}
QsvStatus call_qsvgDFTFwd_RToPack_2_64f(In<double, 2> x, Out<double, 2> y) {
    return qsvgen::real_dft<2>(x, y, qsvgen::pack);
}
QsvStatus call_qsvgDFTInv_PermToR_60_32f(In<float, 60> x, Out<float, 60> y) {
    return qsvgen::inverse_real_dft<60>(x, y, qsvgen::perm);
}
QsvStatus call_qsvgDFTInv_CCSToR_7_64f(In<double, 8> x, Out<double, 7> y, qsvgen::Scale scale) {
    return qsvgen::inverse_real_dft<7>(x, y, qsvgen::ccs, scale);
}
QsvStatus call_qsvgHartley_47_64f(In<double, 47> x, Out<double, 47> y) {
    return qsvgen::hartley<47>(x, y);
}
QsvStatus call_qsvgWHT_6_32f(In<float, 64> x, Out<float, 64> y) {
    return qsvgen::walsh_hadamard<6>(x, y);
}
QsvStatus call_qsvgWHT_10_64f(In<double, 1024> x, Out<double, 1024> y,
                              qsvgen::WalshHadamardWork<double, 10>& work) {
    return qsvgen::walsh_hadamard<10>(x, y, work);
}
// What most programs have.
void call_qsvgDFTFwd_CToC_31_64fc(const std::array<Double, 31>& x, std::array<Double, 31>& y) {
    qsvgen::dft<31>(x, y);
}
void call_qsvgDFTFwd_CToC_8_32fc(Single (&x)[8]) {
    qsvgen::dft<8>(x, x);
}

}  // extern "C"
