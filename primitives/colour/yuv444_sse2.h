// Building blocks of the vector tiers' 4:4:4 row kernels, in 128-bit SSE2
// registers: loads that spread a block of pixels to one 16-bit lane per
// sample, the narrow arithmetic on eight lanes, and stores back to each
// layout.  w7 takes 16 pixels a block, a6 (a 64-bit vector tier, run in
// the low halves) 8.  Each result equals the plain form in
// yuv444_narrow.h, lane for lane, so tails and prologues use that form.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV444_SSE2_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV444_SSE2_H

#include <emmintrin.h>

#include <cstdint>
#include <cstring>

#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/yuv444_driver.h"
#include "primitives/colour/yuv444_fast_rows.h"
#include "primitives/colour/yuv444_narrow.h"

namespace pixmoor::colour::sse2 {

// Eight pixels, one 16-bit lane a sample, channels in array order.
struct Trio {
    __m128i s[3];
};
// A block of up to 16 pixels: pixels 0 to 7, then 8 to 15.
struct Block {
    Trio half[2];
};
// A block's results as bytes, one register per channel.
struct Bytes {
    __m128i s[3];
};

inline Trio Widen(const __m128i bytes[3], bool high) {
    const Channels c = high ? WidenHigh(bytes[0], bytes[1], bytes[2]) : WidenLow(bytes[0], bytes[1], bytes[2]);
    return Trio{{c.r, c.g, c.b}};
}

template <int N>
Bytes Pack(const Block& b) {
    const Trio& high = N > 8 ? b.half[1] : b.half[0];
    Bytes out;
    for (int k = 0; k < 3; ++k) out.s[k] = _mm_packus_epi16(b.half[0].s[k], high.s[k]);
    return out;
}

// ---- Loads.  `Touch` is the tier's hook on each source pointer (a6
// prefetches there).

template <class Tier, int N>
Block LoadPacked3(const uint8_t* line, int32_t x) {
    const uint8_t* p = line + 3 * static_cast<intptr_t>(x);
    Tier::Touch(p);
    __m128i c[3] = {Load16(p), N > 8 ? Load16(p + 16) : Load8(p + 16),
                    N > 8 ? Load16(p + 32) : _mm_setzero_si128()};
    Deinterleave(c[0], c[1], c[2]);
    return Block{{Widen(c, false), Widen(c, true)}};
}

// Four pixels of 4 bytes (16 bytes) to the low four lanes of each channel,
// the next four to the high lanes; byte 3 is dropped.
inline Trio SplitPacked4(__m128i low, __m128i high) {
    const __m128i m = _mm_set1_epi32(0xFF);
    Trio t;
    for (int k = 0; k < 3; ++k)
        t.s[k] = _mm_packs_epi32(_mm_and_si128(_mm_srli_epi32(low, 8 * k), m),
                                 _mm_and_si128(_mm_srli_epi32(high, 8 * k), m));
    return t;
}

template <class Tier, int N>
Block LoadPacked4(const uint8_t* line, int32_t x) {
    const uint8_t* p = line + 4 * static_cast<intptr_t>(x);
    Tier::Touch(p);
    Block b;
    b.half[0] = SplitPacked4(Load16(p), N > 4 ? Load16(p + 16) : _mm_setzero_si128());
    b.half[1] = N > 8 ? SplitPacked4(Load16(p + 32), Load16(p + 48)) : b.half[0];
    return b;
}

template <class Tier, int N>
Block LoadPlanes(const PlaneLines<const uint8_t>& l, int32_t x) {
    __m128i c[3];
    for (int k = 0; k < 3; ++k) {
        Tier::Touch(l.plane[k] + x);
        c[k] = N > 8 ? Load16(l.plane[k] + x) : Load8(l.plane[k] + x);
    }
    return Block{{Widen(c, false), Widen(c, true)}};
}

template <class Tier, class In>
struct Loader;
template <class Tier>
struct Loader<Tier, Packed3In> {
    template <int N>
    static Block Load(const uint8_t* l, int32_t x) { return LoadPacked3<Tier, N>(l, x); }
};
template <class Tier>
struct Loader<Tier, Packed4In> {
    template <int N>
    static Block Load(const uint8_t* l, int32_t x) { return LoadPacked4<Tier, N>(l, x); }
};
template <class Tier>
struct Loader<Tier, PlanesIn> {
    template <int N>
    static Block Load(const PlaneLines<const uint8_t>& l, int32_t x) { return LoadPlanes<Tier, N>(l, x); }
};

// ---- Stores.

using Store8Fn = void (*)(uint8_t*, __m128i);

// 3N bytes of packed pixels, 8 bytes a store.
template <int N, Store8Fn Put8>
void StorePacked3(uint8_t* line, int32_t x, Bytes b) {
    uint8_t* p = line + 3 * static_cast<intptr_t>(x);
    Interleave(b.s[0], b.s[1], b.s[2]);
    for (int i = 0; i < 3 * N / 8; ++i) {
        const __m128i& v = b.s[i / 2];
        Put8(p + 8 * i, (i & 1) ? _mm_unpackhi_epi64(v, v) : v);
    }
}

// Pixels 4q to 4q + 3 of a block as 32-bit words s0 | s1 << 8 | s2 << 16
// with a zero byte 3.
inline __m128i Words(const Bytes& b, int q) {
    const __m128i z = _mm_setzero_si128();
    const __m128i s01 = q < 2 ? _mm_unpacklo_epi8(b.s[0], b.s[1]) : _mm_unpackhi_epi8(b.s[0], b.s[1]);
    const __m128i s2 = q < 2 ? _mm_unpacklo_epi8(b.s[2], z) : _mm_unpackhi_epi8(b.s[2], z);
    return (q & 1) ? _mm_unpackhi_epi16(s01, s2) : _mm_unpacklo_epi16(s01, s2);
}

// 4-byte pixels, byte 3 kept: one byte-masked store of 16 bytes for each
// four pixels.
template <int N>
void StorePacked4Masked(uint8_t* line, int32_t x, const Bytes& b) {
    char* p = reinterpret_cast<char*>(line + 4 * static_cast<intptr_t>(x));
    const __m128i mask = _mm_set1_epi32(0x00FFFFFF);
    for (int q = 0; q < N / 4; ++q) _mm_maskmoveu_si128(Words(b, q), mask, p + 16 * q);
}

// 4-byte pixels, byte 3 never touched: a 16-bit and an 8-bit store a pixel.
template <int N>
void StorePacked4Split(uint8_t* line, int32_t x, const Bytes& b) {
    uint8_t* p = line + 4 * static_cast<intptr_t>(x);
    for (int q = 0; q < N / 4; ++q) {
        __m128i w = Words(b, q);
        for (int i = 0; i < 4; ++i, w = _mm_srli_si128(w, 4)) {
            const uint32_t word = static_cast<uint32_t>(_mm_cvtsi128_si32(w));
            const uint16_t low = static_cast<uint16_t>(word);
            std::memcpy(p + 16 * q + 4 * i, &low, 2);
            p[16 * q + 4 * i + 2] = static_cast<uint8_t>(word >> 16);
        }
    }
}

template <int N>
void StorePlanes(const PlaneLines<uint8_t>& l, int32_t x, const Bytes& b) {
    for (int k = 0; k < 3; ++k) {
        Store8(l.plane[k] + x, b.s[k]);
        if (N > 8) Store8(l.plane[k] + x + 8, _mm_unpackhi_epi64(b.s[k], b.s[k]));
    }
}

// ---- The forward arithmetic, eight lanes.

// One weight row of a forward set: three products in 32 bits, summed, one
// arithmetic shift.  A weight above 32767 does not fit a signed lane; it
// multiplies as weight - 2^16 and the lane's sample shifted left by 16 is
// added back.
inline __m128i Dot(const narrow444::WeightRow& W, const Trio& c) {
    const int32_t weights[3] = {W.r, W.g, W.b};
    auto lane = [](int32_t w) { return w > 32767 ? w - 65536 : w; };
    const __m128i z = _mm_setzero_si128();
    const __m128i wRG = _mm_set1_epi32(static_cast<int32_t>((static_cast<uint32_t>(lane(W.g)) << 16) |
                                                            (static_cast<uint32_t>(lane(W.r)) & 0xFFFF)));
    const __m128i wB = _mm_set1_epi32(lane(W.b) & 0xFFFF);
    __m128i lo = _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(c.s[0], c.s[1]), wRG),
                               _mm_madd_epi16(_mm_unpacklo_epi16(c.s[2], z), wB));
    __m128i hi = _mm_add_epi32(_mm_madd_epi16(_mm_unpackhi_epi16(c.s[0], c.s[1]), wRG),
                               _mm_madd_epi16(_mm_unpackhi_epi16(c.s[2], z), wB));
    for (int k = 0; k < 3; ++k)
        if (weights[k] > 32767) {
            lo = _mm_add_epi32(lo, _mm_unpacklo_epi16(z, c.s[k]));
            hi = _mm_add_epi32(hi, _mm_unpackhi_epi16(z, c.s[k]));
        }
    const __m128i shift = _mm_cvtsi32_si128(W.shift);
    return _mm_packs_epi32(_mm_sra_epi32(lo, shift), _mm_sra_epi32(hi, shift));
}

