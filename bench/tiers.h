// The code tiers as the benchmark names them, and the tier that selection
// picks on this machine.
#ifndef PIXMOOR_BENCH_TIERS_H
#define PIXMOOR_BENCH_TIERS_H

#include <string>

namespace bench {

extern const char* const kTierNames[4];  // px, m6, a6, w7, in tier order

// Runs PrimSelectBestTier and names the tier it settles on; empty when this
// build has no tier selection to ask.
std::string SelectedTierName();

}  // namespace bench

#endif
