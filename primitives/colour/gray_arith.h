// The per-pixel arithmetic of the gray members, in the forms the tiers use:
//   - 8-bit: integer weights at scale 4096, an unsigned 32-bit sum, no
//     rounding term, no clamp (the low byte of sum >> 12 is stored);
//   - 8-bit lanes (w7): the same weights in 16-bit lanes, each product's
//     low 16 bits dropped;
//   - 16-bit and float, plain tiers: products and sum in double;
//   - 16-bit and float, vector tiers: products and sum in single precision.
// The vector kernels use these scalar forms for their tails, so a tail
// gives the bytes of the main loop.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_GRAY_ARITH_H
#define PIXMOOR_PRIMITIVES_COLOUR_GRAY_ARITH_H

#include <cstdint>

namespace pixmoor::colour::gray {

// 0.299, 0.587, 0.114 as floats.
inline constexpr float kDefaultWeights[3] = {0.299f, 0.587f, 0.114f};

// Conversion of a double to a 32-bit integer as the processor does it:
// truncated toward zero; a value out of range, or not a number, gives the
// one "indefinite" integer 0x80000000.
inline int32_t TruncToInt32(double x) {
    if (x > -2147483649.0 && x < 2147483648.0) return static_cast<int32_t>(x);
    return INT32_MIN;
}

// Weights of the 8-bit members: the integer part of w * 4096 + 0.5 in
// double; truncation toward zero makes a sum below 1.0 give 0 and a
// negative sum the negated integer part of its magnitude.
struct IntWeights {
    int32_t w[3];
};
inline int32_t ToIntWeight(float w) { return TruncToInt32(static_cast<double>(w) * 4096.0 + 0.5); }
inline IntWeights ToIntWeights(const float* w) {
    return IntWeights{{ToIntWeight(w[0]), ToIntWeight(w[1]), ToIntWeight(w[2])}};
}

struct FloatWeights {
    float w[3];
};
inline FloatWeights ToFloatWeights(const float* w) { return FloatWeights{{w[0], w[1], w[2]}}; }

// 8-bit, plain tiers.
inline uint8_t Gray8u(uint32_t r, uint32_t g, uint32_t b, const IntWeights& k) {
    const uint32_t sum = r * static_cast<uint32_t>(k.w[0]) + g * static_cast<uint32_t>(k.w[1]) +
                         b * static_cast<uint32_t>(k.w[2]);
    return static_cast<uint8_t>(sum >> 12);
}

// 8-bit, w7 lanes.  A sample c enters as c << 7 and each weight as its low
// 16 bits, signed; a product keeps its high half, (c w) >> 9 rounded toward
// minus infinity.  The three halves add up with 16-bit wrap, so the low
// byte comes out as in the plain form for any weight below 8.0 in
// magnitude.  Each product loses less than 1 to truncation; the constant 2
// makes up the usual loss of the three, so that a gray pixel keeps its
// value and the result stays within 1 of the plain form.
struct LaneWeights {
    int16_t w[3];
};
inline constexpr int32_t kLaneSampleShift = 7;
inline constexpr int32_t kLaneLossMakeUp = 2;
inline constexpr int32_t kLaneResultShift = 3;
inline LaneWeights ToLaneWeights(const IntWeights& k) {
    return LaneWeights{{static_cast<int16_t>(static_cast<uint16_t>(k.w[0])),
                        static_cast<int16_t>(static_cast<uint16_t>(k.w[1])),
                        static_cast<int16_t>(static_cast<uint16_t>(k.w[2]))}};
}
inline int32_t LaneProduct(int32_t c, int16_t w) { return ((c << kLaneSampleShift) * w) >> 16; }
inline uint8_t Gray8uLanes(int32_t r, int32_t g, int32_t b, const LaneWeights& k) {
    const uint32_t sum = static_cast<uint32_t>(LaneProduct(r, k.w[0]) + LaneProduct(g, k.w[1]) +
                                               LaneProduct(b, k.w[2]) + kLaneLossMakeUp);
    return static_cast<uint8_t>((sum & 0xFFFFu) >> kLaneResultShift);
}

// Sum of the weighted samples in double, products first, in R, G, B order.
inline double WeightedDouble(double r, double g, double b, const FloatWeights& k) {
    return r * static_cast<double>(k.w[0]) + g * static_cast<double>(k.w[1]) +
           b * static_cast<double>(k.w[2]);
}
// The same in single precision: every product and partial sum rounded to
// float.
inline float WeightedSingle(float r, float g, float b, const FloatWeights& k) {
    const float pr = r * k.w[0];
    const float pg = g * k.w[1];
    const float pb = b * k.w[2];
    const float rg = pr + pg;
    return rg + pb;
}

// Signed samples are weighed raised by 32768 and the result lowered again.
inline constexpr int32_t kSignedBias = 32768;

inline uint16_t To16u(int32_t integerPart) { return static_cast<uint16_t>(integerPart); }
inline int16_t To16s(int32_t integerPart) {
    return static_cast<int16_t>(
        static_cast<uint16_t>(static_cast<uint32_t>(integerPart) - static_cast<uint32_t>(kSignedBias)));
}

// Plain tiers: double.
inline uint16_t Gray16u(uint16_t r, uint16_t g, uint16_t b, const FloatWeights& k) {
    return To16u(TruncToInt32(WeightedDouble(r, g, b, k)));
}
inline int16_t Gray16s(int16_t r, int16_t g, int16_t b, const FloatWeights& k) {
    return To16s(TruncToInt32(WeightedDouble(r + kSignedBias, g + kSignedBias, b + kSignedBias, k)));
}
inline float Gray32f(float r, float g, float b, const FloatWeights& k) {
    return static_cast<float>(WeightedDouble(r, g, b, k));
}

// Vector tiers: single precision.
inline uint16_t Gray16uSingle(uint16_t r, uint16_t g, uint16_t b, const FloatWeights& k) {
    return To16u(TruncToInt32(WeightedSingle(r, g, b, k)));
}
inline int16_t Gray16sSingle(int16_t r, int16_t g, int16_t b, const FloatWeights& k) {
    return To16s(TruncToInt32(WeightedSingle(static_cast<float>(r + kSignedBias),
                                              static_cast<float>(g + kSignedBias),
                                              static_cast<float>(b + kSignedBias), k)));
}
inline float Gray32fSingle(float r, float g, float b, const FloatWeights& k) {
    return WeightedSingle(r, g, b, k);
}

}  // namespace pixmoor::colour::gray

#endif
