// The AVX-512 step of the 4:2:0 inverse kernels into 3-byte pixels whose
// two pixels of a pair share their chroma offsets (every channel is Y plus
// the offset of its pair): the px and m6 kernels, and a6 and w7 where their
// factors are the same for both pixels of a pair.
//
// The 192 output bytes of 64 pixels are three registers, each the unsigned
// saturating pack of two word registers ("halves"): byte 16 k + i of lane k
// is word 8 k + i of the first half for i < 8, of the second otherwise.
// Each half is Y of its pixels plus the offsets of their pairs and
// channels, both gathered into that order by word permutes, the offsets
// once a step for both lines.  That takes fewer operations than clamping
// each channel's bytes and interleaving them.  Only units whose functions
// carry PIXMOOR_TARGET_AVX512 include this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_GATHER_AVX512_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_GATHER_AVX512_H

#include "primitives/colour/image_layouts.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"

#include <cstdint>

namespace pixmoor::colour::avx512 {

// The offsets of 32 pairs in pair order, one 16-bit lane each.
struct PairOffsets {
    __m512i r, g, b;
};

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

alignas(64) inline constexpr OutputGather kOutputGather = MakeOutputGather();

PIXMOOR_TARGET_AVX512 inline __m512i GatherWords(const int16_t (&w)[32]) { return _mm512_load_si512(w); }

// The offsets of the six halves.
struct GatheredOffsets {
    __m512i half[6];
};

PIXMOOR_TARGET_AVX512 inline GatheredOffsets Gather(const PairOffsets& o) {
    GatheredOffsets g;
    for (int h = 0; h < 6; ++h) {
        const __m512i pick = GatherWords(kOutputGather.chroma[h]);
        g.half[h] = _mm512_mask_permutexvar_epi16(_mm512_permutex2var_epi16(o.r, pick, o.g), kOutputGather.blue[h],
                                                  pick, o.b);
    }
    return g;
}

// 64 pixels of a line from the gathered offsets of their pairs.
PIXMOOR_TARGET_AVX512 inline void GatheredLine64(const uint8_t* y, const GatheredOffsets& o, uint8_t* out) {
    const __m512i y0 = _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(y)));
    const __m512i y1 = _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(y + 32)));
    for (int m = 0; m < 3; ++m) {
        const __m512i first =
            _mm512_add_epi16(_mm512_permutex2var_epi16(y0, GatherWords(kOutputGather.luma[2 * m]), y1), o.half[2 * m]);
        const __m512i second = _mm512_add_epi16(
            _mm512_permutex2var_epi16(y0, GatherWords(kOutputGather.luma[2 * m + 1]), y1), o.half[2 * m + 1]);
        _mm512_storeu_si512(out + 64 * m, _mm512_packus_epi16(first, second));
    }
}

// 32 pixel pairs a step while whole steps fit; returns the pairs done.
// `offsets(j)` gives the offsets of pairs j to j + 31.
template <class PairOffsetsAt>
PIXMOOR_TARGET_AVX512 inline int32_t GatheredSteps(const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                                   uint8_t* bottom, int32_t pairs, PairOffsetsAt offsets) {
    const int32_t whole = pairs & ~31;
    for (int32_t j = 0; j < whole; j += 32) {
        const GatheredOffsets o = Gather(offsets(j));
        GatheredLine64(in.y0 + 2 * j, o, top + 6 * static_cast<intptr_t>(j));
        GatheredLine64(in.y1 + 2 * j, o, bottom + 6 * static_cast<intptr_t>(j));
    }
    return whole;
}

}  // namespace pixmoor::colour::avx512

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif
