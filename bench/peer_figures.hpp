#pragma once

#include <map>
#include <string>

namespace bench {

/**
 * By length, the time of the best of all peers as a share of the packaged FFTW's time. Throws
 * std::runtime_error where the file does not tell it for any length of the family.
 */
std::map<int, double> BestPeerShares(const std::string& path, const std::string& family);

/**
 * By order, the time of the textbook loop in SSE2 arithmetic as a multiple of the specialised
 * library's time. Throws as BestPeerShares does.
 */
std::map<int, double> SpecialisedRatios(const std::string& path, const std::string& family);

}  // namespace bench
