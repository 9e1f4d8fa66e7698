// The demo's test picture, made in memory: colour bars, grey and colour
// ramps, a disc and a checkerboard with hard edges, and a label in the
// top-left corner that shows at a glance whether a result is upside down
// or mirrored.
#ifndef PIXMOOR_TOOL_TEST_PICTURE_H
#define PIXMOOR_TOOL_TEST_PICTURE_H

#include "core/rgb_image.h"

namespace pixmoor_tool {

RgbImage MakeTestPicture(int32_t width, int32_t height);

// The eight bars from left to right: white, yellow, cyan, green, magenta,
// red, blue, black.
extern const uint8_t kBarColours[8][3];

}  // namespace pixmoor_tool

#endif
