// Tier a6 of the 4:2:2 members: 64-bit vectors (done in the low halves of
// 128-bit registers), narrow arithmetic with the same factors as w7, 8
// pixels a step, then pairs and a lone last pixel in the same arithmetic.
// Each step prefetches 32 bytes ahead on every source line; packed RGB goes
// out through non-temporal 8-byte stores, which the driver fences after the
// last row.  Without the vectors the tier runs the same arithmetic in plain
// code.
#include "primitives/colour/yuv422_vector_tier.h"

namespace pixmoor::colour {

#ifdef PIXMOOR_HAVE_SSE2
namespace {

// Non-temporal 8-byte store of the low half of v, through a 64-bit vector
// register; FinishA6 clears the multimedia state and fences after the last
// row.
void Stream8(uint8_t* p, __m128i v) { _mm_stream_pi(reinterpret_cast<__m64*>(p), _mm_movepi64_pi64(v)); }

struct A6 {
    static constexpr int kForwardStep = 8;
    using LoneInverse = yuv422::NarrowInverse;

    static void Prefetch(const uint8_t* p) { _mm_prefetch(reinterpret_cast<const char*>(p + 32), _MM_HINT_NTA); }
    static void StoreRgb24(uint8_t* p, sse2::RgbBytes c) {
        sse2::Interleave(c.r, c.g, c.b);
        Stream8(p, c.r);
        Stream8(p + 8, _mm_unpackhi_epi64(c.r, c.r));
        Stream8(p + 16, c.g);
    }
};

}  // namespace

const Yuv422Rows kYuv422RowsA6 = yuv422_sse2::MakeRows<A6>(&FinishA6);
#else
const Yuv422Rows kYuv422RowsA6 =
    yuv422::MakePlainRows<yuv422::NarrowForward, yuv422::NarrowInverse, yuv422::NarrowInverse>(&FinishA6);
#endif

}  // namespace pixmoor::colour
