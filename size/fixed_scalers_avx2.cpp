// The doubling and halving groups of the fixed 24-bit routines as byte
// shuffles: each 16-byte output block is gathered from one or two 16-byte
// loads of the group, so a group costs three or four shuffles.  The tables
// are made from the same patterns as the plain groups, the one altered byte
// of doubling included.
#include "size/fixed_scalers_avx2.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

namespace {

constexpr int kPixelBytes = 3;

// Doubling: output byte o of a group shows this byte of the group's input.
// The second copy of pixel 6 takes its first byte from pixel 7.
constexpr int DoubledSource(int o) {
    const int pixel = o / kPixelBytes, channel = o % kPixelBytes;
    if (pixel == 13 && channel == 0) return 7 * kPixelBytes;
    return (pixel / 2) * kPixelBytes + channel;
}

// Halving: output byte o shows this byte of the group's 48 input bytes.
constexpr int HalvedSource(int o) { return (o / kPixelBytes) * 2 * kPixelBytes + o % kPixelBytes; }

struct Shuffle {
    uint8_t lane[16];
};

// The shuffle that puts into output bytes outFirst..outFirst+15 the bytes of
// a 16-byte load at input byte `loadAt`; bytes from elsewhere stay zero.
template <int (*Source)(int)>
constexpr Shuffle MakeShuffle(int outFirst, int loadAt) {
    Shuffle s{};
    for (int b = 0; b < 16; ++b) {
        const int in = Source(outFirst + b) - loadAt;
        s.lane[b] = static_cast<uint8_t>(in >= 0 && in < 16 ? in : 0x80);
    }
    return s;
}

// Doubling: output blocks at 0, 16 and 32 from loads at 0, 4 and 8.
constexpr Shuffle kDouble[3] = {MakeShuffle<DoubledSource>(0, 0), MakeShuffle<DoubledSource>(16, 4),
                                MakeShuffle<DoubledSource>(32, 8)};
constexpr int kDoubleLoads[3] = {0, 4, 8};

// Halving: output blocks at 0 (loads at 0 and 16) and at 8 (loads at 14 and
// 29), the second overlapping the first.
constexpr Shuffle kHalve[4] = {MakeShuffle<HalvedSource>(0, 0), MakeShuffle<HalvedSource>(0, 16),
                               MakeShuffle<HalvedSource>(8, 14), MakeShuffle<HalvedSource>(8, 29)};

PIXMOOR_TARGET_AVX2 inline __m128i Load(const void* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
PIXMOOR_TARGET_AVX2 inline void Store(void* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
PIXMOOR_TARGET_AVX2 inline __m128i Shuffled(const uint8_t* at, const Shuffle& s) {
    return _mm_shuffle_epi8(Load(at), Load(s.lane));
}

PIXMOOR_TARGET_AVX2 void DoubleLine(const uint8_t*& src, uint8_t*& dst, int32_t groups) {
    for (int32_t g = 0; g < groups; ++g, src += 24, dst += 48)
        for (int k = 0; k < 3; ++k) Store(dst + 16 * k, Shuffled(src + kDoubleLoads[k], kDouble[k]));
}

PIXMOOR_TARGET_AVX2 void HalveLine(const uint8_t*& src, uint8_t*& dst, int32_t groups) {
    for (int32_t g = 0; g < groups; ++g, src += 48, dst += 24) {
        Store(dst, _mm_or_si128(Shuffled(src, kHalve[0]), Shuffled(src + 16, kHalve[1])));
        Store(dst + 8, _mm_or_si128(Shuffled(src + 14, kHalve[2]), Shuffled(src + 29, kHalve[3])));
    }
}

const FixedLineKernels kKernels = {DoubleLine, HalveLine};

}  // namespace

const FixedLineKernels& FixedLineKernelsAvx2() { return kKernels; }

#endif
