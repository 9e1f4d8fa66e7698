// Stage 1 of Init and the per-frame routine of "RG24" to "I420".
#include "colour/rgb24_to_i420.h"

#include <pixmoor/primitives/colour.h>
#include <pixmoor/primitives/mirror.h>
#include <pixmoor/runtime.h>

#include "colour/strips.h"
#include "geometry/wrapping.h"
#include "runtime/dispatch.h"

CColorXFormRG24ToI420::~CColorXFormRG24ToI420() {
    delete[] flipBuffer;
    flipBuffer = nullptr;
}

bool CColorXFormRG24ToI420::Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) {
    this->srcOrientation = pixmoor::ResolveOrientation(srcOrientation, pixmoor::kRgbNatural);
    xformRoutine = pixmoor::RG24ToI420Routine;
    srcLineSize = RGBLineSize(size.cx, 24);
    // Allocated whether a flip will be needed or not.  This class has always
    // replaced the pointer without releasing a buffer from an earlier Init
    // and without testing the allocation: a missing buffer shows only when a
    // flip runs, as a status that the routine drops.
    flipBuffer = pixmoor::NewByteBlock(pixmoor::WrapMul(srcLineSize, size.cy));
    PrimSelectBestTier();  // the result is not needed: the slots always hold some tier
    return CColorXFormToI420::Init(size, srcOrientation, destOrientation);
}

namespace pixmoor {
namespace {

using MirrorEntry = decltype(&px_ImgMirror8uC3);
using ConvertEntry = decltype(&px_ImgRGBToYUV420);

// The turn-over and the conversion one strip of rows at a time, when both
// slots hold the library's own entries and every strip call is one those
// entries accept: each strip of flipBuffer rows is filled from the source's
// matching rows by the mirror entry and converted at once by the conversion
// entry, with the plane pointers moved to the strip's rows.  The rows come
// out as the two passes over the whole frame give them.  Returns false,
// having done nothing, wherever that could differ: a foreign function in a
// slot (called as always, once for the frame), a missing buffer, a size the
// entries refuse, source rows that are not the 3*W bytes the conversion
// steps by, or a source that shares bytes with the destination (the whole
// turned-over copy is then taken before anything is written).
bool MirrorAndConvertInStrips(const CColorXFormRG24ToI420* t, const uint8_t* src, uint8_t* const planes[3]) {
    const int32_t width = t->size.cx;
    const int32_t height = t->size.cy;
    const int32_t line = t->srcLineSize;
    if (t->flipBuffer == nullptr || src == nullptr || planes[0] == nullptr || planes[1] == nullptr ||
        planes[2] == nullptr || width < 1 || height < 1 || (width & 1) != 0 ||
        int64_t{line} != int64_t{width} * 3)
        return false;
    const int64_t lumaRows = width;
    const int64_t chromaRows = width >> 1;
    const ByteSpan written = ByteSpan::OfRows(planes[0], lumaRows, height, width)
                                 .Join(ByteSpan::OfRows(planes[1], chromaRows, (height + 1) >> 1, width >> 1))
                                 .Join(ByteSpan::OfRows(planes[2], chromaRows, (height + 1) >> 1, width >> 1));
    if (ByteSpan::OfRows(src, line, height, line).Overlaps(written)) return false;
    const MirrorEntry mirror = dispatch::OwnEntryInSlot<MirrorEntry>(dispatch::kRow_ImgMirror8uC3);
    const ConvertEntry convert = dispatch::OwnEntryInSlot<ConvertEntry>(dispatch::kRow_ImgRGBToYUV420);
    if (mirror == nullptr || convert == nullptr) return false;

    const int32_t strip = StripRows(line);
    for (int32_t top = 0; top < height; top += strip) {
        const int32_t rows = height - top < strip ? height - top : strip;
        // Rows top .. top+rows-1 of the turned-over picture are source rows
        // H-top-rows .. H-1-top, in reverse order.
        const uint8_t* from = src + int64_t{line} * (height - top - rows);
        mirror(from, line, t->flipBuffer, line, width, rows, MirrorHorizontalAxis);
        uint8_t* const stripPlanes[3] = {planes[0] + lumaRows * top, planes[1] + chromaRows * (top >> 1),
                                         planes[2] + chromaRows * (top >> 1)};
        convert(t->flipBuffer, stripPlanes, width, rows);
    }
    return true;
}

}  // namespace

void RG24ToI420Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t) {
    const auto* t = static_cast<const CColorXFormRG24ToI420*>(xform);
    const int32_t width = t->size.cx;
    const int32_t height = t->size.cy;
    // The primitive reads red, green, blue; the source holds blue, green,
    // red.  Giving it the V location as its second plane and the U location
    // as its third puts each chroma plane where "I420" keeps it.  Source
    // rows are taken as 3*W bytes, which is the line size at every width
    // Init accepts.
    uint8_t* const planes[3] = {dst, Step(dst, t->destVOffset), Step(dst, t->destUOffset)};
    const uint8_t* rgb = src;
    if (t->Flips()) {
        if (MirrorAndConvertInStrips(t, src, planes)) return;
        // Row r of the source goes to row H-1-r of flipBuffer, which is then
        // converted in its place.  Should the buffer be missing, both
        // primitives refuse the null pointer and the destination stays as
        // it was.
        ImgMirror8uC3(src, t->srcLineSize, t->flipBuffer, t->srcLineSize, width, height, MirrorHorizontalAxis);
        rgb = t->flipBuffer;
    }
    ImgRGBToYUV420(rgb, planes, width, height);
}

}  // namespace pixmoor
