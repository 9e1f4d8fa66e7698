// Tier w7 of the YCbCr members.
//   - 4:2:0: the 12-bit lane arithmetic forward, the five-factor inverse.
//   - RGB to 4:2:2 interleaved: lane luma with no rounding term, chroma of
//     the reference; scalar pairs first bring the destination to a 16-byte
//     boundary (see Forward422Row below).
//   - 4:2:2 interleaved sources: the multiply-add lane inverse.
//   - 4:4:4 planes, both ways: one destination plane at a time, in three
//     stages (reference formulas up to the plane's 16-byte boundary, lanes of
//     16 samples, reference formulas for the rest).
//   - RGB to YCbCr interleaved: the matrix at half scale.
// The AC4 members and the rest give the reference results.  Each vector
// loop leaves its rest to the plain lane code of the same arithmetic, which
// also stands in for the whole loop where SSE2 is missing.
#include <cstdint>

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_lane_arith.h"
#include "primitives/colour/ycbcr_lanes.h"
#include "primitives/colour/ycbcr_rows.h"
#include "primitives/colour/ycbcr_vector_420.h"
#ifdef PIXMOOR_HAVE_SSE2
#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/ycbcr_sse2.h"
#endif

namespace pixmoor::colour {
namespace {

// Samples before the next 16-byte boundary of p (0 when p is on one).
int32_t ToBoundary(const void* p) {
    return static_cast<int32_t>((16 - (reinterpret_cast<uintptr_t>(p) & 15)) & 15);
}
int32_t Min(int32_t a, int32_t b) { return a < b ? a : b; }

#ifdef PIXMOOR_HAVE_SSE2
using sse2::Channels;
using ycc_vector::LoadEight;

// Four pixels of packed RGB (12 bytes) into the low lanes.
Channels LoadFour(const uint8_t* p) {
    __m128i a = _mm_unpacklo_epi64(sse2::Load8(p), sse2::Load4(p + 8)), b = _mm_setzero_si128(),
            c = _mm_setzero_si128();
    sse2::Deinterleave(a, b, c);
    return sse2::WidenLow(a, b, c);
}

// Y0 Cb Y1 Cr of the pixel pairs in c: lane luma, reference chroma of the
// pair sums (32-bit, exactly the reference's).
__m128i C2Words(const Channels& c) {
    using namespace ycc_sse2;
    const __m128i z = _mm_setzero_si128();
    const Channels s = PairSums(c);
    auto chroma = [&](const int32_t k[3]) {
        const __m128i sum = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(s.r, s.g), Pairs(k[0], k[1])),
                                                        _mm_madd_epi16(_mm_unpacklo_epi16(s.b, z), Pairs(k[2], 0))),
                                          _mm_set1_epi32(ycc::kChromaPair));
        const __m128i n = _mm_srai_epi32(sum, 17);
        return _mm_packs_epi32(n, n);
    };
    const __m128i cbcr = _mm_unpacklo_epi16(chroma(ycc::kCb), chroma(ycc::kCr));
    const __m128i y = _mm_min_epi16(LumaUnsigned(c), K(255));
    return _mm_or_si128(y, _mm_slli_epi16(cbcr, 8));
}
#endif

// A 4:2:2 pair in lanes: unsigned lane luma for both, reference chroma.
[[maybe_unused]] void LanePair(Rgb a, Rgb b, uint8_t* out) {
    const Rgb s = ycc::Sum(a, b);
    out[0] = lanes::LumaUnsigned(a);
    out[1] = ycc::Cb(s, ycc::kChromaPair, 17);
    out[2] = lanes::LumaUnsigned(b);
    out[3] = ycc::Cr(s, ycc::kChromaPair, 17);
}
[[maybe_unused]] void LanePairs(C3In::Line src, uint8_t* dst, int32_t from, int32_t to) {
    for (int32_t j = from; j < to; ++j) LanePair(C3In::Pixel(src, 2 * j), C3In::Pixel(src, 2 * j + 1), dst + 4 * j);
}
// A scalar pair of this kernel: both lumas without the rounding term.
void ScalarPairs(C3In::Line src, uint8_t* dst, int32_t from, int32_t to) {
    for (int32_t j = from; j < to; ++j) {
        uint8_t* out = dst + 4 * j;
        const Rgb a = C3In::Pixel(src, 2 * j);
        ycc::Reference<ImgClampTable>::Pair422(a, C3In::Pixel(src, 2 * j + 1), out);
        out[0] = ycc::Luma(a, ycc::kLumaTruncated);
    }
}

