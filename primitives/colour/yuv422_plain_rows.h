// Plain-code row kernels of the 4:2:2 members, over an arithmetic policy of
// yuv422_arith.h.  They are the whole row kernels of px and m6, and the
// tails of the vector tiers' kernels, which run them from the first pair
// their vector loop left over.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_PLAIN_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_PLAIN_ROWS_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/yuv422_layouts.h"

namespace pixmoor::colour::yuv422 {

// Pairs from `fromPair` on, then the lone last pixel of an odd count.
template <class Arith, class In>
void ToYuv422From(typename In::Line in, const Yuv422Line<uint8_t>& out, int32_t fromPair,
                  int32_t count) {
    const int32_t pairs = count >> 1;
    for (int32_t j = fromPair; j < pairs; ++j)
        Arith::Pair(In::Pixel(in, 2 * j), In::Pixel(in, 2 * j + 1), out.y + 2 * j, out.u + j, out.v + j);
    if (count & 1) Arith::Lone(In::Pixel(in, count - 1), out.y + count - 1, out.u + pairs, out.v + pairs);
}

template <class Arith, class In, class Out>
void FromYuv422From(typename In::Line in, typename Out::Line out, int32_t fromPair, int32_t count) {
    const int32_t pairs = count >> 1;
    for (int32_t j = fromPair; j < pairs; ++j) {
        const Yuv422Pair p = In::Pair(in, j);
        Rgb first, second;
        Arith::Pair(p.y0, p.y1, p.u, p.v, &first, &second);
        Out::Store(out, 2 * j, first);
        Out::Store(out, 2 * j + 1, second);
    }
    if (count & 1) {
        const Yuv422Pair p = In::Lone(in, count - 1);
        Out::Store(out, count - 1, Arith::Lone(p.y0, p.u, p.v));
    }
}

// Whole-line kernels in the row kernel shape.
template <class Arith, class In>
void ToYuv422Kernel(typename In::Line in, Yuv422Line<uint8_t> out, int32_t count) {
    ToYuv422From<Arith, In>(in, out, 0, count);
}

template <class Arith, class In, class Out>
void FromYuv422Kernel(typename In::Line in, typename Out::Line out, int32_t count) {
    FromYuv422From<Arith, In, Out>(in, out, 0, count);
}

}  // namespace pixmoor::colour::yuv422

#endif
