// Tier w7 of the 4:2:2 members: 128-bit vectors, narrow arithmetic.
// Forward: 16 pixels a step while the counter is below width AND NOT 15,
// then pairs and a lone last pixel.  Inverse: 8 pixels (16 bytes of packed
// 4:2:2) a step while below width AND NOT 7, then pairs; the lone last
// pixel of packed 4:2:2 is reckoned in plain code at 13 fraction bits.
// No load or store needs alignment.  Without the vectors the tier runs the
// same arithmetic in plain code.
#include "primitives/colour/yuv422_vector_tier.h"

namespace pixmoor::colour {

#ifdef PIXMOOR_HAVE_SSE2
namespace {

struct W7 {
    static constexpr int kForwardStep = 16;
    using LoneInverse = yuv422::NarrowInverseLone13;

    static void Prefetch(const uint8_t*) {}
    static void StoreRgb24(uint8_t* p, sse2::RgbBytes c) {
        sse2::Interleave(c.r, c.g, c.b);
        sse2::Store16(p, c.r);
        sse2::Store8(p + 16, c.g);
    }
};

}  // namespace

const Yuv422Rows kYuv422RowsW7 = yuv422_sse2::MakeRows<W7>(&FinishW7);
#else
const Yuv422Rows kYuv422RowsW7 =
    yuv422::MakePlainRows<yuv422::NarrowForward, yuv422::NarrowInverseLone13, yuv422::NarrowInverse>(&FinishW7);
#endif

}  // namespace pixmoor::colour
