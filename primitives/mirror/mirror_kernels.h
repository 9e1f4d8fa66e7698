// Row kernels of the mirror primitives and the layouts they serve.
//
// A kernel gets pointers and a pixel count and checks nothing.  Every tier
// has one set of four kernels per layout; the drivers pick the set through
// the tier's table.  Pointers are byte pointers: the primitive's elements are
// opaque, only their size matters.
#ifndef PIXMOOR_PRIMITIVES_MIRROR_KERNELS_H
#define PIXMOOR_PRIMITIVES_MIRROR_KERNELS_H

#include <cstdint>

namespace pixmoor::mirror {

struct RowKernels {
    // Axis 0 to a destination: dst pixel j receives src pixel j.  `flag` asks
    // for streaming stores where the tier has them.
    void (*copyRow)(const uint8_t* src, uint8_t* dst, int32_t pixels, int32_t flag);
    // Axes 1 and 2 to a destination: dst pixel j receives src pixel
    // pixels - 1 - j.
    void (*reverseRow)(const uint8_t* src, uint8_t* dst, int32_t pixels, int32_t flag);
    // Axis 0 in place: pixel j of `a` and pixel j of `b` change places.
    void (*swapRows)(uint8_t* a, uint8_t* b, int32_t pixels);
    // Axes 1 and 2 in place: pixel j of `front` and pixel pixels - 1 - j of
    // `back` change places, for j below `pixels`.
    void (*reverseSwap)(uint8_t* front, uint8_t* back, int32_t pixels);
};

// Element width by channel layout.  AC4 layouts move the first three
// channels of a pixel and leave the fourth, alpha, where it is.
enum Layout : int32_t {
    k8uC1, k8uC3, k8uAC4,
    k16uC1, k16uC3, k16uAC4,
    k32sC1, k32sC3, k32sAC4,
    kLayoutCount
};

// How a wrapper derives the streaming flag of a kernel in the w7 tier: from
// the image size, or never.  The other tiers pass 0.
enum FlagRule : int32_t { kFlagNever, kFlagFromSize };

struct LayoutInfo {
    int32_t pixelBytes;
    int32_t stepMask;          // clears the step bits below the element size
    FlagRule copyRowFlag;
    FlagRule reverseRowFlag;
};

//                                 pixel  step      copyRow        reverseRow
inline constexpr LayoutInfo kLayouts[kLayoutCount] = {
    /* 8uC1   */ {1,  ~0, kFlagFromSize, kFlagNever},
    /* 8uC3   */ {3,  ~0, kFlagNever,    kFlagNever},
    /* 8uAC4  */ {4,  ~0, kFlagNever,    kFlagNever},
    /* 16uC1  */ {2,  ~1, kFlagFromSize, kFlagFromSize},
    /* 16uC3  */ {6,  ~1, kFlagFromSize, kFlagFromSize},
    /* 16uAC4 */ {8,  ~1, kFlagNever,    kFlagNever},
    /* 32sC1  */ {4,  ~3, kFlagFromSize, kFlagFromSize},
    /* 32sC3  */ {12, ~3, kFlagFromSize, kFlagFromSize},
    /* 32sAC4 */ {16, ~3, kFlagNever,    kFlagNever},
};

// Kernel sets by layout: plain code (tiers px and m6) and the two vector
// tiers, which differ only in copyRow.
extern const RowKernels kPlainKernels[kLayoutCount];
extern const RowKernels kA6Kernels[kLayoutCount];
extern const RowKernels kW7Kernels[kLayoutCount];

}  // namespace pixmoor::mirror

#endif
