// The size transform frame: factory, IsSupported, SupportedInterp, the base
// Init with its check of the previous sizes, and XForm's equal-size copy.
#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

#include <pixmoor/size.h>

#include "size/i420_crop_pad.h"
#include "size/rgb_scale.h"
#include "size_test_support.h"

using namespace size_test;

namespace {

constexpr uint32_t kIYUVLower = MakeFourCC('i', 'y', 'u', 'v');

bool IsCropPad(const Transform& t) { return dynamic_cast<CSizeXFormI420CropPad*>(t.get()) != nullptr; }
bool IsRGBScale(const Transform& t) { return dynamic_cast<CSizeXFormRGBScale*>(t.get()) != nullptr; }

// XForm on a source of DestBufferSize bytes must give exactly those bytes.
void ExpectPlainCopy(CSizeXForm& t, const Frame& source) {
    ASSERT_EQ(source.size(), Bytes(t.DestBufferSize()));
    GuardedBuffer dst(source.size());
    t.XForm(source.data(), dst.data());
    EXPECT_EQ(dst.Contents(), source);
    EXPECT_TRUE(dst.GuardsIntact());
}

}  // namespace

static_assert(!std::is_copy_constructible<CSizeXForm>::value, "copying is forbidden");
static_assert(!std::is_copy_assignable<CSizeXForm>::value, "assignment is forbidden");
static_assert(!std::is_default_constructible<CSizeXForm>::value, "only the factory makes transforms");
static_assert(std::has_virtual_destructor<CSizeXForm>::value, "ended through the base");
static_assert(XFormCropPad == 0 && XFormScale == 1 && InterpDefault == 1, "enumeration values");
static_assert(sizeof(SInterpInfo) == 8, "two 32-bit fields");

TEST(SizeXFormFactory, PlanarCodesMakeCropPadStoredAsI420At12Bits) {
    for (uint32_t code : {FCC_I420, FCC_IYUV, FCC_YV12, FCC_i420, kIYUVLower, FCC_yv12}) {
        for (uint32_t bits : {0u, 12u, 24u, 0xFFFFFFFFu}) {
            Transform t = Make(code, bits);
            ASSERT_TRUE(t) << std::hex << code;
            EXPECT_TRUE(IsCropPad(t));
            EXPECT_EQ(X::FourCC(*t), FCC_I420);
            EXPECT_EQ(X::BitsPerPixel(*t), 12u);
        }
    }
}

TEST(SizeXFormFactory, PlainRGBCodeKeepsBitsUnchecked) {
    for (uint32_t code : {0u, FCC_0rgb}) {
        for (uint32_t bits : {0u, 7u, 16u, 24u, 32u, 12345u, 0xFFFFFFFFu}) {
            Transform t = Make(code, bits);
            ASSERT_TRUE(t);
            EXPECT_TRUE(IsRGBScale(t));
            EXPECT_EQ(X::FourCC(*t), 0u);
            EXPECT_EQ(X::BitsPerPixel(*t), bits);
        }
    }
}

TEST(SizeXFormFactory, RG24IsStoredAsCodeZeroAt24Bits) {
    for (uint32_t code : {FCC_RG24, FCC_rg24}) {
        Transform t = Make(code, 12);
        ASSERT_TRUE(t);
        EXPECT_TRUE(IsRGBScale(t));
        EXPECT_EQ(X::FourCC(*t), 0u);
        EXPECT_EQ(X::BitsPerPixel(*t), 24u);
    }
    // And the other way round: "YV12" asked at 24 bits is held at 12.
    EXPECT_EQ(X::BitsPerPixel(*Make(FCC_YV12, 24)), 12u);
}

TEST(SizeXFormFactory, OtherCodesGiveNull) {
    const uint32_t codes[] = {FCC_RG32, FCC_RG55, FCC_RG56, FCC_YUY2, FCC_UYVY, FCC_Y800,
                              MakeFourCC('R', 'g', '2', '4'), MakeFourCC('I', 'y', 'u', 'v'),
                              MakeFourCC('i', '4', '2', '0') + 1, 1u, 0xFFFFFFFFu};
    for (uint32_t code : codes) EXPECT_EQ(CSizeXForm::CreateInstance(code, 24), nullptr) << std::hex << code;
}

