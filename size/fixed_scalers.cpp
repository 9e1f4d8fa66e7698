// The fixed routines of the RGB scaler for seven pairs of video sizes at 24
// bits.  Each handles a group of pixels in one body with no branch per pixel:
// doubling and halving build 8-byte words from 24-bit pixels with shifts and
// masks, the eleven-tenths routine moves blocks of ten pixels.  All their
// sizes give lines that are whole multiples of 4 bytes, so line padding never
// arises, and they read the sizes straight from the object.
#include <cstring>

#include "size/rgb_scale.h"
#include "geometry/wrapping.h"
#include "size/fixed_scalers_avx2.h"

using pixmoor::WrapMul;

namespace {

constexpr int32_t kPixelBytes = 3;
constexpr uint64_t kPixelMask = 0xFFFFFF;

inline uint64_t LoadPixel(const uint8_t* p) {
    return static_cast<uint64_t>(p[0]) | (static_cast<uint64_t>(p[1]) << 8) | (static_cast<uint64_t>(p[2]) << 16);
}

inline void StoreWord(uint8_t* p, uint64_t v) {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    v = __builtin_bswap64(v);
#endif
    std::memcpy(p, &v, sizeof v);
}

// Eight 24-bit pixels make exactly three words; the third and the sixth
// pixel straddle a word boundary.
inline void StorePixels8(uint8_t* dst, const uint64_t (&p)[8]) {
    StoreWord(dst, p[0] | (p[1] << 24) | (p[2] << 48));
    StoreWord(dst + 8, (p[2] >> 16) | (p[3] << 8) | (p[4] << 32) | (p[5] << 56));
    StoreWord(dst + 16, (p[5] >> 8) | (p[6] << 16) | (p[7] << 40));
}

// 8 pixels (24 bytes) to 16 (48 bytes), each pixel twice.  The shuffle puts
// the first byte of pixel 7 into the first byte of the second copy of pixel
// 6; frames made by this routine have always carried that byte, so it stays.
inline void DoubleGroup(const uint8_t* src, uint8_t* dst) {
    uint64_t p[8];
    for (int i = 0; i < 8; ++i) p[i] = LoadPixel(src + kPixelBytes * i);
    const uint64_t sixWithSevensByte = (p[6] & (kPixelMask ^ 0xFF)) | (p[7] & 0xFF);
    const uint64_t low[8] = {p[0], p[0], p[1], p[1], p[2], p[2], p[3], p[3]};
    const uint64_t high[8] = {p[4], p[4], p[5], p[5], p[6], sixWithSevensByte, p[7], p[7]};
    StorePixels8(dst, low);
    StorePixels8(dst + 24, high);
}

// 16 pixels (48 bytes) to the 8 even ones (24 bytes).
inline void HalveGroup(const uint8_t* src, uint8_t* dst) {
    uint64_t p[8];
    for (int i = 0; i < 8; ++i) p[i] = LoadPixel(src + 2 * kPixelBytes * i);
    StorePixels8(dst, p);
}

// 80 pixels (240 bytes) to 88 (264 bytes): the last pixel of every ten is
// written twice.
inline void ElevenTenthsGroup(const uint8_t* src, uint8_t* dst) {
    for (int tens = 0; tens < 8; ++tens, src += 30, dst += 33) {
        std::memcpy(dst, src, 30);
        std::memcpy(dst + 30, src + 27, kPixelBytes);
    }
}

// Copies the output line just written once more, in 8-byte units.
inline uint8_t* RepeatLine(uint8_t* lineStart, uint8_t* dst, int32_t outWidth) {
    const int32_t units = WrapMul(outWidth, kPixelBytes) / 8;
    if (units <= 0) return dst;
    std::memcpy(dst, lineStart, static_cast<size_t>(units) * 8);
    return dst + static_cast<size_t>(units) * 8;
}

void DoubleLine(const uint8_t*& src, uint8_t*& dst, int32_t groups) {
    for (int32_t g = 0; g < groups; ++g, src += 24, dst += 48) DoubleGroup(src, dst);
}

void HalveLine(const uint8_t*& src, uint8_t*& dst, int32_t groups) {
    for (int32_t g = 0; g < groups; ++g, src += 48, dst += 24) HalveGroup(src, dst);
}

const FixedLineKernels kPlainLines = {DoubleLine, HalveLine};

// The widest line kernels the processor allows, chosen once a frame.
const FixedLineKernels& LineKernels() {
#if PIXMOOR_HAVE_X86_TARGETS
    if (pixmoor::isa::Has(pixmoor::isa::kAvx2)) return FixedLineKernelsAvx2();
#endif
    return kPlainLines;
}

}  // namespace

int32_t CSizeXFormRGBScale::ScaleDouble24(CSizeXForm* object, const uint8_t* src, uint8_t* dst) {
    const CSizeXFormRGBScale& s = *static_cast<CSizeXFormRGBScale*>(object);
    const int32_t groups = s.inputSize.cx / 8;
    const FixedLineKernels& lines = LineKernels();
    for (int32_t line = 0; line < s.inputSize.cy; ++line) {
        uint8_t* lineStart = dst;
        lines.doubleLine(src, dst, groups);
        dst = RepeatLine(lineStart, dst, s.outputSize.cx);
    }
    return 0;
}

int32_t CSizeXFormRGBScale::ScaleHalve24(CSizeXForm* object, const uint8_t* src, uint8_t* dst) {
    const CSizeXFormRGBScale& s = *static_cast<CSizeXFormRGBScale*>(object);
    const int32_t groups = s.outputSize.cx / 8;
    const int32_t skippedLine = WrapMul(s.inputSize.cx, kPixelBytes);
    const FixedLineKernels& lines = LineKernels();
    for (int32_t line = 0; line < s.outputSize.cy; ++line) {
        lines.halveLine(src, dst, groups);
        src = pixmoor::Step(src, skippedLine);
    }
    return 0;
}

int32_t CSizeXFormRGBScale::ScaleElevenTenths24(CSizeXForm* object, const uint8_t* src, uint8_t* dst) {
    const CSizeXFormRGBScale& s = *static_cast<CSizeXFormRGBScale*>(object);
    const int32_t groups = s.inputSize.cx / 80;
    // Every fifth line, counted from the fifth, is written twice: 120, 240
    // and 480 lines become 144, 288 and 576.
    int32_t counter = 0;
    for (int32_t line = 0; line < s.inputSize.cy; ++line) {
        uint8_t* lineStart = dst;
        for (int32_t g = 0; g < groups; ++g, src += 240, dst += 264) ElevenTenthsGroup(src, dst);
        if (counter == 4) {
            counter = 0;
            dst = RepeatLine(lineStart, dst, s.outputSize.cx);
        } else {
            ++counter;
        }
    }
    return 0;
}