inline __m128i Plus128(__m128i v) { return _mm_add_epi16(v, _mm_set1_epi16(128)); }

template <const narrow444::ForwardSet& S>
struct VectorToYuvBySet {
    using Scalar = narrow444::ToYuvBySet<S>;
    Trio operator()(const Trio& c) const { return Trio{{Dot(S.y, c), Plus128(Dot(S.u, c)), Plus128(Dot(S.v, c))}}; }
    // One destination plane: 0 Y, 1 U, 2 V.
    __m128i Plane(int k, const Trio& c) const {
        return k == 0 ? Dot(S.y, c) : k == 1 ? Plus128(Dot(S.u, c)) : Plus128(Dot(S.v, c));
    }
    static uint8_t ScalarPlane(int k, Rgb p) {
        const Yuv q = Scalar::Pixel(p);
        return static_cast<uint8_t>(k == 0 ? q.y : k == 1 ? q.u : q.v);
    }
};
using VectorToYuvL = VectorToYuvBySet<narrow444::kSetL>;
using VectorToYuvM = VectorToYuvBySet<narrow444::kSetM>;

struct VectorToYuvD {
    using Scalar = narrow444::ToYuvD;
    Trio operator()(const Trio& c) const {
        const __m128i d = LumaPacked(Channels{c.s[0], c.s[1], c.s[2]});
        const __m128i u = _mm_mulhi_epi16(_mm_sub_epi16(_mm_slli_epi16(c.s[2], 1), d), _mm_set1_epi16(narrow::kFactorU));
        const __m128i v = _mm_mulhi_epi16(_mm_sub_epi16(_mm_slli_epi16(c.s[0], 1), d), _mm_set1_epi16(narrow::kFactorV));
        return Trio{{_mm_srai_epi16(d, 1), Plus128(u), Plus128(v)}};
    }
};

