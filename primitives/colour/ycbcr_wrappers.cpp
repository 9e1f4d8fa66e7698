// Wrappers of the YCbCr members: argument checks in the fixed order, then
// the shared driver with the row kernels of the caller's tier.  Members
// that write 16-bit words halve the destination step after the checks (an
// arithmetic shift: an odd step loses its low bit) and take the whole-image
// run when their lines have no gaps.
#include <pixmoor/primitives/colour/ycbcr.h>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/tier_entries.h"
#include "primitives/colour/wrapper_checks.h"
#include "primitives/colour/ycbcr_drivers.h"
#include "primitives/colour/ycbcr_layouts.h"
#include "primitives/colour/ycbcr_rows.h"
#include "primitives/colour/yuv420_driver.h"
#include "runtime/tier_call.h"

namespace pixmoor::colour {
namespace {

// Runs the driver only when the checks passed; a failed call writes nothing.
template <class Drive>
PrimStatus Checked(PrimStatus status, Drive drive) {
    if (status == PrimStatusOk) drive();
    return status;
}

// The check chains of the shapes with one step for three planes.  The
// 4:2:2 source to planes member tests its steps before its plane pointers,
// unlike every other member.
PrimStatus CheckPlanesOneStepToPacked(const uint8_t* const src[3], int32_t srcStep, const void* dst,
                                      int32_t dstStep, int32_t width, int32_t height) {
    return ArgChecks().Pointers({src, dst}).Size(width, height).Planes(src).Step(srcStep).Step(dstStep).Status();
}
PrimStatus CheckC2ToPlanes(const void* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                           int32_t width, int32_t height) {
    return ArgChecks().Pointers({src, dst}).Size(width, height).Step(srcStep).Step(dstStep).Planes(dst).Status();
}
PrimStatus CheckPlanesOneStep(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                              int32_t dstStep, int32_t width, int32_t height) {
    return ArgChecks()
        .Pointers({src, dst})
        .Size(width, height)
        .Planes(src)
        .Planes(dst)
        .Step(srcStep)
        .Step(dstStep)
        .Status();
}

RgbPlanesIn PlanesIn(const uint8_t* const p[3], int32_t step) { return RgbPlanesIn{p[0], p[1], p[2], step}; }
RgbPlanesOut PlanesOut(uint8_t* const p[3], int32_t step) { return RgbPlanesOut{p[0], p[1], p[2], step}; }

// Interleaved to interleaved: one template for every member of that shape,
// handed the member's row kernel.
template <class In, class Out, LineRow<In, Out> YCbCrRows::*Row>
PrimStatus Interleaved(const YCbCrRows& rows, const uint8_t* src, int32_t srcStep, uint8_t* dst,
                       int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckPackedToPacked(src, srcStep, dst, dstStep, width, height), [&] {
        DriveLines(In{src, srcStep}, Out{dst, dstStep}, width, height, rows.*Row, rows.finish);
    });
}

PrimStatus C2ToRgb(const YCbCrRows& rows, const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                   int32_t width, int32_t height) {
    return Checked(CheckPackedToPacked(src, srcStep, dst, dstStep, width, height), [&] {
        const C2In in{src, srcStep};
        const C3Out out{dst, dstStep};
        DriveFromC2(in, out, width, height, [&] { DriveLines(in, out, width, height, rows.c2ToRgb, rows.finish); });
    });
}

PrimStatus C2ToPlanes(const YCbCrRows& rows, const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                      int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckC2ToPlanes(src, srcStep, dst, dstStep, width, height), [&] {
        const C2In in{src, srcStep};
        const RgbPlanesOut out = PlanesOut(dst, dstStep);
        DriveFromC2(in, out, width, height,
                    [&] { DriveLines(in, out, width, height, rows.c2ToPlanes, rows.finish); });
    });
}

PrimStatus PlanesToC2(const YCbCrRows& rows, const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                      int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckPlanesOneStepToPacked(src, srcStep, dst, dstStep, width, height), [&] {
        DriveLines(PlanesIn(src, srcStep), C2Out{dst, dstStep}, width, height, rows.planesToC2, rows.finish);
    });
}