// RGB to 4:2:2 interleaved.  Scalar pairs until the destination reaches a
// 16-byte boundary (four bytes a pair: a destination off a 4-byte boundary
// takes as many pairs as bring it nearest below the boundary), then 8
// pixels a step, then one step of 4, all in lanes; the remaining pairs as
// scalar pairs, an odd last pixel by the reference.
void Forward422Row(C3In::Line src, uint8_t* dst, int32_t count) {
    const int32_t pairs = count >> 1;
    const int32_t lead = Min(pairs, ToBoundary(dst) >> 2);
    ScalarPairs(src, dst, 0, lead);
    int32_t j = lead;
    const int32_t eights = j + ((pairs - j) & ~3);
#ifdef PIXMOOR_HAVE_SSE2
    for (; j < eights; j += 4) sse2::Store16(dst + 4 * j, C2Words(LoadEight(src + 6 * j)));
    if (pairs - j >= 2) {
        sse2::Store8(dst + 4 * j, C2Words(LoadFour(src + 6 * j)));
        j += 2;
    }
#else
    LanePairs(src, dst, j, eights);
    j = eights;
    if (pairs - j >= 2) {
        LanePairs(src, dst, j, j + 2);
        j += 2;
    }
#endif
    ScalarPairs(src, dst, j, pairs);
    if (count & 1) ycc::Reference<ImgClampTable>::Odd422(C3In::Pixel(src, count - 1), dst + 4 * pairs);
}

// One destination plane of a 4:4:4 plane kernel in three stages: reference
// samples up to the plane's 16-byte boundary, lanes of 16 samples with
// aligned stores, reference samples for the rest.
using SampleFn = uint8_t (*)(Rgb);
#ifdef PIXMOOR_HAVE_SSE2
using VectorFn = __m128i (*)(const RgbPlanesIn::Line&, int32_t x);
#endif
struct PlaneForms {
    SampleFn reference;
    SampleFn lane;
#ifdef PIXMOOR_HAVE_SSE2
    VectorFn vector;
#endif
};

void PlaneInStages(const RgbPlanesIn::Line& src, uint8_t* out, int32_t count, const PlaneForms& f) {
    const int32_t lead = Min(count, ToBoundary(out));
    const int32_t body = lead + ((count - lead) & ~15);
    int32_t x = 0;
    for (; x < lead; ++x) out[x] = f.reference(RgbPlanesIn::Pixel(src, x));
#ifdef PIXMOOR_HAVE_SSE2
    for (; x < body; x += 16) _mm_store_si128(reinterpret_cast<__m128i*>(out + x), f.vector(src, x));
#else
    for (; x < body; ++x) out[x] = f.lane(RgbPlanesIn::Pixel(src, x));
#endif
    for (; x < count; ++x) out[x] = f.reference(RgbPlanesIn::Pixel(src, x));
}

