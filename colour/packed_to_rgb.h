// Packed 4:2:2 ("YUY2", "UYVY") to RGB: eight leaf classes that share one
// scalar routine, told apart by where they find Y, U and V and by how they
// store a pixel.
#ifndef PIXMOOR_COLOUR_PACKED_TO_RGB_H
#define PIXMOOR_COLOUR_PACKED_TO_RGB_H

#include "colour/packed_layouts.h"
#include "colour/pixel_stores.h"
#include "colour/transform_classes.h"

namespace pixmoor {

// Converts W/2 pixel pairs a row for H rows.  Source rows are contiguous.
// Only the 24- and 32-bit destinations turn the picture over when the
// orientations differ; the 16-bit ones always write top to bottom.
template <class Layout, class Store, bool HonoursOrientation>
void PackedToRgbRoutine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);

template <class Layout, class Store, bool HonoursOrientation>
using PackedToRgbLeaf = CColorXFormRoutedLeaf<CColorXFormToRGB<Store::kDestFCC>, kYuvNatural,
                                              PackedToRgbRoutine<Layout, Store, HonoursOrientation>>;

}  // namespace pixmoor

#define PIXMOOR_PACKED_TO_RGB_LEAF(name, layout, store, honours)                        \
    class name : public pixmoor::PackedToRgbLeaf<pixmoor::layout, pixmoor::store, honours> { \
    public:                                                                              \
        using CColorXFormRoutedLeaf::CColorXFormRoutedLeaf;                              \
    }

PIXMOOR_PACKED_TO_RGB_LEAF(CColorXFormYUY2ToRG24, LayoutYUY2, StoreBgr24, true);
PIXMOOR_PACKED_TO_RGB_LEAF(CColorXFormUYVYToRG24, LayoutUYVY, StoreBgr24, true);
PIXMOOR_PACKED_TO_RGB_LEAF(CColorXFormYUY2ToRG32, LayoutYUY2, StoreBgr32, true);
PIXMOOR_PACKED_TO_RGB_LEAF(CColorXFormUYVYToRG32, LayoutUYVY, StoreBgr32, true);
PIXMOOR_PACKED_TO_RGB_LEAF(CColorXFormYUY2ToRG55, LayoutYUY2, StoreRgb555High, false);
PIXMOOR_PACKED_TO_RGB_LEAF(CColorXFormUYVYToRG55, LayoutUYVY, StoreRgb555High, false);
PIXMOOR_PACKED_TO_RGB_LEAF(CColorXFormYUY2ToRG56, LayoutYUY2, StoreRgb565, false);
PIXMOOR_PACKED_TO_RGB_LEAF(CColorXFormUYVYToRG56, LayoutUYVY, StoreRgb565, false);

#undef PIXMOOR_PACKED_TO_RGB_LEAF

#endif
