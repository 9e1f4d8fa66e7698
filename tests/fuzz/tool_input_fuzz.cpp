// Fuzzes the pixmoor tool's input parsing: YUV4MPEG2 streams (header line,
// frame markers, frames) and raw files of back-to-back frames, read through
// the tool's own input stream from a file in memory.  Properties: a header
// is either refused with the tool's error or parsed into one that formats
// and parses back to the same size, rate and interlacing; frames come out
// exactly as the bytes after their marker lines (or after each other, raw),
// a short last frame is reported truncated with the bytes that were there,
// and a bad marker is refused; a frame buffer of exactly frameBytes() bytes
// is never overrun.
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "core/errors.h"
#include "core/frame_source.h"
#include "core/input_stream.h"
#include "core/y4m_header.h"
#include "fuzz_support.h"

using namespace pixmoor_fuzz;
using namespace pixmoor_tool;

namespace {

// A file in memory that the tool opens by name, like any input file.
class MemoryFile {
public:
    MemoryFile() : fd_(memfd_create("pixmoor-fuzz-input", 0)), path_("/proc/self/fd/" + std::to_string(fd_)) {}
    const std::string& Write(const uint8_t* data, size_t size) {
        FUZZ_CHECK(fd_ >= 0 && ftruncate(fd_, 0) == 0, "memory file");
        FUZZ_CHECK(pwrite(fd_, data, size, 0) == static_cast<ssize_t>(size), "memory file write");
        return path_;
    }

private:
    int fd_;
    std::string path_;
};

constexpr int64_t kLargestFrame = 8 << 20;

// Reads every frame of `source` and checks it against the bytes the model
// says follow each marker (`markers`) or each other (raw).
void CheckFrames(FrameSource& source, const std::string& bytes, size_t start, bool markers) {
    const int64_t frameBytes = source.frameBytes();
    if (frameBytes < 1 || frameBytes > kLargestFrame) return;
    ExactBuffer frame(static_cast<size_t>(frameBytes), 0);
    size_t at = start;
    for (int n = 0;; ++n) {
        // The model: where this frame's bytes start, or why there are none.
        bool badMarker = false, endsInMarker = false;
        size_t dataAt = at;
        if (markers && at < bytes.size()) {
            const size_t newline = bytes.find('\n', at);
            const std::string line = bytes.substr(at, newline == std::string::npos ? std::string::npos : newline - at);
            const std::string word = "FRAME";
            if (newline == std::string::npos) {
                endsInMarker = true;
                badMarker = !(word.compare(0, line.size(), line) == 0 || line.compare(0, 6, "FRAME ") == 0);
            } else {
                badMarker = !(line == word || line.compare(0, 6, "FRAME ") == 0);
            }
            if (line.size() > kY4mMaxLine) return;  // the limit's own error
            dataAt = newline == std::string::npos ? bytes.size() : newline + 1;
        }
        try {
            const ReadResult r = source.Read(frame.data());
            FUZZ_CHECK(!badMarker, "frame %d: a bad marker was taken", n);
            if (at >= bytes.size()) {
                FUZZ_CHECK(r.outcome == ReadResult::End && r.bytes == 0, "frame %d: no end at the end of input", n);
                return;
            }
            const size_t have = bytes.size() - dataAt;
            if (endsInMarker || have < static_cast<size_t>(frameBytes)) {
                FUZZ_CHECK(r.outcome == ReadResult::Truncated, "frame %d: a short frame not reported truncated", n);
                FUZZ_CHECK(r.bytes == static_cast<int64_t>(endsInMarker ? 0 : have), "frame %d: truncated at %lld, model %zu",
                           n, static_cast<long long>(r.bytes), have);
                FUZZ_CHECK(std::memcmp(frame.data(), bytes.data() + dataAt, static_cast<size_t>(r.bytes)) == 0,
                           "frame %d: the bytes of a truncated frame differ", n);
                return;
            }
            FUZZ_CHECK(r.outcome == ReadResult::Frame && r.bytes == frameBytes, "frame %d: not a whole frame", n);
            FUZZ_CHECK(std::memcmp(frame.data(), bytes.data() + dataAt, static_cast<size_t>(frameBytes)) == 0,
                       "frame %d: bytes differ from the input", n);
            at = dataAt + static_cast<size_t>(frameBytes);
        } catch (const ToolError&) {
            FUZZ_CHECK(badMarker, "frame %d: refused though its marker is good", n);
            return;
        }
    }
}

void CheckY4m(const std::string& path, const std::string& bytes) {
    InputStream input(path);
    try {
        Y4mFrameSource source(input);
        const Y4mHeader& header = source.header();
        // The header formats and parses back to itself.
        const std::string line = FormatY4mHeader(header);
        FUZZ_CHECK(!line.empty() && line.back() == '\n', "a formatted header ends its line");
        const Y4mHeader again = ParseY4mHeader(std::string_view(line).substr(0, line.size() - 1), "formatted");
        FUZZ_CHECK(again.size == header.size && again.rate.num == header.rate.num &&
                       again.rate.den == header.rate.den && again.interlace == header.interlace,
                   "a header does not survive formatting: %s", line.c_str());
        const int64_t w = header.size.width, h = header.size.height;
        if (w % 2 == 0 && h % 2 == 0)
            FUZZ_CHECK(source.frameBytes() == w * h * 3 / 2, "frame bytes %lld for %lldx%lld",
                       static_cast<long long>(source.frameBytes()), static_cast<long long>(w),
                       static_cast<long long>(h));
        CheckFrames(source, bytes, bytes.find('\n') + 1, true);
    } catch (const ToolError& e) {
        // Refusals come with a message that names the input.
        FUZZ_CHECK(e.what()[0] != '\0', "an error without a message");
    }
}

void CheckRaw(const std::string& path, const std::string& bytes, int64_t frameBytes) {
    InputStream input(path);
    RawFrameSource source(input, frameBytes);
    CheckFrames(source, bytes, 0, false);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    static MemoryFile file;
    if (size < 1) return 0;
    // First byte: raw (with a frame size from the next two) or Y4M (the rest
    // is the stream as it stands).
    const bool raw = data[0] & 1;
    size_t skip = 1;
    int64_t rawFrame = 1;
    if (raw && size >= 3) {
        rawFrame = 1 + (data[1] | data[2] << 8) % 600;
        skip = 3;
    }
    const std::string bytes(reinterpret_cast<const char*>(data + skip), size - skip);
    const std::string& path = file.Write(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    if (raw)
        CheckRaw(path, bytes, rawFrame);
    else
        CheckY4m(path, bytes);
    return 0;
}
