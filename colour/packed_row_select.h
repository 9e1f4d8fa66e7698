// Picks the instance of a vector unit's packed 4:2:2 to RGB row kernel for
// a source layout and a store.  `Row<LumaHigh, Kind>::Run` is the kernel;
// each vector unit instantiates this with its own (unit-local) template.
#ifndef PIXMOOR_COLOUR_PACKED_ROW_SELECT_H
#define PIXMOOR_COLOUR_PACKED_ROW_SELECT_H

#include "colour/fast_rows.h"

namespace pixmoor {

template <template <bool, RgbStoreKind> class Row, bool LumaHigh>
PackedToRgbRowKernel SelectPackedToRgbStore(RgbStoreKind store) {
    switch (store) {
        case RgbStoreKind::kBgr24: return Row<LumaHigh, RgbStoreKind::kBgr24>::Run;
        case RgbStoreKind::kBgr32: return Row<LumaHigh, RgbStoreKind::kBgr32>::Run;
        case RgbStoreKind::kRgb565: return Row<LumaHigh, RgbStoreKind::kRgb565>::Run;
        case RgbStoreKind::kRgb555High: return Row<LumaHigh, RgbStoreKind::kRgb555High>::Run;
        default: return nullptr;  // no packed road stores another layout
    }
}

template <template <bool, RgbStoreKind> class Row>
PackedToRgbRowKernel SelectPackedToRgbRow(bool lumaHigh, RgbStoreKind store) {
    return lumaHigh ? SelectPackedToRgbStore<Row, true>(store) : SelectPackedToRgbStore<Row, false>(store);
}

}  // namespace pixmoor

#endif