#ifdef PIXMOOR_HAVE_SSE2
#define PIXMOOR_PLANE_FORMS_(ref, lane, vector) PlaneForms{ref, lane, vector}
struct Loaded {
    Channels low, high;
};
Loaded Load(const RgbPlanesIn::Line& l, int32_t x) {
    const __m128i r = sse2::Load16(l.r + x), g = sse2::Load16(l.g + x), b = sse2::Load16(l.b + x);
    return Loaded{sse2::WidenLow(r, g, b), sse2::WidenHigh(r, g, b)};
}
__m128i VecY(const RgbPlanesIn::Line& l, int32_t x) {
    const Loaded c = Load(l, x);
    return _mm_packus_epi16(ycc_sse2::LumaUnsigned(c.low), ycc_sse2::LumaUnsigned(c.high));
}
__m128i VecCb(const RgbPlanesIn::Line& l, int32_t x) {
    const Loaded c = Load(l, x);
    return _mm_packus_epi16(ycc_sse2::ChromaPlanes(c.low, ycc::kCb), ycc_sse2::ChromaPlanes(c.high, ycc::kCb));
}
__m128i VecCr(const RgbPlanesIn::Line& l, int32_t x) {
    const Loaded c = Load(l, x);
    return _mm_packus_epi16(ycc_sse2::ChromaPlanes(c.low, ycc::kCr), ycc_sse2::ChromaPlanes(c.high, ycc::kCr));
}
// Inverse: the planes hold Y, Cb, Cr; Y less 16 saturates at 0.
Loaded LoadInverse(const RgbPlanesIn::Line& l, int32_t x) {
    const __m128i y = _mm_subs_epu8(sse2::Load16(l.r + x), _mm_set1_epi8(16));
    const Loaded c = Load(l, x);
    const __m128i z = _mm_setzero_si128();
    return Loaded{Channels{ycc_sse2::LumaTermPlanes(_mm_unpacklo_epi8(y, z)), c.low.g, c.low.b},
                  Channels{ycc_sse2::LumaTermPlanes(_mm_unpackhi_epi8(y, z)), c.high.g, c.high.b}};
}
__m128i VecR(const RgbPlanesIn::Line& l, int32_t x) {
    const Loaded c = LoadInverse(l, x);
    return _mm_packus_epi16(ycc_sse2::InverseRPlanes(c.low.r, c.low.b), ycc_sse2::InverseRPlanes(c.high.r, c.high.b));
}
__m128i VecG(const RgbPlanesIn::Line& l, int32_t x) {
    const Loaded c = LoadInverse(l, x);
    return _mm_packus_epi16(ycc_sse2::InverseGPlanes(c.low.r, c.low.g, c.low.b),
                            ycc_sse2::InverseGPlanes(c.high.r, c.high.g, c.high.b));
}
__m128i VecB(const RgbPlanesIn::Line& l, int32_t x) {
    const Loaded c = LoadInverse(l, x);
    return _mm_packus_epi16(ycc_sse2::InverseBPlanes(c.low.r, c.low.g), ycc_sse2::InverseBPlanes(c.high.r, c.high.g));
}
#else
#define PIXMOOR_PLANE_FORMS_(ref, lane, vector) PlaneForms{ref, lane}
#endif

uint8_t RefY(Rgb p) { return ycc::Luma(p); }
uint8_t RefCb(Rgb p) { return ycc::Cb(p, ycc::kChromaOne, 16); }
uint8_t RefCr(Rgb p) { return ycc::Cr(p, ycc::kChromaOne, 16); }
uint8_t LaneCb(Rgb p) { return lanes::ChromaPlanes(p, ycc::kCb); }
uint8_t LaneCr(Rgb p) { return lanes::ChromaPlanes(p, ycc::kCr); }

void ForwardPlanesRow(RgbPlanesIn::Line src, RgbPlanesOut::Line dst, int32_t count) {
    PlaneInStages(src, dst.r, count, PIXMOOR_PLANE_FORMS_(&RefY, &lanes::LumaUnsigned, &VecY));
    PlaneInStages(src, dst.g, count, PIXMOOR_PLANE_FORMS_(&RefCb, &LaneCb, &VecCb));
    PlaneInStages(src, dst.b, count, PIXMOOR_PLANE_FORMS_(&RefCr, &LaneCr, &VecCr));
}

// Inverse samples of (Y, Cb, Cr) triples.
uint8_t RefR(Rgb s) { return static_cast<uint8_t>(ycc::InverseR(ImgClampTable, s.r, s.b)); }
uint8_t RefG(Rgb s) { return static_cast<uint8_t>(ycc::InverseG(ImgClampTable, s.r, s.g, s.b)); }
uint8_t RefB(Rgb s) { return static_cast<uint8_t>(ycc::InverseB(ImgClampTable, s.r, s.g)); }
uint8_t LaneR(Rgb s) { return lanes::InverseRPlanes(s.r, s.b); }
uint8_t LaneG(Rgb s) { return lanes::InverseGPlanes(s.r, s.g, s.b); }
uint8_t LaneB(Rgb s) { return lanes::InverseBPlanes(s.r, s.g); }

void InversePlanesRow(RgbPlanesIn::Line src, RgbPlanesOut::Line dst, int32_t count) {
    PlaneInStages(src, dst.r, count, PIXMOOR_PLANE_FORMS_(&RefR, &LaneR, &VecR));
    PlaneInStages(src, dst.g, count, PIXMOOR_PLANE_FORMS_(&RefG, &LaneG, &VecG));
    PlaneInStages(src, dst.b, count, PIXMOOR_PLANE_FORMS_(&RefB, &LaneB, &VecB));
}
#undef PIXMOOR_PLANE_FORMS_

