// Wrappers of the 4:2:2 members: argument checks in the fixed order, step
// derivation for the compact forms, then the line driver (or, for a compact
// frame without gaps, the one-long-line driver) with the row kernels of the
// caller's tier.  A step form and its compact form give the same bytes.
#include <pixmoor/primitives/colour/yuv422.h>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/tier_entries.h"
#include "primitives/colour/wrapper_checks.h"
#include "primitives/colour/yuv422_driver.h"
#include "primitives/colour/yuv422_layouts.h"
#include "primitives/colour/yuv422_rows.h"
#include "runtime/tier_call.h"

namespace pixmoor::colour {
namespace {

// Runs the driver only when the checks passed; a failed call writes nothing.
template <class Drive>
PrimStatus Checked(PrimStatus status, Drive drive) {
    if (status == PrimStatusOk) drive();
    return status;
}

// The layouts of the arguments.
Yuv422PlanesOut OutPlanes(uint8_t* const p[3], const int32_t s[3]) {
    return Yuv422PlanesOut{p[0], p[1], p[2], s[0], s[1], s[2]};
}
Yuv422PlanesIn InPlanes(const uint8_t* const p[3], const int32_t s[3]) {
    return Yuv422PlanesIn{p[0], p[1], p[2], s[0], s[1], s[2]};
}
RgbPlanesIn InRgbPlanes(const uint8_t* const p[3], int32_t step) {
    return RgbPlanesIn{p[0], p[1], p[2], step};
}
RgbPlanesOut OutRgbPlanes(uint8_t* const p[3], int32_t step) {
    return RgbPlanesOut{p[0], p[1], p[2], step};
}

// Steps of compact 4:2:2 planes: luma width, chroma ceil(width / 2).
struct CompactYuv422Steps {
    int32_t steps[3];
    explicit CompactYuv422Steps(int32_t width)
        : steps{CompactPlaneStep(width), CompactChromaStep(width), CompactChromaStep(width)} {}
};

PrimStatus Yuv422ToRgb(const Yuv422Rows& rows, const uint8_t* src, int32_t srcStep, uint8_t* dst,
                       int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckPackedToPacked(src, srcStep, dst, dstStep, width, height), [&] {
        const Packed422In in{src, srcStep};
        const PackedRgbOut out{dst, dstStep};
        if (width == 1)
            DriveSingleColumn(in, out, height);
        else
            DriveLines(in, out, width, height, rows.packedToRgb, rows.finish);
    });
}

PrimStatus RgbToYuv422PlanesStep(const Yuv422Rows& rows, const uint8_t* src, int32_t srcStep,
                                 uint8_t* const dst[3], const int32_t dstStep[3], int32_t width,
                                 int32_t height) {
    return Checked(CheckPackedToPlanes(src, srcStep, dst, dstStep, width, height), [&] {
        DriveLines(PackedRgbIn{src, srcStep}, OutPlanes(dst, dstStep), width, height, rows.rgbToPlanes,
                   rows.finish);
    });
}

PrimStatus RgbToYuv422Planes(const Yuv422Rows& rows, const uint8_t* src, uint8_t* const dst[3],
                             int32_t width, int32_t height) {
    return Checked(CheckPackedToPlanesCompact(src, dst, width, height), [&] {
        DriveCompact(PackedRgbIn{src, CompactPackedStep(width, 3)},
                     OutPlanes(dst, CompactYuv422Steps(width).steps), width, height, rows.rgbToPlanes,
                     rows.finish);
    });
}

PrimStatus Yuv422PlanesToRgbStep(const Yuv422Rows& rows, const uint8_t* const src[3],
                                 const int32_t srcStep[3], uint8_t* dst, int32_t dstStep,
                                 int32_t width, int32_t height) {
    return Checked(CheckPlanesToPacked(src, srcStep, dst, dstStep, width, height), [&] {
        DriveLines(InPlanes(src, srcStep), PackedRgbOut{dst, dstStep}, width, height, rows.planesToRgb,
                   rows.finish);
    });
}

PrimStatus Yuv422PlanesToRgb(const Yuv422Rows& rows, const uint8_t* const src[3], uint8_t* dst,
                             int32_t width, int32_t height) {
    return Checked(CheckPlanesToPackedCompact(src, dst, width, height), [&] {
        DriveCompact(InPlanes(src, CompactYuv422Steps(width).steps),
                     PackedRgbOut{dst, CompactPackedStep(width, 3)}, width, height, rows.planesToRgb,
                     rows.finish);
    });
}

PrimStatus RgbPlanesToYuv422PlanesStep(const Yuv422Rows& rows, const uint8_t* const src[3],
                                       int32_t srcStep, uint8_t* const dst[3],
                                       const int32_t dstStep[3], int32_t width, int32_t height) {
    return Checked(CheckPlanesToPlanes(src, srcStep, dst, dstStep, width, height), [&] {
        DriveLines(InRgbPlanes(src, srcStep), OutPlanes(dst, dstStep), width, height,
                   rows.rgbPlanesToPlanes, rows.finish);
    });
}

PrimStatus RgbPlanesToYuv422Planes(const Yuv422Rows& rows, const uint8_t* const src[3],
                                   uint8_t* const dst[3], int32_t width, int32_t height) {
    return Checked(CheckPlanesToPlanesCompact(src, dst, width, height), [&] {
        DriveCompact(InRgbPlanes(src, CompactPlaneStep(width)),
                     OutPlanes(dst, CompactYuv422Steps(width).steps), width, height,
                     rows.rgbPlanesToPlanes, rows.finish);
    });
}

PrimStatus Yuv422PlanesToRgbPlanesStep(const Yuv422Rows& rows, const uint8_t* const src[3],
                                       const int32_t srcStep[3], uint8_t* const dst[3],
                                       int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckPlanesToPlanes(src, srcStep, dst, dstStep, width, height), [&] {
        DriveLines(InPlanes(src, srcStep), OutRgbPlanes(dst, dstStep), width, height,
                   rows.planesToRgbPlanes, rows.finish);
    });
}

