// The px and m6 inverse 4:2:0 row kernels to packed RGB (3-byte pixels, or
// 4-byte ones with a zero last byte) with AVX-512: 32 pixel pairs (64
// pixels of each line) a step, the chroma arithmetic of the AVX2 form
// (yuv420_wide_inverse_avx2.cpp) on 512-bit vectors, the same bytes as the
// plain kernel.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/rgb24_avx512.h"
#include "primitives/colour/rgba_avx512.h"
#include "primitives/colour/wide_terms_avx2.h"
#include "primitives/colour/yuv420_gather_avx512.h"
#include "primitives/colour/yuv420_keep_avx512.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX512 __m512i Centred(const uint8_t* p) {
    return _mm512_sub_epi16(_mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))),
                            _mm512_set1_epi16(128));
}

// t >> 16 of 32 chroma pairs for each channel, one 16-bit lane each.
PIXMOOR_TARGET_AVX512 avx512::PairOffsets OffsetsOf(const uint8_t* u, const uint8_t* v) {
    const __m512i du = Centred(u), dv = Centred(v);
    const __m512i r = _mm512_add_epi16(dv, _mm512_mulhi_epi16(dv, _mm512_set1_epi16(avx2::kRvRest)));
    const __m512i b = _mm512_add_epi16(_mm512_add_epi16(du, du), _mm512_mulhi_epi16(du, _mm512_set1_epi16(avx2::kBuRest)));
    const __m512i gFactors = _mm512_broadcast_i32x4(_mm256_castsi256_si128(avx2::GreenFactors()));
    const __m512i gLow = _mm512_srai_epi32(_mm512_madd_epi16(_mm512_unpacklo_epi16(du, dv), gFactors), 16);
    const __m512i gHigh = _mm512_srai_epi32(_mm512_madd_epi16(_mm512_unpackhi_epi16(du, dv), gFactors), 16);
    return avx512::PairOffsets{r, _mm512_sub_epi16(_mm512_packs_epi32(gLow, gHigh), dv), b};
}

// How 64 pixels are written from their channel words.
using Store64Pixels = void (*)(uint8_t*, const avx512::ChannelWords&);

// The offsets of 64 pixels, each pair's twice, laid out as the byte
// unpacks of the Y samples lay out their pixels (avx512::ChannelWords);
// reckoned once a step for both lines.
PIXMOOR_TARGET_AVX512 avx512::ChannelWords PixelOffsets(const avx512::PairOffsets& o) {
    return avx512::ChannelWords{_mm512_unpacklo_epi16(o.r, o.r), _mm512_unpackhi_epi16(o.r, o.r),
                                _mm512_unpacklo_epi16(o.g, o.g), _mm512_unpackhi_epi16(o.g, o.g),
                                _mm512_unpacklo_epi16(o.b, o.b), _mm512_unpackhi_epi16(o.b, o.b)};
}

// 64 pixels of a line: Y plus the offset of its pair, clamped as stored.
template <Store64Pixels Store>
PIXMOOR_TARGET_AVX512 void Line64(const uint8_t* y, const avx512::ChannelWords& o, uint8_t* out) {
    const __m512i z = _mm512_setzero_si512();
    const __m512i bytes = _mm512_loadu_si512(y);
    const __m512i yLow = _mm512_unpacklo_epi8(bytes, z);
    const __m512i yHigh = _mm512_unpackhi_epi8(bytes, z);
    Store(out, avx512::ChannelWords{_mm512_add_epi16(yLow, o.rLow), _mm512_add_epi16(yHigh, o.rHigh),
                                    _mm512_add_epi16(yLow, o.gLow), _mm512_add_epi16(yHigh, o.gHigh),
                                    _mm512_add_epi16(yLow, o.bLow), _mm512_add_epi16(yHigh, o.bHigh)});
}

// 32 pixel pairs a step while whole steps fit; returns the pairs done.
// With `kept`, the samples each step read are copied there too.
template <Store64Pixels Store, int kBytes>
PIXMOOR_TARGET_AVX512 int32_t PairSteps(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                        int32_t pairs, const Yuv420Lines<uint8_t>* kept) {
    const int32_t whole = pairs & ~31;
    for (int32_t j = 0; j < whole; j += 32) {
        const avx512::ChannelWords o = PixelOffsets(OffsetsOf(in.u + j, in.v + j));
        Line64<Store>(in.y0 + 2 * j, o, top + 2 * kBytes * static_cast<intptr_t>(j));
        Line64<Store>(in.y1 + 2 * j, o, bottom + 2 * kBytes * static_cast<intptr_t>(j));
        avx512::KeepStep32(in, kept, j);
    }
    return whole;
}

// The offsets of the step at pair j, for avx512::GatheredSteps.
struct OffsetsAt {
    const Yuv420Lines<const uint8_t>& in;
    PIXMOOR_TARGET_AVX512 avx512::PairOffsets operator()(int32_t j) const { return OffsetsOf(in.u + j, in.v + j); }
};

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WideFromYuv420Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                   uint8_t* bottom, int32_t pairs) {
    return avx512::GatheredSteps(in, top, bottom, pairs, OffsetsAt{in});
}

PIXMOOR_TARGET_AVX512 int32_t WideFromYuv420Rgb0Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                       uint8_t* bottom, int32_t pairs,
                                                       const Yuv420Lines<uint8_t>* kept) {
    return PairSteps<&avx512::StoreRgb0Words64, 4>(in, top, bottom, pairs, kept);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