// 4:2:2 interleaved to words: gapless when the source step is two bytes a
// pixel, the halved destination step one word a pixel and the width even.
template <class Packing, LineRow<C2In, WordsOut<Packing>> WordRows<C2In>::*Row>
PrimStatus C2ToWords(const YCbCrRows& rows, const uint8_t* src, int32_t srcStep, uint16_t* dst,
                     int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckPackedToPacked(src, srcStep, dst, dstStep, width, height), [&] {
        const int32_t words = dstStep >> 1;
        const bool gapless = srcStep == CompactPackedStep(width, 2) && words == width && (width & 1) == 0;
        const C2In in{src, srcStep};
        const WordsOut<Packing> out{dst, words};
        DriveFromC2(in, out, width, height, [&] {
            DriveLinesOrRun(in, out, width, height, gapless, rows.c2ToWords.*Row, rows.finish);
        });
    });
}

// 4:4:4 interleaved to words: gapless when the source step is three bytes
// a pixel and the halved destination step one word a pixel.
template <class Packing, LineRow<C3In, WordsOut<Packing>> WordRows<C3In>::*Row>
PrimStatus C3ToWords(const YCbCrRows& rows, const uint8_t* src, int32_t srcStep, uint16_t* dst,
                     int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckPackedToPacked(src, srcStep, dst, dstStep, width, height), [&] {
        const int32_t words = dstStep >> 1;
        const bool gapless = srcStep == CompactPackedStep(width, 3) && words == width;
        DriveLinesOrRun(C3In{src, srcStep}, WordsOut<Packing>{dst, words}, width, height, gapless,
                        rows.c3ToWords.*Row, rows.finish);
    });
}

PrimStatus RgbTo420(const YCbCrRows& rows, const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                    const int32_t dstStep[3], int32_t width, int32_t height) {
    return Checked(CheckPackedToPlanes(src, srcStep, dst, dstStep, width, height), [&] {
        DriveToYuv420<PackedRgbIn, YCbCrForwardEdges>(
            PackedRgbIn{src, srcStep}, Yuv420Planes<uint8_t>{dst[0], dst[1], dst[2], dstStep[0], dstStep[1], dstStep[2]},
            width, height, rows.rgbTo420, rows.finish);
    });
}

PrimStatus From420ToRgb(const YCbCrRows& rows, const uint8_t* const src[3], const int32_t srcStep[3],
                        uint8_t* dst, int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckPlanesToPacked(src, srcStep, dst, dstStep, width, height), [&] {
        DriveFromYuv420<PackedRgbOut, YCbCrInverseEdges>(
            Yuv420Planes<const uint8_t>{src[0], src[1], src[2], srcStep[0], srcStep[1], srcStep[2]},
            PackedRgbOut{dst, dstStep}, width, height, rows.from420ToRgb, rows.finish);
    });
}

template <LineRow<RgbPlanesIn, RgbPlanesOut> YCbCrRows::*Row>
PrimStatus Planes(const YCbCrRows& rows, const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                  int32_t dstStep, int32_t width, int32_t height) {
    return Checked(CheckPlanesOneStep(src, srcStep, dst, dstStep, width, height), [&] {
        DriveLines(PlanesIn(src, srcStep), PlanesOut(dst, dstStep), width, height, rows.*Row, rows.finish);
    });
}

// Each member's wrapper as one name, for the tier-entry macro.
constexpr auto RgbToC2 = &Interleaved<C3In, C2Out, &YCbCrRows::rgbToC2>;
constexpr auto RgbToC3 = &Interleaved<C3In, C3Out, &YCbCrRows::rgbToC3>;
constexpr auto C3ToRgb = &Interleaved<C3In, C3Out, &YCbCrRows::c3ToRgb>;
constexpr auto RgbToAC4 = &Interleaved<AC4In, AC4Out, &YCbCrRows::rgbToAC4>;
constexpr auto AC4ToRgb = &Interleaved<AC4In, AC4Out, &YCbCrRows::ac4ToRgb>;
constexpr auto PlanesToYcc = &Planes<&YCbCrRows::planesToYccPlanes>;
constexpr auto YccToPlanes = &Planes<&YCbCrRows::yccPlanesToPlanes>;

#define PIXMOOR_YCC_WORD_WRAPPERS_(Packing, field)                                        \
    constexpr auto C2To##Packing = &C2ToWords<Pack##Packing, &WordRows<C2In>::field>;     \
    constexpr auto C3To##Packing = &C3ToWords<Pack##Packing, &WordRows<C3In>::field>;
