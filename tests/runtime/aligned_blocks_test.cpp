// Aligned blocks: every allocator in every tier, and SigFree across tiers.
#include <gtest/gtest.h>
#include <pixmoor/runtime.h>

#include <cstring>
#include <vector>

#include "played_processor.h"

namespace {

using Allocate = void* (*)(int32_t);

struct Member {
    const char* name;
    size_t elementSize;
    Allocate tiers[5];  // px, m6, a6, w7, plain name
};

#define PIXMOOR_MEMBER(name, size)                                                                   \
    Member {                                                                                        \
        #name, size, {                                                                              \
            reinterpret_cast<Allocate>(px_##name), reinterpret_cast<Allocate>(m6_##name),           \
                reinterpret_cast<Allocate>(a6_##name), reinterpret_cast<Allocate>(w7_##name),       \
                reinterpret_cast<Allocate>(name)                                                    \
        }                                                                                           \
    }

const Member kMembers[] = {
    PIXMOOR_MEMBER(SigMalloc8u, 1),    PIXMOOR_MEMBER(SigMalloc16u, 2),   PIXMOOR_MEMBER(SigMalloc32u, 4),
    PIXMOOR_MEMBER(SigMalloc8s, 1),    PIXMOOR_MEMBER(SigMalloc16s, 2),   PIXMOOR_MEMBER(SigMalloc32s, 4),
    PIXMOOR_MEMBER(SigMalloc64s, 8),   PIXMOOR_MEMBER(SigMalloc32f, 4),   PIXMOOR_MEMBER(SigMalloc64f, 8),
    PIXMOOR_MEMBER(SigMalloc8sc, 2),   PIXMOOR_MEMBER(SigMalloc16sc, 4),  PIXMOOR_MEMBER(SigMalloc32sc, 8),
    PIXMOOR_MEMBER(SigMalloc64sc, 16), PIXMOOR_MEMBER(SigMalloc32fc, 8),  PIXMOOR_MEMBER(SigMalloc64fc, 16),
};

void (*const kFrees[5])(void*) = {px_SigFree, m6_SigFree, a6_SigFree, w7_SigFree, SigFree};

}  // namespace

TEST(SigMalloc, CountsBelowOneGiveNull) {
    for (const Member& m : kMembers)
        for (Allocate allocate : m.tiers)
            for (int32_t count : {0, -1, -32, INT32_MIN}) EXPECT_EQ(allocate(count), nullptr) << m.name << " " << count;
}

TEST(SigMalloc, BlocksAreAlignedAndHoldEveryElement) {
    int freeIndex = 0;
    for (const Member& m : kMembers) {
        for (Allocate allocate : m.tiers) {
            for (int32_t count : {1, 2, 3, 7, 8, 31, 32, 33, 100, 1000}) {
                auto* block = static_cast<uint8_t*>(allocate(count));
                ASSERT_NE(block, nullptr);
                EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 32, 0u) << m.name;
                // The whole block, the last element included, is writable.
                std::memset(block, 0x5A, count * m.elementSize);
                // The heap address sits in the word just below, at most 31
                // bytes of padding plus that word before the block.
                uintptr_t heap;
                std::memcpy(&heap, block - sizeof(void*), sizeof heap);
                const uintptr_t gap = reinterpret_cast<uintptr_t>(block) - heap;
                EXPECT_GE(gap, sizeof(void*));
                EXPECT_LE(gap, 31 + sizeof(void*));
                // Any tier's SigFree takes any tier's block.
                kFrees[freeIndex++ % 5](block);
            }
        }
    }
}

TEST(SigMalloc, PlainNamesFollowTheCurrentTier) {
    pixmoor_test::RuntimeStateGuard guard;
    for (int32_t tier = 0; tier < 4; ++tier) {
        PrimCurrentTier = tier;
        for (const Member& m : kMembers) {
            void* block = m.tiers[4](5);
            ASSERT_NE(block, nullptr);
            EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 32, 0u);
            SigFree(block);
        }
    }
}

TEST(SigFree, NullDoesNothing) {
    for (auto release : kFrees) release(nullptr);
}
