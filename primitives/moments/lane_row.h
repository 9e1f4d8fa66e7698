// Row sums in vector lanes, shared by the two lane forms.
//
// Each lane keeps its own column coordinate and its own four sums in the
// lane set's precision.  A row goes:
//   1. one pixel at a time into lane 0 while its start is not aligned as the
//      form asks (all lane coordinates growing by 1);
//   2. the lane coordinates gain 0, 1, ... in lane order, and groups of four
//      pixels spread over the lanes in pixel order (4 / lanes vectors a
//      group), the coordinates growing by 4 a group;
//   3. the last pixels, fewer than four, one at a time into lane 0;
//   4. the lanes of each sum added in lane order, in the lanes' precision,
//      then widened to double.
// Lane 0 alone takes the single pixels; the other lanes are left as they are,
// which is what adding zeros to them would give.
#ifndef PIXMOOR_PRIMITIVES_MOMENTS_LANE_ROW_H
#define PIXMOOR_PRIMITIVES_MOMENTS_LANE_ROW_H

#include "primitives/moments/row_sums.h"

namespace pixmoor::moments {

// `Form` gives kAlignMask<T> (the low address bits that must be clear before
// the groups start; 0 for no alignment step) and kPrefetchFloats.
template <typename Form, typename Lanes, typename T, int Channels, int Stride>
void LaneRow(const uint8_t* row, int32_t width, double sums[3][4]) {
    using Scalar = typename Lanes::Scalar;
    using V = typename Lanes::V;
    using All = typename Lanes::All;
    constexpr int kVectors = 4 / Lanes::kLanes;
    constexpr uintptr_t kAlignMask = Form::template kAlignMask<T>;

    V s[Channels][4];
    for (auto& channel : s)
        for (V& lanes : channel) lanes = Lanes::Zero();
    V x = Lanes::Zero();
    const V one = Lanes::Splat(Scalar(1));
    const V laneStep = Lanes::Splat(Scalar(Lanes::kLanes));
    const V groupStep = Lanes::Splat(Scalar(4));

    auto single = [&](int32_t i) {
        for (int c = 0; c < Channels; ++c)
            AddPixel<typename Lanes::Lane0>(s[c], Lanes::Low(SampleAs<Scalar, T, Stride>(row, i, c)), x);
        x = All::Add(x, one);
    };

    // Bounded by the row: a pixel size that never reaches the boundary sends
    // the whole row this way.
    int32_t i = 0;
    while (i < width && (reinterpret_cast<uintptr_t>(SampleAt<T, Stride>(row, i, 0)) & kAlignMask) != 0) single(i++);

    x = All::Add(x, Lanes::Ramp());
    for (; width - i >= 4; i += 4) {
        if constexpr (Form::kPrefetchFloats && sizeof(T) == 4) Lanes::PrefetchAhead(SampleAt<T, Stride>(row, i, 0));
        for (int c = 0; c < Channels; ++c) {
            V group[kVectors];
            Lanes::template Load<T, Channels, Stride>(row, i, c, group);
            V xv = x;
            for (int g = 0; g < kVectors; ++g) {
                AddPixel<All>(s[c], group[g], xv);
                xv = All::Add(xv, laneStep);
            }
        }
        x = All::Add(x, groupStep);
    }
    for (; i < width; ++i) single(i);

    for (int c = 0; c < Channels; ++c)
        for (int k = 0; k < 4; ++k) {
            Scalar lane[Lanes::kLanes];
            Lanes::Store(lane, s[c][k]);
            Scalar total = lane[0];
            for (int l = 1; l < Lanes::kLanes; ++l) total = total + lane[l];
            sums[c][k] = static_cast<double>(total);
        }
}

}  // namespace pixmoor::moments

#endif