// ---- The inverse arithmetic, eight lanes.

// The 4:2:0 scale with factors per lane (a6's odd row sits in lanes 3, 7).
struct VectorToRgbHalf {
    InverseLanes lanes;
    Trio operator()(const Trio& c) const {
        const InverseTerms t = Terms(Centred(c.s[1]), Centred(c.s[2]), lanes);
        return Trio{{Channel(c.s[0], t.r), Channel(c.s[0], t.g), Channel(c.s[0], t.b)}};
    }
};

// u' = 8 (U - 128), likewise v'.
inline __m128i Centred8(__m128i samples16) {
    return _mm_slli_epi16(_mm_sub_epi16(samples16, _mm_set1_epi16(128)), 3);
}

struct VectorToRgbAlpha {
    using Scalar = narrow444::ToRgbAlpha;
    using F = narrow444::AlphaFactors;
    Trio operator()(const Trio& c) const {
        const __m128i du = Centred8(c.s[1]), dv = Centred8(c.s[2]);
        const __m128i y = c.s[0];
        return Trio{{_mm_add_epi16(y, _mm_mulhi_epi16(dv, _mm_set1_epi16(F::kRV))),
                     _mm_add_epi16(_mm_add_epi16(y, _mm_mulhi_epi16(du, _mm_set1_epi16(F::kGU))),
                                   _mm_mulhi_epi16(dv, _mm_set1_epi16(F::kGV))),
                     _mm_add_epi16(y, _mm_mulhi_epi16(du, _mm_set1_epi16(F::kBU)))}};
    }
};

