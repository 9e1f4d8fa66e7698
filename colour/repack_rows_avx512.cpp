// AVX-512 form of the packing row of tight 3-byte pixels into 16-bit words:
// sixteen pixels (48 bytes, one masked load that reads no byte past them) a
// step.  A dword permutation gives each 128-bit lane the 12 bytes of its
// four pixels, a byte shuffle spreads them to 32-bit lanes of blue, green,
// red and a zero byte, three shifts bring each field to its place and two
// bitwise selects join them, and a narrowing store writes the low 16 bits
// of each lane.  The fields are cut exactly as the scalar packing cuts them.
#include "colour/fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "colour/avx512_intrinsics.h"

namespace pixmoor {
namespace {

// Bitwise select: bits of `a` where `mask` is set, of `b` elsewhere.
PIXMOOR_TARGET_AVX512 inline __m512i Select(__m512i mask, __m512i a, __m512i b) {
    return _mm512_ternarylogic_epi32(mask, a, b, 0xCA);
}

template <RgbStoreKind Kind>
PIXMOOR_TARGET_AVX512 int32_t PackRow(const uint8_t* src, uint8_t* out, int32_t pixels) {
    const __m512i lanes = _mm512_setr_epi32(0, 1, 2, 3, 3, 4, 5, 6, 6, 7, 8, 9, 9, 10, 11, 12);
    const __m512i spread =
        _mm512_broadcast_i32x4(_mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1));
    // Where the first field ends and where the second one does: 5 and 11
    // bits for "RG56", 5 and 10 for "RG55".
    constexpr int kSecondShift = Kind == RgbStoreKind::kRgb565 ? 5 : 6;
    constexpr int kThirdShift = Kind == RgbStoreKind::kRgb565 ? 8 : 9;
    const __m512i firstBits = _mm512_set1_epi32(0x1F);
    const __m512i lowBits = _mm512_set1_epi32(Kind == RgbStoreKind::kRgb565 ? 0x7FF : 0x3FF);
    constexpr __mmask64 kPixelBytes = (__mmask64{1} << 48) - 1;
    if (pixels < 16) return 0;
    for (int32_t done = 0; done < pixels; done = NextBlock(done, pixels, 16)) {
        const __m512i bytes = _mm512_maskz_loadu_epi8(kPixelBytes, src + 3 * done);
        const __m512i p = _mm512_shuffle_epi8(_mm512_permutexvar_epi32(lanes, bytes), spread);
        // Each field is cut by shifting it down to its place: first >> 3 to
        // bit 0, second >> 2 or 3 to bit 5, third >> 3 to bit 10 or 11.
        const __m512i first = _mm512_srli_epi32(p, 3);
        const __m512i second = _mm512_srli_epi32(p, kSecondShift);
        const __m512i third = _mm512_srli_epi32(p, kThirdShift);
        const __m512i low = Select(firstBits, first, second);
        // The fourth byte of each lane is 0, so nothing stands above the
        // word's fields ("RG55" keeps its top bit clear).
        const __m512i word = Select(lowBits, low, third);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + 2 * done), _mm512_cvtepi32_epi16(word));
    }
    return pixels;
}

}  // namespace

RepackRowKernel RepackBgrRowAvx512(RgbStoreKind store) {
    switch (store) {
        case RgbStoreKind::kRgb565: return PackRow<RgbStoreKind::kRgb565>;
        case RgbStoreKind::kRgb555: return PackRow<RgbStoreKind::kRgb555>;
        default: return nullptr;  // "RG32" keeps the 256-bit row, which measured faster here
    }
}

}  // namespace pixmoor

#endif
