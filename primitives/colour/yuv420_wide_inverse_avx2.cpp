// The px and m6 inverse 4:2:0 row kernels to packed RGB (3-byte pixels,
// or 4-byte ones with a zero last byte) with AVX2: 16 pixel pairs (32
// pixels of each line) a step, the same bytes as the plain kernel.  Each
// channel is Y plus the chroma term of wide_terms_avx2.h, reckoned once a
// pair in 16-bit lanes; the unsigned saturating pack is the clamp.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgb24_avx2.h"
#include "primitives/colour/rgba_avx2.h"
#include "primitives/colour/wide_terms_avx2.h"
#include "primitives/colour/yuv420_keep_avx2.h"

namespace pixmoor::colour::fast {
namespace {

// The three offsets t >> 16 of 16 chroma pairs, one 16-bit lane each.
struct Offsets {
    __m256i r, g, b;
};

PIXMOOR_TARGET_AVX2 Offsets PairOffsets(const uint8_t* u, const uint8_t* v) {
    const __m256i c128 = _mm256_set1_epi16(128);
    const __m256i du = _mm256_sub_epi16(
        _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(u))), c128);
    const __m256i dv = _mm256_sub_epi16(
        _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(v))), c128);
    const __m256i r = _mm256_add_epi16(dv, _mm256_mulhi_epi16(dv, _mm256_set1_epi16(avx2::kRvRest)));
    const __m256i b = _mm256_add_epi16(_mm256_add_epi16(du, du),
                                       _mm256_mulhi_epi16(du, _mm256_set1_epi16(avx2::kBuRest)));
    const __m256i gFactors = avx2::GreenFactors();
    const __m256i gLow = _mm256_srai_epi32(_mm256_madd_epi16(_mm256_unpacklo_epi16(du, dv), gFactors), 16);
    const __m256i gHigh = _mm256_srai_epi32(_mm256_madd_epi16(_mm256_unpackhi_epi16(du, dv), gFactors), 16);
    const __m256i g = _mm256_sub_epi16(_mm256_packs_epi32(gLow, gHigh), dv);
    return Offsets{r, g, b};
}

// One channel of 32 pixels: Y plus the offset of its pair, clamped.
PIXMOOR_TARGET_AVX2 __m256i Channel(__m256i yLow, __m256i yHigh, __m256i offset) {
    return _mm256_packus_epi16(_mm256_add_epi16(yLow, _mm256_unpacklo_epi16(offset, offset)),
                               _mm256_add_epi16(yHigh, _mm256_unpackhi_epi16(offset, offset)));
}

// How 32 pixels of R, G, B bytes are written.
using Store32Pixels = void (*)(uint8_t*, __m256i, __m256i, __m256i);

template <Store32Pixels Store>
PIXMOOR_TARGET_AVX2 void Line32(const uint8_t* y, const Offsets& o, uint8_t* out) {
    const __m256i z = _mm256_setzero_si256();
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(y));
    const __m256i yLow = _mm256_unpacklo_epi8(bytes, z);
    const __m256i yHigh = _mm256_unpackhi_epi8(bytes, z);
    Store(out, Channel(yLow, yHigh, o.r), Channel(yLow, yHigh, o.g), Channel(yLow, yHigh, o.b));
}

// 16 pixel pairs a step while whole steps fit; returns the pairs done.
// With `kept`, the samples each step read are copied there too, while they
// are at hand.
template <Store32Pixels Store, int kBytes>
PIXMOOR_TARGET_AVX2 int32_t PairSteps(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                      int32_t pairs, const Yuv420Lines<uint8_t>* kept) {
    const int32_t whole = pairs & ~15;
    for (int32_t j = 0; j < whole; j += 16) {
        const Offsets o = PairOffsets(in.u + j, in.v + j);
        Line32<Store>(in.y0 + 2 * j, o, top + 2 * kBytes * static_cast<intptr_t>(j));
        Line32<Store>(in.y1 + 2 * j, o, bottom + 2 * kBytes * static_cast<intptr_t>(j));
        avx2::KeepStep16(in, kept, j);
    }
    return whole;
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WideFromYuv420Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                               uint8_t* bottom, int32_t pairs) {
    return PairSteps<&avx2::StoreRgb32, 3>(in, top, bottom, pairs, nullptr);
}

PIXMOOR_TARGET_AVX2 int32_t WideFromYuv420Rgb0Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                   uint8_t* bottom, int32_t pairs,
                                                   const Yuv420Lines<uint8_t>* kept) {
    return PairSteps<&avx2::StoreRgb0x32, 4>(in, top, bottom, pairs, kept);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
