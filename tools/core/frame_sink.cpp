#include "core/frame_sink.h"

#include "core/errors.h"
#include "core/formats.h"
#include "core/png_file.h"

#include <pixmoor/geometry.h>

namespace pixmoor_tool {

bool EndsWith(const std::string& text, const std::string& ending) {
    return text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

Y4mSink::Y4mSink(OutputFile& out, const Y4mHeader& header)
    : out_(out), frameBytes_(FileFrameBytes(*FindFormat(FCC_I420), header.size.width, header.size.height)) {
    const std::string line = FormatY4mHeader(header);
    out_.Write(line.data(), line.size());
}

void Y4mSink::Write(const uint8_t* frame) {
    static const char kMarker[] = "FRAME\n";
    out_.Write(kMarker, sizeof kMarker - 1);
    out_.Write(frame, size_t(frameBytes_));
}

PngSequenceSink::PngSequenceSink(std::string pattern, const FormatInfo& format, int32_t width, int32_t height,
                                 int32_t pitch, Rgb555Layout layout, bool bottomUp)
    : pattern_(std::move(pattern)),
      format_(format),
      width_(width),
      height_(height),
      pitch_(pitch),
      layout_(layout),
      bottomUp_(bottomUp) {}

void PngSequenceSink::Write(const uint8_t* frame) {
    ++index_;
    RgbImage image = DecodeFrame(format_, frame, width_, height_, pitch_, layout_);
    if (bottomUp_) FlipRows(image);
    SavePng(PngFrameName(pattern_, index_), image);
}

std::string PngPattern(const std::string& name) {
    size_t conversions = 0;
    for (size_t i = 0; i < name.size(); ++i) {
        if (name[i] != '%') continue;
        size_t j = i + 1;
        if (j < name.size() && name[j] == '%') {
            i = j;
            continue;
        }
        if (j + 2 < name.size() && name[j] == '0' && name[j + 1] >= '1' && name[j + 1] <= '9') j += 2;
        if (j >= name.size() || name[j] != 'd')
            FailUsage("bad PNG output name '" + name + "': the only number field allowed is %d or %0Nd");
        ++conversions;
        i = j;
    }
    if (conversions > 1) FailUsage("bad PNG output name '" + name + "': more than one number field");
    if (conversions == 1) return name;
    std::string escaped;
    for (char c : name) escaped += c == '%' ? std::string("%%") : std::string(1, c);
    if (EndsWith(escaped, ".png")) return escaped.substr(0, escaped.size() - 4) + "-%06d.png";
    return escaped + "-%06d.png";
}

std::string PngFrameName(const std::string& pattern, int64_t number) {
    std::string name;
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%') {
            name += pattern[i];
            continue;
        }
        if (pattern[i + 1] == '%') {
            name += '%';
            ++i;
            continue;
        }
        size_t width = 0;
        if (pattern[i + 1] == '0') width = size_t(pattern[i + 2] - '0'), i += 2;
        std::string digits = std::to_string(number);
        if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
        name += digits;
        ++i;  // the 'd'
    }
    return name;
}

}  // namespace pixmoor_tool
