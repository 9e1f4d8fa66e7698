// The factory's table, its aliases and refusals, NeedsConversion and
// IsSupported.
#include <map>
#include <typeindex>
#include <typeinfo>

#include "colour/packed_to_rgb.h"
#include "colour/planar_to_rgb.h"
#include "colour/rgb24_to_i420.h"
#include "colour/rgb_to_rgb.h"
#include "colour/to_i420.h"
#include "colour_test_util.h"

using namespace colour_test;

namespace {

// Every spelling of every format, with its canonical code.
const std::vector<std::pair<uint32_t, uint32_t>> kSpellings = {
    {FCC_I420, FCC_I420}, {FCC_i420, FCC_I420}, {FCC_YV12, FCC_YV12}, {FCC_yv12, FCC_YV12},
    {FCC_YUY2, FCC_YUY2}, {FCC_YUNV, FCC_YUY2}, {FCC_V422, FCC_YUY2}, {FCC_yuy2, FCC_YUY2},
    {FCC_yunv, FCC_YUY2}, {FCC_v422, FCC_YUY2}, {FCC_UYVY, FCC_UYVY}, {FCC_Y422, FCC_UYVY},
    {FCC_UYNV, FCC_UYVY}, {FCC_uyvy, FCC_UYVY}, {FCC_y422, FCC_UYVY}, {FCC_uynv, FCC_UYVY},
    {FCC_RG24, FCC_RG24}, {FCC_rg24, FCC_RG24}, {FCC_RG32, FCC_RG32}, {FCC_rg32, FCC_RG32},
    {FCC_RG55, FCC_RG55}, {FCC_rg55, FCC_RG55}, {FCC_RG56, FCC_RG56}, {FCC_rg56, FCC_RG56},
};

// Codes that no road accepts.
const std::vector<uint32_t> kStrangers = {
    FCC_IYUV, FCC_Y800, FCC_y800, FCC_0rgb, 0, 0xFFFFFFFFu,
    MakeFourCC('Y', 'u', 'y', '2'), MakeFourCC('Y', 'v', '1', '2'),  // mixed case
    MakeFourCC('R', 'g', '2', '4'), MakeFourCC('r', 'G', '3', '2'), MakeFourCC('U', 'y', 'v', 'y'),
};

using Key = std::pair<uint32_t, uint32_t>;  // (canonical dest, canonical src)

const std::map<Key, std::type_index>& Table() {
    static const std::map<Key, std::type_index> table = {
        {{FCC_I420, FCC_YV12}, typeid(CColorXFormYV12ToI420)},
        {{FCC_I420, FCC_RG24}, typeid(CColorXFormRG24ToI420)},
        {{FCC_I420, FCC_YUY2}, typeid(CColorXFormYUY2ToI420)},
        {{FCC_I420, FCC_UYVY}, typeid(CColorXFormUYVYToI420)},
        {{FCC_I420, FCC_I420}, typeid(CColorXFormI420ToI420)},
        {{FCC_RG24, FCC_I420}, typeid(CColorXFormPlanarToRG24)},
        {{FCC_RG24, FCC_YV12}, typeid(CColorXFormPlanarToRG24)},
        {{FCC_RG24, FCC_YUY2}, typeid(CColorXFormYUY2ToRG24)},
        {{FCC_RG24, FCC_UYVY}, typeid(CColorXFormUYVYToRG24)},
        {{FCC_RG24, FCC_RG24}, typeid(CColorXFormRG24ToRG24)},
        {{FCC_RG55, FCC_I420}, typeid(CColorXFormPlanarToRG55)},
        {{FCC_RG55, FCC_YV12}, typeid(CColorXFormPlanarToRG55)},
        {{FCC_RG55, FCC_YUY2}, typeid(CColorXFormYUY2ToRG55)},
        {{FCC_RG55, FCC_UYVY}, typeid(CColorXFormUYVYToRG55)},
        {{FCC_RG55, FCC_RG24}, typeid(CColorXFormRG24ToRG55)},
        {{FCC_RG55, FCC_RG55}, typeid(CColorXFormRG55ToRG55)},
        {{FCC_RG56, FCC_I420}, typeid(CColorXFormPlanarToRG56)},
        {{FCC_RG56, FCC_YV12}, typeid(CColorXFormPlanarToRG56)},
        {{FCC_RG56, FCC_YUY2}, typeid(CColorXFormYUY2ToRG56)},
        {{FCC_RG56, FCC_UYVY}, typeid(CColorXFormUYVYToRG56)},
        {{FCC_RG56, FCC_RG24}, typeid(CColorXFormRG24ToRG56)},
        {{FCC_RG56, FCC_RG56}, typeid(CColorXFormRG56ToRG56)},
        {{FCC_RG32, FCC_I420}, typeid(CColorXFormPlanarToRG32)},
        {{FCC_RG32, FCC_YV12}, typeid(CColorXFormPlanarToRG32)},
        {{FCC_RG32, FCC_YUY2}, typeid(CColorXFormYUY2ToRG32)},
        {{FCC_RG32, FCC_UYVY}, typeid(CColorXFormUYVYToRG32)},
        {{FCC_RG32, FCC_RG24}, typeid(CColorXFormRG24ToRG32)},
        {{FCC_RG32, FCC_RG32}, typeid(CColorXFormRG32ToRG32)},
    };
    return table;
}

const CColorXFormFields& Fields(const XFormPtr& x) { return dynamic_cast<const CColorXFormFields&>(*x); }

}  // namespace

