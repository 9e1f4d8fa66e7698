// Processor detection, played through the platform seam.
#include <gtest/gtest.h>
#include <pixmoor/runtime.h>

#include "played_processor.h"

using namespace pixmoor_test;

namespace {

PrimTier DetectOn(const PlayedProcessor& processor) {
    PlayedPlatform platform(processor);
    return PrimDetectTier();
}

}  // namespace

TEST(CpuHasCpuid, FollowsTheFlagsWordTest) {
    PlayedProcessor p = PlayedProcessor::Reference(6, kSse2);
    {
        PlayedPlatform platform(p);
        EXPECT_EQ(CpuHasCpuid(), 1);
        EXPECT_EQ(platform.flagTests(), 1);
    }
    p.hasCpuid = false;
    PlayedPlatform platform(p);
    EXPECT_EQ(CpuHasCpuid(), 0);
}

TEST(CpuHasCpuid, NativeSeamFindsTheInstructionOnThisProcessor) {
    PrimSetPlatform(nullptr);
#if defined(__x86_64__) || defined(__i386__)
    EXPECT_EQ(CpuHasCpuid(), 1);
#else
    EXPECT_EQ(CpuHasCpuid(), 0);
#endif
    const PrimTier tier = PrimDetectTier();
    EXPECT_GE(tier, PrimTierPx);
    EXPECT_LE(tier, PrimTierW7);
}

TEST(CpuIsReferenceVendor, NeedsAllThreeWordsInTheirRegisters) {
    PlayedProcessor p = PlayedProcessor::Reference(6, kSse2);
    {
        PlayedPlatform platform(p);
        EXPECT_EQ(CpuIsReferenceVendor(), 1);
        ASSERT_EQ(platform.leaves().size(), 1u);
        EXPECT_EQ(platform.leaves()[0], 0u);
    }
    for (int word = 0; word < 3; ++word) {
        PlayedProcessor other = p;
        other.vendor[word] ^= 0x20;  // one letter in another case
        PlayedPlatform platform(other);
        EXPECT_EQ(CpuIsReferenceVendor(), 0) << word;
    }
    // The same words in the wrong registers are another vendor.
    PlayedProcessor swapped = p;
    std::swap(swapped.vendor[1], swapped.vendor[2]);
    PlayedPlatform platform(swapped);
    EXPECT_EQ(CpuIsReferenceVendor(), 0);
}

TEST(CpuReadInfo, DerivesEveryFieldFromLeavesOneAndTwo) {
    PlayedProcessor p;
    p.signature = 0x0FF3'6A5B;  // extended family and model bits set, family 10, model 5, stepping 11
    p.features = 0xFFFF'FFFF;
    p.cacheLow = 0x665B5001;
    p.cacheHigh = 0x007A7040;
    PlayedPlatform platform(p);
    CpuInfo info;
    std::memset(&info, 0xEE, sizeof info);
    CpuReadInfo(&info);
    EXPECT_EQ(info.family, 10u);
    EXPECT_EQ(info.model, 5u);
    EXPECT_EQ(info.stepping, 11u);
    EXPECT_EQ(info.processorType, 0u);
    EXPECT_EQ(info.featureWord, 0xFFFFFFFFu);
    EXPECT_EQ(info.cacheInfoLow, 0x665B5001u);
    EXPECT_EQ(info.cacheInfoHigh, 0x007A7040u);
    EXPECT_EQ(info.hasMmx, 1u);
    EXPECT_EQ(info.hasSse, 1u);
    EXPECT_EQ(info.hasSse2, 1u);
    EXPECT_EQ(info.reservedFlag, 0xEEEEEEEEu);  // nothing writes it
    EXPECT_EQ(platform.leaves(), (std::vector<uint32_t>{1, 2}));
}

TEST(CpuReadInfo, ProcessorTypeIsZeroWhateverTheTypeBits) {
    for (uint32_t family = 0; family < 16; ++family) {
        for (uint32_t typeBits = 0; typeBits < 4; ++typeBits) {
            PlayedProcessor p;
            p.signature = (typeBits << 12) | (family << 8) | 0x7F;
            PlayedPlatform platform(p);
            CpuInfo info{};
            CpuReadInfo(&info);
            EXPECT_EQ(info.family, family);
            EXPECT_EQ(info.processorType, 0u);
        }
    }
}

