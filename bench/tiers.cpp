#include "tiers.h"

#include <pixmoor/pixmoor.h>

namespace bench {

const char* const kTierNames[4] = {"px", "m6", "a6", "w7"};

std::string SelectedTierName() {
#if PIXMOOR_BENCH_HAVE_TIER_SELECTION
    PrimSelectBestTier();
    int32_t tier = PrimGetTier();
    return tier >= 0 && tier < 4 ? kTierNames[tier] : "?";
#else
    return "";
#endif
}

}  // namespace bench