TEST(ColourFactory, EverySpellingPairMatchesTheTable) {
    int made = 0;
    for (const auto& [destCode, dest] : kSpellings) {
        for (const auto& [srcCode, src] : kSpellings) {
            XFormPtr x = Create(srcCode, destCode);
            auto it = Table().find({dest, src});
            if (it == Table().end()) {
                EXPECT_EQ(x, nullptr) << std::hex << srcCode << " -> " << destCode;
                continue;
            }
            ASSERT_NE(x, nullptr) << std::hex << srcCode << " -> " << destCode;
            ++made;
            const CColorXForm& madeObject = *x;
            EXPECT_EQ(std::type_index(typeid(madeObject)), it->second);
            EXPECT_EQ(Fields(x).srcFCC, src);
            EXPECT_EQ(Fields(x).destFCC, dest);
            EXPECT_FALSE(Fields(x).initialised);
            EXPECT_EQ(Fields(x).size, AbsSIZE(0, 0));
            EXPECT_EQ(x->DestBufferSize(), 0);
            EXPECT_EQ(Fields(x).xformRoutine, nullptr);
        }
    }
    // 28 roads; each code has 2 spellings except the packed ones (6).
    EXPECT_GT(made, 28);
}

TEST(ColourFactory, UnknownAndMixedCaseCodesAreRefused) {
    for (uint32_t stranger : kStrangers) {
        for (const auto& spelling : kSpellings) {
            EXPECT_EQ(Create(stranger, spelling.first), nullptr) << std::hex << stranger;
            EXPECT_EQ(Create(spelling.first, stranger), nullptr) << std::hex << stranger;
        }
    }
}

TEST(ColourFactory, WorkedCases) {
    XFormPtr x = Create(FCC_yuy2, FCC_rg32);
    ASSERT_NE(x, nullptr);
    EXPECT_EQ(Fields(x).srcFCC, FCC_YUY2);
    EXPECT_EQ(Fields(x).destFCC, FCC_RG32);
    EXPECT_EQ(Create(MakeFourCC('y', 'u', 'Y', '2'), FCC_RG32), nullptr);
    EXPECT_EQ(Create(FCC_Y800, FCC_I420), nullptr);
    EXPECT_EQ(Create(FCC_y800, FCC_I420), nullptr);
    EXPECT_EQ(Create(FCC_RG32, FCC_I420), nullptr);
    EXPECT_EQ(Create(FCC_I420, FCC_YV12), nullptr);
    EXPECT_EQ(Create(FCC_I420, FCC_YUY2), nullptr);
    EXPECT_EQ(Create(FCC_YUY2, FCC_UYVY), nullptr);
    EXPECT_EQ(Create(FCC_RG55, FCC_RG56), nullptr);
    EXPECT_EQ(Create(FCC_RG56, FCC_RG24), nullptr);
    EXPECT_EQ(Create(FCC_IYUV, FCC_RG24), nullptr);
}

TEST(ColourFactory, PlanarClassesKeepTheSourceTheyWereMadeFor) {
    for (uint32_t dest : {FCC_RG24, FCC_RG32, FCC_RG55, FCC_RG56}) {
        EXPECT_EQ(Fields(Create(FCC_i420, dest)).srcFCC, FCC_I420);
        EXPECT_EQ(Fields(Create(FCC_yv12, dest)).srcFCC, FCC_YV12);
    }
}

