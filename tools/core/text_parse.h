// Parsing of the small values typed on the command line.
#ifndef PIXMOOR_TOOL_TEXT_PARSE_H
#define PIXMOOR_TOOL_TEXT_PARSE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pixmoor_tool {

struct FrameSize {
    int32_t width = 0;
    int32_t height = 0;
    bool operator==(const FrameSize& o) const { return width == o.width && height == o.height; }
    bool operator!=(const FrameSize& o) const { return !(*this == o); }
};

// Largest side accepted; keeps every frame of 4 bytes a pixel within 2^31.
constexpr int32_t kMaxSide = 16384;

// Whole decimal number, digits only, no sign; nullopt on anything else or
// above `limit`.
std::optional<int64_t> ParseUnsigned(std::string_view text, int64_t limit);

// "WxH" (or "WXH") with both sides from 1 to kMaxSide.  Throws a usage
// error that names the text on failure.
FrameSize ParseFrameSize(std::string_view text);
std::string FrameSizeText(FrameSize size);

// A frame rate "N:D" or "N" with N and D from 1 up.
struct FrameRate {
    int64_t num = 25;
    int64_t den = 1;
};
FrameRate ParseFrameRate(std::string_view text);

}  // namespace pixmoor_tool

#endif
