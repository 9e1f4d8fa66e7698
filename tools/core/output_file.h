// An output written under a temporary name in the destination's folder and
// renamed to its real name only when it is complete, so that a failed run
// never leaves a partial file that looks finished.  "-" is standard output,
// written directly.
#ifndef PIXMOOR_TOOL_OUTPUT_FILE_H
#define PIXMOOR_TOOL_OUTPUT_FILE_H

#include <cstdint>
#include <cstdio>
#include <string>

namespace pixmoor_tool {

class OutputFile {
public:
    // Creates the temporary file; throws a ToolError if it can't be made.
    explicit OutputFile(const std::string& path);
    // Removes the temporary file unless Commit has run.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(const void* data, size_t count);
    // Flushes, closes and renames onto the real name.
    void Commit();

    std::FILE* file() { return file_; }
    const std::string& path() const { return path_; }
    const std::string& temporaryPath() const { return temporaryPath_; }

private:
    [[noreturn]] void FailWrite(const std::string& why);

    std::string path_;
    std::string temporaryPath_;  // empty for standard output
    std::FILE* file_ = nullptr;
    bool committed_ = false;
};

// The temporary name used for `path`: ".NAME.partial-PID" beside it.
std::string TemporaryNameFor(const std::string& path);

}  // namespace pixmoor_tool

#endif
