// Stage 1 of Init and the per-frame routine of "RG24" to "I420".
#include "colour/rgb24_to_i420.h"

#include <pixmoor/primitives/colour.h>
#include <pixmoor/primitives/mirror.h>
#include <pixmoor/runtime.h>

#include <cstring>

#include "colour/byte_span.h"
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

// The turned-over conversion in one pass, with no turned-over copy of the
// source.  Every tier of the conversion computes a pixel's Y from that pixel
// alone and a block's U and V from sums over its four pixels, so a pair of
// rows gives the same chroma whichever of the two it takes as its upper
// row, and the same two Y rows in the other order.  So each pair of source
// rows, read from the top down, goes through the conversion entry with the
// chroma planes pointed at the pair's row of the turned-over picture and
// the Y plane at two rows of flipBuffer, which are then copied out in the
// other order: every destination byte is the one that turning the picture
// over into flipBuffer and converting that gives.  This is taken only when
// the slots of both primitives hold the library's own entries, and when the
// entries would accept the whole-frame calls (a buffer, a size of at least
// 1, an even height, source rows of the 3*W bytes the conversion steps by);
// and only when the source shares no byte with the destination (the
// turned-over copy is otherwise taken whole before anything is written) and
// the three planes share none (rows are written in another order here).
// Returns false, having done nothing, in every other case: a foreign
// function in either slot is then called as always, once for the frame.
bool ConvertTurnedOverByRowPairs(const CColorXFormRG24ToI420* t, const uint8_t* src, uint8_t* const planes[3]) {
    const int32_t width = t->size.cx;
    const int32_t height = t->size.cy;
    const int32_t line = t->srcLineSize;
    if (t->flipBuffer == nullptr || src == nullptr || planes[0] == nullptr || planes[1] == nullptr ||
        planes[2] == nullptr || width < 1 || height < 2 || (height & 1) != 0 || (width & 1) != 0 ||
        int64_t{line} != int64_t{width} * 3)
        return false;
    const int32_t chromaLine = width >> 1;
    const int32_t chromaRows = height >> 1;
    const ByteSpan luma = ByteSpan::OfRows(planes[0], width, height, width);
    const ByteSpan first = ByteSpan::OfRows(planes[1], chromaLine, chromaRows, chromaLine);
    const ByteSpan second = ByteSpan::OfRows(planes[2], chromaLine, chromaRows, chromaLine);
    if (luma.Overlaps(first) || luma.Overlaps(second) || first.Overlaps(second) ||
        ByteSpan::OfRows(src, line, height, line).Overlaps(luma.Join(first).Join(second)))
        return false;
    if (dispatch::OwnEntryInSlot<MirrorEntry>(dispatch::kRow_ImgMirror8uC3) == nullptr) return false;
    const ConvertEntry convert = dispatch::OwnEntryInSlot<ConvertEntry>(dispatch::kRow_ImgRGBToYUV420);
    if (convert == nullptr) return false;

    uint8_t* const lumaPair = t->flipBuffer;
    const uint8_t* pair = src;
    // Source rows 2j and 2j+1 are rows H-1-2j and H-2-2j of the turned-over
    // picture, whose chroma row is H/2-1-j.
    for (int32_t top = height - 2; top >= 0; top -= 2, pair += 2 * int64_t{line}) {
        const int64_t chromaAt = int64_t{chromaLine} * (top >> 1);
        uint8_t* const out[3] = {lumaPair, planes[1] + chromaAt, planes[2] + chromaAt};
        convert(pair, out, width, 2);
        std::memcpy(planes[0] + int64_t{width} * top, lumaPair + width, static_cast<size_t>(width));
        std::memcpy(planes[0] + int64_t{width} * (top + 1), lumaPair, static_cast<size_t>(width));
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
        if (ConvertTurnedOverByRowPairs(t, src, planes)) return;
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
