/** @file @brief The C program of the header once more, as C++. */

#include "header_c_test.c"  // NOLINT(bugprone-suspicious-include)
