// Fuzzes the colour transforms through their public face: the factory over
// every code and alias (and unknown codes), NeedsConversion, Init at random
// sizes and orientations, and XForm at random destination pitches into
// buffers of exactly the bytes each road writes.  Properties:
// - the factory answers by its table, Init by the size test, DestBufferSize
//   by the destination's formula;
// - XForm leaves its source alone and writes nothing between the rows;
// - a road at a wider pitch writes the rows of the tight pitch, pitch apart;
// - turning the picture over gives the rows of the upright picture in
//   reverse order (of the source rows for the road to I420), and the roads
//   that ignore orientation give the upright picture;
// - the copying and repacking roads agree with a scalar model of their own.
#include <pixmoor/pixmoor.h>

#include <algorithm>
#include <memory>

#include "fuzz_support.h"

using namespace pixmoor_fuzz;

namespace {

constexpr uint32_t Code(const char* s) {
    return static_cast<uint32_t>(s[0]) | static_cast<uint32_t>(s[1]) << 8 | static_cast<uint32_t>(s[2]) << 16 |
           static_cast<uint32_t>(s[3]) << 24;
}

enum Format { kI420, kYV12, kYUY2, kUYVY, kRG24, kRG32, kRG55, kRG56, kFormatCount, kUnknown = kFormatCount };

// Every spelling the factory accepts, canonical first.
const std::vector<uint32_t> kSpellings[kFormatCount] = {
    {Code("I420"), Code("i420")},
    {Code("YV12"), Code("yv12")},
    {Code("YUY2"), Code("YUNV"), Code("V422"), Code("yuy2"), Code("yunv"), Code("v422")},
    {Code("UYVY"), Code("Y422"), Code("UYNV"), Code("uyvy"), Code("y422"), Code("uynv")},
    {Code("RG24"), Code("rg24")},
    {Code("RG32"), Code("rg32")},
    {Code("RG55"), Code("rg55")},
    {Code("RG56"), Code("rg56")},
};
// Codes no road starts or ends at.
const uint32_t kStrangers[] = {Code("IYUV"), Code("Y800"), Code("y800"), 0, Code("0rgb"), Code("Rg24"), Code("YUy2")};

Format FormatOf(uint32_t code) {
    for (int f = 0; f < kFormatCount; ++f)
        if (std::find(kSpellings[f].begin(), kSpellings[f].end(), code) != kSpellings[f].end())
            return static_cast<Format>(f);
    return kUnknown;
}

// How a road writes its destination.
enum class Road {
    None,
    PackedToRgb,    // YUY2, UYVY to RGB: rows `pitch` apart, 0 meaning tight
    Repack,         // RG24 to RG32, RG55, RG56: the same
    Copy,           // same format: one block upright, rows `pitch` apart turned over
    PlanarToRG24,   // 0 or tight: tight; else rows `pitch` apart; turned over with tight rows
    PlanarToRG32,   // 0: rows one byte further apart than tight; else `pitch` apart
    PlanarToRG16,   // RG55, RG56: rows `pitch` apart, 0 included
    RG24ToI420,     // turns the source over, not the result
    PackedToI420,
    YV12ToI420,     // does nothing when the orientations differ
    I420ToI420,     // has no routine
};

Road RoadOf(Format src, Format dst) {
    const bool planar = src == kI420 || src == kYV12, packed = src == kYUY2 || src == kUYVY;
    switch (dst) {
        case kI420:
            if (src == kYV12) return Road::YV12ToI420;
            if (src == kRG24) return Road::RG24ToI420;
            if (packed) return Road::PackedToI420;
            if (src == kI420) return Road::I420ToI420;
            return Road::None;
        case kRG24:
        case kRG32:
        case kRG55:
        case kRG56:
            if (planar)
                return dst == kRG24 ? Road::PlanarToRG24 : dst == kRG32 ? Road::PlanarToRG32 : Road::PlanarToRG16;
            if (packed) return Road::PackedToRgb;
            if (src == dst) return Road::Copy;
            if (src == kRG24) return Road::Repack;
            return Road::None;
        default:
            return Road::None;
    }
}

// Whether turning the picture over changes what the road writes.
bool TurnsOver(Road road, Format dst) {
    switch (road) {
        case Road::PackedToRgb: return dst == kRG24 || dst == kRG32;
        case Road::Repack:
        case Road::Copy:
        case Road::PlanarToRG24:
        case Road::RG24ToI420: return true;
        default: return false;
    }
}

size_t FrameBytes(Format f, int32_t w, int32_t h) {
    const size_t area = static_cast<size_t>(w) * static_cast<size_t>(h);
    switch (f) {
        case kI420:
        case kYV12: return area * 3 / 2;
        case kRG24: return area * 3;
        case kRG32: return area * 4;
        default: return area * 2;
    }
}

int32_t PixelBytes(Format f) { return f == kRG24 ? 3 : f == kRG32 ? 4 : 2; }

// RGB line sizes are rounded up to 4 bytes; the factory's destinations.
int32_t ExpectedDestBufferSize(Format dst, int32_t w, int32_t h) {
    if (dst == kI420) return static_cast<int32_t>(static_cast<double>(w * h) * 1.5);
    const int32_t bits = dst == kRG24 ? 24 : dst == kRG32 ? 32 : 16;
    return (w * (bits >> 3) + 3) / 4 * 4 * h;
}

// Distance between destination rows for a pitch, or -1 for one block.
int32_t RowDistance(Road road, int32_t pitch, int32_t line, bool turned) {
    switch (road) {
        case Road::PackedToRgb:
        case Road::Repack: return pitch == 0 ? line : pitch;
        case Road::Copy: return turned ? pitch : -1;
        case Road::PlanarToRG24: return pitch == 0 || pitch == line ? line : pitch;
        case Road::PlanarToRG32: return pitch == 0 ? line + 1 : pitch;
        case Road::PlanarToRG16: return pitch;
        default: return -1;
    }
}

struct Shape {
    Format src, dst;
    Road road;
    int32_t w, h, line;  // line: bytes of a tight destination row
    int32_t destBufferSize;
};

// One XForm into a buffer of exactly the bytes the road writes.
struct Result {
    std::vector<uint8_t> out;
    int32_t distance;  // rows apart, or -1 for one block
};

Result Run(const Shape& s, const std::vector<uint8_t>& source, int32_t pitch, bool turned, size_t misalign) {
    std::unique_ptr<CColorXForm> x(CColorXForm::CreateInstance(kSpellings[s.src][0], kSpellings[s.dst][0]));
    const auto up = static_cast<CColorXForm::EOrientation>(1);
    const auto down = static_cast<CColorXForm::EOrientation>(turned ? 2 : 1);
    FUZZ_CHECK(x && x->Init(AbsSIZE(s.w, s.h), up, down), "Init of a road at %dx%d", s.w, s.h);
    Result r;
    r.distance = RowDistance(s.road, pitch, s.line, turned);
    size_t span = static_cast<size_t>(s.destBufferSize);
    if (r.distance >= 0) span = static_cast<size_t>(s.h - 1) * static_cast<size_t>(r.distance) + s.line;
    if (s.road == Road::PlanarToRG24 && turned) span = std::max(span, static_cast<size_t>(s.line) * s.h);
    ExactBuffer src(source.size(), misalign), dst(span, misalign ^ 5);
    std::memcpy(src.data(), source.data(), source.size());
    for (size_t i = 0; i < span; ++i) dst.data()[i] = static_cast<uint8_t>(0x3C + i * 17);
    const std::vector<uint8_t> before = dst.Contents();
    x->XForm(src.data(), dst.data(), static_cast<uint32_t>(pitch));
    FUZZ_CHECK(src.Equals(source), "XForm changed its source");
    r.out = dst.Contents();
    // Nothing between the rows.
    if (r.distance > s.line && !(s.road == Road::PlanarToRG24 && turned))
        for (int32_t row = 0; row + 1 < s.h; ++row)
            for (int32_t i = s.line; i < r.distance; ++i) {
                const size_t at = static_cast<size_t>(row) * r.distance + i;
                FUZZ_CHECK(r.out[at] == before[at], "byte %d after row %d written at pitch %d", i - s.line, row,
                           pitch);
            }
    return r;
}

// Row `row` of a result, as the destination's reader sees it.
std::vector<uint8_t> Row(const Shape& s, const Result& r, int32_t row) {
    const size_t at = static_cast<size_t>(row) * (r.distance >= 0 ? r.distance : s.line);
    return std::vector<uint8_t>(r.out.begin() + at, r.out.begin() + at + s.line);
}

// The copying and repacking roads, upright and tight, from their formulas.
bool ModelRgb(const Shape& s, const std::vector<uint8_t>& src, std::vector<uint8_t>* out) {
    if (s.road == Road::Copy) {
        *out = std::vector<uint8_t>(src.begin(), src.begin() + s.destBufferSize);
        return true;
    }
    if (s.road != Road::Repack) return false;
    out->clear();
    for (size_t i = 0; i + 2 < static_cast<size_t>(s.w) * s.h * 3; i += 3) {
        const uint32_t first = src[i], second = src[i + 1], third = src[i + 2];
        if (s.dst == kRG32) {
            out->insert(out->end(), {src[i], src[i + 1], src[i + 2], 0});
            continue;
        }
        const uint32_t word = s.dst == kRG55 ? (third >> 3) << 10 | (second >> 3) << 5 | first >> 3
                                             : (third >> 3) << 11 | (second >> 2) << 5 | first >> 3;
        out->push_back(static_cast<uint8_t>(word));
        out->push_back(static_cast<uint8_t>(word >> 8));
    }
    return true;
}

void CheckNeedsConversion(FuzzInput& in) {
    const std::vector<uint32_t> yuy2 = kSpellings[kYUY2], uyvy = kSpellings[kUYVY];
    auto pick = [&]() -> uint32_t {
        const uint8_t how = in.Byte();
        if (how < 60) return yuy2[how % 3];
        if (how < 120) return uyvy[how % 3];
        if (how < 150) return how % 2 ? Code("IYUV") : Code("I420");
        if (how < 250) return kSpellings[how % kFormatCount][how / kFormatCount % kSpellings[how % kFormatCount].size()];
        return in.U32();
    };
    const uint32_t a = pick(), b = pick();
    auto upperSpelling = [](const std::vector<uint32_t>& set, uint32_t c) {
        return std::find(set.begin(), set.begin() + 3, c) != set.begin() + 3;
    };
    const bool sameFormat = (upperSpelling(yuy2, a) && upperSpelling(yuy2, b)) ||
                            (upperSpelling(uyvy, a) && upperSpelling(uyvy, b)) ||
                            ((a == Code("IYUV") || a == Code("I420")) && (b == Code("IYUV") || b == Code("I420")));
    FUZZ_CHECK(CColorXForm::NeedsConversion(a, b) == !(sameFormat && a != b), "NeedsConversion(%08x, %08x)", a, b);
}

// Roads whose routine writes nothing at all on a whole frame have no
// conversion in the library yet; they are skipped until they get one.
bool g_pending[kFormatCount][kFormatCount];

void NoBeep(uint32_t) {}
void NoMessage(const char*, const char*, uint32_t) {}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Selection over a table with rows still missing shows a message at
    // every Init; keep the log readable.
    PrimPlatform quiet{};
    quiet.messageBeep = NoBeep;
    quiet.messageBox = NoMessage;
    PrimSetPlatform(&quiet);
    for (int s = 0; s < kFormatCount; ++s)
        for (int d = 0; d < kFormatCount; ++d) {
            const Road road = RoadOf(static_cast<Format>(s), static_cast<Format>(d));
            if (road == Road::None || road == Road::I420ToI420) continue;
            std::unique_ptr<CColorXForm> x(CColorXForm::CreateInstance(kSpellings[s][0], kSpellings[d][0]));
            x->Init(AbsSIZE(8, 8), CColorXForm::OrientDefault, CColorXForm::OrientDefault);
            std::vector<uint8_t> source(FrameBytes(static_cast<Format>(s), 8, 8) + 2, 0x5A);
            std::vector<uint8_t> out(1024, 0xA5);
            x->XForm(source.data(), out.data(), 64);
            g_pending[s][d] = std::all_of(out.begin(), out.end(), [](uint8_t b) { return b == 0xA5; });
            if (g_pending[s][d])
                std::fprintf(stderr, "colour_xform: %.4s to %.4s converts nothing yet; its frames are not checked\n",
                             reinterpret_cast<const char*>(&kSpellings[s][0]),
                             reinterpret_cast<const char*>(&kSpellings[d][0]));
        }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    CheckNeedsConversion(in);

