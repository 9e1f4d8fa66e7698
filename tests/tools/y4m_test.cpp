#include <gtest/gtest.h>

#include <pixmoor/geometry.h>

#include "core/errors.h"
#include "core/frame_sink.h"
#include "core/frame_source.h"
#include "core/y4m_header.h"
#include "temp_dir.h"

using namespace pixmoor_tool;
using pixmoor_test::TempDir;

namespace {

std::string ErrorOf(const std::string& line) {
    try {
        ParseY4mHeader(line, "'t.y4m'");
    } catch (const ToolError& e) {
        EXPECT_EQ(e.exitStatus(), kExitFailure);
        return e.what();
    }
    return "";
}

std::vector<uint8_t> Bytes(const std::string& text) { return std::vector<uint8_t>(text.begin(), text.end()); }

std::vector<uint8_t> Frame(size_t bytes, uint8_t seed) {
    std::vector<uint8_t> f(bytes);
    for (size_t i = 0; i < bytes; ++i) f[i] = uint8_t(seed + i * 7);
    return f;
}

}  // namespace

TEST(ToolY4mHeader, ReadsEveryTag) {
    const Y4mHeader h = ParseY4mHeader("YUV4MPEG2 W352 H288 F30000:1001 It A128:117 C420mpeg2 XYSCSS=420MPEG2", "x");
    EXPECT_EQ(h.size, (FrameSize{352, 288}));
    EXPECT_EQ(h.rate.num, 30000);
    EXPECT_EQ(h.rate.den, 1001);
    EXPECT_EQ(h.interlace, 't');
    EXPECT_EQ(h.aspect, "128:117");
    EXPECT_EQ(h.chroma, "420mpeg2");
}

TEST(ToolY4mHeader, DefaultsWithoutOptionalTags) {
    const Y4mHeader h = ParseY4mHeader("YUV4MPEG2 H2 W4", "x");
    EXPECT_EQ(h.size, (FrameSize{4, 2}));
    EXPECT_EQ(h.rate.num, 25);
    EXPECT_EQ(h.chroma, "420jpeg");  // no C tag: 4:2:0
}

TEST(ToolY4mHeader, EveryPlanar420ChromaTagIsAccepted) {
    for (const char* tag : {"C420jpeg", "C420paldv", "C420mpeg2", "C420"})
        EXPECT_EQ(ParseY4mHeader(std::string("YUV4MPEG2 W8 H8 ") + tag, "x").chroma, std::string(tag + 1));
}

TEST(ToolY4mHeader, OtherChromaIsRefusedByName) {
    for (const char* tag : {"C444", "C422", "C411", "Cmono", "C420p10", "C444alpha", "Cfoo"}) {
        const std::string why = ErrorOf(std::string("YUV4MPEG2 W8 H8 ") + tag);
        EXPECT_NE(why.find(std::string("'") + tag + "'"), std::string::npos) << why;
        EXPECT_NE(why.find("'t.y4m'"), std::string::npos) << why;
    }
}

TEST(ToolY4mHeader, MalformedHeadersAreRefused) {
    for (const char* line : {"", "YUV4MPEG W8 H8", "YUV4MPEG2W8 H8", "YUV4MPEG2 W8", "YUV4MPEG2 H8",
                             "YUV4MPEG2 W0 H8", "YUV4MPEG2 Wx H8", "YUV4MPEG2 W8 H8 Fx", "YUV4MPEG2 W8 H8 F25",
                             "YUV4MPEG2 W8 H8 Iq", "YUV4MPEG2 W8 H8 A1", "YUV4MPEG2 W8  H8",
                             "YUV4MPEG2 W8 H8 ", "YUV4MPEG2 W8 H8 Z1", "YUV4MPEG2 W8 H99999"}) {
        const std::string why = ErrorOf(line);
        EXPECT_NE(why.find("malformed Y4M header in 't.y4m'"), std::string::npos) << line << ": " << why;
    }
}