// RGB to YCbCr interleaved: eight pixels a step at half scale.
using ForwardHalf = ycc::ForwardPixel<lanes::ArithW7ForwardHalf>;
void ForwardC3Row(C3In::Line src, C3Out::Line dst, int32_t count) {
    int32_t x = 0;
#ifdef PIXMOOR_HAVE_SSE2
    for (const int32_t blocks = count & ~7; x < blocks; x += 8)
        ycc_sse2::StoreInterleaved8(dst + 3 * static_cast<intptr_t>(x),
                                    ycc_sse2::ForwardHalf(LoadEight(src + 3 * static_cast<intptr_t>(x))));
#endif
    ycc::PixelsFrom<C3In, C3Out, ForwardHalf>(src, dst, x, count);
}

// 4:2:2 interleaved sources: eight pixels (16 bytes) a step in the
// multiply-add lanes, stored by destination layout.
#ifdef PIXMOOR_HAVE_SSE2
void StoreEight(C3Out::Line dst, int32_t x, const Channels& c) {
    ycc_sse2::StoreInterleaved8(dst + 3 * static_cast<intptr_t>(x), c);
}
void StoreEight(const RgbPlanesOut::Line& dst, int32_t x, const Channels& c) {
    sse2::Store8(dst.r + x, _mm_packus_epi16(c.r, c.r));
    sse2::Store8(dst.g + x, _mm_packus_epi16(c.g, c.g));
    sse2::Store8(dst.b + x, _mm_packus_epi16(c.b, c.b));
}
template <class Packing>
void StoreEight(uint16_t* dst, int32_t x, const Channels& c) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + x), ycc_sse2::PackWords<Packing>(ycc_sse2::SaturateToBytes(c)));
}
template <class Out>
struct EightStore {
    static void Run(typename Out::Line dst, int32_t x, const Channels& c) { StoreEight(dst, x, c); }
};
template <class Packing>
struct EightStore<WordsOut<Packing>> {
    static void Run(uint16_t* dst, int32_t x, const Channels& c) { StoreEight<Packing>(dst, x, c); }
};

Channels Inverse422Eight(const uint8_t* p) {
    const __m128i v = sse2::Load16(p);
    const __m128i y = _mm_and_si128(v, _mm_set1_epi16(0xFF));
    const __m128i uv = _mm_srli_epi16(v, 8);  // U0 V0 U1 V1 ...
    const __m128i u = _mm_shufflehi_epi16(_mm_shufflelo_epi16(uv, _MM_SHUFFLE(2, 2, 0, 0)), _MM_SHUFFLE(2, 2, 0, 0));
    const __m128i w = _mm_shufflehi_epi16(_mm_shufflelo_epi16(uv, _MM_SHUFFLE(3, 3, 1, 1)), _MM_SHUFFLE(3, 3, 1, 1));
    return ycc_sse2::Inverse422(y, u, w);
}
#endif

template <class Out>
struct FromC2 {
    static void Run(const uint8_t* src, typename Out::Line dst, int32_t count) {
        int32_t x = 0;
#ifdef PIXMOOR_HAVE_SSE2
        for (const int32_t blocks = count & ~7; x < blocks; x += 8)
            EightStore<Out>::Run(dst, x, Inverse422Eight(src + 2 * static_cast<intptr_t>(x)));
#endif
        ycc::Inverse422From<Out, lanes::ArithW7Inverse422>(src, dst, x >> 1, count);
    }
};

constexpr YCbCrRows MakeRowsW7() {
    YCbCrRows rows = ycc::MakeYCbCrRows<ycc::Reference<ImgClampTable>>(&FinishW7);
    rows.rgbToC2 = &Forward422Row;
    rows.c2ToRgb = &FromC2<C3Out>::Run;
    rows.c2ToPlanes = &FromC2<RgbPlanesOut>::Run;
    rows.c2ToWords = ycc::MakeWordRows<C2In, FromC2>();
    rows.rgbTo420 = &ycc_vector::Forward420<false>;
    rows.from420ToRgb = &ycc_vector::Inverse420<8>;
    rows.planesToYccPlanes = &ForwardPlanesRow;
    rows.yccPlanesToPlanes = &InversePlanesRow;
    rows.rgbToC3 = &ForwardC3Row;
    return rows;
}

}  // namespace

const YCbCrRows kYCbCrRowsW7 = MakeRowsW7();

}  // namespace pixmoor::colour
