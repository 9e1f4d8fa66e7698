// State records: allocation through the tier's aligned allocator, the fields
// a new record holds, release, and the failure rows of both.
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>

#include "moments_fixture.h"
#include "primitives/moments/moment_members.h"

using namespace moments_test;

// A heap that can be told to refuse one request size, so that the tier entry
// itself meets an exhausted heap.  Every other request goes to the C
// library's own allocator.  Only with the GNU C library, and not under a
// sanitizer that brings its own heap.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define MOMENTS_TEST_HEAP_HOOK 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define MOMENTS_TEST_HEAP_HOOK 0
#endif
#endif
#if !defined(MOMENTS_TEST_HEAP_HOOK) && defined(__GLIBC__)
#define MOMENTS_TEST_HEAP_HOOK 1
#endif
#ifndef MOMENTS_TEST_HEAP_HOOK
#define MOMENTS_TEST_HEAP_HOOK 0
#endif

namespace {
std::atomic<size_t> g_refusedSize{0};
}
#if MOMENTS_TEST_HEAP_HOOK
extern "C" void* __libc_malloc(size_t size);
extern "C" void* malloc(size_t size) {
    if (size != 0 && size == g_refusedSize.load(std::memory_order_relaxed)) return nullptr;
    return __libc_malloc(size);
}
#endif

namespace {

// A state block is 400 bytes plus the allocator's slack: 32 bytes of
// alignment and the word that keeps the heap address.
constexpr size_t kStateRequest = sizeof(ImgMomentState) + 32 + sizeof(void*);

}  // namespace

TEST(MomentsState, RecordLayout) {
    EXPECT_EQ(sizeof(ImgMomentState), 400u);
    EXPECT_EQ(offsetof(ImgMomentState, magic), 0u);
    EXPECT_EQ(offsetof(ImgMomentState, hint), 4u);
    EXPECT_EQ(offsetof(ImgMomentState, channelCount), 8u);
    EXPECT_EQ(offsetof(ImgMomentState, reserved), 12u);
    EXPECT_EQ(offsetof(ImgMomentState, channelMoments), 16u);
    EXPECT_EQ(sizeof(ImgPoint), 8u);
}

TEST(MomentsState, AllocationSetsMagicHintAndNoChannels) {
    for (const Tier& tier : Tiers())
        for (int32_t hint : {1, 2, 0, -5, 1000}) {
            SCOPED_TRACE(std::string(tier.name) + " hint " + std::to_string(hint));
            ImgMomentState* state = nullptr;
            ASSERT_EQ(tier.alloc(&state, static_cast<PrimAlgHint>(hint)), PrimStatusOk);
            ASSERT_NE(state, nullptr);
            EXPECT_EQ(reinterpret_cast<uintptr_t>(state) % 32, 0u);
            EXPECT_EQ(state->magic, 33);
            EXPECT_EQ(static_cast<int32_t>(state->hint), hint);
            EXPECT_EQ(state->channelCount, -1);
            EXPECT_EQ(tier.release(state), PrimStatusOk);
        }
}

TEST(MomentsState, BlocksOfOneTierFreeThroughAnother) {
    ImgMomentState* state = nullptr;
    ASSERT_EQ(w7_ImgMomentStateAlloc(&state, PrimAlgHintFast), PrimStatusOk);
    EXPECT_EQ(px_ImgMomentStateFree(state), PrimStatusOk);
    ASSERT_EQ(px_ImgMomentStateAlloc(&state, PrimAlgHintFast), PrimStatusOk);
    px_SigFree(state);  // a state is an ordinary aligned block
}

TEST(MomentsState, AllocationLeavesTheMomentsAsTheHeapGaveThem) {
    alignas(32) static uint8_t block[sizeof(ImgMomentState)];
    std::memset(block, 0x5C, sizeof(block));
    ImgMomentState* state = nullptr;
    auto hand = [](int32_t count) -> uint8_t* { return count == 400 ? block : nullptr; };
    ASSERT_EQ(pixmoor::moments::AllocState(&state, PrimAlgHintAccurate, hand), PrimStatusOk);
    ASSERT_EQ(reinterpret_cast<uint8_t*>(state), block);
    EXPECT_EQ(state->channelCount, -1);
    for (size_t i = 12; i < sizeof(block); ++i) EXPECT_EQ(block[i], 0x5C) << i;  // reserved and moments untouched
}

TEST(MomentsState, AllocationFailures) {
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        EXPECT_EQ(tier.alloc(nullptr, PrimAlgHintFast), PrimStatusNullPointer);

        if (!MOMENTS_TEST_HEAP_HOOK) continue;  // the injected allocator below still covers -9
        ImgMomentState* const sentinel = reinterpret_cast<ImgMomentState*>(uintptr_t{0x1234});
        ImgMomentState* state = sentinel;
        g_refusedSize = kStateRequest;
        const PrimStatus status = tier.alloc(&state, PrimAlgHintFast);
        g_refusedSize = 0;
        EXPECT_EQ(status, PrimStatusNoMemory);
        EXPECT_EQ(state, sentinel);
    }
    // The null out pointer is found before the allocator is asked.
    static int calls = 0;
    auto counting = [](int32_t) -> uint8_t* {
        ++calls;
        return nullptr;
    };
    EXPECT_EQ(pixmoor::moments::AllocState(nullptr, PrimAlgHintFast, counting), PrimStatusNullPointer);
    EXPECT_EQ(calls, 0);
    ImgMomentState* state = nullptr;
    EXPECT_EQ(pixmoor::moments::AllocState(&state, PrimAlgHintFast, counting), PrimStatusNoMemory);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(state, nullptr);
}

TEST(MomentsState, FreeFailuresReleaseNothing) {
    for (const Tier& tier : Tiers()) {
        SCOPED_TRACE(tier.name);
        EXPECT_EQ(tier.release(nullptr), PrimStatusNullPointer);
        ImgMomentState* state = nullptr;
        ASSERT_EQ(tier.alloc(&state, PrimAlgHintFast), PrimStatusOk);
        for (int32_t magic : {0, 32, 34, -33}) {
            state->magic = magic;
            const std::vector<uint8_t> before = Snapshot(state);
            EXPECT_EQ(tier.release(state), PrimStatusContextMismatch);
            EXPECT_EQ(Snapshot(state), before);  // still ours: not freed
        }
        state->magic = 33;
        EXPECT_EQ(tier.release(state), PrimStatusOk);
    }
}

TEST(MomentsState, FreeingLeavesTheMagicInPlace) {
    alignas(32) static ImgMomentState record;
    record.magic = 33;
    static void* released = nullptr;
    auto keep = [](void* block) { released = block; };
    EXPECT_EQ(pixmoor::moments::FreeState(&record, keep), PrimStatusOk);
    EXPECT_EQ(released, &record);
    EXPECT_EQ(record.magic, 33);

    released = nullptr;
    record.magic = 7;
    EXPECT_EQ(pixmoor::moments::FreeState(&record, keep), PrimStatusContextMismatch);
    EXPECT_EQ(released, nullptr);
}
