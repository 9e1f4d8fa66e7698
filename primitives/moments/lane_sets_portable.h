// Lane sets in plain code: N lanes of a scalar type, every operation done
// lane by lane in the scalar's own precision, as the vector lane sets do it.
//
// A lane set gives the row templates: V (the lanes), Scalar, kLanes;
// Zero, Splat, Ramp (0, 1, ... in lane order), Low (a value in lane 0, zeros
// elsewhere); All and Lane0, the addition and multiplication of all lanes or
// of lane 0 alone (the other lanes keep the first operand); Store; Load of
// four pixels of one channel into 4 / kLanes vectors; and PrefetchAhead, a
// hint for the 32 bytes after a sample.
#ifndef PIXMOOR_PRIMITIVES_MOMENTS_LANE_SETS_PORTABLE_H
#define PIXMOOR_PRIMITIVES_MOMENTS_LANE_SETS_PORTABLE_H

#include "primitives/moments/row_sums.h"

namespace pixmoor::moments {

template <typename S, int N>
struct PortableLanes {
    using Scalar = S;
    struct V {
        S lane[N];
    };
    static constexpr int kLanes = N;

    static V Splat(S value) {
        V v;
        for (S& l : v.lane) l = value;
        return v;
    }
    static V Zero() { return Splat(S(0)); }
    static V Ramp() {
        V v;
        for (int i = 0; i < N; ++i) v.lane[i] = static_cast<S>(i);
        return v;
    }
    static V Low(S value) {
        V v = Zero();
        v.lane[0] = value;
        return v;
    }

    struct All {
        static V Add(V a, V b) {
            for (int i = 0; i < N; ++i) a.lane[i] = a.lane[i] + b.lane[i];
            return a;
        }
        static V Mul(V a, V b) {
            for (int i = 0; i < N; ++i) a.lane[i] = a.lane[i] * b.lane[i];
            return a;
        }
    };
    struct Lane0 {
        static V Add(V a, V b) {
            a.lane[0] = a.lane[0] + b.lane[0];
            return a;
        }
        static V Mul(V a, V b) {
            a.lane[0] = a.lane[0] * b.lane[0];
            return a;
        }
    };

    static void Store(S* out, V v) {
        for (int i = 0; i < N; ++i) out[i] = v.lane[i];
    }

    template <typename T, int Channels, int Stride>
    static void Load(const uint8_t* row, int32_t i, int c, V out[4 / N]) {
        for (int g = 0; g < 4 / N; ++g)
            for (int l = 0; l < N; ++l) out[g].lane[l] = SampleAs<S, T, Stride>(row, i + g * N + l, c);
    }

    static void PrefetchAhead(const uint8_t*) {}
};

using PortableDoubleLanes = PortableLanes<double, 2>;
using PortableFloatLanes = PortableLanes<float, 4>;

}  // namespace pixmoor::moments

#endif
