// Makes a test frame in memory (colour bars over a luma ramp and a chroma
// sweep, packed "YUY2" at 320 by 240), converts it through several colour
// transforms (packed, planar and RGB sources) and writes each RGB result as
// a PNG file.
//
//     convert_frames [output-folder]      (default: pixmoor-demo)
#include <png.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <pixmoor/pixmoor.h>

namespace {

constexpr int kWidth = 320;
constexpr int kHeight = 240;

using Bytes = std::vector<uint8_t>;
using Orient = CColorXForm::EOrientation;

std::string CodeName(uint32_t fcc) {
    std::string s;
    for (int i = 0; i < 4; ++i) s += static_cast<char>((fcc >> (8 * i)) & 0xFF);
    return s;
}

uint8_t ToByte(double v) { return static_cast<uint8_t>(v < 0 ? 0 : v > 255 ? 255 : std::lround(v)); }

// Y, U and V that this library's packed-YUV arithmetic turns (near enough)
// into the given blue, green and red.  That arithmetic takes 16 off luma with
// no gain, puts 1167/1024 of U into blue and 2081/1024 of V into red, and
// takes (595 U + 403 V) / 1024 off green; solving it for Y gives the weights
// below.
void YuvFor(int blue, int green, int red, uint8_t& y, uint8_t& u, uint8_t& v) {
    const double luma = 0.587 * green + 0.299 * blue + 0.114 * red;
    y = ToByte(luma + 16);
    u = ToByte((blue - luma) * 1024.0 / 1167.0 + 128);
    v = ToByte((red - luma) * 1024.0 / 2081.0 + 128);
}

// The test frame in "YUY2": eight colour bars on the upper two thirds, a luma
// ramp below them and a chroma sweep at the bottom.
Bytes MakeTestFrameYUY2() {
    static const int kBars[8][3] = {  // blue, green, red at 75 %
        {191, 191, 191}, {0, 191, 191}, {191, 191, 0}, {0, 191, 0},
        {191, 0, 191},   {0, 0, 191},   {191, 0, 0},   {0, 0, 0}};
    Bytes frame(2 * kWidth * kHeight);
    for (int row = 0; row < kHeight; ++row) {
        for (int pair = 0; pair < kWidth / 2; ++pair) {
            const int x = 2 * pair;
            uint8_t* p = &frame[2 * kWidth * row + 4 * pair];
            uint8_t y0, y1, u, v;
            if (row < kHeight * 2 / 3) {
                const int* bar = kBars[x * 8 / kWidth];
                YuvFor(bar[0], bar[1], bar[2], y0, u, v);
                y1 = y0;
            } else if (row < kHeight * 5 / 6) {
                y0 = static_cast<uint8_t>(16 + x * 239 / kWidth);
                y1 = static_cast<uint8_t>(16 + (x + 1) * 239 / kWidth);
                u = v = 128;
            } else {
                y0 = y1 = 140;
                u = static_cast<uint8_t>(x * 255 / kWidth);
                v = static_cast<uint8_t>(255 - u);
            }
            p[0] = y0, p[1] = u, p[2] = y1, p[3] = v;
        }
    }
    return frame;
}

// "UYVY" holds the same pairs in another byte order.
Bytes RepackYUY2AsUYVY(const Bytes& yuy2) {
    Bytes out(yuy2.size());
    for (size_t i = 0; i < yuy2.size(); i += 4) {
        out[i] = yuy2[i + 1];
        out[i + 1] = yuy2[i];
        out[i + 2] = yuy2[i + 3];
        out[i + 3] = yuy2[i + 2];
    }
    return out;
}

// "YV12" is "I420" with the two chroma planes the other way round.
Bytes SwapChromaPlanes(const Bytes& planar) {
    const size_t ySize = kWidth * kHeight, chroma = ySize / 4;
    Bytes out(planar.begin(), planar.begin() + ySize);
    out.insert(out.end(), planar.begin() + ySize + chroma, planar.end());
    out.insert(out.end(), planar.begin() + ySize, planar.begin() + ySize + chroma);
    return out;
}

// "I420" back to "YUY2", each chroma sample serving both rows of its pair,
// so that a planar result can be looked at through a packed road.
Bytes RepackI420AsYUY2(const Bytes& i420) {
    const uint8_t* yPlane = i420.data();
    const uint8_t* uPlane = yPlane + kWidth * kHeight;
    const uint8_t* vPlane = uPlane + kWidth * kHeight / 4;
    Bytes out(2 * kWidth * kHeight);
    for (int row = 0; row < kHeight; ++row)
        for (int pair = 0; pair < kWidth / 2; ++pair) {
            uint8_t* p = &out[2 * kWidth * row + 4 * pair];
            const int c = (row / 2) * (kWidth / 2) + pair;
            p[0] = yPlane[kWidth * row + 2 * pair];
            p[1] = uPlane[c];
            p[2] = yPlane[kWidth * row + 2 * pair + 1];
            p[3] = vPlane[c];
        }
    return out;
}

// Runs one transform over a whole frame; a pitch of 0 asks for the default
// where the road has one.
Bytes Convert(uint32_t src, uint32_t dest, const Bytes& frame, Orient srcOrient, Orient destOrient,
              uint32_t destPitch = 0) {
    std::unique_ptr<CColorXForm> xform(CColorXForm::CreateInstance(src, dest));
    if (!xform || !xform->Init(AbsSIZE(kWidth, kHeight), srcOrient, destOrient)) {
        std::fprintf(stderr, "no road from %s to %s\n", CodeName(src).c_str(), CodeName(dest).c_str());
        return {};
    }
    Bytes out(xform->DestBufferSize());
    xform->XForm(frame.data(), out.data(), destPitch);
    return out;
}

// One pixel of an RGB frame as red, green, blue bytes.
using PixelReader = std::function<void(const uint8_t* at, uint8_t* rgb)>;

uint16_t Word(const uint8_t* at) { return static_cast<uint16_t>(at[0] | (at[1] << 8)); }
uint8_t Widen5(unsigned field) { return static_cast<uint8_t>((field << 3) | (field >> 2)); }
uint8_t Widen6(unsigned field) { return static_cast<uint8_t>((field << 2) | (field >> 4)); }

struct RgbFormat {
    int bytesPerPixel;
    PixelReader read;
};

const RgbFormat kBgr24{3, [](const uint8_t* p, uint8_t* rgb) { rgb[0] = p[2], rgb[1] = p[1], rgb[2] = p[0]; }};
const RgbFormat kBgr32{4, [](const uint8_t* p, uint8_t* rgb) { rgb[0] = p[2], rgb[1] = p[1], rgb[2] = p[0]; }};
const RgbFormat kRgb565{2, [](const uint8_t* p, uint8_t* rgb) {
                            const unsigned w = Word(p);
                            rgb[0] = Widen5(w >> 11), rgb[1] = Widen6((w >> 5) & 63), rgb[2] = Widen5(w & 31);
                        }};
const RgbFormat kRgb555{2, [](const uint8_t* p, uint8_t* rgb) {
                            const unsigned w = Word(p);
                            rgb[0] = Widen5((w >> 10) & 31), rgb[1] = Widen5((w >> 5) & 31), rgb[2] = Widen5(w & 31);
                        }};
// The packed YUV roads store their 5-5-5 fields one bit higher (15..11,
// 10..6, 5..1), so their "RG55" frames are read this way.
const RgbFormat kRgb555High{2, [](const uint8_t* p, uint8_t* rgb) {
                                const unsigned w = Word(p);
                                rgb[0] = Widen5(w >> 11), rgb[1] = Widen5((w >> 6) & 31), rgb[2] = Widen5((w >> 1) & 31);
                            }};

// Writes an RGB frame as PNG; `bottomUp` frames have their last row first.
bool WritePng(const std::string& path, const Bytes& frame, const RgbFormat& format, bool bottomUp) {
    const int line = (format.bytesPerPixel * kWidth + 3) / 4 * 4;
    Bytes rgb(3 * kWidth * kHeight);
    for (int row = 0; row < kHeight; ++row) {
        const int srcRow = bottomUp ? kHeight - 1 - row : row;
        for (int x = 0; x < kWidth; ++x)
            format.read(&frame[line * srcRow + format.bytesPerPixel * x], &rgb[3 * (kWidth * row + x)]);
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = kWidth;
    image.height = kHeight;
    image.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), 0, nullptr)) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), image.message);
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const std::filesystem::path folder = argc > 1 ? argv[1] : "pixmoor-demo";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        std::fprintf(stderr, "%s: %s\n", folder.string().c_str(), error.message().c_str());
        return 1;
    }

    const Orient kDefault = CColorXForm::OrientDefault;
    const Orient kTopDown = CColorXForm::OrientTopDown;
    const Orient kBottomUp = CColorXForm::OrientBottomUp;
    int written = 0, failed = 0;
    auto save = [&](const std::string& name, const Bytes& frame, const RgbFormat& format, bool bottomUp,
                    const std::string& road) {
        const std::string path = (folder / name).string();
        if (!frame.empty() && WritePng(path, frame, format, bottomUp)) {
            std::printf("wrote %s  (%dx%d, %s)\n", path.c_str(), kWidth, kHeight, road.c_str());
            ++written;
        } else {
            ++failed;
        }
    };

    const Bytes yuy2 = MakeTestFrameYUY2();
    const Bytes uyvy = RepackYUY2AsUYVY(yuy2);

    // Packed 4:2:2 to each RGB format.  With the default orientations the
    // 24- and 32-bit results come out bottom-up, as RGB frames naturally are;
    // the 16-bit roads do not turn the picture over.
    const Bytes rg24 = Convert(FCC_YUY2, FCC_RG24, yuy2, kDefault, kDefault);
    save("yuy2-to-rg24.png", rg24, kBgr24, true, "YUY2 -> RG24");
    save("yuy2-to-rg32.png", Convert(FCC_YUY2, FCC_RG32, yuy2, kDefault, kDefault), kBgr32, true, "YUY2 -> RG32");
    save("yuy2-to-rg55.png", Convert(FCC_YUY2, FCC_RG55, yuy2, kDefault, kDefault), kRgb555High, false,
         "YUY2 -> RG55");
    save("yuy2-to-rg56.png", Convert(FCC_YUY2, FCC_RG56, yuy2, kDefault, kDefault), kRgb565, false, "YUY2 -> RG56");
    save("uyvy-to-rg24.png", Convert(FCC_UYVY, FCC_RG24, uyvy, kDefault, kDefault), kBgr24, true, "UYVY -> RG24");
    save("uyvy-to-rg32.png", Convert(FCC_UYVY, FCC_RG32, uyvy, kTopDown, kTopDown), kBgr32, false,
         "UYVY -> RG32, top-down");

    // RGB to RGB, from the bottom-up "RG24" frame above.
    save("rg24-to-rg32.png", Convert(FCC_RG24, FCC_RG32, rg24, kDefault, kDefault), kBgr32, true, "RG24 -> RG32");
    save("rg24-to-rg55.png", Convert(FCC_RG24, FCC_RG55, rg24, kDefault, kDefault), kRgb555, true, "RG24 -> RG55");
    save("rg24-to-rg56.png", Convert(FCC_RG24, FCC_RG56, rg24, kDefault, kDefault), kRgb565, true, "RG24 -> RG56");
    // A copy that turns the picture over needs its pitch spelled out: 0 would
    // lay every row on the first one.
    const uint32_t rg24Pitch = static_cast<uint32_t>(RGBLineSize(kWidth, 24));
    save("rg24-flipped.png", Convert(FCC_RG24, FCC_RG24, rg24, kBottomUp, kTopDown, rg24Pitch), kBgr24, false,
         "RG24 -> RG24, turned top-down");

    // Into "I420", shown through the packed road once more.
    const Bytes fromYuy2 = Convert(FCC_YUY2, FCC_I420, yuy2, kDefault, kDefault);
    const Bytes fromUyvy = Convert(FCC_UYVY, FCC_I420, uyvy, kDefault, kDefault);
    const Bytes fromYv12 = fromYuy2.empty() ? Bytes() : Convert(FCC_YV12, FCC_I420, SwapChromaPlanes(fromYuy2),
                                                                kDefault, kDefault);
    const struct {
        const char* stem;
        uint32_t code;
        const Bytes* frame;
    } planar[] = {{"yuy2", FCC_YUY2, &fromYuy2}, {"uyvy", FCC_UYVY, &fromUyvy}, {"yv12", FCC_YV12, &fromYv12}};
    for (const auto& p : planar) {
        if (p.frame->empty()) {
            ++failed;
            continue;
        }
        const Bytes shown = Convert(FCC_YUY2, FCC_RG24, RepackI420AsYUY2(*p.frame), kTopDown, kTopDown);
        save(std::string(p.stem) + "-to-i420.png", shown, kBgr24, false,
             CodeName(p.code) + " -> I420, shown as RG24");
    }

    // Planar 4:2:0 to each RGB format, from the "I420" picture made of the
    // packed frame.  These roads run on the library's full-range colour
    // model (no 16 taken off luma), so the bars come out a little brighter
    // than through the packed roads.  Only "RG24" turns the picture over by
    // default; the other three keep the rows in source order and want their
    // pitch spelled out: 0 would start every "RG32" row a byte late and lay
    // all 16-bit rows on the first one.
    if (!fromYuy2.empty()) {
        const auto pitch = [](int bits) { return static_cast<uint32_t>(RGBLineSize(kWidth, bits)); };
        save("i420-to-rg24.png", Convert(FCC_I420, FCC_RG24, fromYuy2, kDefault, kDefault), kBgr24, true,
             "I420 -> RG24");
        save("i420-to-rg32.png", Convert(FCC_I420, FCC_RG32, fromYuy2, kDefault, kDefault, pitch(32)), kBgr32, false,
             "I420 -> RG32");
        save("i420-to-rg55.png", Convert(FCC_I420, FCC_RG55, fromYuy2, kDefault, kDefault, pitch(16)), kRgb555, false,
             "I420 -> RG55");
        save("i420-to-rg56.png", Convert(FCC_I420, FCC_RG56, fromYuy2, kDefault, kDefault, pitch(16)), kRgb565, false,
             "I420 -> RG56");
        save("yv12-to-rg24.png", Convert(FCC_YV12, FCC_RG24, SwapChromaPlanes(fromYuy2), kDefault, kDefault), kBgr24,
             true, "YV12 -> RG24");
    } else {
        failed += 5;
    }

    // "RG24" to "I420" reads the bottom-up frame last row first, and the
    // planar road turns it back over on the way to "RG24".
    const Bytes fromRg24 = Convert(FCC_RG24, FCC_I420, rg24, kDefault, kDefault);
    save("rg24-to-i420.png", fromRg24.empty() ? Bytes() : Convert(FCC_I420, FCC_RG24, fromRg24, kDefault, kDefault),
         kBgr24, true, "RG24 -> I420, shown as RG24");

    std::printf("%d files written to %s\n", written, folder.string().c_str());
    return failed == 0 ? 0 : 1;
}