TEST(SizeXFormFrame, FreshObjectIsEmpty) {
    for (uint32_t code : {FCC_I420, FCC_RG24}) {
        Transform t = Make(code, 24);
        EXPECT_EQ(t->GetInputSize(), AbsSIZE(0, 0));
        EXPECT_EQ(t->GetOutputSize(), AbsSIZE(0, 0));
        EXPECT_EQ(t->DestBufferSize(), 0);
        EXPECT_FALSE(X::Initialised(*t));
        EXPECT_TRUE(X::NeedsXForm(*t));
        EXPECT_EQ(X::Routine(*t), nullptr);
        EXPECT_EQ(X::Type(*t), XFormCropPad);
    }
}

TEST(SizeXFormFrame, SizeGettersReturnTheFieldsThemselves) {
    Transform t = Make(FCC_I420, 12);
    ASSERT_TRUE(t->Init(AbsSIZE(176, 144), AbsSIZE(352, 288), XFormCropPad, InterpDefault));
    AbsSIZE& in = t->GetInputSize();
    AbsSIZE& out = t->GetOutputSize();
    EXPECT_EQ(&in, &t->GetInputSize());
    EXPECT_EQ(in, AbsSIZE(176, 144));
    EXPECT_EQ(out, AbsSIZE(352, 288));
    // Writing through the reference changes the object: an odd size placed
    // there makes the next Init fail, as after an odd Init.
    in.cx = 175;
    EXPECT_FALSE(t->Init(AbsSIZE(176, 144), AbsSIZE(176, 144), XFormCropPad, InterpDefault));
}

TEST(SizeXFormSupportedInterp, CountsOneModeAndFillsOnlyTheFirstRecord) {
    Transform t = Make(FCC_RG24, 24);
    EXPECT_EQ(t->SupportedInterp(0, nullptr), 1);
    EXPECT_EQ(t->SupportedInterp(-5, nullptr), 1);
    SInterpInfo info[3] = {{7, 7}, {7, 7}, {7, 7}};
    EXPECT_EQ(t->SupportedInterp(3, info), 1);
    EXPECT_EQ(info[0].interpType, 1);
    EXPECT_EQ(info[0].interpAux, 1);
    EXPECT_EQ(info[1].interpType, 7);
    EXPECT_EQ(info[1].interpAux, 7);
    SInterpInfo one = {0, 0};
    EXPECT_EQ(Make(FCC_I420, 12)->SupportedInterp(1, &one), 1);
    EXPECT_EQ(one.interpType, 1);
    EXPECT_EQ(one.interpAux, 1);
}

TEST(SizeXFormIsSupported, AnswersFromAFreshObject) {
    const AbsSIZE qcif(176, 144), cif(352, 288), odd(175, 143);
    EXPECT_TRUE(CSizeXForm::IsSupported(FCC_I420, 12, qcif, cif, XFormCropPad));
    EXPECT_TRUE(CSizeXForm::IsSupported(FCC_YV12, 0, odd, odd, XFormCropPad));
    EXPECT_TRUE(CSizeXForm::IsSupported(FCC_I420, 12, qcif, cif, static_cast<XFormType>(7)));
    EXPECT_FALSE(CSizeXForm::IsSupported(FCC_I420, 12, qcif, cif, XFormScale));
    EXPECT_TRUE(CSizeXForm::IsSupported(FCC_RG24, 24, odd, cif, XFormScale));
    EXPECT_TRUE(CSizeXForm::IsSupported(0, 32, qcif, odd, XFormScale));
    EXPECT_FALSE(CSizeXForm::IsSupported(FCC_RG24, 24, qcif, cif, XFormCropPad));
    EXPECT_FALSE(CSizeXForm::IsSupported(0, 16, qcif, cif, static_cast<XFormType>(2)));
    EXPECT_FALSE(CSizeXForm::IsSupported(FCC_RG32, 32, qcif, cif, XFormScale));
    EXPECT_FALSE(CSizeXForm::IsSupported(FCC_YUY2, 16, qcif, cif, XFormCropPad));
}

