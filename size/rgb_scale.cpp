// The RGB scaler: Init chooses a fixed routine for the seven video size
// pairs at 24 bits, or prepares the run lists of the generic routine.
#include "size/rgb_scale.h"

#include <cstring>

#include "geometry/wrapping.h"

using pixmoor::Step;
using pixmoor::TruncateToInt32;
using pixmoor::WrapAdd;
using pixmoor::WrapMul;
using pixmoor::WrapSub;

namespace {

struct FixedPair {
    int32_t inWidth, inHeight, outWidth, outHeight;
    SizeXFormRoutine routine;
};

// Exact pairs of sizes with a routine of their own, 24 bits only.
const FixedPair kFixedPairs[] = {
    {176, 144, 352, 288, &CSizeXFormRGBScale::ScaleDouble24},
    {352, 288, 704, 576, &CSizeXFormRGBScale::ScaleDouble24},
    {352, 288, 176, 144, &CSizeXFormRGBScale::ScaleHalve24},
    {704, 576, 352, 288, &CSizeXFormRGBScale::ScaleHalve24},
    {160, 120, 176, 144, &CSizeXFormRGBScale::ScaleElevenTenths24},
    {320, 240, 352, 288, &CSizeXFormRGBScale::ScaleElevenTenths24},
    {640, 480, 704, 576, &CSizeXFormRGBScale::ScaleElevenTenths24},
};

// 2000 times the ratio of input to output, reckoned the way the accumulator
// has always had it: the reciprocal of the output-to-input ratio, truncated.
int32_t AccumulatorStep(int32_t inLen, int32_t outLen) {
    return TruncateToInt32((1.0 / (static_cast<double>(outLen) / static_cast<double>(inLen))) * 2000.0);
}

// Writes one pixel of N bytes count times; N fixed for the common depths so
// that a repeat is a single move.
template <int N>
uint8_t* RepeatPixelOf(uint8_t* dst, const uint8_t* pixel, int32_t count) {
    for (int32_t i = 0; i < count; ++i, dst += N) std::memcpy(dst, pixel, N);
    return dst;
}

uint8_t* RepeatPixel(uint8_t* dst, const uint8_t* pixel, int32_t bytesPerPixel, int32_t count) {
    switch (bytesPerPixel) {
        case 1: return RepeatPixelOf<1>(dst, pixel, count);
        case 2: return RepeatPixelOf<2>(dst, pixel, count);
        case 3: return RepeatPixelOf<3>(dst, pixel, count);
        case 4: return RepeatPixelOf<4>(dst, pixel, count);
        default:
            for (int32_t i = 0; i < count; ++i, dst = Step(dst, bytesPerPixel))
                if (bytesPerPixel > 0) std::memcpy(dst, pixel, static_cast<size_t>(bytesPerPixel));
            return dst;
    }
}

// After the pixels of a line: the source moves over what the runs left
// unread and the pad; the output's pad is zero.
void EndLine(const CSizeXFormRGBScale& s, const uint8_t*& src, uint8_t*& dst) {
    src = Step(src, WrapAdd(s.srcTrailBytes, s.srcLinePad));
    if (s.dstLinePad != 0) {
        if (s.dstLinePad > 0) std::memset(dst, 0, static_cast<size_t>(s.dstLinePad));
        dst = Step(dst, s.dstLinePad);
    }
}

// One output line from the current source line, by the pixel run list.
void ScaleLine(const CSizeXFormRGBScale& s, const uint8_t*& src, uint8_t*& dst) {
    const int32_t bpp = static_cast<int32_t>(s.bytesPerPixel);
    for (const ScaleRun* run = s.runsX; run != nullptr; run = run->next) {
        const int32_t bytes = WrapMul(run->count, bpp);
        switch (run->kind) {
            case RunCopy:
                if (bytes > 0) std::memcpy(dst, src, static_cast<size_t>(bytes));
                src = Step(src, bytes);
                dst = Step(dst, bytes);
                break;
            case RunDuplicate:
                // The last source pixel taken lies just before src.
                dst = RepeatPixel(dst, Step(src, -bpp), bpp, run->count);
                break;
            case RunDrop:
                src = Step(src, bytes);
                break;
            default:
                break;  // an empty list: nothing was started
        }
    }
    EndLine(s, src, dst);
}

}  // namespace

CSizeXFormRGBScale::CSizeXFormRGBScale(uint32_t fourcc, uint32_t bits)
    : CSizeXForm(fourcc, bits),
      bytesPerPixel(0),
      srcActiveBytes(0),
      srcLineSize(0),
      srcLinePad(0),
      srcTrailBytes(0),
      dstActiveBytes(0),
      dstLineSize(0),
      dstLinePad(0),
      stepX(0),
      stepY(0),
      runsX(nullptr),
      runsY(nullptr) {}

