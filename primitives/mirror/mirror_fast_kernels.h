// Row kernels for processors with wider vectors than the tiers assume.  A
// mirror only moves bytes, so one set serves all four tiers: the drivers
// take it in place of the tier's own set, once per frame, when the
// processor has the instructions.  These kernels store through the cache
// whatever streaming flag the tier's wrapper derives: a frame of video fits
// the caches of such processors, where streaming it past them makes the
// copy several times slower and the next reader fetch it from memory.
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

// The kernels of `layout` that the drivers run for a tier: the widest set the
// processor allows, or the tier's own.
inline const RowKernels& KernelsFor(const RowKernels* tierKernels, Layout layout) {
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx512)) return Avx512Kernels()[layout];
    if (isa::Has(isa::kAvx2)) return Avx2Kernels()[layout];
#endif
    return tierKernels[layout];
}

}  // namespace pixmoor::mirror

#endif
