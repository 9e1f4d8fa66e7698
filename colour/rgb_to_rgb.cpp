// The copying and repacking routines of the RGB to RGB roads.
#include "colour/rgb_to_rgb.h"

#include <cstring>

#include "colour/block_copy.h"
#include "colour/repack_rows.h"
#include "colour/row_placement.h"

namespace pixmoor {

template <uint32_t FCC>
void RgbCopyRoutine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    const auto* t = static_cast<const CColorXFormToRGB<FCC>*>(xform);
    const int32_t lineSize = t->destLineSize;
    if (!t->Flips()) {
        CopyBlock(dst, src, static_cast<uint32_t>(t->destBufferSize));
        return;
    }
    // The pitch is taken as it stands: 0 lays every row on the first one,
    // which ends up holding the source's first row.
    const int32_t pitch = static_cast<int32_t>(destPitch);
    const uint8_t* in = Step(src, WrapSub(t->destBufferSize, lineSize));
    for (int32_t row = 0; row < t->size.cy; ++row) {
        std::memcpy(dst, in, static_cast<uint32_t>(lineSize));
        in = Step(in, WrapSub(0, lineSize));
        dst = Step(dst, pitch);
    }
}

template <class Store>
void Rgb24RepackRoutine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    const auto* t = static_cast<const CColorXFormToRGB<Store::kDestFCC>*>(xform);
    const RowPlacement rows = PlaceRows(dst, destPitch, t->destLineSize, t->size.cy, t->Flips());
    RepackBgrRows<Store>(src, rows.start, t->size.cx, t->size.cy, rows.gap);
}

template void RgbCopyRoutine<FCC_RG24>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void RgbCopyRoutine<FCC_RG32>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void RgbCopyRoutine<FCC_RG55>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void RgbCopyRoutine<FCC_RG56>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void Rgb24RepackRoutine<StoreBgr32>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void Rgb24RepackRoutine<StoreRgb555>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void Rgb24RepackRoutine<StoreRgb565>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);

}  // namespace pixmoor
