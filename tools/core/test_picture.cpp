#include "core/test_picture.h"

#include <cmath>

#include "core/bitmap_font.h"

namespace pixmoor_tool {

const uint8_t kBarColours[8][3] = {
    {255, 255, 255}, {255, 255, 0}, {0, 255, 255}, {0, 255, 0},
    {255, 0, 255},   {255, 0, 0},   {0, 0, 255},   {0, 0, 0},
};

namespace {

void Fill(uint8_t* p, uint8_t r, uint8_t g, uint8_t b) { p[0] = r, p[1] = g, p[2] = b; }

// A hue ramp through red, yellow, green, cyan, blue, magenta, at full value.
void Hue(double t, uint8_t* p) {
    const double h = t * 6.0;
    const int sector = static_cast<int>(h) % 6;
    const uint8_t rise = static_cast<uint8_t>(std::lround((h - std::floor(h)) * 255.0));
    const uint8_t fall = static_cast<uint8_t>(255 - rise);
    switch (sector) {
        case 0: Fill(p, 255, rise, 0); break;
        case 1: Fill(p, fall, 255, 0); break;
        case 2: Fill(p, 0, 255, rise); break;
        case 3: Fill(p, 0, fall, 255); break;
        case 4: Fill(p, rise, 0, 255); break;
        default: Fill(p, 255, 0, fall); break;
    }
}

}  // namespace

RgbImage MakeTestPicture(int32_t width, int32_t height) {
    RgbImage image(width, height);
    const int32_t barsEnd = height * 7 / 12;
    const int32_t greyEnd = height * 19 / 24;
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x) {
            uint8_t* p = image.at(x, y);
            const double t = width > 1 ? double(x) / double(width - 1) : 0.0;
            if (y < barsEnd) {
                const uint8_t* c = kBarColours[std::min<int32_t>(7, x * 8 / width)];
                Fill(p, c[0], c[1], c[2]);
            } else if (y < greyEnd) {
                const uint8_t v = static_cast<uint8_t>(std::lround(t * 255.0));
                Fill(p, v, v, v);
            } else {
                Hue(t, p);
            }
        }

    // A mid-grey disc with a black rim over the bars, and a checkerboard of
    // 4-pixel squares inside it: edges in every direction.
    const double cx = width / 2.0, cy = barsEnd / 2.0, radius = std::min(width, barsEnd) * 0.3;
    for (int32_t y = 0; y < barsEnd; ++y)
        for (int32_t x = 0; x < width; ++x) {
            const double d = std::hypot(x + 0.5 - cx, y + 0.5 - cy);
            if (d > radius) continue;
            uint8_t* p = image.at(x, y);
            if (d > radius - 3.0) {
                Fill(p, 0, 0, 0);
            } else if (std::fabs(x + 0.5 - cx) < radius / 2.0 && std::fabs(y + 0.5 - cy) < radius / 2.0) {
                const uint8_t v = ((x / 4 + y / 4) % 2) ? 255 : 0;
                Fill(p, v, v, v);
            } else {
                Fill(p, 128, 128, 128);
            }
        }

    // The label on a black box at the top-left corner.
    const int32_t scale = width >= 320 ? 2 : 1;
    const char* label = "PIXMOOR";
    for (int32_t y = 0; y < (kGlyphHeight + 4) * scale && y < height; ++y)
        for (int32_t x = 0; x < TextWidth(label, scale) + 4 * scale && x < width; ++x) Fill(image.at(x, y), 0, 0, 0);
    const uint8_t white[3] = {255, 255, 255};
    DrawText(image, 2 * scale, 2 * scale, label, white, scale);
    return image;
}

}  // namespace pixmoor_tool
