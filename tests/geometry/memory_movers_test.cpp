#include <gtest/gtest.h>
#include <pixmoor/geometry.h>

#include <cstring>
#include <vector>

#include "guarded_buffer.h"

using pixmoor_test::GuardedBuffer;
using pixmoor_test::RandomBytes;

TEST(MoveMem, CopiesUpTo512Bytes) {
    auto src = RandomBytes(512, 1);
    GuardedBuffer dst(512, 0);
    MoveMem(dst.data(), src.data(), 512);
    EXPECT_EQ(dst.Contents(), src);
    EXPECT_TRUE(dst.GuardsIntact());
}

TEST(MoveMem, OverlappingBlocksMoveLikeMemmove) {
    for (int shift : {-7, -1, 1, 13}) {
        GuardedBuffer buf(600);
        buf.FillRandom(2);
        auto expect = buf.Contents();
        std::memmove(expect.data() + 40 + shift, expect.data() + 40, 512);
        MoveMem(buf.data() + 40 + shift, buf.data() + 40, 512);
        EXPECT_EQ(buf.Contents(), expect) << shift;
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

TEST(MoveMem, AboveThresholdMovesNothing) {
    auto src = RandomBytes(4096, 3);
    for (uint32_t n : {513u, 1000u, 4096u}) {
        GuardedBuffer dst(4096, 0x11);
        MoveMem(dst.data(), src.data(), n);
        EXPECT_EQ(dst.Contents(), std::vector<uint8_t>(4096, 0x11)) << n;
        EXPECT_TRUE(dst.GuardsIntact());
    }
}

TEST(MMXmemmove, NeverTouchesAnything) {
    auto src = RandomBytes(64, 4);
    GuardedBuffer dst(64, 0x22);
    MMXmemmove(dst.data(), src.data(), 64);
    EXPECT_EQ(dst.Contents(), std::vector<uint8_t>(64, 0x22));
}

TEST(SetMem, FillsWithLowByte) {
    GuardedBuffer dst(512, 0);
    SetMem(dst.data(), 0x1AB, 512);
    EXPECT_EQ(dst.Contents(), std::vector<uint8_t>(512, 0xAB));
    EXPECT_TRUE(dst.GuardsIntact());
}

TEST(SetMem, ZeroCountWritesNothing) {
    GuardedBuffer dst(16, 0x33);
    SetMem(dst.data(), 0x44, 0);
    EXPECT_EQ(dst.Contents(), std::vector<uint8_t>(16, 0x33));
    EXPECT_TRUE(dst.GuardsIntact());
}

TEST(SetMem, OddCountsNeedNoAlignment) {
    for (uint32_t offset = 0; offset < 4; ++offset) {
        for (uint32_t n : {1u, 3u, 7u, 9u, 511u}) {
            GuardedBuffer dst(520, 0x33);
            SetMem(dst.data() + offset, -2, n);  // low byte 0xFE
            for (uint32_t i = 0; i < 520; ++i) {
                const bool inside = i >= offset && i < offset + n;
                ASSERT_EQ(dst[i], inside ? 0xFE : 0x33) << offset << " " << n << " " << i;
            }
            EXPECT_TRUE(dst.GuardsIntact());
        }
    }
}

TEST(SetMem, AboveThresholdStoresOneWordAtAddressPlusLowBits) {
    for (uint32_t offset = 0; offset < 8; ++offset) {
        GuardedBuffer dst(1024, 0x33);
        uint8_t* p = dst.data() + offset;
        const uintptr_t head = reinterpret_cast<uintptr_t>(p) & 7u;
        SetMem(p, 0x55, 513);
        int changedOutside = 0;
        bool holdsPattern = true;
        for (uint32_t i = 0; i < 1024; ++i) {
            const uint8_t* at = dst.data() + i;
            const bool inWord = at >= p + head && at < p + head + 8;
            if (!inWord && dst[i] != 0x33) ++changedOutside;
            if (inWord && dst[i] != 0x55) holdsPattern = false;
        }
        EXPECT_EQ(changedOutside, 0) << offset;
        EXPECT_FALSE(holdsPattern) << offset;
        EXPECT_TRUE(dst.GuardsIntact());
    }
}
