// Plain row kernels, shared by the px and m6 tiers: a pixel at a time.
#include "primitives/mirror/mirror_kernels.h"
#include "primitives/mirror/mirror_pixel_loops.h"

namespace pixmoor::mirror {

const RowKernels kPlainKernels[kLayoutCount] = PIXMOOR_MIRROR_PIXEL_KERNEL_TABLE;

}  // namespace pixmoor::mirror
