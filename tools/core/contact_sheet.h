// One picture with a labelled thumbnail of each demo result.
#ifndef PIXMOOR_TOOL_CONTACT_SHEET_H
#define PIXMOOR_TOOL_CONTACT_SHEET_H

#include <string>
#include <vector>

#include "core/rgb_image.h"

namespace pixmoor_tool {

struct SheetTile {
    std::string label;
    RgbImage image;
};

// Scales a picture down (area average) or up (nearest) to fit within
// maxWidth by maxHeight, keeping its shape; at least 1 by 1.
RgbImage Thumbnail(const RgbImage& image, int32_t maxWidth, int32_t maxHeight);

struct SheetLayout {
    int32_t cellWidth = 176;   // thumbnail box
    int32_t cellHeight = 144;
    int32_t columns = 6;
    int32_t margin = 8;
};

// Tiles in rows of `columns`, each thumbnail centred in its cell with its
// label below it; `title` on top.
RgbImage BuildContactSheet(const std::vector<SheetTile>& tiles, const std::string& title,
                           const SheetLayout& layout = SheetLayout());

}  // namespace pixmoor_tool

#endif
