// The numbers that follow from the machine word: the aligned allocator's
// slack and offset, the words of the dispatch rows, and what the native
// processor seam reports.  On a 32-bit build they are the classic ones (36
// bytes of slack, +35, five 4-byte words a row); on a 64-bit build the
// address words are 8 bytes wide and the slack grows by 4.
#include <gtest/gtest.h>
#include <pixmoor/runtime.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "played_processor.h"

namespace {

#if UINTPTR_MAX == 0xFFFFFFFFu
constexpr bool kThirtyTwoBit = true;
constexpr size_t kSlack = 36;    // bytes added to every heap request
constexpr uintptr_t kReach = 35; // added to the heap address before the five low bits go
constexpr size_t kWord = 4;      // the address word below a block, and each word of a row
#else
constexpr bool kThirtyTwoBit = false;
constexpr size_t kSlack = 40;
constexpr uintptr_t kReach = 39;
constexpr size_t kWord = 8;
#endif

}  // namespace

// A heap that notes the size and result of each request while a test asks
// it to, so that the allocator's own request is seen.  Only with the GNU C
// library, and not under a sanitizer that brings its own heap.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define WORDS_TEST_HEAP_HOOK 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define WORDS_TEST_HEAP_HOOK 0
#endif
#endif
#if !defined(WORDS_TEST_HEAP_HOOK) && defined(__GLIBC__)
#define WORDS_TEST_HEAP_HOOK 1
#endif
#ifndef WORDS_TEST_HEAP_HOOK
#define WORDS_TEST_HEAP_HOOK 0
#endif

namespace {
std::atomic<bool> g_noting{false};
std::atomic<size_t> g_lastSize{0};
std::atomic<void*> g_lastHeap{nullptr};
}  // namespace

#if WORDS_TEST_HEAP_HOOK
extern "C" void* __libc_malloc(size_t size);
extern "C" void* malloc(size_t size) {
    void* p = __libc_malloc(size);
    if (g_noting.load(std::memory_order_relaxed)) {
        g_lastSize.store(size, std::memory_order_relaxed);
        g_lastHeap.store(p, std::memory_order_relaxed);
    }
    return p;
}
#endif

namespace {

// Notes the heap requests made during its lifetime.
struct NotedHeap {
    NotedHeap() {
        g_lastSize = 0;
        g_lastHeap = nullptr;
        g_noting = true;
    }
    ~NotedHeap() { g_noting = false; }
    size_t lastSize() const { return g_lastSize.load(); }
    uintptr_t lastHeap() const { return reinterpret_cast<uintptr_t>(g_lastHeap.load()); }
};

}  // namespace

TEST(MachineWords, PointerWidthIsTheBuildsWord) {
    EXPECT_EQ(sizeof(void*), kWord);
    EXPECT_EQ(sizeof(PrimEntry), kWord);
    EXPECT_EQ(sizeof(uintptr_t) == 4, kThirtyTwoBit);
}

TEST(MachineWords, AllocatorAsksForTheElementsAndTheSlack) {
    if (!WORDS_TEST_HEAP_HOOK) GTEST_SKIP() << "needs the C library's heap to note requests";
    struct Case {
        void* (*allocate)(int32_t);
        size_t elementSize;
    };
    const Case cases[] = {
        {reinterpret_cast<void* (*)(int32_t)>(px_SigMalloc8u), 1},
        {reinterpret_cast<void* (*)(int32_t)>(m6_SigMalloc16s), 2},
        {reinterpret_cast<void* (*)(int32_t)>(a6_SigMalloc32f), 4},
        {reinterpret_cast<void* (*)(int32_t)>(w7_SigMalloc64f), 8},
        {reinterpret_cast<void* (*)(int32_t)>(w7_SigMalloc64fc), 16},
    };
    for (const Case& c : cases)
        for (int32_t count : {1, 3, 100, 4097}) {
            void* block;
            size_t asked;
            uintptr_t heap;
            {
                NotedHeap noted;
                block = c.allocate(count);
                asked = noted.lastSize();
                heap = noted.lastHeap();
            }
            ASSERT_NE(block, nullptr);
            EXPECT_EQ(asked, count * c.elementSize + kSlack) << c.elementSize << " x " << count;
            // The block is the heap address plus the reach, five low bits
            // cleared, and the word just below it holds the heap address.
            EXPECT_EQ(reinterpret_cast<uintptr_t>(block), (heap + kReach) & ~static_cast<uintptr_t>(31));
            uintptr_t stored = 0;
            std::memcpy(&stored, static_cast<uint8_t*>(block) - kWord, kWord);
            EXPECT_EQ(stored, heap);
            SigFree(block);
        }
}

