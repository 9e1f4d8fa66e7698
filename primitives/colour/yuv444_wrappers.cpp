// Wrappers of the 4:4:4 members: argument checks in the fixed order, then
// the shared line driver with the row kernels of the caller's tier.  Plane
// sets here share one step per side, so the step checks take single values.
#include <pixmoor/primitives/colour/yuv444.h>

#include "primitives/colour/tier_entries.h"
#include "primitives/colour/wrapper_checks.h"
#include "primitives/colour/yuv444_driver.h"
#include "runtime/tier_call.h"

namespace pixmoor::colour {
namespace {

// src[3], srcStep, dst[3], dstStep, width, height
PrimStatus CheckPlanesToPlanesOneStep(const uint8_t* const src[3], int32_t srcStep,
                                      uint8_t* const dst[3], int32_t dstStep, int32_t width,
                                      int32_t height) {
    return ArgChecks()
        .Pointers({src, dst})
        .Size(width, height)
        .Planes(src)
        .Planes(dst)
        .Step(srcStep)
        .Step(dstStep)
        .Status();
}

// src, srcStep, dst[3], dstStep, width, height
PrimStatus CheckPackedToPlanesOneStep(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                      int32_t dstStep, int32_t width, int32_t height) {
    return ArgChecks()
        .Pointers({src, dst})
        .Size(width, height)
        .Planes(dst)
        .Step(srcStep)
        .Step(dstStep)
        .Status();
}

// src[3], srcStep, dst, dstStep, width, height
PrimStatus CheckPlanesToPackedOneStep(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                      int32_t dstStep, int32_t width, int32_t height) {
    return ArgChecks()
        .Pointers({src, dst})
        .Size(width, height)
        .Planes(src)
        .Step(srcStep)
        .Step(dstStep)
        .Status();
}

PlanesIn InPlanes(const uint8_t* const p[3], int32_t step) { return PlanesIn{{p[0], p[1], p[2]}, step}; }
PlanesOut OutPlanes(uint8_t* const p[3], int32_t step) { return PlanesOut{{p[0], p[1], p[2]}, step}; }

// Drives only when the checks passed; a failed call writes nothing.
template <class In, class Out>
PrimStatus Run(PrimStatus status, const In& src, const Out& dst, int32_t width, int32_t height,
               Yuv444Row<In, Out> row, TierFinish finish) {
    if (status == PrimStatusOk) DriveYuv444(src, dst, width, height, row, finish);
    return status;
}

// Packed to packed, 3 or 4 bytes a pixel.
template <class In, class Out>
PrimStatus PackedToPacked(Yuv444Row<In, Out> row, TierFinish finish, const uint8_t* src,
                          int32_t srcStep, uint8_t* dst, int32_t dstStep, int32_t width,
                          int32_t height) {
    return Run(CheckPackedToPacked(src, srcStep, dst, dstStep, width, height), In{src, srcStep},
               Out{dst, dstStep}, width, height, row, finish);
}

PrimStatus RgbToYuv(const Yuv444Rows& rows, const uint8_t* src, int32_t srcStep, uint8_t* dst,
                    int32_t dstStep, int32_t width, int32_t height) {
    return PackedToPacked<Packed3In, Packed3Out>(rows.rgbToYuv, rows.finish, src, srcStep, dst, dstStep, width, height);
}
PrimStatus RgbaToYuva(const Yuv444Rows& rows, const uint8_t* src, int32_t srcStep, uint8_t* dst,
                      int32_t dstStep, int32_t width, int32_t height) {
    return PackedToPacked<Packed4In, Packed4Out>(rows.rgbaToYuva, rows.finish, src, srcStep, dst, dstStep, width, height);
}
PrimStatus YuvToRgb(const Yuv444Rows& rows, const uint8_t* src, int32_t srcStep, uint8_t* dst,
                    int32_t dstStep, int32_t width, int32_t height) {
    return PackedToPacked<Packed3In, Packed3Out>(rows.yuvToRgb, rows.finish, src, srcStep, dst, dstStep, width, height);
}
PrimStatus YuvaToRgba(const Yuv444Rows& rows, const uint8_t* src, int32_t srcStep, uint8_t* dst,
                      int32_t dstStep, int32_t width, int32_t height) {
    return PackedToPacked<Packed4In, Packed4Out>(rows.yuvaToRgba, rows.finish, src, srcStep, dst, dstStep, width, height);
}

PrimStatus PlanesToPlanes(Yuv444Row<PlanesIn, PlanesOut> row, TierFinish finish,
                          const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                          int32_t dstStep, int32_t width, int32_t height) {
    const PrimStatus status = CheckPlanesToPlanesOneStep(src, srcStep, dst, dstStep, width, height);
    if (status != PrimStatusOk) return status;
    return Run(status, InPlanes(src, srcStep), OutPlanes(dst, dstStep), width, height, row, finish);
}

PrimStatus RgbPlanesToYuvPlanes(const Yuv444Rows& rows, const uint8_t* const src[3],
                                int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                int32_t width, int32_t height) {
    return PlanesToPlanes(rows.rgbPlanesToYuvPlanes, rows.finish, src, srcStep, dst, dstStep, width,
                          height);
}
PrimStatus YuvPlanesToRgbPlanes(const Yuv444Rows& rows, const uint8_t* const src[3],
                                int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                int32_t width, int32_t height) {
    return PlanesToPlanes(rows.yuvPlanesToRgbPlanes, rows.finish, src, srcStep, dst, dstStep, width,
                          height);
}

PrimStatus RgbToYuvPlanes(const Yuv444Rows& rows, const uint8_t* src, int32_t srcStep,
                          uint8_t* const dst[3], int32_t dstStep, int32_t width, int32_t height) {
    const PrimStatus status = CheckPackedToPlanesOneStep(src, srcStep, dst, dstStep, width, height);
    if (status != PrimStatusOk) return status;
    return Run(status, Packed3In{src, srcStep}, OutPlanes(dst, dstStep), width, height,
               rows.rgbToYuvPlanes, rows.finish);
}

PrimStatus YuvPlanesToRgb(const Yuv444Rows& rows, const uint8_t* const src[3], int32_t srcStep,
                          uint8_t* dst, int32_t dstStep, int32_t width, int32_t height) {
    const PrimStatus status = CheckPlanesToPackedOneStep(src, srcStep, dst, dstStep, width, height);
    if (status != PrimStatusOk) return status;
    return Run(status, InPlanes(src, srcStep), Packed3Out{dst, dstStep}, width, height,
               rows.yuvPlanesToRgb, rows.finish);
}

}  // namespace
}  // namespace pixmoor::colour