// The planes to planes inverse, one destination plane at a time.
struct VectorToRgbPlanes {
    using Scalar = narrow444::ToRgbPlanes;
    using F = narrow444::PlanesFactors;
    __m128i Plane(int k, const Trio& c) const {
        const __m128i y = c.s[0];
        const __m128i du = _mm_sub_epi16(c.s[1], _mm_set1_epi16(128));
        const __m128i dv = _mm_sub_epi16(c.s[2], _mm_set1_epi16(128));
        if (k == 0)  // 18677 v >> 14 as mulhi(4 v, 18677)
            return _mm_add_epi16(y, _mm_mulhi_epi16(_mm_slli_epi16(dv, 2), _mm_set1_epi16(F::kRV)));
        if (k == 2)  // 16646 u >> 13 as mulhi(8 u, 16646)
            return _mm_add_epi16(y, _mm_mulhi_epi16(_mm_slli_epi16(du, 3), _mm_set1_epi16(F::kBU)));
        const __m128i w = _mm_set1_epi32(static_cast<int32_t>((static_cast<uint32_t>(-F::kGU) << 16) |
                                                              (static_cast<uint32_t>(-F::kGV) & 0xFFFF)));
        const __m128i lo = _mm_srai_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(dv, du), w), 14);
        const __m128i hi = _mm_srai_epi32(_mm_madd_epi16(_mm_unpackhi_epi16(dv, du), w), 14);
        return _mm_add_epi16(y, _mm_packs_epi32(lo, hi));
    }
    static uint8_t ScalarPlane(int k, Yuv p) {
        return k == 0 ? narrow444::PlaneR(p) : k == 1 ? narrow444::PlaneG(p) : narrow444::PlaneB(p);
    }
};

// ---- Row kernels.

// Blocks of N pixels from x while x is below `bound`; returns where it
// stopped.
template <int N, class Tier, class In, class Out, class Store, class Compute>
int32_t Blocks(typename In::Line in, typename Out::Line out, int32_t x, int32_t bound,
               const Compute& compute) {
    for (; x < bound; x += N) {
        const Block b = Loader<Tier, In>::template Load<N>(in, x);
        Block r;
        r.half[0] = compute(b.half[0]);
        r.half[1] = N > 8 ? compute(b.half[1]) : r.half[0];
        Store::template Put<N>(out, x, Pack<N>(r));
    }
    return x;
}

// Blocks of the tier's size while they fit, then the rest one pixel at a
// time through `Scalar`, the same arithmetic in plain code.
template <class Tier, class In, class Out, class Store, class Scalar, class Compute>
void BlockRow(typename In::Line in, typename Out::Line out, int32_t count, const Compute& compute) {
    constexpr int N = Tier::kBlock;
    const int32_t x = Blocks<N, Tier, In, Out, Store>(in, out, 0, count & ~(N - 1), compute);
    ConvertPixels<In, Out, Scalar>(in, out, x, count);
}

