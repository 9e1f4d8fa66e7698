// PNG files of 8-bit RGB pictures, through libpng's simplified interface.
#ifndef PIXMOOR_TOOL_PNG_FILE_H
#define PIXMOOR_TOOL_PNG_FILE_H

#include <cstdio>
#include <string>

#include "core/rgb_image.h"

namespace pixmoor_tool {

// Writes `image` as an 8-bit RGB PNG to an open file; returns an empty
// string on success, else libpng's reason.
std::string WritePng(std::FILE* file, const RgbImage& image);

// Writes `image` to `path` under a temporary name, renamed when complete.
// Throws a ToolError when the file can't be written.
void SavePng(const std::string& path, const RgbImage& image);

// Reads any PNG as 8-bit RGB.  Throws a ToolError on failure.
RgbImage LoadPng(const std::string& path);

}  // namespace pixmoor_tool

#endif
