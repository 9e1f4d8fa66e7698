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
#include <emmintrin.h>
#include <xmmintrin.h>

#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv444_driver.h"
#include "primitives/colour/yuv444_narrow.h"
#include "primitives/colour/yuv444_sse2.h"

namespace pixmoor::colour {
namespace {

using namespace sse2;
using narrow444::kHalfA6;

struct A6 {
    static constexpr int kBlock = 8;
    static void Touch(const uint8_t* p) { _mm_prefetch(reinterpret_cast<const char*>(p + 32), _MM_HINT_NTA); }
};

// Non-temporal store of the low 8 bytes of v.
void Stream8(uint8_t* p, __m128i v) {
#if defined(__x86_64__) || defined(_M_X64)
    _mm_stream_si64(reinterpret_cast<long long*>(p), _mm_cvtsi128_si64(v));
#else
    _mm_stream_si32(reinterpret_cast<int*>(p), _mm_cvtsi128_si32(v));
    _mm_stream_si32(reinterpret_cast<int*>(p + 4), _mm_cvtsi128_si32(_mm_srli_epi64(v, 32)));
#endif
}

// Inverse factor lanes of a step, one lane per pixel 0 to 7, rows in the
// order R from v', R from u', G from u', G from v', B from u'; the odd row
// stands at pixels 3 and 7.
alignas(16) const int16_t kInverseLanes[5][8] = {
    {9339, 9339, 9339, 9339, 9339, 9339, 9339, 9339},
    {0, 0, 0, 4, 0, 0, 0, 4},
    {-3228, -3228, -3228, -3232, -3228, -3228, -3228, -3232},
    {-4760, -4760, -4760, -4760, -4760, -4760, -4760, -4760},
    {16646, 16646, 16646, 16646, 16646, 16646, 16646, 16646},
};

VectorToRgbHalf InverseWithOddRow() {
    auto row = [](int i) { return _mm_load_si128(reinterpret_cast<const __m128i*>(kInverseLanes[i])); };
    return VectorToRgbHalf{InverseLanes{row(0), row(1), row(2), row(3), row(4)}};
}

using RgbStore = Packed3Store<&Stream8>;
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

}  // namespace pixmoor::colour
