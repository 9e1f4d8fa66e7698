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

// How 64 pixels are written from their channel words.
using Store64Pixels = void (*)(uint8_t*, const avx512::ChannelWords&);

// The offsets of 64 pixels, each pair's twice, laid out as the byte
// unpacks of the Y samples lay out their pixels (avx512::ChannelWords);
// reckoned once a step for both lines.
PIXMOOR_TARGET_AVX512 avx512::ChannelWords PixelOffsets(const Offsets& o) {
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
        const avx512::ChannelWords o = PixelOffsets(PairOffsets(in.u + j, in.v + j));
        Line64<Store>(in.y0 + 2 * j, o, top + 2 * kBytes * static_cast<intptr_t>(j));
        Line64<Store>(in.y1 + 2 * j, o, bottom + 2 * kBytes * static_cast<intptr_t>(j));
        avx512::KeepStep32(in, kept, j);
    }
    return whole;
}

// ---- 3-byte pixels: the words gathered in output order before the add.
//
// The 192 output bytes of 64 pixels are three registers, each the unsigned
// saturating pack of two word registers ("halves"): byte 16 k + i of lane k
// is word 8 k + i of the first half for i < 8, of the second otherwise.
// Each half is Y of its pixels plus the offsets of their pairs and
// channels, both gathered into that order by word permutes, the offsets
// once a step for both lines.  On this path that takes fewer operations
// than clamping each channel's bytes and interleaving them.
struct OutputGather {
    int16_t luma[6][32];    // pixel 0-63 over the two Y word registers
    int16_t chroma[6][32];  // pair of R (from r) or B (from b), 32 + pair of G (from g)
    uint32_t blue[6];       // the words that take B
};

constexpr OutputGather MakeOutputGather() {
    OutputGather t{};
    for (int h = 0; h < 6; ++h)
        for (int w = 0; w < 32; ++w) {
            const int o = 64 * (h / 2) + 16 * (w / 8) + 8 * (h % 2) + w % 8;
            const int pixel = o / 3, channel = o % 3;
            t.luma[h][w] = static_cast<int16_t>(pixel);
            t.chroma[h][w] = static_cast<int16_t>(pixel / 2 + (channel == 1 ? 32 : 0));
            if (channel == 2) t.blue[h] |= 1u << w;
        }
    return t;
}

alignas(64) constexpr OutputGather kOutputGather = MakeOutputGather();

PIXMOOR_TARGET_AVX512 __m512i Words(const int16_t (&w)[32]) { return _mm512_load_si512(w); }

// 64 pixels of a line from the gathered offsets of their pairs.
PIXMOOR_TARGET_AVX512 void GatheredLine64(const uint8_t* y, const __m512i (&offsets)[6], uint8_t* out) {
    const __m512i y0 = _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(y)));
    const __m512i y1 = _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(y + 32)));
    for (int m = 0; m < 3; ++m) {
        const __m512i first = _mm512_add_epi16(
            _mm512_permutex2var_epi16(y0, Words(kOutputGather.luma[2 * m]), y1), offsets[2 * m]);
        const __m512i second = _mm512_add_epi16(
            _mm512_permutex2var_epi16(y0, Words(kOutputGather.luma[2 * m + 1]), y1), offsets[2 * m + 1]);
        _mm512_storeu_si512(out + 64 * m, _mm512_packus_epi16(first, second));
    }
}

PIXMOOR_TARGET_AVX512 int32_t GatheredSteps(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                            int32_t pairs) {
    const int32_t whole = pairs & ~31;
    for (int32_t j = 0; j < whole; j += 32) {
        const Offsets o = PairOffsets(in.u + j, in.v + j);
        __m512i offsets[6];
        for (int h = 0; h < 6; ++h) {
            const __m512i pick = Words(kOutputGather.chroma[h]);
            offsets[h] = _mm512_mask_permutexvar_epi16(_mm512_permutex2var_epi16(o.r, pick, o.g),
                                                       kOutputGather.blue[h], pick, o.b);
        }
        GatheredLine64(in.y0 + 2 * j, offsets, top + 6 * static_cast<intptr_t>(j));
        GatheredLine64(in.y1 + 2 * j, offsets, bottom + 6 * static_cast<intptr_t>(j));
    }
    return whole;
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WideFromYuv420Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                   uint8_t* bottom, int32_t pairs) {
    return GatheredSteps(in, top, bottom, pairs);
}

PIXMOOR_TARGET_AVX512 int32_t WideFromYuv420Rgb0Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                       uint8_t* bottom, int32_t pairs,
                                                       const Yuv420Lines<uint8_t>* kept) {
    return PairSteps<&avx512::StoreRgb0Words64, 4>(in, top, bottom, pairs, kept);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
