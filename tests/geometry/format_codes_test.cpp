#include <gtest/gtest.h>
#include <pixmoor/geometry.h>

#include <cstring>

namespace {
uint32_t Code(const char* s) {
    uint32_t c;
    std::memcpy(&c, s, 4);
    return c;
}
}  // namespace

TEST(FormatCodes, ValuesAreLittleEndianCharacters) {
    EXPECT_EQ(FCC_I420, 0x30323449u);
    EXPECT_EQ(FCC_YV12, 0x32315659u);
    EXPECT_EQ(FCC_YUY2, 0x32595559u);
    EXPECT_EQ(FCC_UYVY, 0x59565955u);
    EXPECT_EQ(FCC_RG24, 0x34324752u);
    EXPECT_EQ(FCC_RG32, 0x32334752u);
    EXPECT_EQ(FCC_RG55, 0x35354752u);
    EXPECT_EQ(FCC_RG56, 0x36354752u);
    EXPECT_EQ(FCC_i420, 0x30323469u);
    EXPECT_EQ(FCC_yv12, 0x32317679u);
    EXPECT_EQ(FCC_YUNV, 0x564e5559u);
    EXPECT_EQ(FCC_V422, 0x32323456u);
    EXPECT_EQ(FCC_yuy2, 0x32797579u);
    EXPECT_EQ(FCC_yunv, 0x766e7579u);
    EXPECT_EQ(FCC_v422, 0x32323476u);
    EXPECT_EQ(FCC_Y422, 0x32323459u);
    EXPECT_EQ(FCC_UYNV, 0x564e5955u);
    EXPECT_EQ(FCC_uyvy, 0x79767975u);
    EXPECT_EQ(FCC_y422, 0x32323479u);
    EXPECT_EQ(FCC_uynv, 0x766e7975u);
    EXPECT_EQ(FCC_rg24, 0x34326772u);
    EXPECT_EQ(FCC_rg32, 0x32336772u);
    EXPECT_EQ(FCC_rg55, 0x35356772u);
    EXPECT_EQ(FCC_rg56, 0x36356772u);
    EXPECT_EQ(FCC_IYUV, 0x56555949u);
    EXPECT_EQ(FCC_Y800, 0x30303859u);
    EXPECT_EQ(FCC_y800, 0x30303879u);
    EXPECT_EQ(FCC_0rgb, 0x62677230u);
    EXPECT_EQ(Code("I420"), FCC_I420);
}

TEST(CreateRGBFCC, Table) {
    EXPECT_EQ(CreateRGBFCC(24, 0), FCC_RG24);
    EXPECT_EQ(CreateRGBFCC(24, 0x7E0), FCC_RG24);
    EXPECT_EQ(CreateRGBFCC(32, 12345), FCC_RG32);
    EXPECT_EQ(CreateRGBFCC(16, 992), FCC_RG55);
    EXPECT_EQ(CreateRGBFCC(16, 2016), FCC_RG56);
    EXPECT_EQ(CreateRGBFCC(16, 0), 0u);
    EXPECT_EQ(CreateRGBFCC(16, 0x3E1), 0u);
    EXPECT_EQ(CreateRGBFCC(8, 0x3E0), 0u);
    EXPECT_EQ(CreateRGBFCC(15, 0x3E0), 0u);
    EXPECT_EQ(CreateRGBFCC(-24, 0), 0u);
}

namespace {
struct NormalizeCase {
    const char* code;
    uint32_t result;
    uint16_t bits;
};
}  // namespace

TEST(NormalizeCustFCC, EveryKnownSpelling) {
    const NormalizeCase cases[] = {
        {"I420", FCC_I420, 12}, {"i420", FCC_I420, 12}, {"YV12", FCC_YV12, 12}, {"yv12", FCC_YV12, 12},
        {"YUY2", FCC_YUY2, 16}, {"YUNV", FCC_YUY2, 16}, {"V422", FCC_YUY2, 16}, {"yuy2", FCC_YUY2, 16},
        {"yunv", FCC_YUY2, 16}, {"v422", FCC_YUY2, 16}, {"UYVY", FCC_UYVY, 16}, {"Y422", FCC_UYVY, 16},
        {"UYNV", FCC_UYVY, 16}, {"uyvy", FCC_UYVY, 16}, {"y422", FCC_UYVY, 16}, {"uynv", FCC_UYVY, 16},
        {"RG24", 0, 24},        {"rg24", 0, 24},        {"RG55", 0, 16},        {"rg55", 0, 16},
        {"RG56", 0, 16},        {"rg56", 0, 16},        {"RG32", 0, 32},        {"rg32", 0, 32},
    };
    for (const auto& c : cases) {
        uint16_t bits = 999;
        EXPECT_EQ(NormalizeCustFCC(Code(c.code), bits), c.result) << c.code;
        EXPECT_EQ(bits, c.bits) << c.code;
    }
}

TEST(NormalizeCustFCC, UncompressedLeavesDepthAlone) {
    uint16_t bits = 777;
    EXPECT_EQ(NormalizeCustFCC(0, bits), 0u);
    EXPECT_EQ(bits, 777);
    EXPECT_EQ(NormalizeCustFCC(FCC_0rgb, bits), 0u);
    EXPECT_EQ(bits, 777);
}

TEST(NormalizeCustFCC, UnknownCodes) {
    for (const char* s : {"IYUV", "Y800", "I42O", "Yuy2", "Rg24", "NV12", "rgb0"}) {
        uint16_t bits = 55;
        EXPECT_EQ(NormalizeCustFCC(Code(s), bits), 0xFFFFFFFFu) << s;
        EXPECT_EQ(bits, 0) << s;
    }
}
