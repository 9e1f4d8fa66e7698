// Runs the 16-bit members of any tier: 4:2:0 source planes from the 4:2:0
// harness, a guarded word destination with a byte step, and the words read
// back with the step the member counts in (whole words).
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_RGB16_HARNESS_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_RGB16_HARNESS_H

#include <pixmoor/primitives/colour.h>

#include <cstring>
#include <vector>

#include "guarded_buffer.h"
#include "rgb16_model.h"
#include "yuv420_harness.h"

namespace rgb16_harness {

using pixmoor_test::GuardedBuffer;
using yuv420_model::YuvFrame;

using Rgb16Fn = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint16_t*, int32_t, int32_t, int32_t);

// Entries by [format][tier], formats in the order of rgb16_model::kFormats.
#define RGB16_TIERS(name) {px_##name, m6_##name, a6_##name, w7_##name}
inline Rgb16Fn Entry(int format, int tier) {
    static const Rgb16Fn all[6][4] = {RGB16_TIERS(ImgYUV420ToRGB565), RGB16_TIERS(ImgYUV420ToBGR565),
                                      RGB16_TIERS(ImgYUV420ToRGB555), RGB16_TIERS(ImgYUV420ToBGR555),
                                      RGB16_TIERS(ImgYUV420ToRGB444), RGB16_TIERS(ImgYUV420ToBGR444)};
    return all[format][tier];
}
inline Rgb16Fn PlainEntry(int format) {
    static const Rgb16Fn all[6] = {ImgYUV420ToRGB565, ImgYUV420ToBGR565, ImgYUV420ToRGB555,
                                   ImgYUV420ToBGR555, ImgYUV420ToRGB444, ImgYUV420ToBGR444};
    return all[format];
}
#undef RGB16_TIERS

// A word destination of `lines` lines at `stepBytes` (any value from 2);
// the member walks it in steps of stepBytes / 2 words.
struct WordImage {
    int width, lines, stepBytes;
    GuardedBuffer buf;
    WordImage(int w, int h, int step)
        : width(w), lines(h), stepBytes(step),
          buf(static_cast<size_t>(step / 2) * 2 * (h - 1) + 2 * static_cast<size_t>(w) + (step & 1)) {}
    uint16_t* data() { return reinterpret_cast<uint16_t*>(buf.data()); }
    size_t Offset(int x, int l) const { return static_cast<size_t>(stepBytes / 2) * 2 * l + 2 * static_cast<size_t>(x); }
    std::vector<uint16_t> Read() const {
        std::vector<uint16_t> words(static_cast<size_t>(width) * lines);
        for (int l = 0; l < lines; ++l)
            for (int x = 0; x < width; ++x) std::memcpy(&words[static_cast<size_t>(l) * width + x], buf.data() + Offset(x, l), 2);
        return words;
    }
    // True while every byte is still the fill (nothing written at all).
    bool Untouched() const { return buf.Untouched(); }
    // True while every byte outside the words of the picture holds the fill.
    bool OutsideUntouched() const {
        if (!buf.GuardsIntact()) return false;
        std::vector<bool> inside(buf.size(), false);
        for (int l = 0; l < lines; ++l)
            for (int x = 0; x < width; ++x) inside[Offset(x, l)] = inside[Offset(x, l) + 1] = true;
        for (size_t i = 0; i < buf.size(); ++i)
            if (!inside[i] && buf[i] != GuardedBuffer::kCanary) return false;
        return true;
    }
};

struct WordRun {
    PrimStatus status;
    std::vector<uint16_t> words;  // empty when the destination stayed untouched
    bool outsideUntouched;
};

// Source planes padded by `pad` bytes a line; destination step 2 * width +
// dstPad bytes (odd pads test the halving).
inline WordRun Convert(Rgb16Fn fn, const YuvFrame& in, int pad, int dstPad) {
    const int w = in.width, h = in.height;
    yuv420_harness::Yuv420Planes src(w, h, pad);
    src.Load(in);
    src.Bind();
    const uint8_t* const sp[3] = {src.ptrs[0], src.ptrs[1], src.ptrs[2]};
    WordImage out(w, h, 2 * w + dstPad);
    const PrimStatus s = fn(sp, src.steps, out.data(), out.stepBytes, w, h);
    if (out.Untouched()) return WordRun{s, {}, true};
    return WordRun{s, out.Read(), out.OutsideUntouched()};
}

}  // namespace rgb16_harness

#endif
