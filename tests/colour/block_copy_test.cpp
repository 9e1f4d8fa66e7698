// The block move of the copying roads at every instruction-set level: every
// size around the vector and round sizes, every alignment of both blocks;
// nothing written outside the block, and a block moved onto itself stays.
#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "colour/block_copy.h"
#include "guarded_buffer.h"
#include "isa_levels.h"

using pixmoor_test::GuardedBuffer;
using pixmoor_test::RandomBytes;

namespace {

using CopyFunction = void (*)(uint8_t*, const uint8_t*, uint32_t);

// Copies blocks of every size in `sizes` from and to every alignment (or,
// for frame-sized blocks, a few), into guarded buffers, and compares the
// bytes.
void ExpectCopies(CopyFunction copy, std::initializer_list<uint32_t> sizes, bool fewAlignments = false) {
    const std::vector<uint32_t> srcAlignments =
        fewAlignments ? std::vector<uint32_t>{0u, 3u} : std::vector<uint32_t>{0u, 1u, 3u, 32u};
    const std::vector<uint32_t> dstAlignments =
        fewAlignments ? std::vector<uint32_t>{0u, 7u} : std::vector<uint32_t>{0u, 1u, 7u, 16u, 31u, 32u};
    for (uint32_t bytes : sizes) {
        const std::vector<uint8_t> source = RandomBytes(bytes + 64, bytes);
        for (uint32_t srcAt : srcAlignments)
            for (uint32_t dstAt : dstAlignments) {
                GuardedBuffer dst(bytes + dstAt + 8, 0xC3);
                copy(dst.data() + dstAt, source.data() + srcAt, bytes);
                std::vector<uint8_t> expected(bytes + dstAt + 8, 0xC3);
                std::copy(source.begin() + srcAt, source.begin() + srcAt + bytes, expected.begin() + dstAt);
                ASSERT_EQ(dst.Contents(), expected) << bytes << " " << srcAt << " " << dstAt;
                ASSERT_TRUE(dst.GuardsIntact());
            }
    }
}

// Frame-sized blocks take the vector loop where the level has it.
TEST(BlockCopy, EverySizeAndAlignment) {
    pixmoor_test::ForEachIsaLevel([] {
        ExpectCopies(pixmoor::CopyBlock, {0u, 1u, 4u, 31u, 32u, 33u, 128u, 4099u});
        ExpectCopies(pixmoor::CopyBlock, {4u << 20, (4u << 20) + 161}, true);
    });
}

#if PIXMOOR_HAVE_X86_TARGETS
// The vector loop itself: around its single vectors and its rounds of four.
TEST(BlockCopy, VectorLoopEverySizeAndAlignment) {
    if (!pixmoor::isa::Has(pixmoor::isa::kAvx2)) GTEST_SKIP() << "no AVX2";
    ExpectCopies(pixmoor::CopyBlockAvx2, {32u, 33u, 63u, 64u, 65u, 127u, 128u, 129u, 159u, 160u, 161u, 255u, 256u,
                                          257u, 1000u, 4099u, 65553u});
}
#endif

TEST(BlockCopy, ABlockMovedOntoItselfStays) {
    pixmoor_test::ForEachIsaLevel([] {
        for (uint32_t bytes : {5u, 32u, 200u, 4099u}) {
            const std::vector<uint8_t> original = RandomBytes(bytes, 3);
            std::vector<uint8_t> block = original;
            pixmoor::CopyBlock(block.data(), block.data(), bytes);
            EXPECT_EQ(block, original) << bytes;
        }
    });
}

}  // namespace
