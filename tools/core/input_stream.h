// A named input of bytes: a file or standard input, read in whole blocks,
// with the first bytes available for a look before they are consumed.
#ifndef PIXMOOR_TOOL_INPUT_STREAM_H
#define PIXMOOR_TOOL_INPUT_STREAM_H

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace pixmoor_tool {

class InputStream {
public:
    // "-" is standard input.  Throws a ToolError when the file can't be opened.
    explicit InputStream(const std::string& path);
    ~InputStream();
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    // Reads up to `count` bytes, fewer only at the end of the input.  Throws
    // a ToolError on a read error.
    size_t Read(uint8_t* dst, size_t count);
    // Reads one line up to '\n' (not included) of at most `limit` bytes.
    // Returns false, with the bytes read so far in `line`, if the input
    // ends first; throws when the line is longer than `limit`.
    bool ReadLine(std::string& line, size_t limit, const std::string& what);
    // True if the input starts with `prefix`; consumes nothing.
    bool StartsWith(std::string_view prefix);

    // "'name'" for files, "standard input" for "-"; used in messages.
    const std::string& description() const { return description_; }

private:
    size_t ReadFile(uint8_t* dst, size_t count);

    std::FILE* file_ = nullptr;
    bool ownsFile_ = false;
    std::string description_;
    std::string peeked_;  // bytes read ahead by StartsWith, handed out first
};

}  // namespace pixmoor_tool

#endif
