// Fuzzes the size transforms through their public face: the factory over
// every known code (and unknown ones), up to three Init calls on one object
// with random sizes, types and depths, the seven fixed size pairs now and
// then, and one XForm.  A small model of the object follows every call: the
// result of Init, the sizes, DestBufferSize and the bytes of the frame must
// agree with it.  Source and destination hold exactly what the model says the
// routine reads and writes (the crop and pad of a changed height goes past
// DestBufferSize by design), so a byte more is an AddressSanitizer report.
#include <pixmoor/pixmoor.h>

#include <algorithm>
#include <cmath>

#include "fuzz_support.h"

using namespace pixmoor_fuzz;

namespace {

constexpr uint32_t Code(const char (&s)[5]) {
    return static_cast<uint32_t>(s[0]) | static_cast<uint32_t>(s[1]) << 8 | static_cast<uint32_t>(s[2]) << 16 |
           static_cast<uint32_t>(s[3]) << 24;
}

const uint32_t kPlanarCodes[] = {Code("I420"), Code("IYUV"), Code("YV12"), Code("i420"), Code("iyuv"), Code("yv12")};
const uint32_t kOtherCodes[] = {0, Code("0rgb"), Code("RG24"), Code("rg24"), Code("RG32"), Code("YUY2"), Code("I422")};

enum class Kind { None, CropPad, Rgb };
enum class Routine { None, CropPad, Generic, Double, Halve, ElevenTenths };

struct SizePair {
    int32_t inW, inH, outW, outH;
    Routine routine;
};
const SizePair kFixedPairs[] = {
    {176, 144, 352, 288, Routine::Double},       {352, 288, 704, 576, Routine::Double},
    {352, 288, 176, 144, Routine::Halve},        {704, 576, 352, 288, Routine::Halve},
    {160, 120, 176, 144, Routine::ElevenTenths}, {320, 240, 352, 288, Routine::ElevenTenths},
    {640, 480, 704, 576, Routine::ElevenTenths},
};

int32_t LineSize(int32_t width, int32_t bits) { return (std::abs(width) * (bits >> 3) + 3) / 4 * 4; }

// One plane's walk of the crop and pad routine.
struct Strip {
    int32_t rows, copy, topPad, topSkip, leftPad, leftSkip;
};

// The nearest-neighbour choice along one axis as a string of steps:
// 'K' keeps the next input item, 'R' repeats the last output item, 'D' drops
// the next input item.  Error accumulator at 2000 per input item.
struct AxisPlan {
    std::vector<char> steps;
    int32_t unread = 0;
};

AxisPlan PlanAxis(int32_t inLen, int32_t outLen) {
    AxisPlan plan;
    const int32_t step = static_cast<int32_t>(1.0 / (static_cast<double>(outLen) / inLen) * 2000.0);
    int64_t error = 0;
    int32_t in = 0, out = 0;
    while (in < inLen && out < outLen) {
        error -= 2000;
        if (error >= 0) {
            plan.steps.push_back('D');
            ++in;
            continue;
        }
        plan.steps.push_back('K');
        ++in, ++out;
        error += step;
        while (error < 0 && out < outLen) {
            plan.steps.push_back('R');
            ++out;
            error += step;
        }
    }
    plan.unread = inLen - in;
    return plan;
}

// What the model knows of one transform object.
struct Model {
    Kind kind = Kind::None;
    int32_t bits = 0;
    int32_t inW = 0, inH = 0, outW = 0, outH = 0;  // the base's sizes
    bool needsXForm = true;
    int32_t destSize = 0;
    size_t srcFrame = 0;  // bytes of a source frame of the last Init that set the routine's fields
    Routine routine = Routine::None;
    Strip strips[3] = {};
    // Fields of the last generic preparation.
    int32_t bpp = 0, srcLine = 0, srcPad = 0, dstLine = 0, dstPad = 0;
    AxisPlan planX, planY;
};

bool Odd(int32_t v) { return (v & 1) != 0; }

bool BaseInit(Model& m, int32_t inW, int32_t inH, int32_t outW, int32_t outH) {
    if (Odd(m.inW) || Odd(m.inH) || Odd(m.outW) || Odd(m.outH)) return false;
    m.inW = inW, m.inH = inH, m.outW = outW, m.outH = outH;
    if (inW == outW && inH == outH) m.needsXForm = false;
    return true;
}

bool ModelInit(Model& m, int32_t inW, int32_t inH, int32_t outW, int32_t outH, int32_t type) {
    if (m.kind == Kind::CropPad) {
        if (type == XFormScale) return false;
        Strip& y = m.strips[0];
        if (outH > inH)
            y.rows = inH, y.topPad = (outH - inH) / 2 * outW, y.topSkip = 0;
        else
            y.rows = outH, y.topPad = 0, y.topSkip = (inH - outH) / 2 * inW;
        if (outW > inW)
            y.copy = inW, y.leftPad = (outW - inW) / 2, y.leftSkip = 0;
        else
            y.copy = outW, y.leftPad = 0, y.leftSkip = (inW - outW) / 2;
        // Chroma: every number halved, the border byte counts included.
        const Strip c{y.rows / 2, y.copy / 2, y.topPad / 2, y.topSkip / 2, y.leftPad / 2, y.leftSkip / 2};
        m.strips[1] = m.strips[2] = c;
        m.routine = Routine::CropPad;
        m.destSize = static_cast<int32_t>(outW * outH * 1.5);
        m.srcFrame = static_cast<size_t>(inW * inH * 1.5);
        return BaseInit(m, inW, inH, outW, outH);
    }
    if (type != XFormScale) return false;
    m.routine = Routine::None;
    if (m.bits == 24)
        for (const SizePair& p : kFixedPairs)
            if (p.inW == inW && p.inH == inH && p.outW == outW && p.outH == outH) m.routine = p.routine;
    if (m.routine == Routine::None) {
        m.routine = Routine::Generic;
        m.bpp = m.bits >> 3;
        m.srcLine = LineSize(inW, m.bits);
        m.srcPad = m.srcLine - m.bpp * inW;
        m.dstLine = LineSize(outW, m.bits);
        m.dstPad = m.dstLine - m.bpp * outW;
        m.planX = PlanAxis(inW, outW);
        m.planY = PlanAxis(inH, outH);
    }
    m.srcFrame = static_cast<size_t>(LineSize(inW, m.bits)) * inH;
    m.destSize = LineSize(outW, m.bits) * outH;
    return BaseInit(m, inW, inH, outW, outH);
}

// A frame the model produces: the bytes written from the start of the
// destination, and how far into the source the routine reads.
struct Frame {
    std::vector<uint8_t> out;
    size_t srcNeeded = 0;
};

// Appends `n` bytes from a source offset, recording the read extent.
void Take(Frame& f, const std::vector<uint8_t>& src, size_t at, size_t n) {
    f.srcNeeded = std::max(f.srcNeeded, at + n);
    const size_t have = at < src.size() ? std::min(n, src.size() - at) : 0;
    f.out.insert(f.out.end(), src.begin() + static_cast<std::ptrdiff_t>(at),
                 src.begin() + static_cast<std::ptrdiff_t>(at + have));
    f.out.insert(f.out.end(), n - have, 0);
}

void CropPadFrame(const Model& m, const std::vector<uint8_t>& src, Frame& f) {
    size_t s = 0;
    auto margin = [&](int32_t pad, int32_t skip) {
        if (pad > 0)
            f.out.insert(f.out.end(), static_cast<size_t>(pad), 0);
        else
            s += static_cast<size_t>(skip);
    };
    for (const Strip& p : m.strips) {
        margin(p.topPad, p.topSkip);
        for (int32_t r = 0; r < p.rows; ++r) {
            margin(p.leftPad, p.leftSkip);
            Take(f, src, s, static_cast<size_t>(p.copy));
            s += static_cast<size_t>(p.copy);
            margin(p.leftPad, p.leftSkip);
        }
        margin(p.topPad, p.topSkip);
    }
    f.srcNeeded = std::max(f.srcNeeded, s);
}

void GenericFrame(const Model& m, const std::vector<uint8_t>& src, Frame& f) {
    size_t s = 0;
    const size_t bpp = static_cast<size_t>(m.bpp);
    for (char line : m.planY.steps) {
        if (line == 'D') {
            s += static_cast<size_t>(m.srcLine);
        } else if (line == 'R') {
            const size_t from = f.out.size() - static_cast<size_t>(m.dstLine);
            for (int32_t i = 0; i < m.dstLine; ++i) f.out.push_back(f.out[from + i]);
        } else {
            for (char px : m.planX.steps) {
                if (px == 'K') {
                    Take(f, src, s, bpp);
                    s += bpp;
                } else if (px == 'R') {
                    Take(f, src, s - bpp, bpp);
                } else {
                    s += bpp;
                }
            }
            s += static_cast<size_t>(m.planX.unread) * bpp + static_cast<size_t>(m.srcPad);
            f.out.insert(f.out.end(), static_cast<size_t>(m.dstPad), 0);
        }
    }
}

// The fixed 24-bit routines, written as where each output pixel comes from.
void FixedFrame(const Model& m, const std::vector<uint8_t>& src, Frame& f) {
    const int32_t inLine = m.inW * 3;
    f.srcNeeded = static_cast<size_t>(inLine) * m.inH;
    auto pixel = [&](int32_t x, int32_t y) { return &src[static_cast<size_t>(y) * inLine + x * 3]; };
    auto put = [&](const uint8_t* p) { f.out.insert(f.out.end(), p, p + 3); };
    auto repeatLastLine = [&]() {
        const size_t bytes = static_cast<size_t>(m.outW) * 3, from = f.out.size() - bytes;
        for (size_t i = 0; i < bytes; ++i) f.out.push_back(f.out[from + i]);
    };
    if (m.routine == Routine::Halve) {
        for (int32_t y = 0; y < m.outH; ++y)
            for (int32_t x = 0; x < m.outW; ++x) put(pixel(2 * x, 2 * y));
        return;
    }
    if (m.routine == Routine::Double) {
        for (int32_t y = 0; y < m.inH; ++y) {
            for (int32_t x = 0; x < m.inW; ++x) {
                put(pixel(x, y));
                put(pixel(x, y));
                // The second copy of pixel 6 of each group of 8 carries the
                // first byte of pixel 7.
                if (x % 8 == 6) f.out[f.out.size() - 3] = pixel(x + 1, y)[0];
            }
            repeatLastLine();
        }
        return;
    }
    int32_t counter = 0;  // eleven tenths: pixel 9 of every ten twice, line 5 of every five twice
    for (int32_t y = 0; y < m.inH; ++y) {
        for (int32_t x = 0; x < m.inW; ++x) {
            put(pixel(x, y));
            if (x % 10 == 9) put(pixel(x, y));
        }
        if (counter == 4) {
            counter = 0;
            repeatLastLine();
        } else {
            ++counter;
        }
    }
}

Frame ModelXForm(const Model& m, const std::vector<uint8_t>& src) {
    Frame f;
    f.out.reserve(static_cast<size_t>(m.destSize) * 2 + 64);
    if (!m.needsXForm) {
        Take(f, src, 0, static_cast<size_t>(m.destSize));
    } else if (m.routine == Routine::CropPad) {
        CropPadFrame(m, src, f);
    } else if (m.routine == Routine::Generic) {
        GenericFrame(m, src, f);
    } else {
        FixedFrame(m, src, f);
    }
    return f;
}

struct Sizes {
    int32_t inW, inH, outW, outH;
};

Sizes ReadSizes(FuzzInput& in, int32_t bits) {
    const uint8_t how = in.Byte();
    if (how >= 250 && bits == 24) {
        const SizePair& p = kFixedPairs[in.Byte() % 7];
        return {p.inW, p.inH, p.outW, p.outH};
    }
    Sizes s{};
    s.inW = 1 + in.Below(how < 40 ? 8 : 130);
    s.inH = 1 + in.Below(how < 40 ? 8 : 70);
    if (how % 5 == 0) {  // the same size on both sides
        s.outW = s.inW, s.outH = s.inH;
    } else {
        s.outW = 1 + in.Below(how < 40 ? 8 : 130);
        s.outH = 1 + in.Below(how < 40 ? 8 : 70);
    }
    return s;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    const uint8_t codeHow = in.Byte();
    uint32_t code;
    if (codeHow < 96)
        code = kPlanarCodes[codeHow % 6];
    else if (codeHow < 250)
        code = kOtherCodes[codeHow % 7];
    else
        code = in.U32();
    const uint8_t bitsHow = in.Byte();
    const uint32_t bits = bitsHow < 240 ? 8u * (1 + bitsHow % 4) : bitsHow % 33;

    Model m;
    const bool planar = std::find(std::begin(kPlanarCodes), std::end(kPlanarCodes), code) != std::end(kPlanarCodes);
    if (planar) {
        m.kind = Kind::CropPad, m.bits = 12;
    } else if (code == 0 || code == Code("0rgb")) {
        m.kind = Kind::Rgb, m.bits = static_cast<int32_t>(bits);
    } else if (code == Code("RG24") || code == Code("rg24")) {
        m.kind = Kind::Rgb, m.bits = 24;
    }

    CSizeXForm* x = CSizeXForm::CreateInstance(code, bits);
    FUZZ_CHECK((x != nullptr) == (m.kind != Kind::None), "factory of code %08x", code);
    if (x == nullptr) {
        FUZZ_CHECK(!CSizeXForm::IsSupported(code, bits, AbsSIZE(2, 2), AbsSIZE(4, 4), XFormScale), "unknown code");
        return 0;
    }
    SInterpInfo info[2] = {{7, 7}, {7, 7}};
    const int32_t capacity = static_cast<int8_t>(in.Byte());
    FUZZ_CHECK(x->SupportedInterp(capacity, capacity >= 1 ? info : nullptr) == 1, "SupportedInterp count");
    FUZZ_CHECK(capacity < 1 || (info[0].interpType == 1 && info[0].interpAux == 1), "SupportedInterp record");
    FUZZ_CHECK(info[1].interpType == 7 && info[1].interpAux == 7, "SupportedInterp wrote past the first record");
    FUZZ_CHECK(x->DestBufferSize() == 0 && x->GetInputSize() == AbsSIZE(0, 0), "fresh object");

    const int32_t inits = 1 + in.Below(3);
    bool lastInit = false;
    for (int32_t i = 0; i < inits; ++i) {
        const Sizes s = ReadSizes(in, m.bits);
        const uint8_t typeHow = in.Byte();
        const int32_t type = typeHow < 250 ? typeHow % 2 : static_cast<int32_t>(in.U32());
        // Negative sizes are taken by their absolute values.
        const int32_t signs = in.Byte();
        const AbsSIZE inSize(signs & 1 ? -s.inW : s.inW, signs & 2 ? -s.inH : s.inH);
        const AbsSIZE outSize(signs & 4 ? -s.outW : s.outW, signs & 8 ? -s.outH : s.outH);
        const bool expected = ModelInit(m, s.inW, s.inH, s.outW, s.outH, type);
        lastInit = x->Init(inSize, outSize, static_cast<XFormType>(type), InterpDefault);
        FUZZ_CHECK(lastInit == expected, "Init %d: %dx%d to %dx%d type %d gave %d", i, s.inW, s.inH, s.outW, s.outH,
                   type, lastInit);
        FUZZ_CHECK(CSizeXForm::IsSupported(code, bits, inSize, outSize, static_cast<XFormType>(type)) ==
                       ((m.kind == Kind::CropPad) == (type != XFormScale)),
                   "IsSupported");
        FUZZ_CHECK(x->DestBufferSize() == m.destSize, "DestBufferSize %d, model %d", x->DestBufferSize(), m.destSize);
        FUZZ_CHECK(x->GetInputSize() == AbsSIZE(m.inW, m.inH) && x->GetOutputSize() == AbsSIZE(m.outW, m.outH),
                   "sizes after Init");
    }

    // A fixed routine reads the base's sizes: after a failed Init they are the
    // old ones, and the frame has no size the caller could know.  Skip that.
    const bool fixed = m.routine == Routine::Double || m.routine == Routine::Halve ||
                       m.routine == Routine::ElevenTenths;
    if (m.routine != Routine::None && (lastInit || !fixed || !m.needsXForm)) {
        std::vector<uint8_t> source(static_cast<size_t>(LineSize(m.inW, std::max(m.bits, 8))) * m.inH * 2 + 16);
        in.Fill(source.data(), source.size());
        Frame frame = ModelXForm(m, source);
        // The caller's buffers: the frame (or DestBufferSize), grown to
        // whatever the routine is required to touch.
        const size_t srcBytes = std::max<size_t>({frame.srcNeeded, m.srcFrame, 1});
        source.resize(srcBytes);
        frame = ModelXForm(m, source);
        const size_t dstBytes = std::max<size_t>({frame.out.size(), static_cast<size_t>(m.destSize), 1});
        ExactBuffer src(srcBytes, in.Byte() % 8), dst(dstBytes, in.Byte() % 8);
        std::memcpy(src.data(), source.data(), srcBytes);
        for (size_t i = 0; i < dstBytes; ++i) dst.data()[i] = static_cast<uint8_t>(0xC3 ^ i);
        const std::vector<uint8_t> before = dst.Contents();
        x->XForm(src.data(), dst.data());
        FUZZ_CHECK(std::memcmp(src.data(), source.data(), srcBytes) == 0, "XForm changed its source");
        const long at = FirstDifference(frame.out.data(), dst.data(), frame.out.size());
        FUZZ_CHECK(at < 0, "XForm %dx%d to %dx%d bits %d: byte %ld is %d, model %d", m.inW, m.inH, m.outW, m.outH,
                   m.bits, at, dst.data()[at], frame.out[at]);
        FUZZ_CHECK(std::memcmp(dst.data() + frame.out.size(), before.data() + frame.out.size(),
                               dstBytes - frame.out.size()) == 0,
                   "XForm wrote past what its routine writes");
    }
    delete x;
    return 0;
}
