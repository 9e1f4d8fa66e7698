// The moments members as every tier shares them: argument checks, the row
// driver and the read-outs.  A tier entry only names its allocator, its free
// and its row kernels.
#ifndef PIXMOOR_PRIMITIVES_MOMENTS_MOMENT_MEMBERS_H
#define PIXMOOR_PRIMITIVES_MOMENTS_MOMENT_MEMBERS_H

#include <pixmoor/primitives/moments.h>

#include "primitives/moments/row_sums.h"

namespace pixmoor::moments {

using BlockAllocator = uint8_t* (*)(int32_t count);
using BlockRelease = void (*)(void* block);

PrimStatus AllocState(ImgMomentState** state, PrimAlgHint hint, BlockAllocator allocate);
PrimStatus FreeState(ImgMomentState* state, BlockRelease release);

// Checks the arguments of a compute member, clears the state's moments and
// adds the image into them row by row.  `accurate` serves a state whose hint
// asks for the accurate form, `fast` every other state.
PrimStatus ComputeMoments(MemberIndex member, const void* src, int32_t srcStep, int32_t width, int32_t height,
                          ImgMomentState* state, RowSumsFn accurate, RowSumsFn fast);

PrimStatus SpatialMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, ImgPoint offset,
                         double* value);
PrimStatus CentralMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, double* value);
PrimStatus NormalizedSpatialMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel,
                                   ImgPoint offset, double* value);
PrimStatus NormalizedCentralMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel,
                                   double* value);
PrimStatus HuMoments(const ImgMomentState* state, int32_t channel, double hu[7]);

}  // namespace pixmoor::moments

#endif
