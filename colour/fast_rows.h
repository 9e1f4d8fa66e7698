// Vector forms of the row loops of the scalar colour roads.  A row kernel
// does a row in vector blocks and returns how many pixels (or pixel pairs)
// it has done: the whole row, or none for a row shorter than one block; the
// caller's scalar loop does what is left.  Every byte is the one the scalar
// arithmetic gives.  Callers pick the
// kernel once a frame, from the instruction-set level in force; no kernel
// (null) means the scalar loop does the whole row.
#ifndef PIXMOOR_COLOUR_FAST_ROWS_H
#define PIXMOOR_COLOUR_FAST_ROWS_H

#include <cstdint>

#include "colour/pixel_stores.h"
#include "runtime/isa.h"

namespace pixmoor {

// Packed 4:2:2 pairs to RGB pixels.  Returns the pairs done.
using PackedToRgbRowKernel = int32_t (*)(const uint8_t* src, uint8_t* out, int32_t pairs);

// Tight 3-byte pixels (blue, green, red) to another RGB format.  Returns
// the pixels done.
using RepackRowKernel = int32_t (*)(const uint8_t* src, uint8_t* out, int32_t pixels);

// One row pair of packed 4:2:2 to the two luma rows and one row of each
// chroma plane.  Returns the pixel pairs done.
using PackedToI420RowKernel = int32_t (*)(const uint8_t* upper, const uint8_t* lower, uint8_t* yUpper,
                                          uint8_t* yLower, uint8_t* uOut, uint8_t* vOut, int32_t pairs);

// Kernels walk a row of `count` units (pixels or pairs) in blocks of
// `block`, from the row's start; where the row is no multiple of the block,
// the last block ends at the row's end and overlaps the one before, whose
// overlapped units it writes again with the same bytes (source and
// destination never overlap).  A row shorter than a block is left to the
// scalar loop.  Returns the start of the block after the one at `at`, or
// `count` when the row is done.
inline int32_t NextBlock(int32_t at, int32_t count, int32_t block) {
    const int32_t next = at + block;
    if (next >= count) return count;
    return next <= count - block ? next : count - block;
}

#if PIXMOOR_HAVE_X86_TARGETS

// The kernels of each unit for a source layout (`lumaHigh` for "UYVY",
// whose lumas stand in the odd bytes) and a store; null for a store the
// unit has no kernel for.
PackedToRgbRowKernel PackedToRgbRowAvx2(bool lumaHigh, RgbStoreKind store);
PackedToRgbRowKernel PackedToRgbRowAvx512(bool lumaHigh, RgbStoreKind store);
RepackRowKernel RepackBgrRowAvx2(RgbStoreKind store);
// The 16-bit stores only: for "RG32" a 512-bit row, which needs a dword
// permutation across the whole vector, measured slower here than the
// 256-bit one.
RepackRowKernel RepackBgrRowAvx512(RgbStoreKind store);
PackedToI420RowKernel PackedToI420RowPairAvx2(bool lumaHigh);
PackedToI420RowKernel PackedToI420RowPairAvx512(bool lumaHigh);

#endif

// The widest kernel the level in force allows.
inline PackedToRgbRowKernel FastPackedToRgbRow(bool lumaHigh, RgbStoreKind store) {
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx512)) return PackedToRgbRowAvx512(lumaHigh, store);
    if (isa::Has(isa::kAvx2)) return PackedToRgbRowAvx2(lumaHigh, store);
#endif
    (void)lumaHigh, (void)store;
    return nullptr;
}

inline RepackRowKernel FastRepackRow(RgbStoreKind store) {
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx512))
        if (const RepackRowKernel row = RepackBgrRowAvx512(store)) return row;
    if (isa::Has(isa::kAvx2)) return RepackBgrRowAvx2(store);
#endif
    (void)store;
    return nullptr;
}

inline PackedToI420RowKernel FastPackedToI420RowPair(bool lumaHigh) {
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx512)) return PackedToI420RowPairAvx512(lumaHigh);
    if (isa::Has(isa::kAvx2)) return PackedToI420RowPairAvx2(lumaHigh);
#endif
    (void)lumaHigh;
    return nullptr;
}

}  // namespace pixmoor

#endif
