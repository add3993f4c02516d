#pragma once

/**
 * @file
 * @brief Where the values of a half spectrum stand in an array of real elements.
 *
 *     CCS   R0 0 R1 I1 ...        and for even N  R[N/2] 0
 *     Pack  R0 R1 I1 ...          and for even N  R[N/2]
 *     Perm  R0 R[N/2] R1 I1 ...   for even N; as Pack for odd N
 */

#include <string>

namespace dft_real {

enum class Layout { CCS, Pack, Perm };

inline constexpr Layout kLayouts[] = {Layout::CCS, Layout::Pack, Layout::Perm};

/** "CCS", as in the names of the kernels. */
std::string to_string(Layout layout);

/** Number of elements. */
int array_length(Layout layout, int N);

/** Element that holds the real part of bin k, 0 to floor(N/2). */
int real_element(Layout layout, int N, int k);
/** Element that holds its imaginary part; of bins 0 and N/2, which have none, that of CCS's zero.
 */
int imaginary_element(Layout layout, int N, int k);

/** Whether bin k has an imaginary part. */
inline bool is_complex(int N, int k) {
    return k > 0 && 2 * k < N;
}

}  // namespace dft_real
