// Dispatch slots and stubs.
//
// Each row of the dispatch table fills one slot: a pointer-sized word that
// holds the entry of the selected tier.  The slots are read and written as
// atomic words with relaxed order: selection may rewrite them while other
// threads call through them, and every store writes a complete entry.
//
// A stub bears the primitive's plain name and is a tail call through its
// slot: one load and one indirect jump, no test on the call path.
#ifndef PIXMOOR_RUNTIME_DISPATCH_H
#define PIXMOOR_RUNTIME_DISPATCH_H

#include <pixmoor/runtime.h>

#include "runtime/dispatch_rows.h"

namespace pixmoor::dispatch {

#define PIXMOOR_DISPATCH_ROW_INDEX(name) kRow_##name,
enum RowIndex : int32_t {
    PIXMOOR_DISPATCH_ROWS(PIXMOOR_DISPATCH_ROW_INDEX)
    kRowCount
};
#undef PIXMOOR_DISPATCH_ROW_INDEX
static_assert(static_cast<int32_t>(kRowCount) == static_cast<int32_t>(PrimDispatchRowCount), "one slot per dispatch row");

// The slots, one per row in row order; each starts at its row's px entry.
extern PrimEntry g_slots[kRowCount];

// The tier (0 px, 1 m6, 2 a6, 3 w7) whose library entry slot `row` holds
// now; -1 when anything else stands there (a caller's or a test's
// function).  The slot is read once: a routine that calls that tier's entry
// for every part of a frame runs one tier for the whole frame, even if
// selection rewrites the slot meanwhile.
int OwnTierInSlot(RowIndex row);

// The library's own entry of `row` for `tier` (0 to 3), whatever the slot
// and the exported table hold.
PrimEntry OwnEntry(RowIndex row, int tier);

// The entry that slot `row` holds now when it is one of the library's own,
// typed as the row's member (`Fn`, e.g. decltype(&px_ImgRGBToYUV420));
// null otherwise.
template <class Fn>
inline Fn OwnEntryInSlot(RowIndex row) {
    const int tier = OwnTierInSlot(row);
    return tier < 0 ? nullptr : reinterpret_cast<Fn>(OwnEntry(row, tier));
}

// Relaxed atomic access to a word of shared runtime state: a slot, or the
// current tier.
#if defined(_MSC_VER) && !defined(__clang__)
// Aligned word-sized accesses are single instructions on this compiler's
// targets; volatile keeps each one a real load or store.
template <typename T>
inline T RelaxedLoad(const T* word) { return *static_cast<const volatile T*>(word); }
template <typename T>
inline void RelaxedStore(T* word, T value) { *static_cast<volatile T*>(word) = value; }
#else
template <typename T>
inline T RelaxedLoad(const T* word) { return __atomic_load_n(word, __ATOMIC_RELAXED); }
template <typename T>
inline void RelaxedStore(T* word, T value) { __atomic_store_n(word, value, __ATOMIC_RELAXED); }
#endif

}  // namespace pixmoor::dispatch

// Defines the plain name of the member of dispatch row `row` as a tail call
// through the row's slot, e.g.
//   PIXMOOR_DISPATCH_STUB(2, void, SigFree, (void* block), (block))
#define PIXMOOR_DISPATCH_STUB(row, ret, name, params, args)                                     \
    static_assert((row) == ::pixmoor::dispatch::kRow_##name, #name " stands in another row");   \
    extern "C" ret name params {                                                                 \
        using Entry = ret(*) params;                                                             \
        return reinterpret_cast<Entry>(::pixmoor::dispatch::RelaxedLoad(&::pixmoor::dispatch::g_slots[row])) args; \
    }

#endif
