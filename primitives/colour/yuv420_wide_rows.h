// Row kernels of the plain-code tiers (px and m6): the wide arithmetic, one
// pixel pair of two lines at a time, clamping through the tier's own table.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_WIDE_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_WIDE_ROWS_H

#include <cstdint>
#include <type_traits>

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/image_layouts.h"
#include "primitives/colour/wide_arith.h"
#include "primitives/colour/yuv420_fast_rows.h"
#include "primitives/colour/yuv420_rows.h"
#include "runtime/isa.h"

namespace pixmoor::colour::wide {

// The leading pairs that a wider-vector form does, where the processor has
// one; the plain loop does the rest.  Only packed RGB (3- and 4-byte
// pixels on the inverse side) has such forms.
template <class In>
int32_t FastToYuv420(typename In::Line top, typename In::Line bottom, const Yuv420Lines<uint8_t>& out,
                     int32_t pairs) {
#if PIXMOOR_HAVE_X86_TARGETS
    if constexpr (std::is_same_v<In, PackedRgbIn>) {
        if (isa::Has(isa::kAvx512)) return fast::WideToYuv420Avx512(top, bottom, out, pairs);
        if (isa::Has(isa::kAvx2)) return fast::WideToYuv420Avx2(top, bottom, out, pairs);
    }
#endif
    (void)top, (void)bottom, (void)out, (void)pairs;
    return 0;
}
// The AVX-512 form takes whole steps of 32 pairs; the AVX2 form then takes
// the 16 pairs a step of what is left, so that widths of an odd number of
// 64-pixel steps (352 = 5.5 x 64) leave at most 15 pairs to the plain loop.
template <class Out>
int32_t FastFromYuv420(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                       typename Out::Line bottom, int32_t pairs) {
#if PIXMOOR_HAVE_X86_TARGETS
    if constexpr (std::is_same_v<Out, PackedRgbOut> || std::is_same_v<Out, PackedRgb0Out>) {
        constexpr bool kRgb0 = std::is_same_v<Out, PackedRgb0Out>;
        constexpr intptr_t kBytes = kRgb0 ? 4 : 3;
        int32_t done = 0;
        if (isa::Has(isa::kAvx512))
            done = kRgb0 ? fast::WideFromYuv420Rgb0Avx512(in, top, bottom, pairs, nullptr)
                         : fast::WideFromYuv420Avx512(in, top, bottom, pairs);
        if (isa::Has(isa::kAvx2) && pairs - done >= 16) {
            const Yuv420Lines<const uint8_t> rest{in.y0 + 2 * done, in.y1 + 2 * done, in.u + done, in.v + done};
            uint8_t* restTop = top + 2 * kBytes * done;
            uint8_t* restBottom = bottom + 2 * kBytes * done;
            done += kRgb0 ? fast::WideFromYuv420Rgb0Avx2(rest, restTop, restBottom, pairs - done, nullptr)
                          : fast::WideFromYuv420Avx2(rest, restTop, restBottom, pairs - done);
        }
        return done;
    }
#endif
    (void)in, (void)top, (void)bottom, (void)pairs;
    return 0;
}

template <const ClampTable& Clamp, class In>
void ToYuv420Kernel(typename In::Line top, typename In::Line bottom,
                    const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    for (int32_t j = FastToYuv420<In>(top, bottom, out, pairs); j < pairs; ++j) {
        const Rgb p0 = In::Pixel(top, 2 * j);
        const Rgb p1 = In::Pixel(top, 2 * j + 1);
        const Rgb p2 = In::Pixel(bottom, 2 * j);
        const Rgb p3 = In::Pixel(bottom, 2 * j + 1);
        const int32_t f0 = Luma(p0), f1 = Luma(p1), f2 = Luma(p2), f3 = Luma(p3);
        out.y0[2 * j] = static_cast<uint8_t>(f0 >> 16);
        out.y0[2 * j + 1] = static_cast<uint8_t>(f1 >> 16);
        out.y1[2 * j] = static_cast<uint8_t>(f2 >> 16);
        out.y1[2 * j + 1] = static_cast<uint8_t>(f3 >> 16);
        const int32_t luma = f0 + f1 + f2 + f3;
        out.u[j] = ChromaU(p0.b + p1.b + p2.b + p3.b, luma, kBlockBias, 18);
        out.v[j] = ChromaV(Clamp, p0.r + p1.r + p2.r + p3.r, luma, kBlockBias, 18);
    }
}

template <const ClampTable& Clamp, class Out>
void FromYuv420Kernel(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                      typename Out::Line bottom, int32_t pairs) {
    for (int32_t j = FastFromYuv420<Out>(in, top, bottom, pairs); j < pairs; ++j) {
        const ChromaTerms t = Terms(in.u[j], in.v[j]);
        Out::Store(top, 2 * j, ToRgb(Clamp, in.y0[2 * j], t));
        Out::Store(top, 2 * j + 1, ToRgb(Clamp, in.y0[2 * j + 1], t));
        Out::Store(bottom, 2 * j, ToRgb(Clamp, in.y1[2 * j], t));
        Out::Store(bottom, 2 * j + 1, ToRgb(Clamp, in.y1[2 * j + 1], t));
    }
}

template <const ClampTable& Clamp>
constexpr Yuv420Rows MakeRows(TierFinish finish) {
    return Yuv420Rows{&ToYuv420Kernel<Clamp, PackedRgbIn>, &ToYuv420Kernel<Clamp, RgbPlanesIn>,
                      &FromYuv420Kernel<Clamp, PackedRgbOut>, &FromYuv420Kernel<Clamp, RgbPlanesOut>,
                      finish};
}

}  // namespace pixmoor::colour::wide

#endif
