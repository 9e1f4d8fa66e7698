// Compute members: argument checks and the row driver that turns the row
// sums of a kernel into the moments of the state.
#include <cstring>

#include "primitives/moments/moment_members.h"

namespace pixmoor::moments {
namespace {

// Adds one row's sums S0..S3, taken at row y, into a channel's block
// (M(p,q) at index 4q + p).
void AddRow(const double s[4], double y, double* block) {
    block[0] += s[0];
    block[1] += s[1];
    block[2] += s[2];
    block[3] += s[3];
    const double a = s[0] * y;
    block[4] += a;
    const double b = s[1] * y;
    block[5] += b;
    block[6] += s[2] * y;
    const double a2 = a * y;
    block[8] += a2;
    block[9] += b * y;
    block[12] += a2 * y;
}

}  // namespace

PrimStatus ComputeMoments(MemberIndex member, const void* src, int32_t srcStep, int32_t width, int32_t height,
                          ImgMomentState* state, RowSumsFn accurate, RowSumsFn fast) {
    const MemberShape shape = kMemberShapes[member];
    if (src == nullptr || state == nullptr) return PrimStatusNullPointer;
    if (state->magic != ImgMomentStateMagic) return PrimStatusContextMismatch;
    if (srcStep < 1) return PrimStatusStepError;
    if (width < 1 || height < 1) return PrimStatusSizeError;
    if (static_cast<int64_t>(width) * shape.pixelBytes > srcStep) return PrimStatusStrideTooSmall;

    std::memset(state->channelMoments, 0, sizeof(state->channelMoments));
    state->channelCount = shape.channelCount;
    const RowSumsFn rowSums = state->hint == PrimAlgHintAccurate ? accurate : fast;

    const uint8_t* row = static_cast<const uint8_t*>(src);
    double sums[3][4];
    for (int32_t y = 0; y < height; ++y) {
        if (y > 0) row += static_cast<intptr_t>(srcStep);
        rowSums(row, width, sums);
        for (int32_t c = 0; c < shape.channelCount; ++c)
            AddRow(sums[c], static_cast<double>(y), state->channelMoments[c]);
    }
    return PrimStatusOk;
}

}  // namespace pixmoor::moments