CSizeXFormRGBScale::~CSizeXFormRGBScale() {
    FreeRunList(runsX);
    FreeRunList(runsY);
}

SizeXFormRoutine CSizeXFormRGBScale::FixedRoutineFor(AbsSIZE in, AbsSIZE out) {
    for (const FixedPair& pair : kFixedPairs)
        if (in.cx == pair.inWidth && in.cy == pair.inHeight && out.cx == pair.outWidth &&
            out.cy == pair.outHeight)
            return pair.routine;
    return nullptr;
}

bool CSizeXFormRGBScale::Init(AbsSIZE in, AbsSIZE out, XFormType type, XFormInterpType interp) {
    if (type != XFormScale) return false;
    xformRoutine = nullptr;
    if (bitsPerPixel == 24) xformRoutine = FixedRoutineFor(in, out);
    if (xformRoutine == nullptr) {
        xformRoutine = &CSizeXFormRGBScale::ScaleGeneric;
        // The output size is already held as absolute values.
        PrepareGenericScale(in.cx, in.cy, out.cx, out.cy);
    }
    destBufferSize = RGBImageSize(out.cx, out.cy, static_cast<int32_t>(bitsPerPixel));
    return CSizeXForm::Init(in, out, XFormScale, interp);
}

void CSizeXFormRGBScale::PrepareGenericScale(int32_t inWidth, int32_t inHeight, int32_t outWidth,
                                             int32_t outHeight) {
    const int32_t depth = static_cast<int32_t>(bitsPerPixel);
    bytesPerPixel = bitsPerPixel >> 3;
    const int32_t bpp = static_cast<int32_t>(bytesPerPixel);
    srcActiveBytes = WrapMul(bpp, inWidth);
    srcLineSize = RGBLineSize(inWidth, depth);
    srcLinePad = WrapSub(srcLineSize, srcActiveBytes);
    dstActiveBytes = WrapMul(bpp, outWidth);
    dstLineSize = RGBLineSize(outWidth, depth);
    dstLinePad = WrapSub(dstLineSize, dstActiveBytes);
    stepX = AccumulatorStep(inWidth, outWidth);
    stepY = AccumulatorStep(inHeight, outHeight);

    pixelMap.Reserve(outWidth);
    FreeRunList(runsX);
    int32_t unconsumedPixels = 0;
    BuildRunList(inWidth, outWidth, stepX, &runsX, &unconsumedPixels);
    srcTrailBytes = WrapMul(unconsumedPixels, bpp);
    FreeRunList(runsY);
    BuildRunList(inHeight, outHeight, stepY, &runsY, nullptr);
}

// One output line through the pixel map: the same bytes and the same
// pointer movements as ScaleLine's walk of the runs.
void CSizeXFormRGBScale::MapLine(const CSizeXFormRGBScale& s, const uint8_t*& src, uint8_t*& dst) {
    dst = s.pixelMap.CopyLine(src, dst);
    src += static_cast<std::ptrdiff_t>(s.pixelMap.SourceBytes());
    EndLine(s, src, dst);
}

int32_t CSizeXFormRGBScale::ScaleGeneric(CSizeXForm* object, const uint8_t* src, uint8_t* dst) {
    CSizeXFormRGBScale& s = *static_cast<CSizeXFormRGBScale*>(object);
    // The map is made afresh from the runs each frame, so that it always
    // stands for the list as it is; where it can't, the runs are walked.
    const bool mapped = s.pixelMap.Build(s.runsX, static_cast<int32_t>(s.bytesPerPixel), s.srcLineSize);
    for (const ScaleRun* run = s.runsY; run != nullptr; run = run->next) {
        switch (run->kind) {
            case RunCopy:
                for (int32_t line = 0; line < run->count; ++line) {
                    if (mapped)
                        MapLine(s, src, dst);
                    else
                        ScaleLine(s, src, dst);
                }
                break;
            case RunDuplicate:
                // The line one back is repeated whole, pad bytes included.
                for (int32_t line = 0; line < run->count; ++line) {
                    if (s.dstLineSize > 0)
                        std::memcpy(dst, Step(dst, -s.dstLineSize), static_cast<size_t>(s.dstLineSize));
                    dst = Step(dst, s.dstLineSize);
                }
                break;
            case RunDrop:
                src = Step(src, WrapMul(run->count, s.srcLineSize));
                break;
            default:
                break;
        }
    }
    return 0;
}
