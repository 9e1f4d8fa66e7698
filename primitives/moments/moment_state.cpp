// Allocation and release of moments state records.
#include <pixmoor/primitives/moments.h>

#include <cstddef>

#include "primitives/moments/moment_members.h"

static_assert(sizeof(ImgMomentState) == 400, "a state record is 400 bytes");
static_assert(offsetof(ImgMomentState, channelMoments) == 16, "the moments follow four 32-bit words");

namespace pixmoor::moments {

PrimStatus AllocState(ImgMomentState** state, PrimAlgHint hint, BlockAllocator allocate) {
    if (state == nullptr) return PrimStatusNullPointer;
    uint8_t* block = allocate(static_cast<int32_t>(sizeof(ImgMomentState)));
    if (block == nullptr) return PrimStatusNoMemory;
    // The moments stay as the heap left them: every compute clears them first.
    ImgMomentState* fresh = reinterpret_cast<ImgMomentState*>(block);
    fresh->magic = ImgMomentStateMagic;
    fresh->hint = hint;
    fresh->channelCount = -1;
    *state = fresh;
    return PrimStatusOk;
}

PrimStatus FreeState(ImgMomentState* state, BlockRelease release) {
    if (state == nullptr) return PrimStatusNullPointer;
    if (state->magic != ImgMomentStateMagic) return PrimStatusContextMismatch;
    release(state);
    return PrimStatusOk;
}

}  // namespace pixmoor::moments
