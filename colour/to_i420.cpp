// Stage 1 and the routines of the scalar roads into "I420".
#include "colour/to_i420.h"

#include "colour/block_copy.h"
#include "colour/fast_rows.h"
#include "geometry/wrapping.h"

using pixmoor::ResolveOrientation;
using pixmoor::Step;
using pixmoor::WrapAdd;
using pixmoor::WrapMul;

bool CColorXFormI420ToI420::Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) {
    this->srcOrientation = ResolveOrientation(srcOrientation, pixmoor::kYuvNatural);
    yLineSize = size.cx;
    chromaLineSize = size.cx >> 1;
    return CColorXFormToI420::Init(size, srcOrientation, destOrientation);
}

bool CColorXFormYV12ToI420::Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) {
    this->srcOrientation = ResolveOrientation(srcOrientation, pixmoor::kYuvNatural);
    xformRoutine = pixmoor::YV12ToI420Routine;
    srcYSize = WrapMul(size.cx, size.cy);
    srcChromaSize = srcYSize / 4;
    return CColorXFormToI420::Init(size, srcOrientation, destOrientation);
}

template <class Layout>
bool CColorXFormPackedToI420<Layout>::Init(AbsSIZE size, EOrientation srcOrientation,
                                           EOrientation destOrientation) {
    this->srcOrientation = ResolveOrientation(srcOrientation, pixmoor::kYuvNatural);
    xformRoutine = pixmoor::PackedToI420Routine<Layout>;
    srcLineSize = WrapMul(2, size.cx);
    return CColorXFormToI420::Init(size, srcOrientation, destOrientation);
}

template class CColorXFormPackedToI420<pixmoor::LayoutYUY2>;
template class CColorXFormPackedToI420<pixmoor::LayoutUYVY>;

namespace pixmoor {

void YV12ToI420Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t) {
    const auto* t = static_cast<const CColorXFormYV12ToI420*>(xform);
    if (t->Flips()) return;
    const int32_t ySize = t->srcYSize;
    const int32_t chromaSize = t->srcChromaSize;
    const int32_t secondPlane = WrapAdd(ySize, chromaSize);
    CopyBlock(dst, src, static_cast<uint32_t>(ySize));
    CopyBlock(Step(dst, ySize), Step(src, secondPlane), static_cast<uint32_t>(chromaSize));  // U
    CopyBlock(Step(dst, secondPlane), Step(src, ySize), static_cast<uint32_t>(chromaSize));  // V
}

template <class Layout>
void PackedToI420Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t) {
    const auto* t = static_cast<const CColorXFormPackedToI420<Layout>*>(xform);
    const int32_t width = t->size.cx;
    const int32_t rowPairs = t->size.cy >> 1;
    const int32_t pixelPairs = width >> 1;
    const int32_t srcLineSize = t->srcLineSize;
    uint8_t* uOut = Step(dst, t->destUOffset);
    uint8_t* vOut = Step(dst, t->destVOffset);
    // Whole vector blocks of a row pair first, where the processor has
    // them; the scalar loop below does the pairs left over.
    const PackedToI420RowKernel fast = FastPackedToI420RowPair(Layout::kYLeft == 1);
    for (int32_t rowPair = 0; rowPair < rowPairs; ++rowPair) {
        const uint8_t* upper = src;
        const uint8_t* lower = Step(src, srcLineSize);
        uint8_t* yUpper = dst;
        uint8_t* yLower = Step(dst, width);
        const int32_t done = fast != nullptr ? fast(upper, lower, yUpper, yLower, uOut, vOut, pixelPairs) : 0;
        upper += 4 * done;
        lower += 4 * done;
        yUpper += 2 * done;
        yLower += 2 * done;
        uOut += done;
        vOut += done;
        for (int32_t pair = done; pair < pixelPairs; ++pair) {
            yUpper[0] = upper[Layout::kYLeft];
            yUpper[1] = upper[Layout::kYRight];
            yLower[0] = lower[Layout::kYLeft];
            yLower[1] = lower[Layout::kYRight];
            // Plain sums cut by the shift: no rounding term.
            *uOut++ = static_cast<uint8_t>((lower[Layout::kU] + upper[Layout::kU]) >> 1);
            *vOut++ = static_cast<uint8_t>((lower[Layout::kV] + upper[Layout::kV]) >> 1);
            upper += 4;
            lower += 4;
            yUpper += 2;
            yLower += 2;
        }
        src = Step(src, WrapMul(2, srcLineSize));
        dst = Step(dst, WrapMul(2, width));
    }
}

template void PackedToI420Routine<LayoutYUY2>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);
template void PackedToI420Routine<LayoutUYVY>(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t);

}  // namespace pixmoor
