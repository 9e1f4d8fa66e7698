// The code tiers as the benchmark names them, the tier that selection picks
// on this machine, and forcing a tier for the colour transforms.
#ifndef PIXMOOR_BENCH_TIERS_H
#define PIXMOOR_BENCH_TIERS_H

#include <string>

namespace bench {

extern const char* const kTierNames[4];  // px, m6, a6, w7, in tier order

// Runs PrimSelectBestTier and names the tier it settles on; empty when this
// build has no tier selection to ask.
std::string SelectedTierName();

// Forces `tier` through PrimSelectTier and makes sure that the slots the
// colour transforms call through (rows 11, 12, 13, 16 and 17) now hold that
// tier's entries; throws Unavailable if they don't.
void ForceTier(int tier);

}  // namespace bench

#endif
