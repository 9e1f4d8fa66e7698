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

enum class Group { Yuv444, Yuv422, Rgb16 };

using Entry = PrimStatus (*)(const ImageCall&);

struct Member {
    const char* name;
    Group group;
    int index;  // member of its group's model
    Layout src, dst;
    Steps srcSteps, dstSteps;
    Entry entries[5];
};


// The sides of these members.
namespace S {
constexpr Layout Packed3 = Packed(3), Packed4 = Packed(4), Packed422 = Packed(2), Words = Packed(2);
constexpr Layout Full = kPlanesFull, Chroma422 = kPlanes422, Chroma420 = kPlanes420;
}  // namespace S
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
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    const Member& m = kMembers[in.Below(kMemberCount)];
    const uint32_t entry = in.Below(5);
    CheckedCall c;
    // 16-bit words start on an even address, as a uint16_t pointer must.
    PrepareCall(in, c, m.src, m.srcSteps, m.dst, m.dstSteps, false, 0, m.group == Group::Rgb16 ? 2 : 1);
    const int32_t w = c.w, h = c.h, width = c.call.width, height = c.call.height;
    const PrimStatus expected = c.expected;
    const bool accepted = c.accepted;
    Image& src = c.src;
    Image& dst = c.dst;
    const PrimStatus status = m.entries[entry](c.call);
    FUZZ_CHECK(status == expected, "%s %s %dx%d: status %d, expected %d", m.name, kEntryNames[entry], width, height,
               status, expected);
    FUZZ_CHECK(SourceUnchanged(c), "%s %s changed its source", m.name, kEntryNames[entry]);
    const bool writesNothing = !accepted || (m.group == Group::Rgb16 && (w == 1 || h == 1));
    if (writesNothing) {
        FUZZ_CHECK(DestinationUnchanged(c), "%s %s wrote though it must not (status %d)", m.name, kEntryNames[entry],
                   status);
        return 0;
    }
    if (DestinationOverlaps(c)) return 0;  // bounds only

    // The plain names run px: nothing in this program selects a tier.
    const int tier = entry == 0 ? 0 : static_cast<int>(entry) - 1;
    std::vector<std::vector<uint8_t>> want;
    for (int p = 0; p < dst.count; ++p) want.push_back(dst.planes[p].before);

    if (m.group == Group::Yuv422) {
        if (tier > 1) return 0;  // the vector tiers keep arithmetic of their own
        // m6 and the plain name are px's plain code: the same bytes.
        ImageCall again = c.call;
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
        const int pixelBytes = m.src.pixelBytes, outBytes = m.dst.pixelBytes;
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) {
                yuv444_model::Trio t;
                for (int c = 0; c < 3; ++c)
                    t.s[c] = m.src.planes == 3 ? src.planes[c].At(x, y) : src.planes[0].At(x * pixelBytes + c, y);
                const yuv444_model::Trio out = yuv444_model::Model(member, tier, t, x, w);
                for (int c = 0; c < 3; ++c) {
                    if (m.dst.planes == 3)
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
