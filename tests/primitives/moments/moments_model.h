// Scalar models of the accumulation, written from the description of each
// form: the plain double sums, the two double lanes and the four float lanes.
// Each model hands back the ten moments of every channel in the state's
// layout (M(p,q) at index 4q + p).
#ifndef PIXMOOR_TESTS_MOMENTS_MODEL_H
#define PIXMOOR_TESTS_MOMENTS_MODEL_H

#include "moments_fixture.h"

namespace moments_test {

// Row totals of one channel, S[k] = sum of v x^k, turned into moments at row
// y in the stated order of products.
inline void ModelAddRow(const double S[4], double y, double* M) {
    M[0] += S[0];
    M[1] += S[1];
    M[2] += S[2];
    M[3] += S[3];
    const double a = S[0] * y;
    M[4] += a;
    const double b = S[1] * y;
    M[5] += b;
    M[6] += S[2] * y;
    const double a2 = a * y;
    M[8] += a2;
    M[9] += b * y;
    M[12] += a2 * y;
}

// One pixel into four running sums, in the sums' own precision:
// S[k] += v x^k, with the power built by repeated products.
template <typename F>
inline void ModelAddPixel(F S[4], F v, F x) {
    F t = v;
    S[0] += t;
    for (int k = 1; k < 4; ++k) {
        t = t * x;
        S[k] += t;
    }
}

// The reference: every pixel in turn, in double.
inline Moments ModelReference(const Image& img) {
    Moments out;
    const int channels = Info(img.layout()).channels;
    for (int32_t y = 0; y < img.height(); ++y)
        for (int c = 0; c < channels; ++c) {
            double S[4] = {0.0, 0.0, 0.0, 0.0};
            double x = 0.0;
            for (int32_t i = 0; i < img.width(); ++i) {
                ModelAddPixel(S, img.Get(i, y, c), x);
                x += 1.0;
            }
            ModelAddRow(S, static_cast<double>(y), out.m[c]);
        }
    return out;
}

inline bool StartsAligned(const Image& img, int32_t x, int32_t y, uintptr_t alignment) {
    return reinterpret_cast<uintptr_t>(img.SampleAddress(x, y, 0)) % alignment == 0;
}

// Two double lanes: float rows go one pixel at a time into lane 0 until the
// pixel address is a multiple of 16; then groups of four pixels alternate
// between lane 0 and lane 1; the rest goes into lane 0.  The lanes are added
// at the end of the row.
inline Moments ModelTwoLanes(const Image& img) {
    Moments out;
    const int channels = Info(img.layout()).channels;
    const bool floats = Info(img.layout()).elementBytes == 4;
    for (int32_t y = 0; y < img.height(); ++y)
        for (int c = 0; c < channels; ++c) {
            double lane[2][4] = {};
            double x[2] = {0.0, 1.0};
            auto add = [&](int l, double v) { ModelAddPixel(lane[l], v, x[l]); };
            int32_t i = 0;
            auto single = [&]() {
                add(0, img.Get(i, y, c));
                x[0] += 1.0;
                x[1] += 1.0;
                ++i;
            };
            if (floats)
                while (i < img.width() && !StartsAligned(img, i, y, 16)) single();
            while (img.width() - i >= 4) {
                for (int pair = 0; pair < 2; ++pair) {
                    add(0, img.Get(i, y, c));
                    add(1, img.Get(i + 1, y, c));
                    x[0] += 2.0;
                    x[1] += 2.0;
                    i += 2;
                }
            }
            while (i < img.width()) single();
            double S[4];
            for (int k = 0; k < 4; ++k) S[k] = lane[0][k] + lane[1][k];
            ModelAddRow(S, static_cast<double>(y), out.m[c]);
        }
    return out;
}

// Four float lanes: single pixels into lane 0 until the pixel address is a
// multiple of 4 (bytes) or 16 (floats); then the lane coordinates gain
// 0, 1, 2, 3 and groups of four pixels spread over the lanes; the rest goes
// into lane 0.  The lanes are added in lane order in float, then widened.
inline Moments ModelFourFloatLanes(const Image& img) {
    Moments out;
    const int channels = Info(img.layout()).channels;
    const uintptr_t alignment = Info(img.layout()).elementBytes == 4 ? 16 : 4;
    for (int32_t y = 0; y < img.height(); ++y)
        for (int c = 0; c < channels; ++c) {
            float lane[4][4] = {};
            float x[4] = {0.0f, 0.0f, 0.0f, 0.0f};
            auto add = [&](int l, float v) { ModelAddPixel(lane[l], v, x[l]); };
            int32_t i = 0;
            auto single = [&]() {
                add(0, static_cast<float>(img.Get(i, y, c)));
                for (float& coordinate : x) coordinate += 1.0f;
                ++i;
            };
            while (i < img.width() && !StartsAligned(img, i, y, alignment)) single();
            for (int l = 0; l < 4; ++l) x[l] += static_cast<float>(l);
            while (img.width() - i >= 4) {
                for (int l = 0; l < 4; ++l) add(l, static_cast<float>(img.Get(i + l, y, c)));
                for (float& coordinate : x) coordinate += 4.0f;
                i += 4;
            }
            while (i < img.width()) single();
            double S[4];
            for (int k = 0; k < 4; ++k) {
                float total = lane[0][k] + lane[1][k];
                total = total + lane[2][k];
                total = total + lane[3][k];
                S[k] = static_cast<double>(total);
            }
            ModelAddRow(S, static_cast<double>(y), out.m[c]);
        }
    return out;
}

// Sum over the pixels of |v| x^p y^q, in long double: the scale against which
// a reordered sum's rounding is measured.
inline long double AbsoluteMoment(const Image& img, int c, int p, int q) {
    long double total = 0.0L;
    for (int32_t y = 0; y < img.height(); ++y)
        for (int32_t x = 0; x < img.width(); ++x) {
            long double term = std::fabs(static_cast<long double>(img.Get(x, y, c)));
            for (int k = 0; k < p; ++k) term *= x;
            for (int k = 0; k < q; ++k) term *= y;
            total += term;
        }
    return total;
}

// The ten (p, q) pairs that a state holds, and their index.
struct Order {
    int p, q;
};
inline constexpr Order kOrders[10] = {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {0, 1},
                                      {1, 1}, {2, 1}, {0, 2}, {1, 2}, {0, 3}};
inline int IndexOf(int p, int q) { return 4 * q + p; }

}  // namespace moments_test

#endif
