// The two lane forms of the row sums and their kernel tables.
//
// Two double lanes (tier w7): in each group of four pixels lane 0 takes the
// first and third, lane 1 the second and fourth.  Byte rows have no
// alignment step; float rows go one pixel at a time until the source sits on
// a 16-byte boundary.  The per-pixel products are those of the reference;
// only the order of the additions differs.
//
// Four float lanes (tier a6, fast): the sums stay in single precision and
// only the row totals pass to double.  Rows step to a 4-byte boundary (byte
// rows) or a 16-byte one (float rows), and float rows prefetch ahead.  For
// byte images this departs from the reference once a row sum needs more than
// 24 bits, which the fast form accepts.
#include "primitives/moments/lane_row.h"
#include "primitives/moments/lane_sets_portable.h"
#include "primitives/moments/lane_sets_sse2.h"

namespace pixmoor::moments {
namespace {

struct TwoLaneForm {
    template <typename T>
    static constexpr uintptr_t kAlignMask = sizeof(T) == 4 ? 15 : 0;
    static constexpr bool kPrefetchFloats = false;
};

struct FourLaneForm {
    template <typename T>
    static constexpr uintptr_t kAlignMask = sizeof(T) == 1 ? 3 : 15;
    static constexpr bool kPrefetchFloats = true;
};

#if PIXMOOR_MOMENTS_SSE2
using DoubleLanes = DoubleLanesSse2;
using FloatLanes = FloatLanesSse;
#else
using DoubleLanes = PortableDoubleLanes;
using FloatLanes = PortableFloatLanes;
#endif
static_assert(DoubleLanes::kLanes == 2 && sizeof(DoubleLanes::Scalar) == 8, "two double lanes");
static_assert(FloatLanes::kLanes == 4 && sizeof(FloatLanes::Scalar) == 4, "four float lanes");

}  // namespace

const RowSumsFn kTwoLaneRowSums[kMemberCount] = PIXMOOR_ROW_SUMS_TABLE(LaneRow, TwoLaneForm, DoubleLanes);
const RowSumsFn kFourLaneFloatRowSums[kMemberCount] = PIXMOOR_ROW_SUMS_TABLE(LaneRow, FourLaneForm, FloatLanes);
const RowSumsFn kTwoLaneRowSumsPortable[kMemberCount] =
    PIXMOOR_ROW_SUMS_TABLE(LaneRow, TwoLaneForm, PortableDoubleLanes);
const RowSumsFn kFourLaneFloatRowSumsPortable[kMemberCount] =
    PIXMOOR_ROW_SUMS_TABLE(LaneRow, FourLaneForm, PortableFloatLanes);

}  // namespace pixmoor::moments