TEST(SizeXFormInit, StoresSizesTypeAndInterp) {
    Transform t = Make(FCC_I420, 12);
    ASSERT_TRUE(t->Init(AbsSIZE(-176, 144), AbsSIZE(352, -288), static_cast<XFormType>(5),
                        static_cast<XFormInterpType>(9)));
    EXPECT_TRUE(X::Initialised(*t));
    EXPECT_TRUE(X::NeedsXForm(*t));
    EXPECT_EQ(t->GetInputSize(), AbsSIZE(176, 144));
    EXPECT_EQ(t->GetOutputSize(), AbsSIZE(352, 288));
    EXPECT_EQ(X::Type(*t), static_cast<XFormType>(5));
    EXPECT_EQ(X::Interp(*t), static_cast<XFormInterpType>(9));

    // The scaler hands XFormScale to the base whatever it was given (it can
    // only have been XFormScale).
    Transform s = Make(FCC_RG24, 24);
    ASSERT_TRUE(s->Init(AbsSIZE(8, 8), AbsSIZE(16, 4), XFormScale, static_cast<XFormInterpType>(3)));
    EXPECT_EQ(X::Type(*s), XFormScale);
    EXPECT_EQ(X::Interp(*s), static_cast<XFormInterpType>(3));
}

TEST(SizeXFormInit, OddSizesPassOnAFreshObjectAndBlockTheNextInit) {
    // Each of the four size values alone, on both transforms.
    const AbsSIZE evenIn(176, 144), evenOut(352, 288);
    const AbsSIZE oddCases[4][2] = {{AbsSIZE(175, 144), evenOut},
                                    {AbsSIZE(176, 143), evenOut},
                                    {evenIn, AbsSIZE(351, 288)},
                                    {evenIn, AbsSIZE(352, 287)}};
    for (uint32_t code : {FCC_I420, FCC_RG24}) {
        const XFormType type = code == FCC_I420 ? XFormCropPad : XFormScale;
        for (const auto& c : oddCases) {
            Transform t = Make(code, 24);
            ASSERT_TRUE(t->Init(c[0], c[1], type, InterpDefault));
            EXPECT_FALSE(t->Init(evenIn, evenOut, type, InterpDefault));
            EXPECT_FALSE(t->Init(evenIn, evenIn, type, InterpDefault));
            // The sizes stay those of the odd Init, so every later Init fails too.
            EXPECT_EQ(t->GetInputSize(), c[0]);
            EXPECT_EQ(t->GetOutputSize(), c[1]);
            EXPECT_TRUE(X::NeedsXForm(*t));
            EXPECT_FALSE(t->Init(evenIn, evenOut, type, InterpDefault));
        }
    }
}

TEST(SizeXFormInit, EvenSizesCanBeInitialisedAgain) {
    Transform t = Make(FCC_I420, 12);
    ASSERT_TRUE(t->Init(AbsSIZE(176, 144), AbsSIZE(352, 288), XFormCropPad, InterpDefault));
    ASSERT_TRUE(t->Init(AbsSIZE(352, 288), AbsSIZE(175, 143), XFormCropPad, InterpDefault));
    EXPECT_EQ(t->GetOutputSize(), AbsSIZE(175, 143));
    EXPECT_FALSE(t->Init(AbsSIZE(176, 144), AbsSIZE(352, 288), XFormCropPad, InterpDefault));
}

