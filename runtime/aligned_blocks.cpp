// Aligned blocks: one heap allocation each, handed out on a 32-byte boundary
// with the heap address stored in the word just below the block.
//
// The slack is 32 bytes for the alignment plus one address word: on a 32-bit
// build that is the classic 36 bytes and +35; on a 64-bit build the stored
// address is 8 bytes wide, so the request grows to 40 and the offset to +39.
// The element count is multiplied unchecked, as it always has been.
#include <pixmoor/runtime.h>

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

// Every tier has the same allocator family; the blocks are interchangeable.
#define PIXMOOR_ALLOCATOR(tier, name, type, size) \
    type* tier##name(int32_t count) { return static_cast<type*>(AllocateAligned(count, size)); }
#define PIXMOOR_ALLOCATOR_TIER(tier)                        \
    PIXMOOR_ALLOCATOR(tier, SigMalloc8u, uint8_t, 1)        \
    PIXMOOR_ALLOCATOR(tier, SigMalloc16u, uint16_t, 2)      \
    PIXMOOR_ALLOCATOR(tier, SigMalloc32u, uint32_t, 4)      \
    PIXMOOR_ALLOCATOR(tier, SigMalloc8s, int8_t, 1)         \
    PIXMOOR_ALLOCATOR(tier, SigMalloc16s, int16_t, 2)       \
    PIXMOOR_ALLOCATOR(tier, SigMalloc32s, int32_t, 4)       \
    PIXMOOR_ALLOCATOR(tier, SigMalloc64s, int64_t, 8)       \
    PIXMOOR_ALLOCATOR(tier, SigMalloc32f, float, 4)         \
    PIXMOOR_ALLOCATOR(tier, SigMalloc64f, double, 8)        \
    PIXMOOR_ALLOCATOR(tier, SigMalloc8sc, int8_t, 2)        \
    PIXMOOR_ALLOCATOR(tier, SigMalloc16sc, SigComplex16s, 4) \
    PIXMOOR_ALLOCATOR(tier, SigMalloc32sc, SigComplex32s, 8) \
    PIXMOOR_ALLOCATOR(tier, SigMalloc64sc, int64_t, 16)     \
    PIXMOOR_ALLOCATOR(tier, SigMalloc32fc, SigComplex32f, 8) \
    PIXMOOR_ALLOCATOR(tier, SigMalloc64fc, SigComplex64f, 16) \
    void tier##SigFree(void* block) { FreeAligned(block); }

extern "C" {
PIXMOOR_ALLOCATOR_TIER(px_)
PIXMOOR_ALLOCATOR_TIER(m6_)
PIXMOOR_ALLOCATOR_TIER(a6_)
PIXMOOR_ALLOCATOR_TIER(w7_)
}