PIXMOOR_YCC_WORD_WRAPPERS_(BGR565, bgr565)
PIXMOOR_YCC_WORD_WRAPPERS_(RGB565, rgb565)
PIXMOOR_YCC_WORD_WRAPPERS_(BGR555, bgr555)
PIXMOOR_YCC_WORD_WRAPPERS_(RGB555, rgb555)
PIXMOOR_YCC_WORD_WRAPPERS_(BGR444, bgr444)
PIXMOOR_YCC_WORD_WRAPPERS_(RGB444, rgb444)
#undef PIXMOOR_YCC_WORD_WRAPPERS_

}  // namespace
}  // namespace pixmoor::colour

using namespace pixmoor::colour;

// The four tier entries and the plain name of each member; none of them
// stands in a dispatch row.  Every member takes (src, srcStep, dst,
// dstStep, width, height); the types of the first four tell the shape.
using InBytes = const uint8_t*;
using InPlanes = const uint8_t* const*;
using OutBytes = uint8_t*;
using OutPlanes = uint8_t* const*;
using OutWords = uint16_t*;
using OneStep = int32_t;
using ThreeSteps = const int32_t*;

#define PIXMOOR_YCC_PARAMS_(Src, SrcStep, Dst, DstStep) \
    (Src src, SrcStep srcStep, Dst dst, DstStep dstStep, int32_t width, int32_t height)
#define PIXMOOR_YCC_MEMBER_(name, impl, Src, SrcStep, Dst, DstStep)                                 \
    PIXMOOR_COLOUR_TIER_ENTRIES(name, impl, kYCbCrRows, PIXMOOR_YCC_PARAMS_(Src, SrcStep, Dst, DstStep), \
                                (tierRows, src, srcStep, dst, dstStep, width, height))               \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, name, PIXMOOR_YCC_PARAMS_(Src, SrcStep, Dst, DstStep),         \
                           (src, srcStep, dst, dstStep, width, height))

PIXMOOR_YCC_MEMBER_(ImgRGBToYCbCr422C3C2, RgbToC2, InBytes, OneStep, OutBytes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCr422ToRGBC2C3, C2ToRgb, InBytes, OneStep, OutBytes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgRGBToYCbCr422P3C2, PlanesToC2, InPlanes, OneStep, OutBytes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCr422ToRGBC2P3, C2ToPlanes, InBytes, OneStep, OutPlanes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCr422ToBGR565, C2ToBGR565, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCr422ToRGB565, C2ToRGB565, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCr422ToBGR555, C2ToBGR555, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCr422ToRGB555, C2ToRGB555, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCr422ToBGR444, C2ToBGR444, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCr422ToRGB444, C2ToRGB444, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgRGBToYCbCr420C3P3, RgbTo420, InBytes, OneStep, OutPlanes, ThreeSteps)
PIXMOOR_YCC_MEMBER_(ImgYCbCr420ToRGBP3C3, From420ToRgb, InPlanes, ThreeSteps, OutBytes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgRGBToYCbCrP3, PlanesToYcc, InPlanes, OneStep, OutPlanes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCrToRGBP3, YccToPlanes, InPlanes, OneStep, OutPlanes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgRGBToYCbCrC3, RgbToC3, InBytes, OneStep, OutBytes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCrToRGBC3, C3ToRgb, InBytes, OneStep, OutBytes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgRGBToYCbCrAC4, RgbToAC4, InBytes, OneStep, OutBytes, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCrToRGBAC4, AC4ToRgb, InBytes, OneStep, OutBytes, OneStep)
// The 4:4:4 members that write words come with the order flag 1 first.
PIXMOOR_YCC_MEMBER_(ImgYCbCrToRGB444, C3ToRGB444, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCrToBGR444, C3ToBGR444, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCrToRGB555, C3ToRGB555, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCrToBGR555, C3ToBGR555, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCrToRGB565, C3ToRGB565, InBytes, OneStep, OutWords, OneStep)
PIXMOOR_YCC_MEMBER_(ImgYCbCrToBGR565, C3ToBGR565, InBytes, OneStep, OutWords, OneStep)
