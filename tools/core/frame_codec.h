// Moves pictures between the tool's RGB picture and frames of each format,
// rows top to bottom.  YUV frames follow the colour model that the library's
// conversions share, so that a picture made here and converted by the
// library comes back as it was.  It is the usual analogue model with red
// and blue exchanged: luma in full range, Y = 0.114 R + 0.587 G + 0.299 B;
// U = 0.877 (B - Y) and V = 0.492 (R - Y), each plus 128; and in the packed
// 4:2:2 formats luma stands 16 higher, which those conversions take off.
// This code is only how the tool makes test frames and shows results; it
// works in floating point, independently of the library's arithmetic.
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

// One pixel in the model above (without the packed formats' luma offset),
// rounded and clamped to 0..255.
void RgbToYuv(const uint8_t rgb[3], int32_t yuv[3]);
void YuvToRgb(int32_t y, int32_t u, int32_t v, uint8_t rgb[3]);

// Luma offset of the packed 4:2:2 formats.
constexpr int32_t kPackedLumaOffset = 16;

}  // namespace pixmoor_tool

#endif
