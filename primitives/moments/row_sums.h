// Row kernels of the moments primitives.
//
// A row kernel walks one row of an image and hands back, per channel, the
// four row sums S0..S3 = sum of v, v x, v x^2, v x^3 over the row (x the
// column).  The kernels differ per tier only in how they form those sums;
// the driver turns them into moments the same way for every tier.
#ifndef PIXMOOR_PRIMITIVES_MOMENTS_ROW_SUMS_H
#define PIXMOOR_PRIMITIVES_MOMENTS_ROW_SUMS_H

#include <cstdint>
#include <cstring>

namespace pixmoor::moments {

// The six compute members, in the order that the kernel tables use.
enum MemberIndex : int {
    kMember8uC1,
    kMember8uC3,
    kMember8uAC4,
    kMember32fC1,
    kMember32fC3,
    kMember32fAC4,
    kMemberCount
};

// Bytes a pixel takes in the source, and the channels the state keeps.
struct MemberShape {
    int32_t pixelBytes;
    int32_t channelCount;
};

inline constexpr MemberShape kMemberShapes[kMemberCount] = {
    {1, 1}, {3, 3}, {4, 3}, {4, 1}, {12, 3}, {16, 3},
};

// sums[c][k] receives S_k of channel c; only the member's channels are set.
using RowSumsFn = void (*)(const uint8_t* row, int32_t width, double sums[3][4]);

// Builds a kernel table from a row template <Params..., sample type,
// channels, samples a pixel>, in MemberIndex order.  The leading parameters
// say what arithmetic the template runs on: plain doubles, or a form and a
// set of vector lanes.
#define PIXMOOR_ROW_SUMS_TABLE(Kernel, ...)                                                      \
    {                                                                                            \
        &Kernel<__VA_ARGS__, uint8_t, 1, 1>, &Kernel<__VA_ARGS__, uint8_t, 3, 3>,                \
            &Kernel<__VA_ARGS__, uint8_t, 3, 4>, &Kernel<__VA_ARGS__, float, 1, 1>,              \
            &Kernel<__VA_ARGS__, float, 3, 3>, &Kernel<__VA_ARGS__, float, 3, 4>                 \
    }

// Plain double sums in pixel order: tiers px and m6, and a6 asked for accuracy.
extern const RowSumsFn kReferenceRowSums[kMemberCount];
// Two double lanes taking alternate columns: tier w7.
extern const RowSumsFn kTwoLaneRowSums[kMemberCount];
// Four single-precision lanes: tier a6 unless asked for accuracy.
extern const RowSumsFn kFourLaneFloatRowSums[kMemberCount];
// The same two forms in plain code, lane by lane.  They serve where the
// processor has no vector unit that the lane forms are written for, and
// they give the same bytes as the vector forms.
extern const RowSumsFn kTwoLaneRowSumsPortable[kMemberCount];
extern const RowSumsFn kFourLaneFloatRowSumsPortable[kMemberCount];

// One sample of the source; float rows may sit at any byte address.
template <typename T>
inline T LoadSample(const uint8_t* at) {
    T value;
    std::memcpy(&value, at, sizeof(T));
    return value;
}

// Address of sample `channel` of pixel `pixel` in a row.
template <typename T, int Stride>
inline const uint8_t* SampleAt(const uint8_t* row, int32_t pixel, int channel) {
    return row + (static_cast<intptr_t>(pixel) * Stride + channel) * static_cast<intptr_t>(sizeof(T));
}

// That sample converted to the kernel's arithmetic type (exact for both).
template <typename Out, typename T, int Stride>
inline Out SampleAs(const uint8_t* row, int32_t pixel, int channel) {
    return static_cast<Out>(LoadSample<T>(SampleAt<T, Stride>(row, pixel, channel)));
}

// One pixel value v at coordinate x into the four sums of a row:
// S0 += v; t = v x; S1 += t; t = t x; S2 += t; t = t x; S3 += t.
// `Ops` gives the addition and multiplication: of plain doubles, or of the
// lanes of a vector register.
template <typename Ops, typename V>
inline void AddPixel(V s[4], V v, V x) {
    s[0] = Ops::Add(s[0], v);
    V t = Ops::Mul(v, x);
    s[1] = Ops::Add(s[1], t);
    t = Ops::Mul(t, x);
    s[2] = Ops::Add(s[2], t);
    t = Ops::Mul(t, x);
    s[3] = Ops::Add(s[3], t);
}

struct ScalarDoubleOps {
    static double Add(double a, double b) { return a + b; }
    static double Mul(double a, double b) { return a * b; }
};

}  // namespace pixmoor::moments

#endif