using namespace pixmoor::colour;

#define PIXMOOR_YUV444_PACKED_PARAMS \
    (const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, int32_t width, int32_t height)
#define PIXMOOR_YUV444_PLANES_PARAMS                                                              \
    (const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,        \
     int32_t width, int32_t height)
#define PIXMOOR_YUV444_TIER_ARGS (tierRows, src, srcStep, dst, dstStep, width, height)
#define PIXMOOR_YUV444_ARGS (src, srcStep, dst, dstStep, width, height)

PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBToYUV, RgbToYuv, kYuv444Rows, PIXMOOR_YUV444_PACKED_PARAMS,
                            PIXMOOR_YUV444_TIER_ARGS)
PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBAToYUVA, RgbaToYuva, kYuv444Rows, PIXMOOR_YUV444_PACKED_PARAMS,
                            PIXMOOR_YUV444_TIER_ARGS)
PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBPlanesToYUVPlanes, RgbPlanesToYuvPlanes, kYuv444Rows,
                            PIXMOOR_YUV444_PLANES_PARAMS, PIXMOOR_YUV444_TIER_ARGS)
PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBToYUVPlanes, RgbToYuvPlanes, kYuv444Rows,
                            (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                             int32_t dstStep, int32_t width, int32_t height),
                            PIXMOOR_YUV444_TIER_ARGS)
PIXMOOR_COLOUR_TIER_ENTRIES(ImgYUVToRGB, YuvToRgb, kYuv444Rows, PIXMOOR_YUV444_PACKED_PARAMS,
                            PIXMOOR_YUV444_TIER_ARGS)
PIXMOOR_COLOUR_TIER_ENTRIES(ImgYUVAToRGBA, YuvaToRgba, kYuv444Rows, PIXMOOR_YUV444_PACKED_PARAMS,
                            PIXMOOR_YUV444_TIER_ARGS)
PIXMOOR_COLOUR_TIER_ENTRIES(ImgYUVPlanesToRGBPlanes, YuvPlanesToRgbPlanes, kYuv444Rows,
                            PIXMOOR_YUV444_PLANES_PARAMS, PIXMOOR_YUV444_TIER_ARGS)
PIXMOOR_COLOUR_TIER_ENTRIES(ImgYUVPlanesToRGB, YuvPlanesToRgb, kYuv444Rows,
                            (const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                             int32_t dstStep, int32_t width, int32_t height),
                            PIXMOOR_YUV444_TIER_ARGS)

// Plain names of the members that stand in no dispatch row.  ImgYUVAToRGBA
// is the dispatch stub of the runtime.
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBToYUV, PIXMOOR_YUV444_PACKED_PARAMS, PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBAToYUVA, PIXMOOR_YUV444_PACKED_PARAMS, PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBPlanesToYUVPlanes, PIXMOOR_YUV444_PLANES_PARAMS,
                       PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBToYUVPlanes,
                       (const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                        int32_t width, int32_t height),
                       PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgYUVToRGB, PIXMOOR_YUV444_PACKED_PARAMS, PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgYUVPlanesToRGBPlanes, PIXMOOR_YUV444_PLANES_PARAMS,
                       PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgYUVPlanesToRGB,
                       (const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                        int32_t width, int32_t height),
                       PIXMOOR_YUV444_ARGS)
