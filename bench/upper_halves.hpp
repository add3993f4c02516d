#pragma once

namespace bench {

/**
 * Whether upper halves of vector registers are in use: code that does not know them, as that of the
 * callers of a library, is slowed then. False where the processor cannot tell.
 */
bool AreUpperHalvesInUse();

/** Clears them, so that no party pays for what the one before left. */
void ClearUpperHalves();

}  // namespace bench
