// Reference row sums: one pixel after the other, all in double precision.
#include "primitives/moments/row_sums.h"

namespace pixmoor::moments {
namespace {

template <typename Ops, typename T, int Channels, int Stride>
void ReferenceRow(const uint8_t* row, int32_t width, double sums[3][4]) {
    double s[Channels][4] = {};
    double x = 0.0;
    for (int32_t i = 0; i < width; ++i) {
        for (int c = 0; c < Channels; ++c) {
            AddPixel<Ops>(s[c], SampleAs<double, T, Stride>(row, i, c), x);
        }
        x += 1.0;
    }
    for (int c = 0; c < Channels; ++c)
        for (int k = 0; k < 4; ++k) sums[c][k] = s[c][k];
}

}  // namespace

const RowSumsFn kReferenceRowSums[kMemberCount] = PIXMOOR_ROW_SUMS_TABLE(ReferenceRow, ScalarDoubleOps);

}  // namespace pixmoor::moments
