// A 5 by 7 pixel font for labels drawn into pictures: upper-case letters
// (lower case is drawn as upper case), digits and a little punctuation.
#ifndef PIXMOOR_TOOL_BITMAP_FONT_H
#define PIXMOOR_TOOL_BITMAP_FONT_H

#include <cstdint>
#include <string_view>

#include "core/rgb_image.h"

namespace pixmoor_tool {

constexpr int32_t kGlyphWidth = 5;
constexpr int32_t kGlyphHeight = 7;
constexpr int32_t kGlyphAdvance = 6;  // one column of space between glyphs

// Seven rows of five bits, the leftmost pixel in bit 4; null for a
// character the font lacks (drawn as a hollow box).
const uint8_t* GlyphRows(char c);

int32_t TextWidth(std::string_view text, int32_t scale = 1);
// Draws `text` with its top-left corner at (x, y); pixels outside the
// picture are left out.
void DrawText(RgbImage& image, int32_t x, int32_t y, std::string_view text, const uint8_t colour[3],
              int32_t scale = 1);

}  // namespace pixmoor_tool

#endif
