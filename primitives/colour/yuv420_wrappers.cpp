// Wrappers of the 4:2:0 members: argument checks in the fixed order, step
// derivation for the compact forms, then the shared driver with the row
// kernels of the caller's tier.  A step form and its compact form end in
// the same driver call, so they give the same bytes.
#include <pixmoor/primitives/colour/yuv420.h>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/tier_entries.h"
#include "primitives/colour/wrapper_checks.h"
#include "primitives/colour/yuv420_driver.h"
#include "primitives/colour/yuv420_rows.h"
#include "runtime/tier_call.h"

namespace pixmoor::colour {
namespace {

Yuv420Planes<uint8_t> OutPlanes(uint8_t* const p[3], const int32_t s[3]) {
    return Yuv420Planes<uint8_t>{p[0], p[1], p[2], s[0], s[1], s[2]};
}
Yuv420Planes<const uint8_t> InPlanes(const uint8_t* const p[3], const int32_t s[3]) {
    return Yuv420Planes<const uint8_t>{p[0], p[1], p[2], s[0], s[1], s[2]};
}

// Steps of compact 4:2:0 planes: luma width, chroma ceil(width / 2).
struct CompactYuv420Steps {
    int32_t steps[3];
    explicit CompactYuv420Steps(int32_t width)
        : steps{CompactPlaneStep(width), CompactChromaStep(width), CompactChromaStep(width)} {}
};

// Runs the driver only when the checks passed; a failed call writes nothing.
template <class Drive>
PrimStatus Checked(PrimStatus status, Drive drive) {
    if (status == PrimStatusOk) drive();
    return status;
}

// The drivers of the four members, with the steps already known.

void DriveRgb(const Yuv420Rows& rows, const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
              const int32_t dstStep[3], int32_t width, int32_t height) {
    DriveToYuv420(PackedRgbIn{src, srcStep}, OutPlanes(dst, dstStep), width, height,
                  rows.rgbToYuv420, rows.finish);
}

void DriveRgbPlanes(const Yuv420Rows& rows, const uint8_t* const src[3], int32_t srcStep,
                    uint8_t* const dst[3], const int32_t dstStep[3], int32_t width, int32_t height) {
    DriveToYuv420(RgbPlanesIn{src[0], src[1], src[2], srcStep}, OutPlanes(dst, dstStep), width,
                  height, rows.rgbPlanesToYuv420, rows.finish);
}

void DriveToRgb(const Yuv420Rows& rows, const uint8_t* const src[3], const int32_t srcStep[3],
                uint8_t* dst, int32_t dstStep, int32_t width, int32_t height) {
    DriveFromYuv420(InPlanes(src, srcStep), PackedRgbOut{dst, dstStep}, width, height,
                    rows.yuv420ToRgb, rows.finish);
}

void DriveToRgbPlanes(const Yuv420Rows& rows, const uint8_t* const src[3], const int32_t srcStep[3],
                      uint8_t* const dst[3], int32_t dstStep, int32_t width, int32_t height) {
    DriveFromYuv420(InPlanes(src, srcStep), RgbPlanesOut{dst[0], dst[1], dst[2], dstStep}, width,
                    height, rows.yuv420ToRgbPlanes, rows.finish);
}

// The wrappers: the step form checks and drives; the compact form checks
// and drives with derived steps.

PrimStatus RgbToYuv420Step(const Yuv420Rows& rows, const uint8_t* src, int32_t srcStep,
                           uint8_t* const dst[3], const int32_t dstStep[3], int32_t width,
                           int32_t height) {
    return Checked(CheckPackedToPlanes(src, srcStep, dst, dstStep, width, height),
                   [&] { DriveRgb(rows, src, srcStep, dst, dstStep, width, height); });
}

PrimStatus RgbToYuv420(const Yuv420Rows& rows, const uint8_t* src, uint8_t* const dst[3],
                       int32_t width, int32_t height) {
    return Checked(CheckPackedToPlanesCompact(src, dst, width, height), [&] {
        DriveRgb(rows, src, CompactPackedStep(width, 3), dst, CompactYuv420Steps(width).steps, width,
                 height);
    });
}

PrimStatus RgbPlanesToYuv420Step(const Yuv420Rows& rows, const uint8_t* const src[3],
                                 int32_t srcStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                 int32_t width, int32_t height) {
    return Checked(CheckPlanesToPlanes(src, srcStep, dst, dstStep, width, height),
                   [&] { DriveRgbPlanes(rows, src, srcStep, dst, dstStep, width, height); });
}

PrimStatus RgbPlanesToYuv420(const Yuv420Rows& rows, const uint8_t* const src[3],
                             uint8_t* const dst[3], int32_t width, int32_t height) {
    return Checked(CheckPlanesToPlanesCompact(src, dst, width, height), [&] {
        DriveRgbPlanes(rows, src, CompactPlaneStep(width), dst, CompactYuv420Steps(width).steps,
                       width, height);
    });
}

PrimStatus Yuv420ToRgbStep(const Yuv420Rows& rows, const uint8_t* const src[3],
                           const int32_t srcStep[3], uint8_t* dst, int32_t dstStep, int32_t width,
                           int32_t height) {
    return Checked(CheckPlanesToPacked(src, srcStep, dst, dstStep, width, height),
                   [&] { DriveToRgb(rows, src, srcStep, dst, dstStep, width, height); });
}

PrimStatus Yuv420ToRgb(const Yuv420Rows& rows, const uint8_t* const src[3], uint8_t* dst,
                       int32_t width, int32_t height) {
    return Checked(CheckPlanesToPackedCompact(src, dst, width, height), [&] {
        DriveToRgb(rows, src, CompactYuv420Steps(width).steps, dst, CompactPackedStep(width, 3), width,
                   height);
    });
}

PrimStatus Yuv420ToRgbPlanesStep(const Yuv420Rows& rows, const uint8_t* const src[3],
                                 const int32_t srcStep[3], uint8_t* const dst[3], int32_t dstStep,
                                 int32_t width, int32_t height) {
    return Checked(CheckPlanesToPlanes(src, srcStep, dst, dstStep, width, height),
                   [&] { DriveToRgbPlanes(rows, src, srcStep, dst, dstStep, width, height); });
}

PrimStatus Yuv420ToRgbPlanes(const Yuv420Rows& rows, const uint8_t* const src[3],
                             uint8_t* const dst[3], int32_t width, int32_t height) {
    return Checked(CheckPlanesToPlanesCompact(src, dst, width, height), [&] {
        DriveToRgbPlanes(rows, src, CompactYuv420Steps(width).steps, dst, CompactPlaneStep(width),
                         width, height);
    });
}

}  // namespace
}  // namespace pixmoor::colour

