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
// The AC4 members and the rest give the reference results.
#include <cstdint>

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_lane_arith.h"
#include "primitives/colour/ycbcr_lanes.h"
#include "primitives/colour/ycbcr_rows.h"
#include "primitives/colour/ycbcr_vector_420.h"

namespace pixmoor::colour {
namespace {

// Samples before the next 16-byte boundary of p (0 when p is on one).
int32_t ToBoundary(const void* p) {
    return static_cast<int32_t>((16 - (reinterpret_cast<uintptr_t>(p) & 15)) & 15);
}
int32_t Min(int32_t a, int32_t b) { return a < b ? a : b; }

// A 4:2:2 pair in lanes: unsigned lane luma for both, reference chroma.
void LanePair(Rgb a, Rgb b, uint8_t* out) {
    const Rgb s = ycc::Sum(a, b);
    out[0] = lanes::LumaUnsigned(a);
    out[1] = ycc::Cb(s, ycc::kChromaPair, 17);
    out[2] = lanes::LumaUnsigned(b);
    out[3] = ycc::Cr(s, ycc::kChromaPair, 17);
}
// A scalar pair of this kernel: both lumas without the rounding term.
void ScalarPair(Rgb a, Rgb b, uint8_t* out) {
    ycc::Reference<ImgClampTable>::Pair422(a, b, out);
    out[0] = ycc::Luma(a, ycc::kLumaTruncated);
}

// RGB to 4:2:2 interleaved.  Scalar pairs until the destination reaches a
// 16-byte boundary (four bytes a pair: a destination off a 4-byte boundary
// takes as many pairs as bring it nearest below the boundary), then 8
// pixels a step, then one step of 4, all in lanes; the remaining pairs as
// scalar pairs, an odd last pixel by the reference.
void Forward422Row(C3In::Line src, uint8_t* dst, int32_t count) {
    const int32_t pairs = count >> 1;
    const int32_t lead = Min(pairs, ToBoundary(dst) >> 2);
    int32_t j = 0;
    for (; j < lead; ++j) ScalarPair(C3In::Pixel(src, 2 * j), C3In::Pixel(src, 2 * j + 1), dst + 4 * j);
    const int32_t eights = j + ((pairs - j) & ~3);
    for (; j < eights; ++j) LanePair(C3In::Pixel(src, 2 * j), C3In::Pixel(src, 2 * j + 1), dst + 4 * j);
    if (pairs - j >= 2) {
        for (const int32_t four = j + 2; j < four; ++j)
            LanePair(C3In::Pixel(src, 2 * j), C3In::Pixel(src, 2 * j + 1), dst + 4 * j);
    }
    for (; j < pairs; ++j) ScalarPair(C3In::Pixel(src, 2 * j), C3In::Pixel(src, 2 * j + 1), dst + 4 * j);
    if (count & 1) ycc::Reference<ImgClampTable>::Odd422(C3In::Pixel(src, count - 1), dst + 4 * pairs);
}

// One destination plane of a 4:4:4 plane kernel in three stages.
using SampleFn = uint8_t (*)(Rgb);
template <class In>
void PlaneInStages(const typename In::Line& src, uint8_t* out, int32_t count, SampleFn reference,
                   SampleFn lane) {
    const int32_t lead = Min(count, ToBoundary(out));
    const int32_t body = lead + ((count - lead) & ~15);
    int32_t x = 0;
    for (; x < lead; ++x) out[x] = reference(In::Pixel(src, x));
    for (; x < body; ++x) out[x] = lane(In::Pixel(src, x));
    for (; x < count; ++x) out[x] = reference(In::Pixel(src, x));
}

uint8_t RefY(Rgb p) { return ycc::Luma(p); }
uint8_t RefCb(Rgb p) { return ycc::Cb(p, ycc::kChromaOne, 16); }
uint8_t RefCr(Rgb p) { return ycc::Cr(p, ycc::kChromaOne, 16); }
uint8_t LaneCb(Rgb p) { return lanes::ChromaPlanes(p, ycc::kCb); }
uint8_t LaneCr(Rgb p) { return lanes::ChromaPlanes(p, ycc::kCr); }

void ForwardPlanesRow(RgbPlanesIn::Line src, RgbPlanesOut::Line dst, int32_t count) {
    PlaneInStages<RgbPlanesIn>(src, dst.r, count, &RefY, &lanes::LumaUnsigned);
    PlaneInStages<RgbPlanesIn>(src, dst.g, count, &RefCb, &LaneCb);
    PlaneInStages<RgbPlanesIn>(src, dst.b, count, &RefCr, &LaneCr);
}

// Inverse samples of (Y, Cb, Cr) triples.
uint8_t RefR(Rgb s) { return static_cast<uint8_t>(ycc::InverseR(ImgClampTable, s.r, s.b)); }
uint8_t RefG(Rgb s) { return static_cast<uint8_t>(ycc::InverseG(ImgClampTable, s.r, s.g, s.b)); }
uint8_t RefB(Rgb s) { return static_cast<uint8_t>(ycc::InverseB(ImgClampTable, s.r, s.g)); }
uint8_t LaneR(Rgb s) { return lanes::InverseRPlanes(s.r, s.b); }
uint8_t LaneG(Rgb s) { return lanes::InverseGPlanes(s.r, s.g, s.b); }
uint8_t LaneB(Rgb s) { return lanes::InverseBPlanes(s.r, s.g); }

void InversePlanesRow(RgbPlanesIn::Line src, RgbPlanesOut::Line dst, int32_t count) {
    PlaneInStages<RgbPlanesIn>(src, dst.r, count, &RefR, &LaneR);
    PlaneInStages<RgbPlanesIn>(src, dst.g, count, &RefG, &LaneG);
    PlaneInStages<RgbPlanesIn>(src, dst.b, count, &RefB, &LaneB);
}

constexpr YCbCrRows MakeRowsW7() {
    using Inverse = ycc::InverseRows<lanes::ArithW7Inverse422>;
    YCbCrRows rows = ycc::MakeYCbCrRows<ycc::Reference<ImgClampTable>>(&FinishW7);
    rows.rgbToC2 = &Forward422Row;
    rows.c2ToRgb = &Inverse::FromC2<C3Out>::Run;
    rows.c2ToPlanes = &Inverse::FromC2<RgbPlanesOut>::Run;
    rows.c2ToWords = ycc::MakeWordRows<C2In, Inverse::FromC2>();
    rows.rgbTo420 = &ycc_vector::Forward420<8>;
    rows.from420ToRgb = &ycc_vector::Inverse420<8>;
    rows.planesToYccPlanes = &ForwardPlanesRow;
    rows.yccPlanesToPlanes = &InversePlanesRow;
    rows.rgbToC3 = &ycc::PixelRow<C3In, C3Out, ycc::ForwardPixel<lanes::ArithW7ForwardHalf>>;
    return rows;
}

}  // namespace

const YCbCrRows kYCbCrRowsW7 = MakeRowsW7();

}  // namespace pixmoor::colour
