#pragma once

/** @file @brief The table that the operations of the DCT-IV's bodies are held to. */

namespace dct4_test {

struct BodyCounts {
    int rule;
    int sums_and_differences;
    int products;
};

inline constexpr BodyCounts kAnalyses[] = {{1, 1, 0},   {2, 6, 2},    {3, 24, 12},
                                           {4, 68, 32}, {5, 184, 96}, {6, 448, 224}};
inline constexpr BodyCounts kSyntheses[] = {{1, 2, 4},   {2, 10, 10},   {3, 32, 28},
                                            {4, 88, 72}, {5, 224, 176}, {6, 512, 352}};
inline constexpr BodyCounts kDfts[] = {
    {1, 6, 4}, {2, 22, 12}, {3, 66, 32}, {4, 176, 96}, {5, 440, 224}};

struct InlineCounts {
    int rule;
    int sums;
    int differences;
    int products;
};

inline constexpr InlineCounts kInlines[] = {
    {1, 1, 1, 4}, {2, 5, 7, 8}, {3, 16, 16, 24}, {4, 44, 44, 64}, {5, 108, 108, 144}};

}  // namespace dct4_test
