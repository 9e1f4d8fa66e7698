// Vector forms of the row loops of the scalar colour roads.  Each entry
// does the whole blocks at the start of a row and returns how many pixels
// (or pixel pairs) it has done; the caller's scalar loop does the rest, so
// every byte is the one the scalar arithmetic gives.  Callers choose with
// isa::Has once a frame.
#ifndef PIXMOOR_COLOUR_FAST_ROWS_H
#define PIXMOOR_COLOUR_FAST_ROWS_H

#include <cstdint>

#include "colour/pixel_stores.h"
#include "runtime/isa.h"

namespace pixmoor {

#if PIXMOOR_HAVE_X86_TARGETS

// Packed 4:2:2 pairs to RGB pixels; `lumaHigh` for "UYVY", whose lumas
// stand in the odd bytes.  Returns the pairs done.
int32_t PackedToRgbRowAvx2(const uint8_t* src, uint8_t* out, int32_t pairs, bool lumaHigh, RgbStoreKind store);
int32_t PackedToRgbRowAvx512(const uint8_t* src, uint8_t* out, int32_t pairs, bool lumaHigh, RgbStoreKind store);

// Tight 3-byte pixels (blue, green, red) to "RG32", "RG55" or "RG56"
// pixels.  Returns the pixels done.  (A 512-bit form of this row, which
// needs a dword permutation across the whole vector, measured slower here.)
int32_t RepackBgrRowAvx2(const uint8_t* src, uint8_t* out, int32_t pixels, RgbStoreKind store);

// One row pair of packed 4:2:2 to the two luma rows and one row of each
// chroma plane.  Returns the pixel pairs done.
int32_t PackedToI420RowPairAvx2(const uint8_t* upper, const uint8_t* lower, uint8_t* yUpper, uint8_t* yLower,
                                uint8_t* uOut, uint8_t* vOut, int32_t pairs, bool lumaHigh);

#endif

// The widest form the processor offers, or 0 done where none applies.
inline int32_t PackedToRgbRowFast(const uint8_t* src, uint8_t* out, int32_t pairs, bool lumaHigh,
                                  RgbStoreKind store) {
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx512)) return PackedToRgbRowAvx512(src, out, pairs, lumaHigh, store);
    if (isa::Has(isa::kAvx2)) return PackedToRgbRowAvx2(src, out, pairs, lumaHigh, store);
#endif
    (void)src, (void)out, (void)pairs, (void)lumaHigh, (void)store;
    return 0;
}

inline int32_t RepackBgrRowFast(const uint8_t* src, uint8_t* out, int32_t pixels, RgbStoreKind store) {
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx2)) return RepackBgrRowAvx2(src, out, pixels, store);
#endif
    (void)src, (void)out, (void)pixels, (void)store;
    return 0;
}

inline int32_t PackedToI420RowPairFast(const uint8_t* upper, const uint8_t* lower, uint8_t* yUpper, uint8_t* yLower,
                                       uint8_t* uOut, uint8_t* vOut, int32_t pairs, bool lumaHigh) {
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx2)) return PackedToI420RowPairAvx2(upper, lower, yUpper, yLower, uOut, vOut, pairs, lumaHigh);
#endif
    (void)upper, (void)lower, (void)yUpper, (void)yLower, (void)uOut, (void)vOut, (void)pairs, (void)lumaHigh;
    return 0;
}

}  // namespace pixmoor

#endif
