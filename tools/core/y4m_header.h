// The stream header of YUV4MPEG2 files: "YUV4MPEG2" and space-separated
// tags (W width, H height, F rate, I interlacing, A aspect, C chroma, X any).
#ifndef PIXMOOR_TOOL_Y4M_HEADER_H
#define PIXMOOR_TOOL_Y4M_HEADER_H

#include <string>
#include <string_view>

#include "core/text_parse.h"

namespace pixmoor_tool {

struct Y4mHeader {
    FrameSize size;
    FrameRate rate;              // 0:0 (unknown) is kept as read
    char interlace = 'p';
    std::string aspect = "1:1";
    std::string chroma = "420jpeg";  // as read; empty means the tag was absent
};

constexpr std::string_view kY4mMagic = "YUV4MPEG2";
// Longest header or frame-marker line the reader accepts.
constexpr size_t kY4mMaxLine = 4096;

// Parses one header line (without its newline).  Throws a ToolError naming
// `source` when the line is malformed or describes frames other than 8-bit
// 4:2:0 ("C420jpeg", "C420paldv", "C420mpeg2", "C420" or no C tag).
Y4mHeader ParseY4mHeader(std::string_view line, const std::string& source);

// The header line, newline included, for 4:2:0 frames of the given header.
std::string FormatY4mHeader(const Y4mHeader& header);

}  // namespace pixmoor_tool

#endif