    // A pair of codes: mostly known spellings, now and then a stranger.
    auto pickCode = [&]() -> uint32_t {
        const uint8_t how = in.Byte();
        if (how >= 240) return how < 250 ? kStrangers[how % 7] : in.U32();
        const auto& set = kSpellings[how % kFormatCount];
        return set[in.Byte() % set.size()];
    };
    const uint32_t srcCode = pickCode(), dstCode = pickCode();
    const Format src = FormatOf(srcCode), dst = FormatOf(dstCode);
    const Road road = src == kUnknown || dst == kUnknown ? Road::None : RoadOf(src, dst);
    std::unique_ptr<CColorXForm> probe(CColorXForm::CreateInstance(srcCode, dstCode));
    FUZZ_CHECK((probe != nullptr) == (road != Road::None), "factory of %08x to %08x", srcCode, dstCode);
    if (!probe) return 0;

    // Sizes: multiples of 4 mostly; any other size fails the size test.
    const uint8_t sizeHow = in.Byte();
    int32_t w = 4 * (1 + in.Byte() % 24), h = 4 * (1 + in.Byte() % 12);
    if (sizeHow >= 224) w += sizeHow % 4, h += sizeHow / 4 % 4;
    const int32_t signs = in.Byte();
    const AbsSIZE asked(signs & 1 ? -w : w, signs & 2 ? -h : h);
    const auto anyOrientation = [&]() { return static_cast<CColorXForm::EOrientation>(in.Byte() % 4); };
    const bool passes = w % 4 == 0 && h % 4 == 0;
    const bool ok = probe->Init(asked, anyOrientation(), anyOrientation());
    FUZZ_CHECK(ok == passes, "Init %dx%d gave %d", w, h, ok);
    FUZZ_CHECK(probe->DestBufferSize() == ExpectedDestBufferSize(dst, w, h), "DestBufferSize %d at %dx%d",
               probe->DestBufferSize(), w, h);
    FUZZ_CHECK(CColorXForm::IsSupported(srcCode, dstCode, asked, CColorXForm::OrientDefault,
                                        CColorXForm::OrientDefault) == passes,
               "IsSupported");
    if (!passes || road == Road::I420ToI420) return 0;  // I420 to I420 has no routine to call
    if (g_pending[src][dst]) return 0;

