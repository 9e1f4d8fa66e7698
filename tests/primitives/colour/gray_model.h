// Scalar models of the gray members and of the analogue 4:2:2 member,
// written from their formulas, one pixel at a time.  The tests compare
// every tier with the model of its arithmetic, and the vector forms also
// with the plain form within a stated bound.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_GRAY_MODEL_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_GRAY_MODEL_H

#include <cmath>
#include <cstdint>
#include <cstring>

namespace gray_model {

enum Tier { kPx = 0, kM6 = 1, kA6 = 2, kW7 = 3 };
constexpr int kTiers[] = {kPx, kM6, kA6, kW7};
inline const char* TierName(int t) {
    static const char* const names[] = {"px", "m6", "a6", "w7"};
    return names[t];
}

inline float FloatOfBits(uint32_t bits) {
    float f;
    std::memcpy(&f, &bits, 4);
    return f;
}
// 0.299, 0.587, 0.114 by their bit patterns.
inline const float* DefaultWeights() {
    static const float w[3] = {FloatOfBits(1050220167u), FloatOfBits(1058424226u), FloatOfBits(1038710997u)};
    return w;
}

// The processor's double to integer conversion: truncation toward zero,
// 0x80000000 for anything it cannot represent.
inline int32_t ProcessorTrunc(double x) {
    if (std::isnan(x) || x >= 2147483648.0 || x <= -2147483649.0) return INT32_MIN;
    return static_cast<int32_t>(std::trunc(x));
}

// --- 8-bit ---------------------------------------------------------------

// w * 4096 + 0.5 in double: from 1.0 on its integer part, below 0 the
// negated integer part of its magnitude, else 0.
inline int32_t Weight8(float w) {
    const double x = static_cast<double>(w) * 4096.0 + 0.5;
    if (x >= 1.0) return ProcessorTrunc(std::floor(x));
    if (x < 0.0) {
        const int32_t m = ProcessorTrunc(std::floor(-x));
        return m == INT32_MIN ? INT32_MIN : -m;
    }
    return 0;
}

struct Weights8 {
    int32_t w[3];
};
inline Weights8 ToWeights8(const float* w) { return Weights8{{Weight8(w[0]), Weight8(w[1]), Weight8(w[2])}}; }

// (R w0 + G w1 + B w2) >> 12 in unsigned 32-bit, low byte.
inline uint8_t Gray8Plain(int r, int g, int b, const Weights8& k) {
    uint32_t s = 0;
    s += static_cast<uint32_t>(r) * static_cast<uint32_t>(k.w[0]);
    s += static_cast<uint32_t>(g) * static_cast<uint32_t>(k.w[1]);
    s += static_cast<uint32_t>(b) * static_cast<uint32_t>(k.w[2]);
    return static_cast<uint8_t>((s >> 12) & 0xFF);
}

// w7: on signed 16-bit lanes, sample << 7 times the weight's low 16 bits,
// high half of each product kept (floor of the product / 65536); the three
// halves and 2 added with 16-bit wrap; the lane shifted right by 3
// (logically); its low byte stored.
inline uint8_t Gray8Lanes(int r, int g, int b, const Weights8& k) {
    auto high = [](int c, int32_t w) {
        const int16_t lane = static_cast<int16_t>(c * 128);
        const int16_t wl = static_cast<int16_t>(static_cast<uint16_t>(static_cast<uint32_t>(w) & 0xFFFF));
        const int32_t product = static_cast<int32_t>(lane) * wl;
        return static_cast<uint16_t>(static_cast<uint32_t>(
            static_cast<int32_t>(std::floor(static_cast<double>(product) / 65536.0))));
    };
    uint16_t t = static_cast<uint16_t>(high(r, k.w[0]) + high(g, k.w[1]));
    t = static_cast<uint16_t>(t + high(b, k.w[2]));
    t = static_cast<uint16_t>(t + 2);
    return static_cast<uint8_t>((t >> 3) & 0xFF);
}

// --- 16-bit and float ----------------------------------------------------

inline double SumDouble(double r, double g, double b, const float* w) {
    const double pr = r * static_cast<double>(w[0]);
    const double pg = g * static_cast<double>(w[1]);
    const double pb = b * static_cast<double>(w[2]);
    return (pr + pg) + pb;
}
inline float SumSingle(float r, float g, float b, const float* w) {
    volatile float pr = r * w[0];
    volatile float pg = g * w[1];
    volatile float pb = b * w[2];
    volatile float s = pr + pg;
    return s + pb;
}

inline uint16_t Low16(int32_t v) { return static_cast<uint16_t>(static_cast<uint32_t>(v) & 0xFFFF); }

inline uint16_t Gray16uPlain(int r, int g, int b, const float* w) { return Low16(ProcessorTrunc(SumDouble(r, g, b, w))); }
inline uint16_t Gray16uSingle(int r, int g, int b, const float* w) {
    return Low16(ProcessorTrunc(SumSingle(static_cast<float>(r), static_cast<float>(g), static_cast<float>(b), w)));
}
// Signed: the samples raised by 32768, 32768 taken from the integer part.
inline int16_t Gray16sPlain(int r, int g, int b, const float* w) {
    const int32_t i = ProcessorTrunc(SumDouble(r + 32768.0, g + 32768.0, b + 32768.0, w));
    return static_cast<int16_t>(Low16(static_cast<int32_t>(static_cast<uint32_t>(i) - 32768u)));
}
inline int16_t Gray16sSingle(int r, int g, int b, const float* w) {
    const int32_t i = ProcessorTrunc(SumSingle(static_cast<float>(r + 32768), static_cast<float>(g + 32768),
                                               static_cast<float>(b + 32768), w));
    return static_cast<int16_t>(Low16(static_cast<int32_t>(static_cast<uint32_t>(i) - 32768u)));
}
inline float Gray32fPlain(float r, float g, float b, const float* w) { return static_cast<float>(SumDouble(r, g, b, w)); }
inline float Gray32fSingle(float r, float g, float b, const float* w) { return SumSingle(r, g, b, w); }

// Which arithmetic each tier runs.
inline bool Uses8uLanes(int tier) { return tier == kW7; }
inline bool UsesSingle(int tier) { return tier == kA6 || tier == kW7; }

// --- analogue 4:2:2 --------------------------------------------------------

inline int ClampPlus128(int i) { return i + 128 < 0 ? 0 : i + 128 > 255 ? 255 : i + 128; }
inline int32_t FloorShift(int64_t v, int bits) { return static_cast<int32_t>(std::floor(static_cast<double>(v) / (1 << bits))); }

struct Yuv422Pair {
    int y0, u, y1, v;
};
inline int64_t A(int r, int g, int b) { return 19595LL * r + 38470LL * g + 7471LL * b; }
inline Yuv422Pair Analog422Pair(int r0, int g0, int b0, int r1, int g1, int b1) {
    const int64_t a0 = A(r0, g0, b0), a1 = A(r1, g1, b1), s = a0 + a1;
    const int32_t db = FloorShift((int64_t(b0 + b1) << 16) - s + 65535, 16);
    const int32_t dr = FloorShift((int64_t(r0 + r1) << 16) - s + 65535, 16);
    return Yuv422Pair{static_cast<int>(a0 >> 16), (FloorShift(int64_t(db) * 32244, 17) + 128) & 0xFF,
                      static_cast<int>(a1 >> 16), ClampPlus128(FloorShift(int64_t(dr) * 57475, 17))};
}
// The last pixel of an odd width: Y and U only.
inline void Analog422Single(int r, int g, int b, int* y, int* u) {
    const int64_t a = A(r, g, b);
    *y = static_cast<int>(a >> 16);
    const int32_t db = FloorShift((int64_t(b) << 16) - a + 32767, 16);
    *u = (FloorShift(int64_t(db) * 32244, 16) + 128) & 0xFF;
}

}  // namespace gray_model

#endif
