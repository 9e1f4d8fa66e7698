// Tier selection: the waterfall of tiers to try, the filling of the slots
// and the message shown when no tier fills them all.
#include <pixmoor/runtime.h>

#include <cstring>

#include "runtime/dispatch.h"
#include "runtime/platform.h"

namespace {

constexpr uint32_t kIconHand = 16;  // the hand icon, with a lone OK button

const char kBestTierFailure[] = " No PRIM matching to examined CPU was found during the Waterfall procedure";
const char kTierFailure[] = " No prim matching to CPU was found during the Waterfall";

char g_captionText[] = "Set prim library error";

// Beep, then the message box with the text in a cleared 256-byte buffer and
// the caption that PrimErrorCaption points to.
int32_t ReportNoTier(const char* text) {
    char message[256];
    std::memset(message, 0, sizeof message);
    std::memcpy(message, text, std::strlen(text) + 1);  // both texts are far shorter
    const PrimPlatform& platform = pixmoor::platform::Current();
    platform.messageBeep(kIconHand);
    platform.messageBox(message, PrimErrorCaption, kIconHand);
    return 0;
}

// Tries the tiers of the waterfall row of `tier` in order; the first column
// that fills every slot becomes the current tier.
int32_t RunWaterfall(int32_t tier, const char* failureText) {
    if (PrimSlotCount < 1 || tier < 0 || tier >= PrimTierEnd) return ReportNoTier(failureText);
    for (const int32_t column : PrimWaterfallTable[tier]) {
        if (column >= PrimTierEnd) break;
        if (PrimFillSlots(column) == 1) {
            pixmoor::dispatch::RelaxedStore(&PrimCurrentTier, column);
            return 1;
        }
    }
    return ReportNoTier(failureText);
}

}  // namespace

extern "C" {

// Row t lists the tiers to try when tier t is asked for, best first, closed
// by the end marker.
const int32_t PrimWaterfallTable[4][5] = {
    {PrimTierPx, PrimTierEnd, 0, 0, 0},
    {PrimTierM6, PrimTierPx, PrimTierEnd, 0, 0},
    {PrimTierA6, PrimTierM6, PrimTierPx, PrimTierEnd, 0},
    {PrimTierW7, PrimTierA6, PrimTierM6, PrimTierPx, PrimTierEnd},
};

const char* PrimErrorCaption = g_captionText;

// Stores the column's entry of each row in the row's slot, from row 0 on.
// An absent entry stops the walk: the slots written so far stay written and
// the next tier of the waterfall overwrites them.  A column outside the four
// tiers has no entries at all.  The walk never goes past the table's end,
// whatever PrimSlotCount says.
int32_t PrimFillSlots(int32_t column) {
    if (PrimSlotCount < 1) return 1;
    if (column < 0 || column >= PrimTierEnd) return 0;
    const int32_t rows = PrimSlotCount < PrimDispatchRowCount ? PrimSlotCount : PrimDispatchRowCount;
    for (int32_t row = 0; row < rows; ++row) {
        const PrimEntry entry = PrimDispatchTable[row].entries[column];
        if (entry == nullptr) return 0;
        pixmoor::dispatch::RelaxedStore(PrimDispatchTable[row].slot, entry);
    }
    return 1;
}

int32_t PrimSelectBestTier(void) { return RunWaterfall(PrimDetectTier(), kBestTierFailure); }

// The request is not checked against the processor.
int32_t PrimSelectTier(int32_t tier) { return RunWaterfall(tier, kTierFailure); }

}  // extern "C"