TEST(ColourNeedsConversion, OnlyTwoSpellingsOfOneFormatNeedNone) {
    const std::vector<std::vector<uint32_t>> families = {
        {FCC_IYUV, FCC_I420}, {FCC_UYVY, FCC_Y422, FCC_UYNV}, {FCC_YUY2, FCC_YUNV, FCC_V422}};
    std::vector<uint32_t> all = {FCC_I420, FCC_i420, FCC_IYUV, FCC_YV12, FCC_yv12, FCC_Y800, 0, FCC_0rgb};
    for (const auto& s : kSpellings) all.push_back(s.first);
    auto sameFamily = [&](uint32_t a, uint32_t b) {
        for (const auto& f : families) {
            bool hasA = false, hasB = false;
            for (uint32_t c : f) hasA |= c == a, hasB |= c == b;
            if (hasA && hasB) return true;
        }
        return false;
    };
    for (uint32_t a : all)
        for (uint32_t b : all) {
            const bool expected = a == b || !sameFamily(a, b);
            EXPECT_EQ(CColorXForm::NeedsConversion(a, b), expected) << std::hex << a << " " << b;
        }
    EXPECT_FALSE(CColorXForm::NeedsConversion(FCC_YUNV, FCC_V422));
    EXPECT_FALSE(CColorXForm::NeedsConversion(FCC_IYUV, FCC_I420));
    EXPECT_FALSE(CColorXForm::NeedsConversion(FCC_I420, FCC_IYUV));
    EXPECT_FALSE(CColorXForm::NeedsConversion(FCC_UYNV, FCC_UYVY));
    EXPECT_TRUE(CColorXForm::NeedsConversion(FCC_YUY2, FCC_YUY2));
    EXPECT_TRUE(CColorXForm::NeedsConversion(FCC_I420, FCC_I420));
    EXPECT_TRUE(CColorXForm::NeedsConversion(FCC_yuy2, FCC_YUY2));
    EXPECT_TRUE(CColorXForm::NeedsConversion(FCC_yuy2, FCC_yunv));
    EXPECT_TRUE(CColorXForm::NeedsConversion(FCC_i420, FCC_I420));
    EXPECT_TRUE(CColorXForm::NeedsConversion(FCC_YV12, FCC_yv12));
    EXPECT_TRUE(CColorXForm::NeedsConversion(FCC_RG24, FCC_rg24));
    EXPECT_TRUE(CColorXForm::NeedsConversion(FCC_YUY2, FCC_UYVY));
}

TEST(ColourIsSupported, AnswersByCreatingAndInitialising) {
    const AbsSIZE qvga(320, 240);
    EXPECT_TRUE(CColorXForm::IsSupported(FCC_RG32, FCC_RG32, qvga, kDefault, kDefault));
    EXPECT_FALSE(CColorXForm::IsSupported(FCC_RG32, FCC_RG32, AbsSIZE(321, 240), kDefault, kDefault));
    EXPECT_FALSE(CColorXForm::IsSupported(FCC_RG55, FCC_RG32, qvga, kDefault, kDefault));
    EXPECT_TRUE(CColorXForm::IsSupported(FCC_I420, FCC_I420, qvga, kDefault, kDefault));
    EXPECT_TRUE(CColorXForm::IsSupported(FCC_i420, FCC_rg24, qvga, kTopDown, kTopDown));
    EXPECT_TRUE(CColorXForm::IsSupported(FCC_YUY2, FCC_I420, AbsSIZE(0, 0), kDefault, kDefault));
    EXPECT_FALSE(CColorXForm::IsSupported(FCC_YUY2, FCC_I420, AbsSIZE(320, 242), kDefault, kDefault));
    EXPECT_FALSE(CColorXForm::IsSupported(FCC_Y800, FCC_I420, qvga, kDefault, kDefault));
    EXPECT_TRUE(CColorXForm::IsSupported(FCC_YUY2, FCC_RG24, AbsSIZE(-320, -240), kDefault, kDefault));
    for (const auto& [key, type] : Table())
        EXPECT_TRUE(CColorXForm::IsSupported(key.second, key.first, qvga, kDefault, kBottomUp));
}
