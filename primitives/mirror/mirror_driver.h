// Argument checks and line walks shared by every mirror member and tier.
#ifndef PIXMOOR_PRIMITIVES_MIRROR_DRIVER_H
#define PIXMOOR_PRIMITIVES_MIRROR_DRIVER_H

#include <pixmoor/primitives/mirror.h>

#include "primitives/mirror/mirror_kernels.h"

namespace pixmoor::mirror {

// What a tier brings to the drivers: its kernel sets, and whether its
// wrappers derive streaming flags from the image size.
struct Tier {
    const RowKernels* kernels;
    bool flagsFromSize;
};

inline constexpr Tier kTierPx = {kPlainKernels, false};
inline constexpr Tier kTierM6 = {kPlainKernels, false};
inline constexpr Tier kTierA6 = {kA6Kernels, false};
inline constexpr Tier kTierW7 = {kW7Kernels, true};

PrimStatus MirrorToDestination(const Tier& tier, Layout layout, const void* src, int32_t srcStep, void* dst,
                               int32_t dstStep, int32_t width, int32_t height, MirrorAxis axis);

PrimStatus MirrorInPlace(const Tier& tier, Layout layout, void* srcDst, int32_t step, int32_t width, int32_t height,
                         MirrorAxis axis);

}  // namespace pixmoor::mirror

#endif
