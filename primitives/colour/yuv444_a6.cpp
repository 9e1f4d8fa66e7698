// Tier a6 of the 4:4:4 members: 64-bit vectors (run in the low halves of
// 128-bit registers), 8 pixels a step, then single pixels in the same
// arithmetic.  Each step prefetches 32 bytes ahead on every source line.
//
// Factor sets: L for the packed forward members, D for packed RGB to
// planes, M for planes to planes.  The packed RGB inverses keep the tier's
// odd factor row at pixels 3 and 7 of every step, as the 4:2:0 inverse
// does; their single-pixel tail uses the normal factors.  Packed RGB
// destinations are written with non-temporal 8-byte stores, fenced by the
// driver after the last row.  4-byte pixels are written as a 16-bit and an
// 8-bit store, so byte 3 is never touched.  The planes to planes members
// bring each destination plane to an 8-byte boundary first.
//
// Without SSE2 the same arithmetic runs in plain code, pixel by pixel.
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv444_driver.h"
#include "primitives/colour/yuv444_narrow.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>

#include "primitives/colour/a6_shared.h"
#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/yuv444_sse2.h"
#endif

namespace pixmoor::colour {

#ifdef PIXMOOR_HAVE_SSE2
namespace {

using namespace sse2;
using narrow444::kHalfA6;

struct A6 {
    static constexpr int kBlock = 8;
    static void Touch(const uint8_t* p) { a6::Prefetch(p); }
};

VectorToRgbHalf InverseWithOddRow() { return VectorToRgbHalf{a6::LoadInverseLanes(a6::kPackedInverseLanes)}; }

using RgbStore = Packed3Store<&a6::Stream8>;
using YuvStore = Packed3Store<&Store8>;

void RgbToYuvRow(const uint8_t* in, uint8_t* out, int32_t n) {
    BlockRow<A6, Packed3In, Packed3Out, YuvStore, narrow444::ToYuvL>(in, out, n, VectorToYuvL{});
}
void RgbaToYuvaRow(const uint8_t* in, uint8_t* out, int32_t n) {
    BlockRow<A6, Packed4In, Packed4Out, Packed4SplitStore, narrow444::ToYuvL>(in, out, n, VectorToYuvL{});
}
void RgbToYuvPlanesRow(const uint8_t* in, PlaneLines<uint8_t> out, int32_t n) {
    BlockRow<A6, Packed3In, PlanesOut, PlanesStore, narrow444::ToYuvD>(in, out, n, VectorToYuvD{});
}
void YuvToRgbRow(const uint8_t* in, uint8_t* out, int32_t n) {
    BlockRow<A6, Packed3In, Packed3Out, RgbStore, narrow444::ToRgbHalf<kHalfA6>>(in, out, n, InverseWithOddRow());
}
void YuvPlanesToRgbRow(PlaneLines<const uint8_t> in, uint8_t* out, int32_t n) {
    BlockRow<A6, PlanesIn, Packed3Out, RgbStore, narrow444::ToRgbHalf<kHalfA6>>(in, out, n, InverseWithOddRow());
}

}  // namespace

const Yuv444Rows kYuv444RowsA6 = {
    &RgbToYuvRow,
    &RgbaToYuvaRow,
    &PlaneByPlaneRow<A6, 8, VectorToYuvM>,
    &RgbToYuvPlanesRow,
    &YuvToRgbRow,
    &YuvaToRgbaRow<A6, Packed4SplitStore>,
    &PlaneByPlaneRow<A6, 8, VectorToRgbPlanes>,
    &YuvPlanesToRgbRow,
    &FinishA6,
};

#else
const Yuv444Rows kYuv444RowsA6 = {
    &ConvertRow<Packed3In, Packed3Out, narrow444::ToYuvL>,
    &ConvertRow<Packed4In, Packed4Out, narrow444::ToYuvL>,
    &ConvertRow<PlanesIn, PlanesOut, narrow444::ToYuvM>,
    &ConvertRow<Packed3In, PlanesOut, narrow444::ToYuvD>,
    &narrow444::HalfA6Row<Packed3In>,
    &ConvertRow<Packed4In, Packed4Out, narrow444::ToRgbAlpha>,
    &ConvertRow<PlanesIn, PlanesOut, narrow444::ToRgbPlanes>,
    &narrow444::HalfA6Row<PlanesIn>,
    &FinishA6,
};
#endif

}  // namespace pixmoor::colour
