#include "core/frame_source.h"

#include "core/errors.h"
#include "core/formats.h"

#include <pixmoor/geometry.h>

namespace pixmoor_tool {

ReadResult RawFrameSource::Read(uint8_t* frame) {
    const int64_t got = static_cast<int64_t>(input_.Read(frame, static_cast<size_t>(frameBytes())));
    if (got == frameBytes()) return {ReadResult::Frame, got};
    return {got == 0 ? ReadResult::End : ReadResult::Truncated, got};
}

Y4mHeader Y4mFrameSource::ReadHeader(InputStream& input) {
    std::string line;
    if (!input.ReadLine(line, kY4mMaxLine, "the Y4M header")) {
        if (line.empty()) Fail("malformed Y4M header in " + input.description() + ": the input is empty");
        Fail("malformed Y4M header in " + input.description() + ": the input ends inside the header");
    }
    return ParseY4mHeader(line, input.description());
}

Y4mFrameSource::Y4mFrameSource(InputStream& input) : Y4mFrameSource(input, ReadHeader(input)) {}

Y4mFrameSource::Y4mFrameSource(InputStream& input, const Y4mHeader& header)
    : FrameSource(FileFrameBytes(*FindFormat(FCC_I420), header.size.width, header.size.height)),
      input_(input),
      header_(header) {}

ReadResult Y4mFrameSource::Read(uint8_t* frame) {
    // The marker: "FRAME", then optional tags, then a newline.  An input that
    // ends anywhere inside a frame, its marker included, ends in a truncated
    // frame; one that ends cleanly before the marker has no more frames.
    std::string marker;
    const bool complete = input_.ReadLine(marker, kY4mMaxLine, "a Y4M frame marker");
    if (!complete && marker.empty()) return {ReadResult::End, 0};
    const std::string_view text = marker;
    const std::string_view word = "FRAME";
    const bool wordOk = complete ? (text == word || text.substr(0, word.size() + 1) == "FRAME ")
                                 : (word.substr(0, text.size()) == text || text.substr(0, word.size() + 1) == "FRAME ");
    if (!wordOk)
        Fail("bad Y4M frame marker before frame " + std::to_string(framesRead_ + 1) + " in " +
             input_.description() + ": expected \"FRAME\"");
    if (!complete) return {ReadResult::Truncated, 0};

    const int64_t got = static_cast<int64_t>(input_.Read(frame, static_cast<size_t>(frameBytes())));
    if (got != frameBytes()) return {ReadResult::Truncated, got};
    ++framesRead_;
    return {ReadResult::Frame, got};
}

}  // namespace pixmoor_tool
