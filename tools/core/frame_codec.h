// Moves pictures between the tool's RGB picture and frames of each format,
// rows top to bottom.  The YUV side uses the full-range BT.601 model; it is
// only how the tool makes test frames and shows results, and is independent
// of the library's own arithmetic.
#ifndef PIXMOOR_TOOL_FRAME_CODEC_H
#define PIXMOOR_TOOL_FRAME_CODEC_H

#include <cstdint>
#include <vector>

#include "core/formats.h"
#include "core/rgb_image.h"

namespace pixmoor_tool {

// "RG55" words from the packed 4:2:2 conversions carry their three 5-bit
// fields in bits 15..11, 10..6 and 5..1; every other writer puts them in
// bits 14..0.
enum class Rgb555Layout { Standard, HighAligned };

// Decodes one frame.  `pitch` is the distance between RGB rows in bytes (0:
// tight rows); YUV frames are always tight.
RgbImage DecodeFrame(const FormatInfo& format, const uint8_t* frame, int32_t width, int32_t height,
                     int32_t pitch = 0, Rgb555Layout layout = Rgb555Layout::Standard);

// Encodes a picture as one tight frame of `format`.  4:2:0 and 4:2:2 chroma
// is the mean of the pixels it serves.
std::vector<uint8_t> EncodeFrame(const FormatInfo& format, const RgbImage& picture);

// Full-range BT.601 of one pixel, rounded.
void RgbToYuv(const uint8_t rgb[3], int32_t yuv[3]);
void YuvToRgb(int32_t y, int32_t u, int32_t v, uint8_t rgb[3]);

}  // namespace pixmoor_tool

#endif
