// The a6 and w7 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX-512: the lane arithmetic of the AVX2 form
// (yuv422_narrow_inverse_avx2.cpp) on 512-bit vectors, 64 pixels a step.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/packed422_avx512.h"
#include "primitives/colour/yuv422_arith.h"

namespace pixmoor::colour::fast {
namespace {

static_assert(yuv422::kInverse.ru == 0, "R takes no U term in these kernels");

// (2Y + term) >> 1 of 32 pixels.
PIXMOOR_TARGET_AVX512 __m512i Channel(__m512i y, __m512i term) {
    return _mm512_srai_epi16(_mm512_add_epi16(_mm512_add_epi16(y, y), term), 1);
}

PIXMOOR_TARGET_AVX512 __m512i Factor(int32_t f) { return _mm512_set1_epi16(static_cast<int16_t>(f)); }

PIXMOOR_TARGET_AVX512 avx512::ChannelWords Pixels32(__m512i bytes) {
    const __m512i y = avx512::LumaWords(bytes);
    // 16 (U - 128) and 16 (V - 128), each spread to both pixels of its pair.
    const __m512i uv = _mm512_slli_epi16(_mm512_sub_epi16(avx512::ChromaWords(bytes), _mm512_set1_epi16(128)), 4);
    const __m512i du = avx512::SpreadLow(uv), dv = avx512::SpreadHigh(uv);
    const __m512i r = _mm512_mulhi_epi16(dv, Factor(yuv422::kInverse.rv));
    const __m512i g = _mm512_add_epi16(_mm512_mulhi_epi16(du, Factor(yuv422::kInverse.gu)),
                                       _mm512_mulhi_epi16(dv, Factor(yuv422::kInverse.gv)));
    const __m512i b = _mm512_mulhi_epi16(du, Factor(yuv422::kInverse.bu));
    return avx512::ChannelWords{Channel(y, r), Channel(y, g), Channel(y, b)};
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t NarrowPacked422ToRgbAvx512(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx512::Packed422Steps<&Pixels32>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
