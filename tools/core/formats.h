// Format codes as the tool's user types them, and the byte layout of one
// frame of each format in a file.
#ifndef PIXMOOR_TOOL_FORMATS_H
#define PIXMOOR_TOOL_FORMATS_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pixmoor_tool {

enum class FormatKind { Planar420, Packed422, Rgb };

// One canonical format: its code, how its frames are laid out and how many
// bits a pixel takes.
struct FormatInfo {
    uint32_t code;
    const char* name;
    FormatKind kind;
    int32_t bitsPerPixel;
};

// A code as the user gave it (passed to the library's factories untouched,
// so that their own alias rules apply) and the format it names.
struct ParsedFormat {
    uint32_t typed;
    const FormatInfo* info;
};

// Which factory a code is meant for: the colour factory knows the codes and
// aliases of the format table; the size factory also knows "IYUV"/"iyuv" as
// the planar 4:2:0 format and "0rgb" as RGB of a depth given separately.
enum class CodeSet { Colour, Size };

// Builds the 32-bit code of exactly four characters, first in the low byte.
std::optional<uint32_t> FourCCFromText(std::string_view text);
// The four characters of a code, printable ones as they are, others as '?'.
std::string FourCCText(uint32_t code);

// Canonical format of a code given as text; nullopt when the text is no
// known spelling.  Only the exact upper- and lower-case spellings count.
std::optional<ParsedFormat> ParseFormat(std::string_view text, CodeSet set = CodeSet::Colour);

const FormatInfo* FindFormat(uint32_t canonicalCode);
const std::vector<FormatInfo>& AllFormats();
// Every spelling that ParseFormat accepts for the colour factory, canonical
// codes first in each group: "I420 i420", "YUY2 YUNV V422 ...".
std::string SpellingList();

// Bytes of one frame stored tightly (rows with no padding), as files hold
// them.  For RGB this is width * bytes-per-pixel * height.
int64_t FileFrameBytes(const FormatInfo& format, int32_t width, int32_t height);
// Bytes of one RGB row as the library lays it out (rounded up to 4).
int32_t LibraryLineBytes(int32_t width, int32_t bitsPerPixel);
int32_t TightLineBytes(int32_t width, int32_t bitsPerPixel);

}  // namespace pixmoor_tool

#endif