using namespace pixmoor::colour;

PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBToYUV420, RgbToYuv420, kYuv420Rows,
                            (const uint8_t* src, uint8_t* const dst[3], int32_t width,
                             int32_t height),
                            (tierRows, src, dst, width, height))
PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBToYUV420_Step, RgbToYuv420Step, kYuv420Rows,
                            (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                             const int32_t dstStep[3], int32_t width, int32_t height),
                            (tierRows, src, srcStep, dst, dstStep, width, height))
PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBPlanesToYUV420, RgbPlanesToYuv420, kYuv420Rows,
                            (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width,
                             int32_t height),
                            (tierRows, src, dst, width, height))
PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBPlanesToYUV420_Step, RgbPlanesToYuv420Step, kYuv420Rows,
                            (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                             const int32_t dstStep[3], int32_t width, int32_t height),
                            (tierRows, src, srcStep, dst, dstStep, width, height))
PIXMOOR_COLOUR_TIER_ENTRIES(ImgYUV420ToRGB, Yuv420ToRgb, kYuv420Rows,
                            (const uint8_t* const src[3], uint8_t* dst, int32_t width,
                             int32_t height),
                            (tierRows, src, dst, width, height))
PIXMOOR_COLOUR_TIER_ENTRIES(ImgYUV420ToRGB_Step, Yuv420ToRgbStep, kYuv420Rows,
                            (const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                             int32_t dstStep, int32_t width, int32_t height),
                            (tierRows, src, srcStep, dst, dstStep, width, height))
PIXMOOR_COLOUR_TIER_ENTRIES(ImgYUV420ToRGBPlanes, Yuv420ToRgbPlanes, kYuv420Rows,
                            (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width,
                             int32_t height),
                            (tierRows, src, dst, width, height))
PIXMOOR_COLOUR_TIER_ENTRIES(ImgYUV420ToRGBPlanes_Step, Yuv420ToRgbPlanesStep, kYuv420Rows,
                            (const uint8_t* const src[3], const int32_t srcStep[3],
                             uint8_t* const dst[3], int32_t dstStep, int32_t width, int32_t height),
                            (tierRows, src, srcStep, dst, dstStep, width, height))

// Plain names of the members that stand in no dispatch row.  ImgRGBToYUV420,
// ImgYUV420ToRGB and ImgYUV420ToRGB_Step are dispatch stubs of the runtime.
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBToYUV420_Step,
                       (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                        const int32_t dstStep[3], int32_t width, int32_t height),
                       (src, srcStep, dst, dstStep, width, height))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBPlanesToYUV420,
                       (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width,
                        int32_t height),
                       (src, dst, width, height))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBPlanesToYUV420_Step,
                       (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                        const int32_t dstStep[3], int32_t width, int32_t height),
                       (src, srcStep, dst, dstStep, width, height))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgYUV420ToRGBPlanes,
                       (const uint8_t* const src[3], uint8_t* const dst[3], int32_t width,
                        int32_t height),
                       (src, dst, width, height))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgYUV420ToRGBPlanes_Step,
                       (const uint8_t* const src[3], const int32_t srcStep[3],
                        uint8_t* const dst[3], int32_t dstStep, int32_t width, int32_t height),
                       (src, srcStep, dst, dstStep, width, height))
