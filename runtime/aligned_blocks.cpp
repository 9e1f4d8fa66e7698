// Aligned blocks: one heap allocation each, handed out on a 32-byte boundary
// with the heap address stored in the word just below the block.
//
// The slack is 32 bytes for the alignment plus one address word: on a 32-bit
// build that is the classic 36 bytes and +35; on a 64-bit build the stored
// address is 8 bytes wide, so the request grows to 40 and the offset to +39.
// The element count is multiplied unchecked, as it always has been.
#include <pixmoor/runtime.h>

#include "runtime/tier_call.h"

#include <cstdlib>
#include <cstring>

namespace {
constexpr std::size_t kSlack = 32 + sizeof(void*);

void* AllocateAligned(int32_t count, uint32_t elementSize) {
    if (count < 1) return nullptr;
    const std::size_t bytes = static_cast<std::size_t>(static_cast<uint32_t>(count) * elementSize) + kSlack;
    void* heap = std::malloc(bytes);
    if (heap == nullptr) return nullptr;
    const uintptr_t aligned = (reinterpret_cast<uintptr_t>(heap) + kSlack - 1) & ~static_cast<uintptr_t>(31);
    std::memcpy(reinterpret_cast<void*>(aligned - sizeof(void*)), &heap, sizeof(void*));
    return reinterpret_cast<void*>(aligned);
}

void FreeAligned(void* block) {
    if (block == nullptr) return;
    void* heap;
    std::memcpy(&heap, static_cast<uint8_t*>(block) - sizeof(void*), sizeof(void*));
    std::free(heap);
}
}  // namespace

// The allocator family: member, element type, element size in bytes.
// SigMalloc32f stands in dispatch row 1, so its plain name is a stub.
#define PIXMOOR_ALLOCATORS(X, DISPATCHED)   \
    X(SigMalloc8u, uint8_t, 1)              \
    X(SigMalloc16u, uint16_t, 2)            \
    X(SigMalloc32u, uint32_t, 4)            \
    X(SigMalloc8s, int8_t, 1)               \
    X(SigMalloc16s, int16_t, 2)             \
    X(SigMalloc32s, int32_t, 4)             \
    X(SigMalloc64s, int64_t, 8)             \
    DISPATCHED(SigMalloc32f, float, 4)            \
    X(SigMalloc64f, double, 8)              \
    X(SigMalloc8sc, int8_t, 2)              \
    X(SigMalloc16sc, SigComplex16s, 4)      \
    X(SigMalloc32sc, SigComplex32s, 8)      \
    X(SigMalloc64sc, int64_t, 16)           \
    X(SigMalloc32fc, SigComplex32f, 8)      \
    X(SigMalloc64fc, SigComplex64f, 16)

// Every tier has the same allocator family; the blocks are interchangeable.
#define PIXMOOR_TIER_ALLOCATOR(name, type, size)                                                     \
    type* px_##name(int32_t count) { return static_cast<type*>(AllocateAligned(count, size)); }    \
    type* m6_##name(int32_t count) { return static_cast<type*>(AllocateAligned(count, size)); }    \
    type* a6_##name(int32_t count) { return static_cast<type*>(AllocateAligned(count, size)); }    \
    type* w7_##name(int32_t count) { return static_cast<type*>(AllocateAligned(count, size)); }

// The plain names of the allocators outside the dispatch table run the
// entry of the current tier.  (SigFree is dispatch row 2.)
#define PIXMOOR_PLAIN_ALLOCATOR(name, type, size) PIXMOOR_DEFINE_BY_TIER(type*, name, (int32_t count), (count))
#define PIXMOOR_NO_PLAIN_ALLOCATOR(name, type, size)

extern "C" {
PIXMOOR_ALLOCATORS(PIXMOOR_TIER_ALLOCATOR, PIXMOOR_TIER_ALLOCATOR)
void px_SigFree(void* block) { FreeAligned(block); }
void m6_SigFree(void* block) { FreeAligned(block); }
void a6_SigFree(void* block) { FreeAligned(block); }
void w7_SigFree(void* block) { FreeAligned(block); }
}

PIXMOOR_ALLOCATORS(PIXMOOR_PLAIN_ALLOCATOR, PIXMOOR_NO_PLAIN_ALLOCATOR)
