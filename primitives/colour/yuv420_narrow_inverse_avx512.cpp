// The a6 and w7 inverse 4:2:0 row kernels to packed RGB (3-byte pixels, or
// 4-byte ones with a zero last byte) with AVX-512: the
// lane arithmetic of the AVX2 form (yuv420_narrow_inverse_avx2.cpp) on
// 512-bit vectors, 32 pixel pairs (64 pixels of each line) a step.  Each
// group of eight pixels meets the tier's factor lanes as in its own main
// loop; the caller hands over only pairs that its main loop would take.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/rgb24_avx512.h"
#include "primitives/colour/rgba_avx512.h"
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

// One channel of 32 pixels: (2Y + term) >> 1.
PIXMOOR_TARGET_AVX512 __m512i Channel(__m512i y, __m512i term) {
    return _mm512_srai_epi16(_mm512_add_epi16(_mm512_add_epi16(y, y), term), 1);
}

// The chroma of 32 pixels (each pair's u', v' twice) and their Y lanes.
struct Half {
    __m512i du, dv, y;
};

PIXMOOR_TARGET_AVX512 __m512i Red(const Half& h, const Factors& f) {
    return Channel(h.y, _mm512_add_epi16(_mm512_mulhi_epi16(h.dv, f.rv), _mm512_mulhi_epi16(h.du, f.ru)));
}
PIXMOOR_TARGET_AVX512 __m512i Green(const Half& h, const Factors& f) {
    return Channel(h.y, _mm512_add_epi16(_mm512_mulhi_epi16(h.du, f.gu), _mm512_mulhi_epi16(h.dv, f.gv)));
}
PIXMOOR_TARGET_AVX512 __m512i Blue(const Half& h, const Factors& f) {
    return Channel(h.y, _mm512_mulhi_epi16(h.du, f.bu));
}

// How 64 pixels of R, G, B bytes are written.
using Store64Pixels = void (*)(uint8_t*, __m512i, __m512i, __m512i);

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
        const __m512i duLow = _mm512_unpacklo_epi16(du, du), duHigh = _mm512_unpackhi_epi16(du, du);
        const __m512i dvLow = _mm512_unpacklo_epi16(dv, dv), dvHigh = _mm512_unpackhi_epi16(dv, dv);
        const uint8_t* lines[2] = {in.y0 + 2 * j, in.y1 + 2 * j};
        uint8_t* outs[2] = {top + 2 * kBytes * static_cast<intptr_t>(j), bottom + 2 * kBytes * static_cast<intptr_t>(j)};
        for (int k = 0; k < 2; ++k) {
            const __m512i y = _mm512_loadu_si512(lines[k]);
            const Half low{duLow, dvLow, _mm512_unpacklo_epi8(y, z)};
            const Half high{duHigh, dvHigh, _mm512_unpackhi_epi8(y, z)};
            Store(outs[k], _mm512_packus_epi16(Red(low, f), Red(high, f)),
                  _mm512_packus_epi16(Green(low, f), Green(high, f)), _mm512_packus_epi16(Blue(low, f), Blue(high, f)));
        }
        avx512::KeepStep32(in, kept, j);
    }
    return whole;
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t NarrowFromYuv420Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                     uint8_t* bottom, int32_t pairs,
                                                     const int16_t (&lanes)[5][8]) {
    return PairSteps<&avx512::StoreRgb64, 3>(in, top, bottom, pairs, lanes, nullptr);
}

PIXMOOR_TARGET_AVX512 int32_t NarrowFromYuv420Rgb0Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                         uint8_t* bottom, int32_t pairs,
                                                         const int16_t (&lanes)[5][8],
                                                         const Yuv420Lines<uint8_t>* kept) {
    return PairSteps<&avx512::StoreRgb0x64, 4>(in, top, bottom, pairs, lanes, kept);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
