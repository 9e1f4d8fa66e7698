// The row loop of the packed 4:2:2 to RGB roads.
#include "colour/packed_to_rgb.h"

#include "colour/fast_rows.h"
#include "colour/row_placement.h"
#include "colour/yuv_fixed_point.h"

namespace pixmoor {

template <class Layout, class Store, bool HonoursOrientation>
void PackedToRgbRoutine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch) {
    const auto* t = static_cast<const CColorXFormToRGB<Store::kDestFCC>*>(xform);
    int32_t height = t->size.cy;
    int32_t pairs = t->size.cx >> 1;
    const RowPlacement rows =
        PlaceRows(dst, destPitch, t->destLineSize, height, HonoursOrientation && t->Flips());
    // Source rows are contiguous; with no gap between the written rows
    // either, the picture is one long row: the same stores in the same
    // order, one vector call a picture.
    if (rows.gap == 0 && pairs > 0 && height > 1 && int64_t{pairs} * height <= INT32_MAX) {
        pairs *= height;
        height = 1;
    }
    uint8_t* out = rows.start;
    // Whole vector blocks first, where the processor has them; the pairs
    // left over go through the scalar arithmetic below.
    const PackedToRgbRowKernel fast = FastPackedToRgbRow(Layout::kYLeft == 1, Store::kKind);
    for (int32_t row = 0; row < height; ++row) {
        const int32_t done = fast != nullptr ? fast(src, out, pairs) : 0;
        src += 4 * done;
        out += 2 * Store::kBytes * done;
        for (int32_t pair = done; pair < pairs; ++pair) {
            const BgrPair bgr =
                YuvToBgrFixedPoint(src[Layout::kYLeft], src[Layout::kYRight], src[Layout::kU], src[Layout::kV]);
            Store::Put(out, bgr.left.first, bgr.left.second, bgr.left.third);
            Store::Put(out + Store::kBytes, bgr.right.first, bgr.right.second, bgr.right.third);
            src += 4;
            out += 2 * Store::kBytes;
        }
        out = Step(out, rows.gap);
    }
}

template void PackedToRgbRoutine<LayoutYUY2, StoreBgr24, true>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void PackedToRgbRoutine<LayoutUYVY, StoreBgr24, true>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void PackedToRgbRoutine<LayoutYUY2, StoreBgr32, true>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void PackedToRgbRoutine<LayoutUYVY, StoreBgr32, true>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void PackedToRgbRoutine<LayoutYUY2, StoreRgb555High, false>(const CColorXForm*, const uint8_t*, uint8_t*,
                                                                     uint32_t);
template void PackedToRgbRoutine<LayoutUYVY, StoreRgb555High, false>(const CColorXForm*, const uint8_t*, uint8_t*,
                                                                     uint32_t);
template void PackedToRgbRoutine<LayoutYUY2, StoreRgb565, false>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void PackedToRgbRoutine<LayoutUYVY, StoreRgb565, false>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);

}  // namespace pixmoor