TEST(ToolY4mHeader, OddSizesAreRefused) {
    const std::string why = ErrorOf("YUV4MPEG2 W7 H8");
    EXPECT_NE(why.find("unsupported Y4M frame size 7x8 in 't.y4m'"), std::string::npos) << why;
}

TEST(ToolY4mHeader, FormatsAHeaderThatParsesBack) {
    Y4mHeader h;
    h.size = {176, 144};
    h.rate = {30000, 1001};
    h.interlace = 'p';
    h.aspect = "1:1";
    const std::string line = FormatY4mHeader(h);
    EXPECT_EQ(line, "YUV4MPEG2 W176 H144 F30000:1001 Ip A1:1 C420jpeg\n");
    const Y4mHeader back = ParseY4mHeader(line.substr(0, line.size() - 1), "x");
    EXPECT_EQ(back.size, h.size);
    EXPECT_EQ(back.rate.num, 30000);
}

TEST(ToolY4mSource, ReadsFramesUntilTheEnd) {
    TempDir dir;
    const auto a = Frame(24, 1), b = Frame(24, 2);
    pixmoor_test::WriteBytes(dir / "in.y4m", pixmoor_test::Concat(pixmoor_test::Concat(
        Bytes("YUV4MPEG2 W4 H4 F25:1\nFRAME\n"), a), pixmoor_test::Concat(Bytes("FRAME Ixyz\n"), b)));
    InputStream input(dir / "in.y4m");
    Y4mFrameSource source(input);
    EXPECT_EQ(source.frameBytes(), 24);
    std::vector<uint8_t> frame(24);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
    EXPECT_EQ(frame, a);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
    EXPECT_EQ(frame, b);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::End);
}

TEST(ToolY4mSource, TruncatedFrameReportsItsBytes) {
    TempDir dir;
    auto bytes = pixmoor_test::Concat(Bytes("YUV4MPEG2 W4 H4\nFRAME\n"), Frame(24, 1));
    bytes = pixmoor_test::Concat(bytes, Bytes("FRAME\n"));
    bytes = pixmoor_test::Concat(bytes, Frame(10, 3));
    pixmoor_test::WriteBytes(dir / "in.y4m", bytes);
    InputStream input(dir / "in.y4m");
    Y4mFrameSource source(input);
    std::vector<uint8_t> frame(24);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
    const ReadResult cut = source.Read(frame.data());
    EXPECT_EQ(cut.outcome, ReadResult::Truncated);
    EXPECT_EQ(cut.bytes, 10);
}

TEST(ToolY4mSource, InputEndingInsideAMarkerIsATruncatedFrame) {
    for (const char* tail : {"F", "FRAM", "FRAME", "FRAME Ixx"}) {
        TempDir dir;
        pixmoor_test::WriteBytes(dir / "in.y4m", Bytes(std::string("YUV4MPEG2 W4 H4\n") + tail));
        InputStream input(dir / "in.y4m");
        Y4mFrameSource source(input);
        std::vector<uint8_t> frame(24);
        const ReadResult cut = source.Read(frame.data());
        EXPECT_EQ(cut.outcome, ReadResult::Truncated) << tail;
        EXPECT_EQ(cut.bytes, 0) << tail;
    }
}

TEST(ToolY4mSource, BadFrameMarkerIsAnError) {
    for (const char* marker : {"FRAMX\n", "frame\n", "FRAMES\n", "FRAM\n", "\n", "XFRAME"}) {
        TempDir dir;
        pixmoor_test::WriteBytes(dir / "in.y4m", pixmoor_test::Concat(pixmoor_test::Concat(
            Bytes("YUV4MPEG2 W4 H4\nFRAME\n"), Frame(24, 1)), Bytes(marker)));
        InputStream input(dir / "in.y4m");
        Y4mFrameSource source(input);
        std::vector<uint8_t> frame(24);
        EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
        try {
            source.Read(frame.data());
            ADD_FAILURE() << "accepted marker " << marker;
        } catch (const ToolError& e) {
            EXPECT_NE(std::string(e.what()).find("bad Y4M frame marker before frame 2"), std::string::npos)
                << e.what();
        }
    }
}