TEST(MachineWords, BlockLiesWithinTheSlackAboveTheHeapAddress) {
    for (int32_t count : {1, 2, 5, 31, 1000}) {
        uint8_t* block = px_SigMalloc8u(count);
        ASSERT_NE(block, nullptr);
        uintptr_t heap = 0;
        std::memcpy(&heap, block - kWord, kWord);
        const uintptr_t gap = reinterpret_cast<uintptr_t>(block) - heap;
        EXPECT_GE(gap, kWord);
        EXPECT_LE(gap, kReach);
        px_SigFree(block);
    }
}

TEST(MachineWords, DispatchRowIsFiveWords) {
    EXPECT_EQ(sizeof(PrimDispatchRow), 5 * kWord);
    EXPECT_EQ(offsetof(PrimDispatchRow, slot), 0u);
    EXPECT_EQ(offsetof(PrimDispatchRow, entries), kWord);
    EXPECT_EQ(sizeof(PrimDispatchTable), 19 * 5 * kWord);
    // Each slot is one word, the slots one behind the other in row order.
    for (int row = 1; row < PrimDispatchRowCount; ++row)
        EXPECT_EQ(reinterpret_cast<uintptr_t>(PrimDispatchTable[row].slot) -
                      reinterpret_cast<uintptr_t>(PrimDispatchTable[row - 1].slot),
                  kWord)
            << row;
}

// On a processor that is not x86 the native seam has no CPUID: detection
// gives px and the best selection fills every slot from the px column.  On
// x86 the native seam runs the real instruction (see cpu_detection_test).
TEST(MachineWords, WithoutX86TheNativeSeamLeadsToPx) {
#if defined(__x86_64__) || defined(__i386__)
    GTEST_SKIP() << "an x86 processor has CPUID; the native seam reports it";
#else
    pixmoor_test::RuntimeStateGuard guard;
    PrimSetPlatform(nullptr);
    EXPECT_EQ(CpuHasCpuid(), 0);
    EXPECT_EQ(PrimDetectTier(), PrimTierPx);
    ASSERT_EQ(PrimSelectBestTier(), 1);
    EXPECT_EQ(PrimGetTier(), 0);
    for (int row = 0; row < PrimDispatchRowCount; ++row)
        EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[0]) << row;
#endif
}

// Every tier's entries are present on every processor, so a tier asked for
// by name is selected whatever the processor.
TEST(MachineWords, EveryTierHasEveryEntry) {
    pixmoor_test::RuntimeStateGuard guard;
    for (int row = 0; row < PrimDispatchRowCount; ++row)
        for (int tier = 0; tier < 4; ++tier) EXPECT_NE(PrimDispatchTable[row].entries[tier], nullptr) << row;
    for (int32_t tier = 3; tier >= 0; --tier) {
        ASSERT_EQ(PrimSelectTier(tier), 1);
        EXPECT_EQ(PrimGetTier(), tier);
        for (int row = 0; row < PrimDispatchRowCount; ++row)
            EXPECT_EQ(*PrimDispatchTable[row].slot, PrimDispatchTable[row].entries[tier]) << row;
    }
}