TEST(CpuReadInfo, EachFeatureFlagFollowsItsOwnBit) {
    const struct { uint32_t bit; uint32_t CpuInfo::*flag; } flags[] = {
        {kMmx, &CpuInfo::hasMmx}, {kSse, &CpuInfo::hasSse}, {kSse2, &CpuInfo::hasSse2}};
    for (const auto& only : flags) {
        PlayedPlatform platform(PlayedProcessor::Reference(6, only.bit));
        CpuInfo info{};
        CpuReadInfo(&info);
        for (const auto& f : flags) EXPECT_EQ(info.*(f.flag), f.bit == only.bit ? 1u : 0u);
        EXPECT_EQ(info.featureWord, only.bit);
    }
    PlayedPlatform platform(PlayedProcessor::Reference(6, ~(kMmx | kSse | kSse2)));
    CpuInfo info{};
    CpuReadInfo(&info);
    EXPECT_EQ(info.hasMmx + info.hasSse + info.hasSse2, 0u);
}

TEST(PrimDetectTier, WithoutCpuidIsPxAndAsksNothingMore) {
    PlayedProcessor p = PlayedProcessor::Reference(6, kMmx | kSse | kSse2);
    p.hasCpuid = false;
    PlayedPlatform platform(p);
    EXPECT_EQ(PrimDetectTier(), PrimTierPx);
    EXPECT_TRUE(platform.leaves().empty());
}

TEST(PrimDetectTier, AnotherVendorIsPxWhateverItsFeatures) {
    PlayedProcessor p = PlayedProcessor::Reference(6, kMmx | kSse | kSse2);
    p.vendor[0] = 0x68747541;  // some other vendor's words
    p.vendor[1] = 0x69746E65;
    p.vendor[2] = 0x444D4163;
    PlayedPlatform platform(p);
    EXPECT_EQ(PrimDetectTier(), PrimTierPx);
    EXPECT_EQ(platform.leaves(), (std::vector<uint32_t>{0}));
}

TEST(PrimDetectTier, FamilySixWalksDownTheFeatures) {
    for (uint32_t bits = 0; bits < 8; ++bits) {
        const uint32_t features = ((bits & 1) ? kMmx : 0) | ((bits & 2) ? kSse : 0) | ((bits & 4) ? kSse2 : 0);
        const PrimTier expected = (bits & 4) ? PrimTierW7 : (bits & 2) ? PrimTierA6 : (bits & 1) ? PrimTierM6 : PrimTierPx;
        EXPECT_EQ(DetectOn(PlayedProcessor::Reference(6, features, 8, 3)), expected) << bits;
    }
}

TEST(PrimDetectTier, FamilyFifteenIsSse2OrNothing) {
    EXPECT_EQ(DetectOn(PlayedProcessor::Reference(15, kMmx | kSse | kSse2)), PrimTierW7);
    EXPECT_EQ(DetectOn(PlayedProcessor::Reference(15, kSse2)), PrimTierW7);
    EXPECT_EQ(DetectOn(PlayedProcessor::Reference(15, kMmx | kSse)), PrimTierPx);
    EXPECT_EQ(DetectOn(PlayedProcessor::Reference(15, kMmx)), PrimTierPx);
}

TEST(PrimDetectTier, OtherFamiliesArePx) {
    for (uint32_t family = 0; family < 16; ++family) {
        if (family == 6 || family == 15) continue;
        EXPECT_EQ(DetectOn(PlayedProcessor::Reference(family, kMmx | kSse | kSse2)), PrimTierPx) << family;
    }
    EXPECT_EQ(DetectOn(PlayedProcessor::Reference(5, kMmx, 4)), PrimTierPx);  // family 5 with MMX
}

TEST(PrimDetectTier, ExtendedFamilyAndModelBitsAreIgnored) {
    PlayedProcessor p = PlayedProcessor::Reference(6, kSse);
    p.signature |= 0x0FF0'0000 | 0x000F'0000;
    EXPECT_EQ(DetectOn(p), PrimTierA6);
    PlayedProcessor q = PlayedProcessor::Reference(15, kSse2);
    q.signature |= 0x0010'0000;  // extended family 1: the family field still says 15
    EXPECT_EQ(DetectOn(q), PrimTierW7);
}
