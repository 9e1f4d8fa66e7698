// The px and m6 inverse 4:2:0 row kernels to packed RGB (3-byte pixels, or
// 4-byte ones with a zero last byte) with AVX-512: 32 pixel pairs (64
// pixels of each line) a step, the lane arithmetic of the AVX2 form
// (yuv420_wide_inverse_avx2.cpp) on 512-bit vectors, the same bytes as the
// plain kernel.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/rgb24_avx512.h"
#include "primitives/colour/rgba_avx512.h"
#include "primitives/colour/wide_terms_avx2.h"
#include "primitives/colour/yuv420_keep_avx512.h"

namespace pixmoor::colour::fast {
namespace {

struct Offsets {
    __m512i r, g, b;  // t >> 16 of 32 chroma pairs, one 16-bit lane each
};

PIXMOOR_TARGET_AVX512 __m512i Centred(const uint8_t* p) {
    return _mm512_sub_epi16(_mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))),
                            _mm512_set1_epi16(128));
}

PIXMOOR_TARGET_AVX512 Offsets PairOffsets(const uint8_t* u, const uint8_t* v) {
    const __m512i du = Centred(u), dv = Centred(v);
    const __m512i r = _mm512_add_epi16(dv, _mm512_mulhi_epi16(dv, _mm512_set1_epi16(avx2::kRvRest)));
    const __m512i b = _mm512_add_epi16(_mm512_add_epi16(du, du), _mm512_mulhi_epi16(du, _mm512_set1_epi16(avx2::kBuRest)));
    const __m512i gFactors = _mm512_broadcast_i32x4(_mm256_castsi256_si128(avx2::GreenFactors()));
    const __m512i gLow = _mm512_srai_epi32(_mm512_madd_epi16(_mm512_unpacklo_epi16(du, dv), gFactors), 16);
    const __m512i gHigh = _mm512_srai_epi32(_mm512_madd_epi16(_mm512_unpackhi_epi16(du, dv), gFactors), 16);
    return Offsets{r, _mm512_sub_epi16(_mm512_packs_epi32(gLow, gHigh), dv), b};
}

// One channel of 64 pixels in pixel order: Y plus the offset of its pair,
// clamped.
PIXMOOR_TARGET_AVX512 __m512i Channel(__m512i yLow, __m512i yHigh, __m512i offset) {
    return _mm512_packus_epi16(_mm512_add_epi16(yLow, _mm512_unpacklo_epi16(offset, offset)),
                               _mm512_add_epi16(yHigh, _mm512_unpackhi_epi16(offset, offset)));
}

// How 64 pixels of R, G, B bytes are written.
using Store64Pixels = void (*)(uint8_t*, __m512i, __m512i, __m512i);

template <Store64Pixels Store>
PIXMOOR_TARGET_AVX512 void Line64(const uint8_t* y, const Offsets& o, uint8_t* out) {
    const __m512i z = _mm512_setzero_si512();
    const __m512i bytes = _mm512_loadu_si512(y);
    const __m512i yLow = _mm512_unpacklo_epi8(bytes, z);
    const __m512i yHigh = _mm512_unpackhi_epi8(bytes, z);
    Store(out, Channel(yLow, yHigh, o.r), Channel(yLow, yHigh, o.g), Channel(yLow, yHigh, o.b));
}

// 32 pixel pairs a step while whole steps fit; returns the pairs done.
// With `kept`, the samples each step read are copied there too.
template <Store64Pixels Store, int kBytes>
PIXMOOR_TARGET_AVX512 int32_t PairSteps(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                        int32_t pairs, const Yuv420Lines<uint8_t>* kept) {
    const int32_t whole = pairs & ~31;
    for (int32_t j = 0; j < whole; j += 32) {
        const Offsets o = PairOffsets(in.u + j, in.v + j);
        Line64<Store>(in.y0 + 2 * j, o, top + 2 * kBytes * static_cast<intptr_t>(j));
        Line64<Store>(in.y1 + 2 * j, o, bottom + 2 * kBytes * static_cast<intptr_t>(j));
        avx512::KeepStep32(in, kept, j);
    }
    return whole;
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WideFromYuv420Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                   uint8_t* bottom, int32_t pairs) {
    return PairSteps<&avx512::StoreRgb64, 3>(in, top, bottom, pairs, nullptr);
}

PIXMOOR_TARGET_AVX512 int32_t WideFromYuv420Rgb0Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                       uint8_t* bottom, int32_t pairs,
                                                       const Yuv420Lines<uint8_t>* kept) {
    return PairSteps<&avx512::StoreRgb0x64, 4>(in, top, bottom, pairs, kept);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
