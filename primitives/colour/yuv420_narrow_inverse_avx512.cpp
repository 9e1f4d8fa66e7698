// The a6 and w7 inverse 4:2:0 row kernels to packed RGB (3-byte pixels, or
// 4-byte ones with a zero last byte) with AVX-512: the
// lane arithmetic of the AVX2 form (yuv420_narrow_inverse_avx2.cpp) on
// 512-bit vectors, 32 pixel pairs (64 pixels of each line) a step.  Each
// group of eight pixels meets the tier's factor lanes as in its own main
// loop; the caller hands over only pairs that its main loop would take.
// Into 3-byte pixels, factor rows the same in every lane (w7) let a pair's
// two pixels share their terms, which then take the gathering step of the
// wide form.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/rgb24_avx512.h"
#include "primitives/colour/rgba_avx512.h"
#include "primitives/colour/yuv420_gather_avx512.h"
#include "primitives/colour/yuv420_keep_avx512.h"

namespace pixmoor::colour::fast {
namespace {

struct Factors {
    __m512i rv, ru, gu, gv, bu;
};

PIXMOOR_TARGET_AVX512 __m512i Row(const int16_t (&row)[8]) {
    return _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(row)));
}

// u' = 16 (U - 128) of 32 chroma samples.
PIXMOOR_TARGET_AVX512 __m512i Centred(const uint8_t* p) {
    const __m512i c = _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)));
    return _mm512_slli_epi16(_mm512_sub_epi16(c, _mm512_set1_epi16(128)), 4);
}

// Y + (term >> 1) for (2Y + term) >> 1, the half terms reckoned once a
// step for both lines, as in the AVX2 form.
struct HalfTerms {
    __m512i r, g, b;
};

// The half terms of 32 pixels from their chroma (each pair's u', v' twice).
PIXMOOR_TARGET_AVX512 HalfTerms Terms(__m512i du, __m512i dv, const Factors& f) {
    const __m512i r = _mm512_add_epi16(_mm512_mulhi_epi16(dv, f.rv), _mm512_mulhi_epi16(du, f.ru));
    const __m512i g = _mm512_add_epi16(_mm512_mulhi_epi16(du, f.gu), _mm512_mulhi_epi16(dv, f.gv));
    const __m512i b = _mm512_mulhi_epi16(du, f.bu);
    return HalfTerms{_mm512_srai_epi16(r, 1), _mm512_srai_epi16(g, 1), _mm512_srai_epi16(b, 1)};
}

// How 64 pixels are written from their channel words.
using Store64Pixels = void (*)(uint8_t*, const avx512::ChannelWords&);

// 32 pixel pairs a step while whole steps fit, pixels of kBytes bytes;
// returns the pairs done.  With `kept`, the samples each step read are
// copied there too.
template <Store64Pixels Store, int kBytes>
PIXMOOR_TARGET_AVX512 int32_t PairSteps(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                        int32_t pairs, const int16_t (&lanes)[5][8],
                                        const Yuv420Lines<uint8_t>* kept) {
    const Factors f{Row(lanes[0]), Row(lanes[1]), Row(lanes[2]), Row(lanes[3]), Row(lanes[4])};
    const __m512i z = _mm512_setzero_si512();
    const int32_t whole = pairs & ~31;
    for (int32_t j = 0; j < whole; j += 32) {
        // Lane k: pairs 8k to 8k+7, spread to pixels 16k to 16k+7 (low)
        // and 16k+8 to 16k+15 (high), as the unpacks of the Y bytes give.
        const __m512i du = Centred(in.u + j), dv = Centred(in.v + j);
        const HalfTerms low = Terms(_mm512_unpacklo_epi16(du, du), _mm512_unpacklo_epi16(dv, dv), f);
        const HalfTerms high = Terms(_mm512_unpackhi_epi16(du, du), _mm512_unpackhi_epi16(dv, dv), f);
        const uint8_t* lines[2] = {in.y0 + 2 * j, in.y1 + 2 * j};
        uint8_t* outs[2] = {top + 2 * kBytes * static_cast<intptr_t>(j), bottom + 2 * kBytes * static_cast<intptr_t>(j)};
        for (int k = 0; k < 2; ++k) {
            const __m512i y = _mm512_loadu_si512(lines[k]);
            const __m512i yLow = _mm512_unpacklo_epi8(y, z), yHigh = _mm512_unpackhi_epi8(y, z);
            Store(outs[k], avx512::ChannelWords{_mm512_add_epi16(yLow, low.r), _mm512_add_epi16(yHigh, high.r),
                                                _mm512_add_epi16(yLow, low.g), _mm512_add_epi16(yHigh, high.g),
                                                _mm512_add_epi16(yLow, low.b), _mm512_add_epi16(yHigh, high.b)});
        }
        avx512::KeepStep32(in, kept, j);
    }
    return whole;
}

// Where each factor row is the same in all eight lanes (w7's rows), both
// pixels of a pair take the same half terms: they are reckoned once a
// pair, in pair order, and gathered with Y into output order as in
// yuv420_gather_avx512.h.
bool SameInEveryLane(const int16_t (&lanes)[5][8]) {
    for (const auto& row : lanes)
        for (int16_t factor : row)
            if (factor != row[0]) return false;
    return true;
}

// The half terms of the step at pair j, one a pair, for
// avx512::GatheredSteps.
struct PairHalfTermsAt {
    const Yuv420Lines<const uint8_t>& in;
    const Factors& f;
    PIXMOOR_TARGET_AVX512 avx512::PairOffsets operator()(int32_t j) const {
        const HalfTerms t = Terms(Centred(in.u + j), Centred(in.v + j), f);
        return avx512::PairOffsets{t.r, t.g, t.b};
    }
};

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t NarrowFromYuv420Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                     uint8_t* bottom, int32_t pairs,
                                                     const int16_t (&lanes)[5][8]) {
    if (SameInEveryLane(lanes)) {
        const Factors f{Row(lanes[0]), Row(lanes[1]), Row(lanes[2]), Row(lanes[3]), Row(lanes[4])};
        return avx512::GatheredSteps(in, top, bottom, pairs, PairHalfTermsAt{in, f});
    }
    return PairSteps<&avx512::StoreRgbWords64, 3>(in, top, bottom, pairs, lanes, nullptr);
}

PIXMOOR_TARGET_AVX512 int32_t NarrowFromYuv420Rgb0Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                         uint8_t* bottom, int32_t pairs,
                                                         const int16_t (&lanes)[5][8],
                                                         const Yuv420Lines<uint8_t>* kept) {
    return PairSteps<&avx512::StoreRgb0Words64, 4>(in, top, bottom, pairs, lanes, kept);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
