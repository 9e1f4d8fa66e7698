// Row kernels for processors with wider vectors than the tiers assume.  A
// mirror only moves bytes, so one set serves all four tiers: the drivers
// take it in place of the tier's own set, once per frame, when the
// processor has the instructions.  Their stores go through the cache,
// whatever streaming flag the tier's wrapper derives, for pictures that fit
// the caches of such processors with their source: streaming those past the
// caches makes the copy several times slower and the next reader fetch them
// from memory.  Larger pictures stream on axis 0, where whole pixels move.
#ifndef PIXMOOR_PRIMITIVES_MIRROR_FAST_KERNELS_H
#define PIXMOOR_PRIMITIVES_MIRROR_FAST_KERNELS_H

#include "primitives/mirror/mirror_kernels.h"
#include "runtime/isa.h"

namespace pixmoor::mirror {

#if PIXMOOR_HAVE_X86_TARGETS
// 256-bit and 512-bit integer vectors; the tables are in layout order.
const RowKernels* Avx2Kernels();
const RowKernels* Avx512Kernels();
#endif

// The kernels of `layout` in the widest set the processor allows, or null
// where the tier's own are the widest.
inline const RowKernels* WideKernels(Layout layout) {
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx512)) return &Avx512Kernels()[layout];
    if (isa::Has(isa::kAvx2)) return &Avx2Kernels()[layout];
#endif
    (void)layout;
    return nullptr;
}

// Pictures above this many bytes no longer stay in the caches with their
// source, and the wide copy of axis 0 streams them.
inline constexpr int64_t kWideStreamingBytes = int64_t{16} << 20;

}  // namespace pixmoor::mirror

#endif