PrimStatus Yuv422PlanesToRgbPlanes(const Yuv422Rows& rows, const uint8_t* const src[3],
                                   uint8_t* const dst[3], int32_t width, int32_t height) {
    return Checked(CheckPlanesToPlanesCompact(src, dst, width, height), [&] {
        DriveCompact(InPlanes(src, CompactYuv422Steps(width).steps),
                     OutRgbPlanes(dst, CompactPlaneStep(width)), width, height, rows.planesToRgbPlanes,
                     rows.finish);
    });
}

}  // namespace
}  // namespace pixmoor::colour

using namespace pixmoor::colour;

// Parameter lists of the member shapes, and their argument lists.
#define PIXMOOR_422_PACKED_TO_PACKED \
    (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, int32_t width, int32_t height)
#define PIXMOOR_422_PACKED_TO_PLANES                                                        \
    (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], const int32_t dstStep[3], \
     int32_t width, int32_t height)
#define PIXMOOR_422_PACKED_TO_PLANES_COMPACT \
    (const uint8_t* src, uint8_t* const dst[3], int32_t width, int32_t height)
#define PIXMOOR_422_PLANES_TO_PACKED                                                            \
    (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst, int32_t dstStep, \
     int32_t width, int32_t height)
#define PIXMOOR_422_PLANES_TO_PACKED_COMPACT \
    (const uint8_t* const src[3], uint8_t* dst, int32_t width, int32_t height)
#define PIXMOOR_422_FULL_PLANES_TO_PLANES                                                        \
    (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], const int32_t dstStep[3], \
     int32_t width, int32_t height)
#define PIXMOOR_422_PLANES_TO_FULL_PLANES                                                        \
    (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3], int32_t dstStep, \
     int32_t width, int32_t height)
#define PIXMOOR_422_PLANES_TO_PLANES_COMPACT \
    (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width, int32_t height)

#define PIXMOOR_422_STEP_ARGS src, srcStep, dst, dstStep, width, height
#define PIXMOOR_422_COMPACT_ARGS src, dst, width, height

// The four tier entries of a member, and its plain name when it stands in
// no dispatch row.
#define PIXMOOR_422_TIER_ENTRIES(name, impl, params, ...) \
    PIXMOOR_COLOUR_TIER_ENTRIES(name, impl, kYuv422Rows, params, (tierRows, __VA_ARGS__))
#define PIXMOOR_422_MEMBER(name, impl, params, ...)             \
    PIXMOOR_422_TIER_ENTRIES(name, impl, params, __VA_ARGS__) \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, name, params, (__VA_ARGS__))

// ImgYUV422ToRGB is dispatch row 15: its plain name is a stub of the runtime.
PIXMOOR_422_TIER_ENTRIES(ImgYUV422ToRGB, Yuv422ToRgb, PIXMOOR_422_PACKED_TO_PACKED, PIXMOOR_422_STEP_ARGS)

PIXMOOR_422_MEMBER(ImgRGBToYUV422Planes_Step, RgbToYuv422PlanesStep, PIXMOOR_422_PACKED_TO_PLANES,
                   PIXMOOR_422_STEP_ARGS)
PIXMOOR_422_MEMBER(ImgRGBToYUV422Planes, RgbToYuv422Planes, PIXMOOR_422_PACKED_TO_PLANES_COMPACT,
                   PIXMOOR_422_COMPACT_ARGS)
PIXMOOR_422_MEMBER(ImgYUV422PlanesToRGB_Step, Yuv422PlanesToRgbStep, PIXMOOR_422_PLANES_TO_PACKED,
                   PIXMOOR_422_STEP_ARGS)
PIXMOOR_422_MEMBER(ImgYUV422PlanesToRGB, Yuv422PlanesToRgb, PIXMOOR_422_PLANES_TO_PACKED_COMPACT,
                   PIXMOOR_422_COMPACT_ARGS)
PIXMOOR_422_MEMBER(ImgRGBPlanesToYUV422Planes_Step, RgbPlanesToYuv422PlanesStep, PIXMOOR_422_FULL_PLANES_TO_PLANES,
                   PIXMOOR_422_STEP_ARGS)
PIXMOOR_422_MEMBER(ImgRGBPlanesToYUV422Planes, RgbPlanesToYuv422Planes, PIXMOOR_422_PLANES_TO_PLANES_COMPACT,
                   PIXMOOR_422_COMPACT_ARGS)
PIXMOOR_422_MEMBER(ImgYUV422PlanesToRGBPlanes_Step, Yuv422PlanesToRgbPlanesStep, PIXMOOR_422_PLANES_TO_FULL_PLANES,
                   PIXMOOR_422_STEP_ARGS)
PIXMOOR_422_MEMBER(ImgYUV422PlanesToRGBPlanes, Yuv422PlanesToRgbPlanes, PIXMOOR_422_PLANES_TO_PLANES_COMPACT,
                   PIXMOOR_422_COMPACT_ARGS)
