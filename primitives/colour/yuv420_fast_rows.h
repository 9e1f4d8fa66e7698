// Wider-vector forms of the 4:2:0 row kernels with packed RGB, each giving
// exactly the bytes of its tier's own kernel.  Each does the leading pixel
// pairs of a line pair in whole steps and returns how many it did; the
// tier's own kernel does the rest.  Callers pick one only when
// isa::Has(...) allows its instruction set, once a row.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV420_FAST_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV420_FAST_ROWS_H

#include <cstdint>
#include <type_traits>

#include "primitives/colour/image_layouts.h"
#include "runtime/isa.h"

namespace pixmoor::colour::fast {

#if PIXMOOR_HAVE_X86_TARGETS

// The wide arithmetic of px and m6 (the clamp is the unsigned saturation).
int32_t WideFromYuv420Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                           int32_t pairs);
int32_t WideFromYuv420Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                             int32_t pairs);
// The same arithmetic into 4-byte pixels (PackedRgb0Out); with `kept`
// not null, the samples of the pairs done are also copied to its lines.
int32_t WideFromYuv420Rgb0Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                               int32_t pairs, const Yuv420Lines<uint8_t>* kept);
int32_t WideFromYuv420Rgb0Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                 int32_t pairs, const Yuv420Lines<uint8_t>* kept);
int32_t WideToYuv420Avx2(const uint8_t* top, const uint8_t* bottom, const Yuv420Lines<uint8_t>& out,
                         int32_t pairs);
int32_t WideToYuv420Avx512(const uint8_t* top, const uint8_t* bottom, const Yuv420Lines<uint8_t>& out,
                           int32_t pairs);

// The narrow arithmetic of a6 and w7: `lanes` are the factor rows of a
// main-loop step (R from v', R from u', G from u', G from v', B from u'),
// one lane per pixel position in a group of eight.
int32_t NarrowFromYuv420Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                             int32_t pairs, const int16_t (&lanes)[5][8]);
int32_t NarrowFromYuv420Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                               int32_t pairs, const int16_t (&lanes)[5][8]);
// The same arithmetic into 4-byte pixels (PackedRgb0Out); with `kept`
// not null, the samples of the pairs done are also copied to its lines.
int32_t NarrowFromYuv420Rgb0Avx2(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                 int32_t pairs, const int16_t (&lanes)[5][8], const Yuv420Lines<uint8_t>* kept);
int32_t NarrowFromYuv420Rgb0Avx512(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                                   int32_t pairs, const int16_t (&lanes)[5][8], const Yuv420Lines<uint8_t>* kept);
// The narrow forward arithmetic, the same in a6 and w7.
int32_t NarrowToYuv420Avx2(const uint8_t* top, const uint8_t* bottom, const Yuv420Lines<uint8_t>& out,
                           int32_t pairs);
int32_t NarrowToYuv420Avx512(const uint8_t* top, const uint8_t* bottom, const Yuv420Lines<uint8_t>& out,
                             int32_t pairs);

#endif

// The leading pairs of the a6 and w7 forward kernels done with wider
// vectors, where the processor has them (packed RGB only; their main loops
// and tails share the arithmetic, so any split gives the same bytes).
template <class In>
int32_t NarrowToYuv420Leading(typename In::Line top, typename In::Line bottom, const Yuv420Lines<uint8_t>& out,
                              int32_t pairs) {
#if PIXMOOR_HAVE_X86_TARGETS
    if constexpr (std::is_same_v<In, PackedRgbIn>) {
        if (isa::Has(isa::kAvx512)) return NarrowToYuv420Avx512(top, bottom, out, pairs);
        if (isa::Has(isa::kAvx2)) return NarrowToYuv420Avx2(top, bottom, out, pairs);
    }
#endif
    (void)top, (void)bottom, (void)out, (void)pairs;
    return 0;
}

// The leading pairs of the a6 and w7 inverse kernels to packed RGB done
// with wider vectors and the tier's factor lanes, where the processor has
// them; `mainPairs` bounds the tier's own main loop.
template <class Out>
int32_t NarrowFromYuv420Leading(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                                typename Out::Line bottom, int32_t mainPairs, const int16_t (&lanes)[5][8]) {
#if PIXMOOR_HAVE_X86_TARGETS
    if constexpr (std::is_same_v<Out, PackedRgbOut>) {
        int32_t done = 0;
        if (isa::Has(isa::kAvx512)) done = NarrowFromYuv420Avx512(in, top, bottom, mainPairs, lanes);
        if (isa::Has(isa::kAvx2)) {
            const Yuv420Lines<const uint8_t> rest{in.y0 + 2 * done, in.y1 + 2 * done, in.u + done, in.v + done};
            done += NarrowFromYuv420Avx2(rest, top + 6 * static_cast<intptr_t>(done),
                                         bottom + 6 * static_cast<intptr_t>(done), mainPairs - done, lanes);
        }
        return done;
    }
#endif
    (void)in, (void)top, (void)bottom, (void)mainPairs, (void)lanes;
    return 0;
}

}  // namespace pixmoor::colour::fast

#endif
