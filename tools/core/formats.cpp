#include "core/formats.h"

#include <pixmoor/geometry.h>

namespace pixmoor_tool {
namespace {

const std::vector<FormatInfo> kFormats = {
    {FCC_I420, "I420", FormatKind::Planar420, 12},
    {FCC_YV12, "YV12", FormatKind::Planar420, 12},
    {FCC_YUY2, "YUY2", FormatKind::Packed422, 16},
    {FCC_UYVY, "UYVY", FormatKind::Packed422, 16},
    {FCC_RG24, "RG24", FormatKind::Rgb, 24},
    {FCC_RG32, "RG32", FormatKind::Rgb, 32},
    {FCC_RG55, "RG55", FormatKind::Rgb, 16},
    {FCC_RG56, "RG56", FormatKind::Rgb, 16},
};

struct Spelling {
    const char* text;
    uint32_t canonical;
    bool sizeFactoryOnly;
};

// Canonical spelling first in each group; SpellingList relies on the order.
const Spelling kSpellings[] = {
    {"I420", FCC_I420, false}, {"i420", FCC_I420, false},
    {"IYUV", FCC_I420, true},  {"iyuv", FCC_I420, true},
    {"YV12", FCC_YV12, false}, {"yv12", FCC_YV12, false},
    {"YUY2", FCC_YUY2, false}, {"YUNV", FCC_YUY2, false}, {"V422", FCC_YUY2, false},
    {"yuy2", FCC_YUY2, false}, {"yunv", FCC_YUY2, false}, {"v422", FCC_YUY2, false},
    {"UYVY", FCC_UYVY, false}, {"Y422", FCC_UYVY, false}, {"UYNV", FCC_UYVY, false},
    {"uyvy", FCC_UYVY, false}, {"y422", FCC_UYVY, false}, {"uynv", FCC_UYVY, false},
    {"RG24", FCC_RG24, false}, {"rg24", FCC_RG24, false},
    {"RG32", FCC_RG32, false}, {"rg32", FCC_RG32, false},
    {"RG55", FCC_RG55, false}, {"rg55", FCC_RG55, false},
    {"RG56", FCC_RG56, false}, {"rg56", FCC_RG56, false},
};

}  // namespace

std::optional<uint32_t> FourCCFromText(std::string_view text) {
    if (text.size() != 4) return std::nullopt;
    return MakeFourCC(text[0], text[1], text[2], text[3]);
}

std::string FourCCText(uint32_t code) {
    std::string text;
    for (int i = 0; i < 4; ++i) {
        const char c = static_cast<char>((code >> (8 * i)) & 0xFF);
        text += (c >= 0x20 && c < 0x7F) ? c : '?';
    }
    return text;
}

std::optional<ParsedFormat> ParseFormat(std::string_view text, CodeSet set) {
    for (const Spelling& s : kSpellings) {
        if (text != s.text) continue;
        if (s.sizeFactoryOnly && set != CodeSet::Size) return std::nullopt;
        return ParsedFormat{*FourCCFromText(text), FindFormat(s.canonical)};
    }
    return std::nullopt;
}

const FormatInfo* FindFormat(uint32_t canonicalCode) {
    for (const FormatInfo& f : kFormats)
        if (f.code == canonicalCode) return &f;
    return nullptr;
}

const std::vector<FormatInfo>& AllFormats() { return kFormats; }

std::string SpellingList() {
    std::string list;
    uint32_t group = 0;
    for (const Spelling& s : kSpellings) {
        if (s.sizeFactoryOnly) continue;
        if (!list.empty()) list += (s.canonical == group) ? " " : ", ";
        group = s.canonical;
        list += s.text;
    }
    return list;
}

int32_t LibraryLineBytes(int32_t width, int32_t bitsPerPixel) {
    return RGBLineSize(width, bitsPerPixel);
}

int32_t TightLineBytes(int32_t width, int32_t bitsPerPixel) {
    return width * (bitsPerPixel / 8);
}

int64_t FileFrameBytes(const FormatInfo& format, int32_t width, int32_t height) {
    const int64_t area = int64_t{width} * height;
    switch (format.kind) {
        case FormatKind::Planar420:
            // Chroma planes of (W/2) x (H/2) samples each, as the library
            // lays them out for the even sizes it accepts.
            return area + 2 * (int64_t{width / 2} * (height / 2));
        case FormatKind::Packed422:
            return area * 2;
        case FormatKind::Rgb:
            return int64_t{TightLineBytes(width, format.bitsPerPixel)} * height;
    }
    return 0;
}

}  // namespace pixmoor_tool
