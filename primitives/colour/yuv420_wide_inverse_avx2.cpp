// The px and m6 inverse 4:2:0 row kernel to packed RGB with AVX2: 16 pixel
// pairs (32 pixels of each line) a step, the same bytes as the plain
// kernel.
//
// The plain kernel computes clamp((Y << 16 + t) >> 16) with a chroma term t
// at 16 fraction bits.  Since Y << 16 has no fraction, that is
// clamp(Y + (t >> 16)), and t >> 16 depends on the chroma pair alone: it is
// reckoned once a pair in 16-bit lanes, then added to each Y, and the
// unsigned saturating pack is the clamp.  Each factor is split into a whole
// multiple of 65536 and a remainder that fits a 16-bit lane, so that
// (f d) >> 16 = (f / 65536) d + mulhi(d, f mod 65536) exactly.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgb24_avx2.h"
#include "primitives/colour/wide_arith.h"

namespace pixmoor::colour::fast {
namespace {

// The inverse factors as whole part and 16-bit remainder.
constexpr int32_t kRvWhole = 1, kRvRest = wide::kRFromV - 65536;      // 9175
constexpr int32_t kBuWhole = 2, kBuRest = wide::kBFromU - 2 * 65536;  // 2097
// G's term -38076 dv - 25821 du: -dv plus the pair (27460 dv - 25821 du)
// summed in 32 bits by a multiply-add before its shift.
constexpr int32_t kGvRest = 65536 - wide::kGFromV;  // 27460
static_assert(kRvRest < 32768 && kBuRest < 32768 && kGvRest < 32768, "remainders fit 16 bits");

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
    static_assert(kRvWhole == 1 && kBuWhole == 2, "whole parts as added below");
    const __m256i r = _mm256_add_epi16(dv, _mm256_mulhi_epi16(dv, _mm256_set1_epi16(kRvRest)));
    const __m256i b = _mm256_add_epi16(_mm256_add_epi16(du, du),
                                       _mm256_mulhi_epi16(du, _mm256_set1_epi16(kBuRest)));
    const __m256i gFactors = _mm256_set1_epi32(static_cast<int32_t>(
        (static_cast<uint32_t>(-wide::kGFromU) << 16) | static_cast<uint32_t>(kGvRest)));
    const __m256i gLow = _mm256_srai_epi32(_mm256_madd_epi16(_mm256_unpacklo_epi16(dv, du), gFactors), 16);
    const __m256i gHigh = _mm256_srai_epi32(_mm256_madd_epi16(_mm256_unpackhi_epi16(dv, du), gFactors), 16);
    const __m256i g = _mm256_sub_epi16(_mm256_packs_epi32(gLow, gHigh), dv);
    return Offsets{r, g, b};
}

// One channel of 32 pixels: Y plus the offset of its pair, clamped.
PIXMOOR_TARGET_AVX2 __m256i Channel(__m256i yLow, __m256i yHigh, __m256i offset) {
    return _mm256_packus_epi16(_mm256_add_epi16(yLow, _mm256_unpacklo_epi16(offset, offset)),
                               _mm256_add_epi16(yHigh, _mm256_unpackhi_epi16(offset, offset)));
}

PIXMOOR_TARGET_AVX2 void Line32(const uint8_t* y, const Offsets& o, uint8_t* out) {
    const __m256i z = _mm256_setzero_si256();
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(y));
    const __m256i yLow = _mm256_unpacklo_epi8(bytes, z);
    const __m256i yHigh = _mm256_unpackhi_epi8(bytes, z);
    avx2::StoreRgb32(out, Channel(yLow, yHigh, o.r), Channel(yLow, yHigh, o.g),
                     Channel(yLow, yHigh, o.b));
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WideFromYuv420Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                               uint8_t* bottom, int32_t pairs) {
    const int32_t whole = pairs & ~15;
    for (int32_t j = 0; j < whole; j += 16) {
        const Offsets o = PairOffsets(in.u + j, in.v + j);
        Line32(in.y0 + 2 * j, o, top + 6 * static_cast<intptr_t>(j));
        Line32(in.y1 + 2 * j, o, bottom + 6 * static_cast<intptr_t>(j));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