    Shape s{src, dst, road, w, h, dst == kI420 ? 0 : w * PixelBytes(dst), ExpectedDestBufferSize(dst, w, h)};
    if (dst == kI420) s.line = w;  // rows of the luma plane
    std::vector<uint8_t> source(FrameBytes(src, w, h) + (road == Road::RG24ToI420 ? 2 : 0));
    in.Fill(source.data(), source.size());
    const uint8_t pitchHow = in.Byte();
    const int32_t tight = dst == kI420 ? 0 : s.line;
    int32_t pitch = pitchHow < 64 ? 0 : pitchHow < 128 ? tight : tight + 1 + in.Byte() % 64;
    if (dst == kI420) pitch = static_cast<int32_t>(in.U16());  // not used by these roads
    const size_t misalign = in.Byte() % 8;

    const Result upright = Run(s, source, pitch, false, misalign);
    // The same road at the tight pitch: the rows must be the same (unless a
    // pitch of 0 laid them all on the first).
    const Result tightRun = pitch == tight || dst == kI420 ? upright : Run(s, source, tight, false, misalign);
    for (int32_t row = 0; row < h && dst != kI420 && upright.distance != 0; ++row)
    {
        const std::vector<uint8_t> a = Row(s, upright, row), b = Row(s, tightRun, row);
        const long at = FirstDifference(a.data(), b.data(), a.size());
        FUZZ_CHECK(at < 0, "row %d at pitch %d differs from tight at byte %ld: %d, tight %d", row, pitch, at, a[at],
                   b[at]);
    }
    if (dst == kI420) FUZZ_CHECK(upright.out.size() == static_cast<size_t>(s.destBufferSize), "I420 frame size");

