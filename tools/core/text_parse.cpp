#include "core/text_parse.h"

#include "core/errors.h"

namespace pixmoor_tool {

std::optional<int64_t> ParseUnsigned(std::string_view text, int64_t limit) {
    if (text.empty()) return std::nullopt;
    int64_t value = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
        if (value > limit) return std::nullopt;
    }
    return value;
}

FrameSize ParseFrameSize(std::string_view text) {
    const size_t x = text.find_first_of("xX");
    if (x != std::string_view::npos) {
        const auto w = ParseUnsigned(text.substr(0, x), kMaxSide);
        const auto h = ParseUnsigned(text.substr(x + 1), kMaxSide);
        if (w && h && *w > 0 && *h > 0)
            return FrameSize{static_cast<int32_t>(*w), static_cast<int32_t>(*h)};
    }
    FailUsage("bad size '" + std::string(text) + "': expected WIDTHxHEIGHT with sides from 1 to " +
              std::to_string(kMaxSide) + ", for example 352x288");
}

std::string FrameSizeText(FrameSize size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

FrameRate ParseFrameRate(std::string_view text) {
    constexpr int64_t kLimit = 1000000000;
    const size_t colon = text.find(':');
    const auto num = ParseUnsigned(text.substr(0, colon), kLimit);
    const auto den = colon == std::string_view::npos ? std::optional<int64_t>(1)
                                                      : ParseUnsigned(text.substr(colon + 1), kLimit);
    if (!num || !den || *num == 0 || *den == 0)
        FailUsage("bad frame rate '" + std::string(text) + "': expected N:D, for example 30000:1001");
    return FrameRate{*num, *den};
}

}  // namespace pixmoor_tool