TEST(SizeXFormInit, FailedRepeatedInitKeepsTheSubclassWorkAndTheOldBaseFields) {
    Transform t = Make(FCC_I420, 12);
    ASSERT_TRUE(t->Init(AbsSIZE(175, 144), AbsSIZE(175, 144), XFormCropPad, InterpDefault));
    EXPECT_FALSE(t->Init(AbsSIZE(176, 144), AbsSIZE(176, 288), XFormCropPad, InterpDefault));
    const auto& crop = dynamic_cast<CSizeXFormI420CropPad&>(*t);
    EXPECT_EQ(crop.Strip(CSizeXFormI420CropPad::kLuma).topPadBytes, 12672);  // the new sizes
    EXPECT_EQ(t->DestBufferSize(), 76032);
    EXPECT_EQ(t->GetOutputSize(), AbsSIZE(175, 144));  // the old ones

    Transform s = Make(0, 24);
    ASSERT_TRUE(s->Init(AbsSIZE(7, 5), AbsSIZE(9, 3), XFormScale, InterpDefault));
    EXPECT_FALSE(s->Init(AbsSIZE(176, 144), AbsSIZE(352, 288), XFormScale, InterpDefault));
    EXPECT_EQ(X::Routine(*s), &CSizeXFormRGBScale::ScaleDouble24);
    EXPECT_EQ(s->DestBufferSize(), 352 * 288 * 3);
    EXPECT_EQ(s->GetInputSize(), AbsSIZE(7, 5));
}

TEST(SizeXFormXForm, EqualSizesCopyDestBufferSizeBytes) {
    // 6 by 4 at 24 bits has 2 pad bytes a line: the scaler would write them
    // as zeros, the copy takes the source's.
    Transform s = Make(0, 24);
    ASSERT_TRUE(s->Init(AbsSIZE(6, 4), AbsSIZE(6, 4), XFormScale, InterpDefault));
    EXPECT_FALSE(X::NeedsXForm(*s));
    EXPECT_EQ(X::Routine(*s), &CSizeXFormRGBScale::ScaleGeneric);
    EXPECT_NE(dynamic_cast<CSizeXFormRGBScale&>(*s).runsX, nullptr);  // built all the same
    Frame src = pixmoor_test::RandomBytes(80, 1);
    for (size_t i = 18; i < 80; i += 20) src[i] = src[i + 1] = 0x5A;
    ExpectPlainCopy(*s, src);
}

TEST(SizeXFormXForm, OddAreaCopiesTheTruncatedSize) {
    Transform t = Make(FCC_I420, 12);
    ASSERT_TRUE(t->Init(AbsSIZE(3, 3), AbsSIZE(3, 3), XFormCropPad, InterpDefault));
    ASSERT_EQ(t->DestBufferSize(), 13);  // 13.5 truncated
    ExpectPlainCopy(*t, pixmoor_test::RandomBytes(13, 2));
}

TEST(SizeXFormXForm, TheCopyNeverGivesWayToTheRoutineAgain) {
    for (uint32_t code : {FCC_I420, FCC_RG24}) {
        const XFormType type = code == FCC_I420 ? XFormCropPad : XFormScale;
        Transform t = Make(code, 24);
        ASSERT_TRUE(t->Init(AbsSIZE(176, 144), AbsSIZE(176, 144), type, InterpDefault));
        ASSERT_TRUE(t->Init(AbsSIZE(176, 144), AbsSIZE(352, 288), type, InterpDefault));
        EXPECT_FALSE(X::NeedsXForm(*t));
        EXPECT_NE(X::Routine(*t), nullptr);
        // The routine would write a different frame.
        ExpectPlainCopy(*t, pixmoor_test::RandomBytes(Bytes(t->DestBufferSize()), 3));
    }
}

TEST(SizeXFormXForm, DifferentSizesRunTheRoutine) {
    Transform t = Make(FCC_RG24, 24);
    ASSERT_TRUE(t->Init(AbsSIZE(2, 1), AbsSIZE(4, 1), XFormScale, InterpDefault));
    ASSERT_EQ(t->DestBufferSize(), 12);
    GuardedBuffer src(8), dst(12);
    const uint8_t pixels[8] = {1, 2, 3, 4, 5, 6, 0, 0};
    std::memcpy(src.data(), pixels, 8);
    t->XForm(src.data(), dst.data());
    const std::vector<uint8_t> expected = {1, 2, 3, 1, 2, 3, 4, 5, 6, 4, 5, 6};
    EXPECT_EQ(dst.Contents(), expected);
    EXPECT_TRUE(dst.GuardsIntact());
}
