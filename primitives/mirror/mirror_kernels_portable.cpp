// Row kernels of the a6 and w7 tiers on processors without the 128-bit
// vector set: the plain kernels, which give the same bytes.
#include "primitives/mirror/mirror_vector_support.h"

#if !PIXMOOR_MIRROR_VECTOR_KERNELS

#include "primitives/mirror/mirror_kernels.h"
#include "primitives/mirror/mirror_pixel_loops.h"

namespace pixmoor::mirror {

const RowKernels kA6Kernels[kLayoutCount] = PIXMOOR_MIRROR_PIXEL_KERNEL_TABLE;
const RowKernels kW7Kernels[kLayoutCount] = PIXMOOR_MIRROR_PIXEL_KERNEL_TABLE;

}  // namespace pixmoor::mirror

#endif