    std::vector<uint8_t> model;
    if (ModelRgb(s, source, &model)) {
        std::vector<uint8_t> got;
        for (int32_t row = 0; row < h; ++row) {
            const std::vector<uint8_t> r = Row(s, tightRun, row);
            got.insert(got.end(), r.begin(), r.end());
        }
        const long at = FirstDifference(model.data(), got.data(), model.size());
        FUZZ_CHECK(at < 0, "%08x to %08x %dx%d: byte %ld is %d, model %d", srcCode, dstCode, w, h, at, got[at],
                   model[at]);
    }
    if (road == Road::YV12ToI420) {
        // Planes copied, the two chroma planes exchanged.
        const size_t area = static_cast<size_t>(w) * h, q = area / 4;
        std::vector<uint8_t> planes(source.begin(), source.begin() + area);
        planes.insert(planes.end(), source.begin() + area + q, source.begin() + area + 2 * q);
        planes.insert(planes.end(), source.begin() + area, source.begin() + area + q);
        FUZZ_CHECK(planes == upright.out, "YV12 to I420 is not a plane copy");
    }

    // Turned over.  The planar road to RG24 turns with tight rows whatever the
    // pitch, so only tight pitches have a picture to compare.
    if (road == Road::PlanarToRG24 && pitch != 0 && pitch != tight) return 0;
    if (road == Road::Copy && pitch < tight) return 0;  // rows on top of each other
    const Result turned = Run(s, source, pitch, true, misalign);
    if (road == Road::YV12ToI420) {
        std::vector<uint8_t> untouched(turned.out.size());
        for (size_t i = 0; i < untouched.size(); ++i) untouched[i] = static_cast<uint8_t>(0x3C + i * 17);
        FUZZ_CHECK(turned.out == untouched, "YV12 to I420 wrote though the orientations differ");
    } else if (road == Road::RG24ToI420) {
        // The source is turned over first: as converting the reversed source.
        std::vector<uint8_t> reversed(source.size());
        const size_t line = static_cast<size_t>(w) * 3;
        for (int32_t row = 0; row < h; ++row)
            std::memcpy(&reversed[row * line], &source[(h - 1 - row) * line], line);
        std::copy(source.end() - 2, source.end(), reversed.end() - 2);
        FUZZ_CHECK(Run(s, reversed, pitch, false, misalign).out == turned.out, "RG24 to I420 turned over");
    } else if (TurnsOver(road, dst) && upright.distance != 0) {
        for (int32_t row = 0; row < h; ++row)
            FUZZ_CHECK(Row(s, turned, row) == Row(s, upright, h - 1 - row), "turned row %d", row);
    } else if (!TurnsOver(road, dst)) {
        FUZZ_CHECK(turned.out == upright.out, "a road that ignores orientation turned the picture");
    }
    return 0;
}
