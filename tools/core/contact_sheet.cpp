#include "core/contact_sheet.h"

#include <algorithm>

#include "core/bitmap_font.h"

namespace pixmoor_tool {

RgbImage Thumbnail(const RgbImage& image, int32_t maxWidth, int32_t maxHeight) {
    const double fit = std::min(double(maxWidth) / image.width, double(maxHeight) / image.height);
    const int32_t w = std::max<int32_t>(1, int32_t(image.width * fit));
    const int32_t h = std::max<int32_t>(1, int32_t(image.height * fit));
    RgbImage thumb(w, h);
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x) {
            // The source rectangle of this pixel, at least one pixel.
            const int32_t x0 = int32_t(int64_t(x) * image.width / w), y0 = int32_t(int64_t(y) * image.height / h);
            const int32_t x1 = std::max(x0 + 1, int32_t(int64_t(x + 1) * image.width / w));
            const int32_t y1 = std::max(y0 + 1, int32_t(int64_t(y + 1) * image.height / h));
            uint32_t sum[3] = {0, 0, 0};
            for (int32_t sy = y0; sy < y1; ++sy)
                for (int32_t sx = x0; sx < x1; ++sx)
                    for (int c = 0; c < 3; ++c) sum[c] += image.at(sx, sy)[c];
            const uint32_t n = uint32_t((x1 - x0) * (y1 - y0));
            for (int c = 0; c < 3; ++c) thumb.at(x, y)[c] = uint8_t((sum[c] + n / 2) / n);
        }
    return thumb;
}

RgbImage BuildContactSheet(const std::vector<SheetTile>& tiles, const std::string& title, const SheetLayout& layout) {
    const int32_t labelHeight = kGlyphHeight + 6;
    const int32_t titleHeight = 2 * kGlyphHeight + 2 * layout.margin;
    const int32_t columns = std::max<int32_t>(1, std::min<int32_t>(layout.columns, int32_t(tiles.size())));
    const int32_t rows = (int32_t(tiles.size()) + columns - 1) / columns;
    const int32_t pitchX = layout.cellWidth + layout.margin;
    const int32_t pitchY = layout.cellHeight + labelHeight + layout.margin;
    RgbImage sheet(std::max(layout.margin + columns * pitchX, TextWidth(title, 2) + 2 * layout.margin),
                   titleHeight + rows * pitchY + layout.margin);
    std::fill(sheet.pixels.begin(), sheet.pixels.end(), uint8_t(40));

    const uint8_t white[3] = {255, 255, 255};
    const uint8_t light[3] = {220, 220, 220};
    DrawText(sheet, layout.margin, layout.margin, title, white, 2);
    for (size_t i = 0; i < tiles.size(); ++i) {
        const int32_t cellX = layout.margin + int32_t(i % size_t(columns)) * pitchX;
        const int32_t cellY = titleHeight + int32_t(i / size_t(columns)) * pitchY;
        const RgbImage thumb = Thumbnail(tiles[i].image, layout.cellWidth, layout.cellHeight);
        const int32_t ox = cellX + (layout.cellWidth - thumb.width) / 2;
        const int32_t oy = cellY + (layout.cellHeight - thumb.height) / 2;
        for (int32_t y = 0; y < thumb.height; ++y)
            std::copy_n(thumb.at(0, y), size_t(thumb.width) * 3, sheet.at(ox, oy + y));
        // Labels wider than the cell are cut at the cell's edge.
        std::string label = tiles[i].label;
        while (!label.empty() && TextWidth(label) > layout.cellWidth) label.pop_back();
        DrawText(sheet, cellX + (layout.cellWidth - TextWidth(label)) / 2, cellY + layout.cellHeight + 4, label,
                 light);
    }
    return sheet;
}

}  // namespace pixmoor_tool
