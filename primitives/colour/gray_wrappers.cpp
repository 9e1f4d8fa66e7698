// Wrappers of the gray members and of the analogue 4:2:2 member: argument
// checks in the fixed order (src and dst, size, srcStep, dstStep), the
// steps turned from bytes into samples, then the shared driver with the row
// kernels of the caller's tier.  The weights pointer is passed through
// unchecked; the driver tests it for null.
#include <pixmoor/primitives/colour/gray.h>

#include "primitives/colour/gray_driver.h"
#include "primitives/colour/gray_rows.h"
#include "primitives/colour/tier_entries.h"
#include "primitives/colour/wrapper_checks.h"
#include "runtime/tier_call.h"

namespace pixmoor::colour::gray {
namespace {

template <typename Sample, int Channels>
PrimStatus Gray(const GrayRows& rows, const Sample* src, int32_t srcStep, Sample* dst,
                int32_t dstStep, int32_t width, int32_t height, const float* weights) {
    const PrimStatus status = CheckPackedToPacked(src, srcStep, dst, dstStep, width, height);
    if (status != PrimStatusOk) return status;
    const GrayDepthRows<Sample>& depth = rows.Of(src);
    constexpr int32_t shift = Depth<Sample>::kStepShift;
    DriveGray(Channels == 3 ? depth.c3 : depth.ac4, rows.finish, src, srcStep >> shift, dst,
              dstStep >> shift, width, height, weights);
    return PrimStatusOk;
}

PrimStatus RgbToYuv422(const GrayRows& rows, const uint8_t* src, int32_t srcStep, uint8_t* dst,
                       int32_t dstStep, int32_t width, int32_t height) {
    const PrimStatus status = CheckPackedToPacked(src, srcStep, dst, dstStep, width, height);
    if (status != PrimStatusOk) return status;
    DriveAnalog422(rows.analog422, rows.finish, src, srcStep, dst, dstStep, width, height);
    return PrimStatusOk;
}

}  // namespace
}  // namespace pixmoor::colour::gray

using namespace pixmoor::colour::gray;

// Each gray member in its four tiers and under its plain name.  The
// RGBToGray members pass a null weights pointer, which selects the
// defaults exactly as it does for the ColorToGray members.
#define PIXMOOR_GRAY_MEMBERS(Depth, Layout, Sample, Channels)                                      \
    PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBToGray##Depth##Layout, (Gray<Sample, Channels>), kGrayRows,    \
                                PIXMOOR_GRAY_PARAMS(Sample),                                       \
                                (tierRows, src, srcStep, dst, dstStep, width, height, nullptr))    \
    PIXMOOR_COLOUR_TIER_ENTRIES(ImgColorToGray##Depth##Layout, (Gray<Sample, Channels>), kGrayRows,  \
                                PIXMOOR_GRAY_WEIGHTED_PARAMS(Sample),                              \
                                (tierRows, src, srcStep, dst, dstStep, width, height, weights))    \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBToGray##Depth##Layout, PIXMOOR_GRAY_PARAMS(Sample),   \
                           (src, srcStep, dst, dstStep, width, height))                            \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgColorToGray##Depth##Layout,                              \
                           PIXMOOR_GRAY_WEIGHTED_PARAMS(Sample),                                   \
                           (src, srcStep, dst, dstStep, width, height, weights))

PIXMOOR_GRAY_MEMBERS(8u, C3, uint8_t, 3)
PIXMOOR_GRAY_MEMBERS(16u, C3, uint16_t, 3)
PIXMOOR_GRAY_MEMBERS(16s, C3, int16_t, 3)
PIXMOOR_GRAY_MEMBERS(32f, C3, float, 3)
PIXMOOR_GRAY_MEMBERS(8u, AC4, uint8_t, 4)
PIXMOOR_GRAY_MEMBERS(16u, AC4, uint16_t, 4)
PIXMOOR_GRAY_MEMBERS(16s, AC4, int16_t, 4)
PIXMOOR_GRAY_MEMBERS(32f, AC4, float, 4)

PIXMOOR_COLOUR_TIER_ENTRIES(ImgRGBToYUV422C3C2, RgbToYuv422, kGrayRows, PIXMOOR_GRAY_PARAMS(uint8_t),
                            (tierRows, src, srcStep, dst, dstStep, width, height))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBToYUV422C3C2, PIXMOOR_GRAY_PARAMS(uint8_t),
                       (src, srcStep, dst, dstStep, width, height))