TEST(ToolY4mSource, EmptyOrHeaderlessInputIsMalformed) {
    for (const char* text : {"", "YUV4MPEG2 W4 H4", "I420 data"}) {
        TempDir dir;
        pixmoor_test::WriteText(dir / "in.y4m", text);
        InputStream input(dir / "in.y4m");
        try {
            Y4mFrameSource source(input);
            ADD_FAILURE() << "accepted '" << text << "'";
        } catch (const ToolError& e) {
            EXPECT_NE(std::string(e.what()).find("malformed Y4M header"), std::string::npos) << e.what();
        }
    }
}

TEST(ToolY4mSink, WritesHeaderAndMarkedFrames) {
    TempDir dir;
    Y4mHeader h;
    h.size = {4, 2};
    {
        OutputFile out(dir / "o.y4m");
        Y4mSink sink(out, h);
        const auto f = Frame(12, 5);
        sink.Write(f.data());
        sink.Write(f.data());
        sink.Commit();
    }
    const auto bytes = pixmoor_test::ReadBytes(dir / "o.y4m");
    const std::string head = "YUV4MPEG2 W4 H2 F25:1 Ip A1:1 C420jpeg\n";
    ASSERT_EQ(bytes.size(), head.size() + 2 * (6 + 12));
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + long(head.size())), head);
    EXPECT_EQ(std::string(bytes.begin() + long(head.size()), bytes.begin() + long(head.size()) + 6), "FRAME\n");

    // What the sink wrote reads back frame for frame.
    InputStream input(dir / "o.y4m");
    Y4mFrameSource source(input);
    std::vector<uint8_t> frame(12);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
    EXPECT_EQ(frame, Frame(12, 5));
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::End);
}

TEST(ToolRawSource, KeepsTruncatedLastFrameOut) {
    TempDir dir;
    pixmoor_test::WriteBytes(dir / "in.raw", pixmoor_test::Concat(Frame(16, 1), Frame(5, 2)));
    InputStream input(dir / "in.raw");
    RawFrameSource source(input, 16);
    std::vector<uint8_t> frame(16);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
    EXPECT_EQ(frame, Frame(16, 1));
    const ReadResult cut = source.Read(frame.data());
    EXPECT_EQ(cut.outcome, ReadResult::Truncated);
    EXPECT_EQ(cut.bytes, 5);
}

TEST(ToolRawSource, ExactFramesEndCleanly) {
    TempDir dir;
    pixmoor_test::WriteBytes(dir / "in.raw", Frame(32, 1));
    InputStream input(dir / "in.raw");
    RawFrameSource source(input, 16);
    std::vector<uint8_t> frame(16);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::Frame);
    EXPECT_EQ(source.Read(frame.data()).outcome, ReadResult::End);
}

TEST(ToolInputStream, MissingAndUnreadableInputs) {
    TempDir dir;
    try {
        InputStream input(dir / "missing.yuv");
        ADD_FAILURE();
    } catch (const ToolError& e) {
        EXPECT_NE(std::string(e.what()).find("cannot open input"), std::string::npos);
        EXPECT_NE(std::string(e.what()).find("missing.yuv"), std::string::npos);
    }
    try {
        InputStream input(dir.path().string());
        ADD_FAILURE();
    } catch (const ToolError& e) {
        EXPECT_NE(std::string(e.what()).find("is a directory"), std::string::npos);
    }
}

TEST(ToolInputStream, PeekDoesNotConsume) {
    TempDir dir;
    pixmoor_test::WriteText(dir / "a", "YUV4MPEG2 rest");
    InputStream input(dir / "a");
    EXPECT_TRUE(input.StartsWith("YUV4MPEG2"));
    EXPECT_FALSE(input.StartsWith("YUV4MPEG3"));
    std::string line;
    EXPECT_FALSE(input.ReadLine(line, 100, "line"));
    EXPECT_EQ(line, "YUV4MPEG2 rest");
}
