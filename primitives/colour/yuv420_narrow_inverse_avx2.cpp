// The a6 and w7 inverse 4:2:0 row kernels to packed RGB (3-byte pixels, or
// 4-byte ones with a zero last byte) with AVX2: the bytes of their SSE2
// forms (narrow_sse2.h) from the same 16-bit lane products, 16 pixel pairs
// (32 pixels of each line) a step.  Each pixel meets the factor lane of its
// position in a group of eight, as in the tier's own main loop, so a6's odd
// row lands on the same pixels; the caller hands over only pairs that its
// main loop would take.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgb24_avx2.h"
#include "primitives/colour/rgba_avx2.h"
#include "primitives/colour/yuv420_keep_avx2.h"

namespace pixmoor::colour::fast {
namespace {

struct Factors {
    __m256i rv, ru, gu, gv, bu;
};

PIXMOOR_TARGET_AVX2 __m256i Row(const int16_t (&row)[8]) {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(row)));
}

// u' = 16 (U - 128) of 16 chroma samples.
PIXMOOR_TARGET_AVX2 __m256i Centred(const uint8_t* p) {
    const __m256i c = _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
    return _mm256_slli_epi16(_mm256_sub_epi16(c, _mm256_set1_epi16(128)), 4);
}

// Each channel is (2Y + term) >> 1, which is Y + (term >> 1) exactly: the
// sums stay far inside 16 bits (|term| < 600) and the shift is a floor
// either way.  So a step reckons term >> 1 of its pixels once, for both
// lines, and each line only adds its Y, as the wide kernels add theirs.
struct HalfTerms {
    __m256i r, g, b;
};

// The half terms of 16 pixels from their chroma (each pair's u', v' twice).
PIXMOOR_TARGET_AVX2 HalfTerms Terms(__m256i du, __m256i dv, const Factors& f) {
    const __m256i r = _mm256_add_epi16(_mm256_mulhi_epi16(dv, f.rv), _mm256_mulhi_epi16(du, f.ru));
    const __m256i g = _mm256_add_epi16(_mm256_mulhi_epi16(du, f.gu), _mm256_mulhi_epi16(dv, f.gv));
    const __m256i b = _mm256_mulhi_epi16(du, f.bu);
    return HalfTerms{_mm256_srai_epi16(r, 1), _mm256_srai_epi16(g, 1), _mm256_srai_epi16(b, 1)};
}

// One channel of 32 pixels, clamped to bytes in pixel order.
PIXMOOR_TARGET_AVX2 __m256i Channel(__m256i yLow, __m256i yHigh, __m256i termLow, __m256i termHigh) {
    return _mm256_packus_epi16(_mm256_add_epi16(yLow, termLow), _mm256_add_epi16(yHigh, termHigh));
}

// How 32 pixels of R, G, B bytes are written.
using Store32Pixels = void (*)(uint8_t*, __m256i, __m256i, __m256i);

// 16 pixel pairs a step while whole steps fit, pixels of kBytes bytes;
// returns the pairs done.  With `kept`, the samples each step read are
// copied there too.
template <Store32Pixels Store, int kBytes>
PIXMOOR_TARGET_AVX2 int32_t PairSteps(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                      int32_t pairs, const int16_t (&lanes)[5][8],
                                      const Yuv420Lines<uint8_t>* kept) {
    const Factors f{Row(lanes[0]), Row(lanes[1]), Row(lanes[2]), Row(lanes[3]), Row(lanes[4])};
    const __m256i z = _mm256_setzero_si256();
    const int32_t whole = pairs & ~15;
    for (int32_t j = 0; j < whole; j += 16) {
        // Lane halves: pairs 0-7 | 8-15 spread to pixels 0-7 | 16-23 (low)
        // and 8-15 | 24-31 (high), as the unpacks of the Y bytes give them.
        const __m256i du = Centred(in.u + j), dv = Centred(in.v + j);
        const HalfTerms low = Terms(_mm256_unpacklo_epi16(du, du), _mm256_unpacklo_epi16(dv, dv), f);
        const HalfTerms high = Terms(_mm256_unpackhi_epi16(du, du), _mm256_unpackhi_epi16(dv, dv), f);
        const uint8_t* lines[2] = {in.y0 + 2 * j, in.y1 + 2 * j};
        uint8_t* outs[2] = {top + 2 * kBytes * static_cast<intptr_t>(j), bottom + 2 * kBytes * static_cast<intptr_t>(j)};
        for (int k = 0; k < 2; ++k) {
            const __m256i y = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(lines[k]));
            const __m256i yLow = _mm256_unpacklo_epi8(y, z), yHigh = _mm256_unpackhi_epi8(y, z);
            Store(outs[k], Channel(yLow, yHigh, low.r, high.r), Channel(yLow, yHigh, low.g, high.g),
                  Channel(yLow, yHigh, low.b, high.b));
        }
        avx2::KeepStep16(in, kept, j);
    }
    return whole;
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t NarrowFromYuv420Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                 uint8_t* bottom, int32_t pairs,
                                                 const int16_t (&lanes)[5][8]) {
    return PairSteps<&avx2::StoreRgb32, 3>(in, top, bottom, pairs, lanes, nullptr);
}

PIXMOOR_TARGET_AVX2 int32_t NarrowFromYuv420Rgb0Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                     uint8_t* bottom, int32_t pairs,
                                                     const int16_t (&lanes)[5][8],
                                                     const Yuv420Lines<uint8_t>* kept) {
    return PairSteps<&avx2::StoreRgb0x32, 4>(in, top, bottom, pairs, lanes, kept);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
