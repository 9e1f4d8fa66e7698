// Fills the rows whose families have not been built yet with stand-in
// entries, so that selection can succeed while a RuntimeStateGuard holds the
// real table.  Rows that have entries are left alone.
#ifndef PIXMOOR_TESTS_RUNTIME_COMPLETE_TABLE_H
#define PIXMOOR_TESTS_RUNTIME_COMPLETE_TABLE_H

#include <pixmoor/runtime.h>

namespace pixmoor_test {

inline void StandInPx(void) {}
inline void StandInM6(void) {}
inline void StandInA6(void) {}
inline void StandInW7(void) {}

inline const PrimEntry kStandIns[4] = {StandInPx, StandInM6, StandInA6, StandInW7};

// True if the row has no entry in any tier.
inline bool RowIsAbsent(const PrimDispatchRow& row) {
    return row.entries[0] == nullptr && row.entries[1] == nullptr && row.entries[2] == nullptr &&
           row.entries[3] == nullptr;
}

inline void CompleteDispatchTable() {
    for (auto& row : PrimDispatchTable)
        if (RowIsAbsent(row))
            for (int tier = 0; tier < 4; ++tier) row.entries[tier] = kStandIns[tier];
}

}  // namespace pixmoor_test

#endif
