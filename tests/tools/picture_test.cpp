#include <gtest/gtest.h>

#include "core/bitmap_font.h"
#include "core/contact_sheet.h"
#include "core/test_picture.h"

using namespace pixmoor_tool;

TEST(ToolFont, GlyphsAndWidths) {
    EXPECT_NE(GlyphRows('A'), nullptr);
    EXPECT_EQ(GlyphRows('a'), GlyphRows('A'));
    EXPECT_EQ(GlyphRows('~'), nullptr);
    for (char c : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 ->.:/()=+_<,"))
        EXPECT_NE(GlyphRows(c), nullptr) << c;
    EXPECT_EQ(TextWidth(""), 0);
    EXPECT_EQ(TextWidth("A"), 5);
    EXPECT_EQ(TextWidth("AB"), 11);
    EXPECT_EQ(TextWidth("AB", 2), 22);
}

TEST(ToolFont, DrawsInsideThePictureOnly) {
    RgbImage image(6, 7);
    const uint8_t white[3] = {255, 255, 255};
    DrawText(image, 0, 0, "T", white);
    // Top row of T is five pixels, then its stem in the middle column.
    for (int x = 0; x < 5; ++x) EXPECT_EQ(image.at(x, 0)[0], 255) << x;
    EXPECT_EQ(image.at(5, 0)[0], 0);
    EXPECT_EQ(image.at(2, 6)[0], 255);
    EXPECT_EQ(image.at(0, 6)[0], 0);
    DrawText(image, -3, 4, "WWW", white);  // partly outside: no fault
}

TEST(ToolTestPicture, BarsRampsAndLabel) {
    const RgbImage p = MakeTestPicture(352, 288);
    ASSERT_EQ(p.width, 352);
    ASSERT_EQ(p.height, 288);
    // Bars across the upper part (row 40, away from the disc and the label).
    for (int bar = 0; bar < 8; ++bar) {
        const uint8_t* px = p.at(bar * 44 + 4, 40);
        if (bar >= 3 && bar <= 4) continue;  // the disc covers the middle bars here
        EXPECT_EQ(px[0], kBarColours[bar][0]) << bar;
        EXPECT_EQ(px[1], kBarColours[bar][1]) << bar;
        EXPECT_EQ(px[2], kBarColours[bar][2]) << bar;
    }
    // The grey ramp rises from black to white.
    const int y = 288 * 7 / 12 + 5;
    EXPECT_EQ(p.at(0, y)[0], 0);
    EXPECT_EQ(p.at(351, y)[0], 255);
    EXPECT_LT(p.at(100, y)[0], p.at(200, y)[0]);
    EXPECT_EQ(p.at(100, y)[0], p.at(100, y)[2]);
    // The label's box is black in the corner.
    EXPECT_EQ(p.at(0, 0)[0], 0);
}

TEST(ToolTestPicture, AnySize) {
    for (auto [w, h] : {std::pair{1, 1}, {8, 8}, {320, 240}, {704, 576}}) {
        const RgbImage p = MakeTestPicture(w, h);
        EXPECT_EQ(p.pixels.size(), size_t(w) * size_t(h) * 3);
    }
}

TEST(ToolContactSheet, ThumbnailKeepsShapeAndAverages) {
    RgbImage image(4, 2);
    for (int x = 0; x < 4; ++x)
        for (int y = 0; y < 2; ++y) image.at(x, y)[0] = (x < 2) ? 0 : 200;
    const RgbImage t = Thumbnail(image, 2, 2);
    EXPECT_EQ(t.width, 2);
    EXPECT_EQ(t.height, 1);
    EXPECT_EQ(t.at(0, 0)[0], 0);
    EXPECT_EQ(t.at(1, 0)[0], 200);
    const RgbImage up = Thumbnail(image, 8, 8);
    EXPECT_EQ(up.width, 8);
    EXPECT_EQ(up.height, 4);
}

TEST(ToolContactSheet, GridOfLabelledCells) {
    std::vector<SheetTile> tiles;
    for (int i = 0; i < 7; ++i) tiles.push_back({"TILE " + std::to_string(i), RgbImage(352, 288)});
    SheetLayout layout;
    layout.columns = 3;
    const RgbImage sheet = BuildContactSheet(tiles, "TITLE", layout);
    const int32_t label = kGlyphHeight + 6, title = 2 * kGlyphHeight + 2 * layout.margin;
    EXPECT_EQ(sheet.width, layout.margin + 3 * (layout.cellWidth + layout.margin));
    EXPECT_EQ(sheet.height, title + 3 * (layout.cellHeight + label + layout.margin) + layout.margin);
    // The black thumbnail of the first tile sits in the first cell, on the
    // sheet's grey background.
    EXPECT_EQ(sheet.at(layout.margin + 10, title + 10)[0], 0);
    EXPECT_EQ(sheet.at(2, title + 10)[0], 40);
}