// The 4-byte inverse: 8 pixels a step below count AND NOT 7, 4 pixels a
// step below count AND NOT 3, then single pixels.
template <class Tier, class Store>
void YuvaToRgbaRow(const uint8_t* in, uint8_t* out, int32_t count) {
    const VectorToRgbAlpha compute{};
    int32_t x = 0;
#if PIXMOOR_HAVE_X86_TARGETS
    // Wider vectors where the processor has them; every block size here
    // shares the arithmetic.
    x = fast::RgbaLeading(&fast::NarrowYuvaToRgbaAvx512, &fast::NarrowYuvaToRgbaAvx2, in, out, count & ~7);
#endif
    x = Blocks<8, Tier, Packed4In, Packed4Out, Store>(in, out, x, count & ~7, compute);
    x = Blocks<4, Tier, Packed4In, Packed4Out, Store>(in, out, x, count & ~3, compute);
    ConvertPixels<Packed4In, Packed4Out, narrow444::ToRgbAlpha>(in, out, x, count);
}

// Planes to planes, one destination plane at a time: first the samples that
// bring the plane's pointer to a `Boundary`-byte boundary (Boundary minus
// the address's low bits, so a plane already on a boundary still takes
// one whole boundary's worth), then blocks with stores on the boundary,
// then the rest.
template <class Tier, int Boundary, class Compute>
void PlaneByPlaneRow(PlaneLines<const uint8_t> in, PlaneLines<uint8_t> out, int32_t count) {
    using Source = typename Compute::Scalar::Source;
    constexpr int N = Tier::kBlock;
    const Compute compute{};
    for (int k = 0; k < 3; ++k) {
        uint8_t* o = out.plane[k];
        int32_t lead = Boundary - static_cast<int32_t>(reinterpret_cast<uintptr_t>(o) & (Boundary - 1));
        if (lead > count) lead = count;
        int32_t x = 0;
        for (; x < lead; ++x) o[x] = Compute::ScalarPlane(k, PlanesIn::Get<Source>(in, x));
        const int32_t end = lead + ((count - lead) & ~(N - 1));
        for (; x < end; x += N) {
            const Block b = LoadPlanes<Tier, N>(in, x);
            const __m128i low = compute.Plane(k, b.half[0]);
            const __m128i bytes = _mm_packus_epi16(low, N > 8 ? compute.Plane(k, b.half[1]) : low);
            if (N > 8 && Boundary == 16) {
                _mm_store_si128(reinterpret_cast<__m128i*>(o + x), bytes);
            } else {
                Store8(o + x, bytes);
                if (N > 8) Store8(o + x + 8, _mm_unpackhi_epi64(bytes, bytes));
            }
        }
        for (; x < count; ++x) o[x] = Compute::ScalarPlane(k, PlanesIn::Get<Source>(in, x));
    }
}

// Store policies as the block kernels take them.
template <Store8Fn Put8>
struct Packed3Store {
    template <int N>
    static void Put(uint8_t* l, int32_t x, const Bytes& b) { StorePacked3<N, Put8>(l, x, b); }
};
struct Packed4MaskedStore {
    template <int N>
    static void Put(uint8_t* l, int32_t x, const Bytes& b) { StorePacked4Masked<N>(l, x, b); }
};
struct Packed4SplitStore {
    template <int N>
    static void Put(uint8_t* l, int32_t x, const Bytes& b) { StorePacked4Split<N>(l, x, b); }
};
struct PlanesStore {
    template <int N>
    static void Put(const PlaneLines<uint8_t>& l, int32_t x, const Bytes& b) { StorePlanes<N>(l, x, b); }
};

}  // namespace pixmoor::colour::sse2

#endif
