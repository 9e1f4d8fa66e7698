// 16-bit RGB words: the three word layouts, the destination layout that the
// 4:2:0 driver writes through, and the narrow arithmetic of the vector
// tiers' 16-bit kernels in plain code.
//
// A word layout keeps the top bits of each 8-bit channel (no rounding, no
// dither).  The two members of a layout share one row kernel per tier; the
// order flag tells it which end of the word red takes: 1 puts red high and
// blue at bit 0, 0 the reverse.  Green always sits in the middle.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGB16_WORDS_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGB16_WORDS_H

#include <cstdint>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/narrow_arith.h"

namespace pixmoor::colour {

// Bits dropped from red and blue, bits dropped from green, green's position,
// and the position of the high field.
struct Word565 {
    static constexpr int kRedBlueDrop = 3, kGreenDrop = 2, kGreenShift = 5, kHighShift = 11;
};
struct Word555 {
    static constexpr int kRedBlueDrop = 3, kGreenDrop = 3, kGreenShift = 5, kHighShift = 10;
};
struct Word444 {
    static constexpr int kRedBlueDrop = 4, kGreenDrop = 4, kGreenShift = 4, kHighShift = 8;
};

// The two shift counts of the red and blue fields.
struct FieldShifts {
    int32_t red, blue;
};

template <class Word>
FieldShifts ShiftsOf(int32_t order) {
    return order ? FieldShifts{Word::kHighShift, 0} : FieldShifts{0, Word::kHighShift};
}

template <class Word>
uint16_t PackWord(Rgb c, FieldShifts s) {
    return static_cast<uint16_t>(((c.r >> Word::kRedBlueDrop) << s.red) |
                                 ((c.g >> Word::kGreenDrop) << Word::kGreenShift) |
                                 ((c.b >> Word::kRedBlueDrop) << s.blue));
}

// Destination of 16-bit words; the step counts words.  A line carries the
// order flag so that the row kernel and the driver's edge code cut the same
// fields.
template <class Word>
struct Rgb16Out {
    struct Line {
        uint16_t* words;
        int32_t order;
    };

    uint16_t* base;
    int32_t step;
    int32_t order;

    Line LineAt(int32_t line) const { return Line{colour::LineAt(base, step, line), order}; }
    static void Store(const Line& l, int32_t x, Rgb c) {
        l.words[x] = PackWord<Word>(c, ShiftsOf<Word>(l.order));
    }
};

namespace narrow16 {

// The vector tiers' own form for 16-bit words: luma at 4 fraction bits,
// chroma lowered by 128 and scaled by 128, each product truncated by itself
// and the G products subtracted:
//   R = sat((16Y + mulhi(v', 9338)) >> 4)
//   G = sat((16Y - mulhi(v', 4759) - mulhi(u', 3227)) >> 4)
//   B = sat((16Y + mulhi(u', 16646)) >> 4)
constexpr int32_t kRFromV = 9338;
constexpr int32_t kGFromV = 4759;
constexpr int32_t kGFromU = 3227;
constexpr int32_t kBFromU = 16646;

inline Rgb ToRgb(int32_t y, int32_t u, int32_t v) {
    using narrow::MulHi;
    using narrow::Saturate;
    const int32_t y16 = 16 * y;
    const int32_t du = 128 * (u - 128);
    const int32_t dv = 128 * (v - 128);
    return Rgb{Saturate((y16 + MulHi(dv, kRFromV)) >> 4),
               Saturate((y16 - MulHi(dv, kGFromV) - MulHi(du, kGFromU)) >> 4),
               Saturate((y16 + MulHi(du, kBFromU)) >> 4)};
}

// Pairs [from, to) of a line pair.
template <class Word>
void Pairs(const Yuv420Lines<const uint8_t>& in, typename Rgb16Out<Word>::Line top,
           typename Rgb16Out<Word>::Line bottom, int32_t from, int32_t to) {
    const FieldShifts s = ShiftsOf<Word>(top.order);
    for (int32_t j = from; j < to; ++j) {
        const int32_t u = in.u[j];
        const int32_t v = in.v[j];
        top.words[2 * j] = PackWord<Word>(ToRgb(in.y0[2 * j], u, v), s);
        top.words[2 * j + 1] = PackWord<Word>(ToRgb(in.y0[2 * j + 1], u, v), s);
        bottom.words[2 * j] = PackWord<Word>(ToRgb(in.y1[2 * j], u, v), s);
        bottom.words[2 * j + 1] = PackWord<Word>(ToRgb(in.y1[2 * j + 1], u, v), s);
    }
}

// The whole line pair in plain code: the portable form of the vector
// tiers' kernel.
template <class Word>
void Kernel(const Yuv420Lines<const uint8_t>& in, typename Rgb16Out<Word>::Line top,
            typename Rgb16Out<Word>::Line bottom, int32_t pairs) {
    Pairs<Word>(in, top, bottom, 0, pairs);
}

}  // namespace narrow16
}  // namespace pixmoor::colour

#endif
