// Tier w7 of the 4:4:4 members: 128-bit vectors, 16 pixels a step with
// unaligned loads and 8-byte stores, then single pixels in the same
// arithmetic.
//
// Factor sets: M for packed RGB to packed YUV and for both members with
// YUV planes out, L for the 4-byte forward member.  The packed YUV inverse
// uses the factors 9339, -4760, -3228, 16646 everywhere; the planar YUV to
// packed RGB inverse the 4:2:0 w7 factors.  4-byte pixels go out through
// byte-masked stores that leave byte 3 as it was; the 4-byte inverse takes
// 8 pixels a step, then 4, then single pixels.  The planes to planes
// members bring each destination plane to a boundary first: 16 bytes for
// RGB to YUV, whose blocks then store aligned, 8 bytes for YUV to RGB.
//
// Without SSE2 the same arithmetic runs in plain code, pixel by pixel.
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv444_driver.h"
#include "primitives/colour/yuv444_narrow.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>

#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/yuv444_sse2.h"
#endif

namespace pixmoor::colour {

#ifdef PIXMOOR_HAVE_SSE2
namespace {

using namespace sse2;
using narrow444::kHalfA6;
using narrow444::kHalfW7;

struct W7 {
    static constexpr int kBlock = 16;
    static void Touch(const uint8_t*) {}
};

using PackedStore = Packed3Store<&Store8>;

void RgbToYuvRow(const uint8_t* in, uint8_t* out, int32_t n) {
    BlockRow<W7, Packed3In, Packed3Out, PackedStore, narrow444::ToYuvM>(in, out, n, VectorToYuvM{});
}
void RgbaToYuvaRow(const uint8_t* in, uint8_t* out, int32_t n) {
    BlockRow<W7, Packed4In, Packed4Out, Packed4MaskedStore, narrow444::ToYuvL>(in, out, n, VectorToYuvL{});
}
void RgbToYuvPlanesRow(const uint8_t* in, PlaneLines<uint8_t> out, int32_t n) {
    BlockRow<W7, Packed3In, PlanesOut, PlanesStore, narrow444::ToYuvM>(in, out, n, VectorToYuvM{});
}
void YuvToRgbRow(const uint8_t* in, uint8_t* out, int32_t n) {
    BlockRow<W7, Packed3In, Packed3Out, PackedStore, narrow444::ToRgbHalf<kHalfA6>>(
        in, out, n, VectorToRgbHalf{Uniform(kHalfA6)});
}
void YuvPlanesToRgbRow(PlaneLines<const uint8_t> in, uint8_t* out, int32_t n) {
    BlockRow<W7, PlanesIn, Packed3Out, PackedStore, narrow444::ToRgbHalf<kHalfW7>>(
        in, out, n, VectorToRgbHalf{Uniform(kHalfW7)});
}

}  // namespace

const Yuv444Rows kYuv444RowsW7 = {
    &RgbToYuvRow,
    &RgbaToYuvaRow,
    &PlaneByPlaneRow<W7, 16, VectorToYuvM>,
    &RgbToYuvPlanesRow,
    &YuvToRgbRow,
    &YuvaToRgbaRow<W7, Packed4MaskedStore>,
    &PlaneByPlaneRow<W7, 8, VectorToRgbPlanes>,
    &YuvPlanesToRgbRow,
    &FinishW7,
};

#else
const Yuv444Rows kYuv444RowsW7 = {
    &ConvertRow<Packed3In, Packed3Out, narrow444::ToYuvM>,
    &ConvertRow<Packed4In, Packed4Out, narrow444::ToYuvL>,
    &ConvertRow<PlanesIn, PlanesOut, narrow444::ToYuvM>,
    &ConvertRow<Packed3In, PlanesOut, narrow444::ToYuvM>,
    &ConvertRow<Packed3In, Packed3Out, narrow444::ToRgbHalf<narrow444::kHalfA6>>,
    &ConvertRow<Packed4In, Packed4Out, narrow444::ToRgbAlpha>,
    &ConvertRow<PlanesIn, PlanesOut, narrow444::ToRgbPlanes>,
    &ConvertRow<PlanesIn, Packed3Out, narrow444::ToRgbHalf<narrow444::kHalfW7>>,
    &FinishW7,
};
#endif

}  // namespace pixmoor::colour
