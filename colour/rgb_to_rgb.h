// RGB to RGB: four classes that copy a picture of one format, turning it over
// if asked, and three that repack 3-byte pixels into another RGB format.
#ifndef PIXMOOR_COLOUR_RGB_TO_RGB_H
#define PIXMOOR_COLOUR_RGB_TO_RGB_H

#include "colour/pixel_stores.h"
#include "colour/transform_classes.h"

namespace pixmoor {

// Same orientation: one tight block of destBufferSize bytes, the pitch
// unused.  Otherwise the rows are copied from the last one up, each to the
// next destination row `destPitch` bytes on, with no default for 0.
template <uint32_t FCC>
void RgbCopyRoutine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);

// 3-byte pixels (blue, green, red) into the store's format, row by row.
template <class Store>
void Rgb24RepackRoutine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);

template <uint32_t FCC>
using RgbCopyLeaf = CColorXFormRoutedLeaf<CColorXFormToRGB<FCC>, kRgbNatural, RgbCopyRoutine<FCC>>;

template <class Store>
using Rgb24RepackLeaf =
    CColorXFormRoutedLeaf<CColorXFormToRGB<Store::kDestFCC>, kRgbNatural, Rgb24RepackRoutine<Store>>;

}  // namespace pixmoor

#define PIXMOOR_RGB_LEAF(name, base)                                 \
    class name : public pixmoor::base {                              \
    public:                                                          \
        using CColorXFormRoutedLeaf::CColorXFormRoutedLeaf;          \
    }

PIXMOOR_RGB_LEAF(CColorXFormRG24ToRG24, RgbCopyLeaf<FCC_RG24>);
PIXMOOR_RGB_LEAF(CColorXFormRG32ToRG32, RgbCopyLeaf<FCC_RG32>);
PIXMOOR_RGB_LEAF(CColorXFormRG55ToRG55, RgbCopyLeaf<FCC_RG55>);
PIXMOOR_RGB_LEAF(CColorXFormRG56ToRG56, RgbCopyLeaf<FCC_RG56>);
PIXMOOR_RGB_LEAF(CColorXFormRG24ToRG32, Rgb24RepackLeaf<pixmoor::StoreBgr32>);
PIXMOOR_RGB_LEAF(CColorXFormRG24ToRG55, Rgb24RepackLeaf<pixmoor::StoreRgb555>);
PIXMOOR_RGB_LEAF(CColorXFormRG24ToRG56, Rgb24RepackLeaf<pixmoor::StoreRgb565>);

#undef PIXMOOR_RGB_LEAF

#endif
