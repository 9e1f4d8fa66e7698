// The slots and the exported dispatch table.  Both are constant-initialised
// data: nothing runs at load, and a primitive called before any selection
// runs its px entry.
#include <pixmoor/runtime.h>
#include <pixmoor/primitives/colour.h>
#include <pixmoor/primitives/mirror.h>
#include <pixmoor/primitives/moments.h>
#include <pixmoor/primitives/signal.h>

#include "runtime/dispatch.h"

// A tier entry as the table's neutral entry type.  Written as a plain cast in
// the initialisers so that the compiler emits the table as static data.
#define PIXMOOR_ENTRY(fn) reinterpret_cast<PrimEntry>(&fn)

namespace pixmoor::dispatch {

#define PIXMOOR_SLOT_AT_PX(name) PIXMOOR_ENTRY(px_##name),
PrimEntry g_slots[kRowCount] = {PIXMOOR_DISPATCH_ROWS(PIXMOOR_SLOT_AT_PX)};
#undef PIXMOOR_SLOT_AT_PX

namespace {

// The library's own entries of each row, apart from the exported table,
// whose entries callers may alter.
#define PIXMOOR_OWN_ENTRIES(name) \
    {PIXMOOR_ENTRY(px_##name), PIXMOOR_ENTRY(m6_##name), PIXMOOR_ENTRY(a6_##name), PIXMOOR_ENTRY(w7_##name)},
const PrimEntry kOwnEntries[kRowCount][4] = {PIXMOOR_DISPATCH_ROWS(PIXMOOR_OWN_ENTRIES)};
#undef PIXMOOR_OWN_ENTRIES

}  // namespace

int OwnTierInSlot(RowIndex row) {
    const PrimEntry held = RelaxedLoad(&g_slots[row]);
    for (int tier = 0; tier < 4; ++tier)
        if (held == kOwnEntries[row][tier]) return tier;
    return -1;
}

PrimEntry OwnEntry(RowIndex row, int tier) { return kOwnEntries[row][tier]; }

}  // namespace pixmoor::dispatch

using pixmoor::dispatch::g_slots;
using namespace pixmoor::dispatch;  // the kRow_ indices

#define PIXMOOR_ROW_ENTRIES(name) \
    {&g_slots[kRow_##name], {PIXMOOR_ENTRY(px_##name), PIXMOOR_ENTRY(m6_##name), PIXMOOR_ENTRY(a6_##name), PIXMOOR_ENTRY(w7_##name)}},

extern "C" {
PrimDispatchRow PrimDispatchTable[PrimDispatchRowCount] = {
    PIXMOOR_DISPATCH_ROWS(PIXMOOR_ROW_ENTRIES)};
int32_t PrimSlotCount = PrimDispatchRowCount;
}
