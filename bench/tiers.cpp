#include "tiers.h"

#include <pixmoor/pixmoor.h>

#include "bench_rows.h"

namespace bench {

const char* const kTierNames[4] = {"px", "m6", "a6", "w7"};

#if PIXMOOR_BENCH_HAVE_TIER_SELECTION

std::string SelectedTierName() {
    if (PrimSelectBestTier() != 1) return "none, selection failed";
    int32_t tier = PrimGetTier();
    return tier >= 0 && tier < 4 ? kTierNames[tier] : "?";
}

void ForceTier(int tier) {
    bool selected = PrimSelectTier(tier) == 1;
    for (int row : {11, 12, 13, 16, 17}) {
        const PrimDispatchRow& entry = PrimDispatchTable[row];
        if (!entry.slot || !*entry.slot || *entry.slot != entry.entries[tier])
            throw Unavailable(std::string("PrimSelectTier(") + kTierNames[tier] + ") " +
                              (selected ? "succeeded" : "failed") + " and left row " + std::to_string(row) +
                              " on another entry");
    }
}

#else

std::string SelectedTierName() { return ""; }

void ForceTier(int) { throw Unavailable("this build has no tier selection"); }

#endif

}  // namespace bench
