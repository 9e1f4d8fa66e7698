// The one leak the colour transforms are required to have, in a test of its
// own so that the leak check of the sanitizer build can exclude exactly this
// test by name (scripts/leak-suppressions.txt names its body) and still
// report the same leak anywhere else.  Not in an anonymous namespace: the
// suppression matches the test's own function name.
#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

#include <memory>

#include "primitive_roads.h"

// RG24 to I420 overwrites its flip buffer at every Init without releasing
// the one before: each Init after the first loses a buffer.  This is the one
// leak the library must have; the leak check excludes this test by name.
TEST(ColourRequiredLeak, RG24ToI420LosesItsFlipBufferAtEverySecondInit) {
    std::unique_ptr<CColorXForm> x(CColorXForm::CreateInstance(FCC_RG24, FCC_I420));
    ASSERT_TRUE(x);
    const struct {
        int32_t w, h;
        CColorXForm::EOrientation srcOrientation, destOrientation;
    } settings[] = {
        {8, 4, CColorXForm::OrientDefault, CColorXForm::OrientDefault},
        {16, 12, CColorXForm::OrientTopDown, CColorXForm::OrientBottomUp},
        {6, 4, CColorXForm::OrientDefault, CColorXForm::OrientDefault},
        {32, 8, CColorXForm::OrientBottomUp, CColorXForm::OrientBottomUp},
    };
    for (const auto& s : settings)
        EXPECT_EQ(x->Init(AbsSIZE(s.w, s.h), s.srcOrientation, s.destOrientation), s.w % 4 == 0 && s.h % 4 == 0);
    EXPECT_TRUE(CColorXForm::IsSupported(FCC_RG24, FCC_I420, AbsSIZE(8, 8), CColorXForm::OrientDefault,
                                         CColorXForm::OrientDefault));
}


// Every Init of RG24 to I420 runs the tier selection again, and so, being a
// repeated Init, loses a flip buffer too; excluded by name the same way.
TEST(ColourRequiredLeak, RG24ToI420SelectsAgainAtEveryInit) {
    colour_test::PlayedTier played(PrimTierPx);
    std::unique_ptr<CColorXForm> x(CColorXForm::CreateInstance(FCC_RG24, FCC_I420));
    ASSERT_TRUE(x);
    ASSERT_TRUE(x->Init(AbsSIZE(16, 8), CColorXForm::OrientDefault, CColorXForm::OrientDefault));
    EXPECT_EQ(PrimGetTier(), PrimTierPx);
    played.Play(PrimTierW7);
    EXPECT_TRUE(x->Init(AbsSIZE(8, 8), CColorXForm::OrientDefault, CColorXForm::OrientDefault));
    EXPECT_EQ(PrimGetTier(), PrimTierW7);
    played.Play(PrimTierM6);
    EXPECT_TRUE(x->Init(AbsSIZE(8, 8), CColorXForm::OrientDefault, CColorXForm::OrientDefault));
    EXPECT_EQ(PrimGetTier(), PrimTierM6);
}
