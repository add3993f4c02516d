#pragma once

/** @file @brief The manifests that are under version control: a row a kernel. */

#include <map>
#include <string>

namespace qsvgen_test {

/** Values by the names of their columns. */
using ManifestRow = std::map<std::string, std::string>;

/** All rows of a family's manifest by the names of its kernels. */
std::map<std::string, ManifestRow> manifest_of(const std::string& folder);

}  // namespace qsvgen_test
