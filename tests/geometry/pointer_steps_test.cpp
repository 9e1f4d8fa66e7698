// Pointer steps by a signed 32-bit distance.  On a 32-bit build the address
// arithmetic wraps modulo 2^32, as the machine's registers do; on a 64-bit
// build the distance is sign-extended, so a negative distance moves back by
// the same number of bytes on both.
#include <gtest/gtest.h>

#include <cstdint>

#include "geometry/wrapping.h"

namespace {
uintptr_t Address(const uint8_t* p) { return reinterpret_cast<uintptr_t>(p); }
}  // namespace

TEST(PointerSteps, NegativeDistanceMovesBack) {
    uint8_t buffer[64] = {};
    uint8_t* end = buffer + 64;
    EXPECT_EQ(pixmoor::Step(end, -64), buffer);
    EXPECT_EQ(pixmoor::Step(end, -1), buffer + 63);
    EXPECT_EQ(pixmoor::Step(buffer, 0), buffer);
    const uint8_t* c = buffer + 10;
    EXPECT_EQ(pixmoor::Step(c, -10), buffer);
}

TEST(PointerSteps, DistanceAddsModuloTheAddressWidth) {
    uint8_t buffer[16] = {};
    uint8_t* p = buffer + 8;
    for (int32_t d : {-8, -1, 0, 1, 7}) {
        const uintptr_t expected = Address(p) + static_cast<uintptr_t>(static_cast<intptr_t>(d));
        EXPECT_EQ(Address(pixmoor::Step(p, d)), expected) << d;
    }
#if UINTPTR_MAX == 0xFFFFFFFFu
    // 32 bits: a step by d and a step by d + 2^32 (the distance read as
    // unsigned) land on the same address, since the sum wraps at 2^32.
    for (int32_t d : {-8, -1, 1, 7}) EXPECT_EQ(Address(pixmoor::Step(p, d)), Address(p) + static_cast<uint32_t>(d)) << d;
    EXPECT_EQ(sizeof(std::ptrdiff_t), 4u);
#else
    EXPECT_EQ(sizeof(std::ptrdiff_t), 8u);
#endif
}
