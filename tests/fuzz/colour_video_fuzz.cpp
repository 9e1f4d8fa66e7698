// Fuzzes the other colour members, 4:4:4, 4:2:2 and 4:2:0 to 16-bit RGB, in
// every tier and under their plain names, with the same arguments as the
// 4:2:0 harness: null pointers, arrays and planes, sizes and steps below 1,
// odd sizes, short steps, any alignment, planes of exactly their lines.
// Every call must return the status of the first failing check; a rejected
// call writes nothing.  Accepted calls: 4:4:4 members give the colour
// suite's per-pixel model of their tier (byte 3 of a 4-byte destination
// pixel untouched), the 16-bit members give the channel values of the
// 4:2:0 inverse model of their tier cut into their words (a model of their
// own narrow form for a6 and w7), and the 4:2:2 members give in m6 and under
// their plain names exactly what px gives.
#include <pixmoor/pixmoor.h>

#include "image_planes.h"
#include "tests/primitives/colour/yuv420_model.h"
#include "tests/primitives/colour/yuv444_model.h"

using namespace pixmoor_fuzz;

namespace {

// How one side of a member lies in memory.
enum class Side {
    Packed3,     // 3 bytes a pixel
    Packed4,     // 4 bytes a pixel, byte 3 neither read nor written
    Packed422,   // Y0 U Y1 V, 2 bytes a pixel
    Words,       // one 16-bit word a pixel
    Full,        // three full-size planes
    Chroma422,   // Y full, U and V of ceil(width/2) samples, full height
    Chroma420,   // Y full, U and V of ceil(width/2) samples, ceil(height/2) lines
};
enum class Steps { One, Three, Derived };  // per side
enum class Group { Yuv444, Yuv422, Rgb16 };

using Entry = PrimStatus (*)(const ImageCall&);

struct Member {
    const char* name;
    Group group;
    int index;  // member of its group's model
    Side src, dst;
    Steps srcSteps, dstSteps;
    Entry entries[5];
};

bool IsPlanes(Side s) { return s == Side::Full || s == Side::Chroma422 || s == Side::Chroma420; }


using S = Side;
using St = Steps;
const Member kMembers[] = {
    {"ImgRGBToYUV", Group::Yuv444, yuv444_model::kRgbToYuv, S::Packed3, S::Packed3, St::One, St::One,
     TIERS(PACKED_TO_PACKED, ImgRGBToYUV)},
    {"ImgRGBAToYUVA", Group::Yuv444, yuv444_model::kRgbaToYuva, S::Packed4, S::Packed4, St::One, St::One,
     TIERS(PACKED_TO_PACKED, ImgRGBAToYUVA)},
    {"ImgRGBPlanesToYUVPlanes", Group::Yuv444, yuv444_model::kRgbPlanesToYuvPlanes, S::Full, S::Full, St::One,
     St::One, TIERS(PLANES_TO_PLANES_ONE, ImgRGBPlanesToYUVPlanes)},
    {"ImgRGBToYUVPlanes", Group::Yuv444, yuv444_model::kRgbToYuvPlanes, S::Packed3, S::Full, St::One, St::One,
     TIERS(PACKED_TO_PLANES_ONE, ImgRGBToYUVPlanes)},
    {"ImgYUVToRGB", Group::Yuv444, yuv444_model::kYuvToRgb, S::Packed3, S::Packed3, St::One, St::One,
     TIERS(PACKED_TO_PACKED, ImgYUVToRGB)},
    {"ImgYUVAToRGBA", Group::Yuv444, yuv444_model::kYuvaToRgba, S::Packed4, S::Packed4, St::One, St::One,
     TIERS(PACKED_TO_PACKED, ImgYUVAToRGBA)},
    {"ImgYUVPlanesToRGBPlanes", Group::Yuv444, yuv444_model::kYuvPlanesToRgbPlanes, S::Full, S::Full, St::One,
     St::One, TIERS(PLANES_TO_PLANES_ONE, ImgYUVPlanesToRGBPlanes)},
    {"ImgYUVPlanesToRGB", Group::Yuv444, yuv444_model::kYuvPlanesToRgb, S::Full, S::Packed3, St::One, St::One,
     TIERS(PLANES_ONE_TO_PACKED, ImgYUVPlanesToRGB)},
    {"ImgYUV422ToRGB", Group::Yuv422, 0, S::Packed422, S::Packed3, St::One, St::One,
     TIERS(PACKED_TO_PACKED, ImgYUV422ToRGB)},
    {"ImgRGBToYUV422Planes_Step", Group::Yuv422, 0, S::Packed3, S::Chroma422, St::One, St::Three,
     TIERS(PACKED_TO_PLANES_STEPS, ImgRGBToYUV422Planes_Step)},
    {"ImgRGBToYUV422Planes", Group::Yuv422, 0, S::Packed3, S::Chroma422, St::Derived, St::Derived,
     TIERS(PACKED_TO_PLANES_COMPACT, ImgRGBToYUV422Planes)},
    {"ImgYUV422PlanesToRGB_Step", Group::Yuv422, 0, S::Chroma422, S::Packed3, St::Three, St::One,
     TIERS(PLANES_STEPS_TO_PACKED, ImgYUV422PlanesToRGB_Step)},
    {"ImgYUV422PlanesToRGB", Group::Yuv422, 0, S::Chroma422, S::Packed3, St::Derived, St::Derived,
     TIERS(PLANES_TO_PACKED_COMPACT, ImgYUV422PlanesToRGB)},
    {"ImgRGBPlanesToYUV422Planes_Step", Group::Yuv422, 0, S::Full, S::Chroma422, St::One, St::Three,
     TIERS(PLANES_ONE_TO_PLANES_STEPS, ImgRGBPlanesToYUV422Planes_Step)},
    {"ImgRGBPlanesToYUV422Planes", Group::Yuv422, 0, S::Full, S::Chroma422, St::Derived, St::Derived,
     TIERS(PLANES_TO_PLANES_COMPACT, ImgRGBPlanesToYUV422Planes)},
    {"ImgYUV422PlanesToRGBPlanes_Step", Group::Yuv422, 0, S::Chroma422, S::Full, St::Three, St::One,
     TIERS(PLANES_STEPS_TO_PLANES_ONE, ImgYUV422PlanesToRGBPlanes_Step)},
    {"ImgYUV422PlanesToRGBPlanes", Group::Yuv422, 0, S::Chroma422, S::Full, St::Derived, St::Derived,
     TIERS(PLANES_TO_PLANES_COMPACT, ImgYUV422PlanesToRGBPlanes)},
    {"ImgYUV420ToRGB565", Group::Rgb16, 0, S::Chroma420, S::Words, St::Three, St::One,
     TIERS(PLANES_STEPS_TO_WORDS, ImgYUV420ToRGB565)},
    {"ImgYUV420ToBGR565", Group::Rgb16, 1, S::Chroma420, S::Words, St::Three, St::One,
     TIERS(PLANES_STEPS_TO_WORDS, ImgYUV420ToBGR565)},
    {"ImgYUV420ToRGB555", Group::Rgb16, 2, S::Chroma420, S::Words, St::Three, St::One,
     TIERS(PLANES_STEPS_TO_WORDS, ImgYUV420ToRGB555)},
    {"ImgYUV420ToBGR555", Group::Rgb16, 3, S::Chroma420, S::Words, St::Three, St::One,
     TIERS(PLANES_STEPS_TO_WORDS, ImgYUV420ToBGR555)},
    {"ImgYUV420ToRGB444", Group::Rgb16, 4, S::Chroma420, S::Words, St::Three, St::One,
     TIERS(PLANES_STEPS_TO_WORDS, ImgYUV420ToRGB444)},
    {"ImgYUV420ToBGR444", Group::Rgb16, 5, S::Chroma420, S::Words, St::Three, St::One,
     TIERS(PLANES_STEPS_TO_WORDS, ImgYUV420ToBGR444)},
};
constexpr uint32_t kMemberCount = sizeof(kMembers) / sizeof(kMembers[0]);
const char* const kEntryNames[5] = {"plain", "px", "m6", "a6", "w7"};

// The planes of one side, with their line bytes and line counts.
struct Image {
    Side side;
    int count = 1;
    Plane planes[3];
};

void Shape(Image& image, Side side, int32_t w, int32_t h) {
    image.side = side;
    const int32_t cw = w / 2 + (w & 1), ch = h / 2 + (h & 1);
    image.count = IsPlanes(side) ? 3 : 1;
    for (int p = 0; p < image.count; ++p) {
        Plane& plane = image.planes[p];
        plane.lines = h;
        switch (side) {
            case Side::Packed3: plane.lineBytes = 3 * w; break;
            case Side::Packed4: plane.lineBytes = 4 * w; break;
            case Side::Packed422:
            case Side::Words: plane.lineBytes = 2 * w; break;
            case Side::Full: plane.lineBytes = w; break;
            case Side::Chroma422: plane.lineBytes = p == 0 ? w : cw; break;
            case Side::Chroma420:
                plane.lineBytes = p == 0 ? w : cw;
                plane.lines = p == 0 ? h : ch;
                break;
        }
    }
}

void ReadSteps(FuzzInput& in, Image& image, Steps steps) {
    if (steps == Steps::Derived) {
        for (int p = 0; p < image.count; ++p) image.planes[p].step = image.planes[p].lineBytes;
        return;
    }
    for (int p = 0; p < image.count; ++p)
        image.planes[p].step = steps == Steps::One && p > 0 ? image.planes[0].step : ReadStep(in, image.planes[p].lineBytes);
}

// Words of the 16-bit members: the top bits of each channel, red high in the
// RGB orders and low in the BGR orders.
uint16_t Word(int layout, int r, int g, int b) {
    const bool redHigh = layout % 2 == 0;
    const int hi = redHigh ? r : b, lo = redHigh ? b : r;
    switch (layout / 2) {
        case 0: return static_cast<uint16_t>((hi >> 3) << 11 | (g >> 2) << 5 | lo >> 3);
        case 1: return static_cast<uint16_t>((hi >> 3) << 10 | (g >> 3) << 5 | lo >> 3);
        default: return static_cast<uint16_t>((hi >> 4) << 8 | (g >> 4) << 4 | lo >> 4);
    }
}

int Saturate(int v) { return v < 0 ? 0 : v > 255 ? 255 : v; }

// The narrow form of the 16-bit members in a6 and w7.
yuv420_model::Pixel NarrowRgb16(int y, int u, int v) {
    using yuv420_model::MulHi;
    const int yy = 16 * y, uu = 128 * (u - 128), vv = 128 * (v - 128);
    return {Saturate((yy + MulHi(vv, 9338)) >> 4), Saturate((yy - MulHi(vv, 4759) - MulHi(uu, 3227)) >> 4),
            Saturate((yy + MulHi(uu, 16646)) >> 4)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput in(data, size);
    const Member& m = kMembers[in.Below(kMemberCount)];
    const uint32_t entry = in.Below(5);
    const int32_t width = ReadImageLength(in, 70), height = ReadImageLength(in, 24);
    const uint8_t nulls = in.Byte();
    const bool sized = width >= 1 && height >= 1;
    const int32_t w = sized ? width : 1, h = sized ? height : 1;

    Image src, dst;
    Shape(src, m.src, w, h);
    Shape(dst, m.dst, w, h);
    ReadSteps(in, src, m.srcSteps);
    ReadSteps(in, dst, m.dstSteps);

    // Outer pointers: packed buffers, plane arrays and step arrays; then the
    // size; then each plane pointer, source first; then the steps.
    const bool nullSrcOuter = nulls == 0xF0, nullDstOuter = nulls == 0xF1;
    const bool nullSrcSteps = nulls == 0xF8 && m.srcSteps == Steps::Three;
    const bool nullDstSteps = nulls == 0xF9 && m.dstSteps == Steps::Three;
    int nullSrcPlane = nulls >= 0xF2 && nulls <= 0xF4 ? nulls - 0xF2 : -1;
    int nullDstPlane = nulls >= 0xF5 && nulls <= 0xF7 ? nulls - 0xF5 : -1;
    if (nullSrcPlane >= src.count) nullSrcPlane = -1;
    if (nullDstPlane >= dst.count) nullDstPlane = -1;
    const bool outer = nullSrcOuter || nullDstOuter || nullSrcSteps || nullDstSteps ||
                       (nullSrcPlane >= 0 && !IsPlanes(m.src)) || (nullDstPlane >= 0 && !IsPlanes(m.dst));
    const bool inner = (nullSrcPlane >= 0 && IsPlanes(m.src)) || (nullDstPlane >= 0 && IsPlanes(m.dst));
    bool badStep = false;
    for (int p = 0; p < src.count; ++p) badStep |= src.planes[p].step < 1;
    for (int p = 0; p < dst.count; ++p) badStep |= dst.planes[p].step < 1;
    const PrimStatus expected = outer    ? PrimStatusNullPointer
                                : !sized ? PrimStatusSizeError
                                : inner  ? PrimStatusNullPointer
                                : badStep ? PrimStatusStepError
                                          : PrimStatusOk;
    const bool accepted = expected == PrimStatusOk;

    for (int p = 0; p < src.count; ++p) {
        src.planes[p].Make(accepted, 0, in.Byte() % 16);
        in.Fill(src.planes[p].bytes->data(), src.planes[p].bytes->size());
        src.planes[p].before = src.planes[p].bytes->Contents();
    }
    for (int p = 0; p < dst.count; ++p) {
        // 16-bit words start on an even address, as a uint16_t pointer must.
        dst.planes[p].Make(accepted, 0, in.Byte() % 16 & (m.dst == Side::Words ? ~1u : ~0u));
        for (size_t i = 0; i < dst.planes[p].bytes->size(); ++i)
            dst.planes[p].bytes->data()[i] = static_cast<uint8_t>(i * 7 + 3 * p);
        dst.planes[p].before = dst.planes[p].bytes->Contents();
    }
    const uint8_t* srcPtrs[3] = {};
    uint8_t* dstPtrs[3] = {};
    int32_t srcSteps[3] = {}, dstSteps[3] = {};
    for (int p = 0; p < src.count; ++p) {
        srcPtrs[p] = p == nullSrcPlane ? nullptr : src.planes[p].bytes->data();
        srcSteps[p] = src.planes[p].step;
    }
    for (int p = 0; p < dst.count; ++p) {
        dstPtrs[p] = p == nullDstPlane ? nullptr : dst.planes[p].bytes->data();
        dstSteps[p] = dst.planes[p].step;
    }
    ImageCall call{};
    call.width = width, call.height = height;
    call.srcPacked = nullSrcOuter ? nullptr : srcPtrs[0];
    call.srcPlanes = nullSrcOuter ? nullptr : srcPtrs;
    call.srcStep = srcSteps[0];
    call.srcSteps = nullSrcSteps ? nullptr : srcSteps;
    call.dstPacked = nullDstOuter ? nullptr : dstPtrs[0];
    call.dstPlanes = nullDstOuter ? nullptr : dstPtrs;
    call.dstStep = dstSteps[0];
    call.dstSteps = nullDstSteps ? nullptr : dstSteps;

    const PrimStatus status = m.entries[entry](call);
    FUZZ_CHECK(status == expected, "%s %s %dx%d: status %d, expected %d", m.name, kEntryNames[entry], width, height,
               status, expected);
    for (int p = 0; p < src.count; ++p)
        FUZZ_CHECK(src.planes[p].bytes->Equals(src.planes[p].before), "%s %s changed its source", m.name,
                   kEntryNames[entry]);
    const bool writesNothing = !accepted || (m.group == Group::Rgb16 && (w == 1 || h == 1));
    if (writesNothing) {
        for (int p = 0; p < dst.count; ++p)
            FUZZ_CHECK(dst.planes[p].bytes->Equals(dst.planes[p].before), "%s %s wrote though it must not (status %d)",
                       m.name, kEntryNames[entry], status);
        return 0;
    }
    for (int p = 0; p < dst.count; ++p)
        if (dst.planes[p].Overlaps()) return 0;  // bounds only

    // The plain names run px: nothing in this program selects a tier.
    const int tier = entry == 0 ? 0 : static_cast<int>(entry) - 1;
    std::vector<std::vector<uint8_t>> want;
    for (int p = 0; p < dst.count; ++p) want.push_back(dst.planes[p].before);

    if (m.group == Group::Yuv422) {
        if (tier > 1) return 0;  // the vector tiers keep arithmetic of their own
        // m6 and the plain name are px's plain code: the same bytes.
        ImageCall again = call;
        std::vector<std::unique_ptr<ExactBuffer>> copies;
        uint8_t* copyPtrs[3] = {};
        for (int p = 0; p < dst.count; ++p) {
            copies.push_back(std::make_unique<ExactBuffer>(dst.planes[p].bytes->size(), 0));
            std::memcpy(copies.back()->data(), dst.planes[p].before.data(), dst.planes[p].before.size());
            copyPtrs[p] = copies.back()->data();
        }
        again.dstPacked = copyPtrs[0];
        again.dstPlanes = copyPtrs;
        FUZZ_CHECK(m.entries[1](again) == PrimStatusOk, "%s px", m.name);
        for (int p = 0; p < dst.count; ++p) want[p] = copies[p]->Contents();
    } else if (m.group == Group::Yuv444) {
        const auto member = static_cast<yuv444_model::Member>(m.index);
        const int pixelBytes = m.src == Side::Packed4 ? 4 : 3, outBytes = m.dst == Side::Packed4 ? 4 : 3;
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) {
                yuv444_model::Trio t;
                for (int c = 0; c < 3; ++c)
                    t.s[c] = IsPlanes(m.src) ? src.planes[c].At(x, y) : src.planes[0].At(x * pixelBytes + c, y);
                const yuv444_model::Trio out = yuv444_model::Model(member, tier, t, x, w);
                for (int c = 0; c < 3; ++c) {
                    if (IsPlanes(m.dst))
                        want[c][static_cast<size_t>(y) * dst.planes[c].step + x] = static_cast<uint8_t>(out.s[c]);
                    else
                        want[0][static_cast<size_t>(y) * dst.planes[0].step + x * outBytes + c] =
                            static_cast<uint8_t>(out.s[c]);
                }
            }
    } else {
        yuv420_model::YuvFrame frame = yuv420_model::YuvFrame::Make(w, h);
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) frame.Y(x, y) = src.planes[0].At(x, y);
        for (int32_t y = 0; y < frame.chromaHeight; ++y)
            for (int32_t x = 0; x < frame.chromaWidth; ++x)
                frame.U(x, y) = src.planes[1].At(x, y), frame.V(x, y) = src.planes[2].At(x, y);
        const int32_t wordStep = dst.planes[0].step & ~1;  // counted in whole words
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) {
                const bool kernel = x < 2 * (w / 2) && y < 2 * (h / 2);
                const yuv420_model::Pixel px =
                    kernel && tier >= 2 ? NarrowRgb16(frame.Y(x, y), frame.U(x / 2, y / 2), frame.V(x / 2, y / 2))
                                        : yuv420_model::InversePixel(frame, yuv420_model::kPx, false, x, y);
                const uint16_t word = Word(m.index, px.r, px.g, px.b);
                const size_t at = static_cast<size_t>(y) * wordStep + 2 * static_cast<size_t>(x);
                want[0][at] = static_cast<uint8_t>(word), want[0][at + 1] = static_cast<uint8_t>(word >> 8);
            }
    }
    for (int p = 0; p < dst.count; ++p) {
        const long at = FirstDifference(want[p].data(), dst.planes[p].bytes->data(), want[p].size());
        FUZZ_CHECK(at < 0, "%s %s %dx%d plane %d: byte %ld is %d, model %d", m.name, kEntryNames[entry], w, h, p, at,
                   dst.planes[p].bytes->data()[at], want[p][at]);
    }
    return 0;
}
