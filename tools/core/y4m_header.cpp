#include "core/y4m_header.h"

#include <vector>

#include "core/errors.h"

namespace pixmoor_tool {
namespace {

[[noreturn]] void Malformed(const std::string& source, const std::string& why) {
    Fail("malformed Y4M header in " + source + ": " + why);
}

std::vector<std::string_view> SplitSpaces(std::string_view line) {
    std::vector<std::string_view> tokens;
    size_t pos = 0;
    while (pos <= line.size()) {
        const size_t end = std::min(line.find(' ', pos), line.size());
        tokens.push_back(line.substr(pos, end - pos));
        pos = end + 1;
    }
    return tokens;
}

int32_t ParseSide(std::string_view digits, char tag, const std::string& source) {
    const auto value = ParseUnsigned(digits, kMaxSide);
    if (!value || *value == 0)
        Malformed(source, std::string("bad ") + tag + " tag '" + tag + std::string(digits) +
                              "' (expected 1 to " + std::to_string(kMaxSide) + ")");
    return static_cast<int32_t>(*value);
}

bool IsRatio(std::string_view text) {
    const size_t colon = text.find(':');
    return colon != std::string_view::npos && ParseUnsigned(text.substr(0, colon), 1000000000) &&
           ParseUnsigned(text.substr(colon + 1), 1000000000);
}

}  // namespace

Y4mHeader ParseY4mHeader(std::string_view line, const std::string& source) {
    const std::vector<std::string_view> tokens = SplitSpaces(line);
    if (tokens[0] != kY4mMagic) Malformed(source, "it does not start with \"YUV4MPEG2 \"");

    Y4mHeader header;
    header.chroma.clear();
    bool haveW = false, haveH = false;
    for (size_t i = 1; i < tokens.size(); ++i) {
        const std::string_view token = tokens[i];
        if (token.empty()) Malformed(source, "two spaces in a row or a space at the end");
        const std::string_view value = token.substr(1);
        switch (token[0]) {
            case 'W':
                header.size.width = ParseSide(value, 'W', source);
                haveW = true;
                break;
            case 'H':
                header.size.height = ParseSide(value, 'H', source);
                haveH = true;
                break;
            case 'F': {
                if (!IsRatio(value)) Malformed(source, "bad F tag '" + std::string(token) + "'");
                const size_t colon = value.find(':');
                header.rate.num = *ParseUnsigned(value.substr(0, colon), 1000000000);
                header.rate.den = *ParseUnsigned(value.substr(colon + 1), 1000000000);
                break;
            }
            case 'I':
                if (value.size() != 1 || std::string_view("ptbm?").find(value[0]) == std::string_view::npos)
                    Malformed(source, "bad I tag '" + std::string(token) + "'");
                header.interlace = value[0];
                break;
            case 'A':
                if (!IsRatio(value)) Malformed(source, "bad A tag '" + std::string(token) + "'");
                header.aspect = std::string(value);
                break;
            case 'C':
                header.chroma = std::string(value);
                break;
            case 'X':
                break;  // extensions carry nothing this tool needs
            default:
                Malformed(source, "unknown tag '" + std::string(token) + "'");
        }
    }
    if (!haveW || !haveH) Malformed(source, "the W and H tags are required");

    static const char* const kPlanar420[] = {"", "420jpeg", "420paldv", "420mpeg2", "420"};
    bool is420 = false;
    for (const char* tag : kPlanar420) is420 = is420 || header.chroma == tag;
    if (!is420)
        Fail("unsupported Y4M chroma 'C" + header.chroma + "' in " + source +
             ": only 8-bit 4:2:0 (C420jpeg, C420paldv, C420mpeg2, C420) is read, as I420");
    if (header.size.width % 2 != 0 || header.size.height % 2 != 0)
        Fail("unsupported Y4M frame size " + FrameSizeText(header.size) + " in " + source +
             ": I420 frames have an even width and height");
    if (header.chroma.empty()) header.chroma = "420jpeg";
    return header;
}

std::string FormatY4mHeader(const Y4mHeader& header) {
    std::string line(kY4mMagic);
    line += " W" + std::to_string(header.size.width) + " H" + std::to_string(header.size.height);
    line += " F" + std::to_string(header.rate.num) + ":" + std::to_string(header.rate.den);
    line += " I";
    line += header.interlace;
    line += " A" + header.aspect;
    line += " C" + (header.chroma.empty() ? std::string("420jpeg") : header.chroma);
    line += "\n";
    return line;
}

}  // namespace pixmoor_tool
