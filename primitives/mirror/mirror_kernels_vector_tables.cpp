// Kernel tables of the a6 and w7 tiers.
#include "primitives/mirror/mirror_kernels.h"

namespace pixmoor::mirror {

// Until the vector kernels stand, the vector tiers run the plain kernels,
// which give the same bytes.
const RowKernels kA6Kernels[kLayoutCount] = {
    kPlainKernels[0], kPlainKernels[1], kPlainKernels[2], kPlainKernels[3], kPlainKernels[4],
    kPlainKernels[5], kPlainKernels[6], kPlainKernels[7], kPlainKernels[8],
};
const RowKernels kW7Kernels[kLayoutCount] = {
    kPlainKernels[0], kPlainKernels[1], kPlainKernels[2], kPlainKernels[3], kPlainKernels[4],
    kPlainKernels[5], kPlainKernels[6], kPlainKernels[7], kPlainKernels[8],
};

}  // namespace pixmoor::mirror
