// The 4:4:4 members in the wide arithmetic (tiers px and m6): 32-bit
// integer code, one pixel at a time, clamping through the tier's own table.
//
// Forward, for all four RGB to YUV members: Y = F >> 16 with F the luma at
// 16 fraction bits; chroma from the pixel alone with the half-unit rounding
// term 32767 and a final shift of 16.
//
// Inverse: the members with a packed YUV source use the inverse factors of
// the colour model; the two with a planar source use each factor less one.
// That difference between like members is kept on purpose.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV444_WIDE_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV444_WIDE_H

#include <cstdint>

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/wide_arith.h"
#include "primitives/colour/yuv444_driver.h"
#include "primitives/colour/yuv444_fast_rows.h"

namespace pixmoor::colour::wide {

// Rounding term of a single pixel's chroma.
constexpr int32_t kPixelBias = 32767;

template <const ClampTable& Clamp>
struct PixelToYuv {
    using Source = Rgb;
    static Yuv Pixel(Rgb p) {
        const int32_t f = Luma(p);
        return Yuv{f >> 16, ChromaU(p.b, f, kPixelBias, 16), ChromaV(Clamp, p.r, f, kPixelBias, 16)};
    }
};

// Inverse factors at 16 fraction bits.
struct InverseFactors {
    int32_t rv, gv, gu, bu;
};
constexpr InverseFactors kPackedSourceFactors = {kRFromV, kGFromV, kGFromU, kBFromU};
constexpr InverseFactors kPlanarSourceFactors = {kRFromV - 1, kGFromV - 1, kGFromU - 1, kBFromU - 1};

template <const ClampTable& Clamp, const InverseFactors& F>
struct PixelToRgb {
    using Source = Yuv;
    static Rgb Pixel(Yuv p) {
        const int32_t du = p.u - 128;
        const int32_t dv = p.v - 128;
        return ToRgb(Clamp, p.y, ChromaTerms{F.rv * dv, -F.gv * dv - F.gu * du, F.bu * du});
    }
};

// ImgYUVAToRGBA's row: the leading pixels in a wider-vector form where the
// processor has one, the rest in plain code.
template <class FromPacked>
void YuvaToRgbaRow(Packed4In::Line in, Packed4Out::Line out, int32_t count) {
    int32_t done = 0;
#if PIXMOOR_HAVE_X86_TARGETS
    done = fast::RgbaLeading(&fast::WideYuvaToRgbaAvx512, &fast::WideYuvaToRgbaAvx2, in, out, count);
#endif
    ConvertPixels<Packed4In, Packed4Out, FromPacked>(in, out, done, count);
}

template <const ClampTable& Clamp>
constexpr Yuv444Rows MakeYuv444Rows(TierFinish finish) {
    using ToYuv = PixelToYuv<Clamp>;
    using FromPacked = PixelToRgb<Clamp, kPackedSourceFactors>;
    using FromPlanes = PixelToRgb<Clamp, kPlanarSourceFactors>;
    return Yuv444Rows{
        &ConvertRow<Packed3In, Packed3Out, ToYuv>,     &ConvertRow<Packed4In, Packed4Out, ToYuv>,
        &ConvertRow<PlanesIn, PlanesOut, ToYuv>,       &ConvertRow<Packed3In, PlanesOut, ToYuv>,
        &ConvertRow<Packed3In, Packed3Out, FromPacked>, &YuvaToRgbaRow<FromPacked>,
        &ConvertRow<PlanesIn, PlanesOut, FromPlanes>,  &ConvertRow<PlanesIn, Packed3Out, FromPlanes>,
        finish,
    };
}

}  // namespace pixmoor::colour::wide

#endif
