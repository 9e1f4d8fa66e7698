// The class tree below CColorXForm: one intermediate class per destination
// format (stage 2 of Init: destination orientation and geometry) and the
// template that the leaf classes without fields of their own are made of.
// Library-internal: the public header shows only CColorXForm.  These classes
// re-publish the root's fields so that the routines, which are plain
// functions chosen at Init, can read them.
#ifndef PIXMOOR_COLOUR_TRANSFORM_CLASSES_H
#define PIXMOOR_COLOUR_TRANSFORM_CLASSES_H

#include <pixmoor/colour.h>

namespace pixmoor {

// Natural orientations of the two kinds of format.
constexpr CColorXForm::EOrientation kYuvNatural = CColorXForm::OrientTopDown;
constexpr CColorXForm::EOrientation kRgbNatural = CColorXForm::OrientBottomUp;

// The argument if it is non-zero (kept as it stands), else the default.
inline CColorXForm::EOrientation ResolveOrientation(CColorXForm::EOrientation given,
                                                    CColorXForm::EOrientation natural) {
    return given != CColorXForm::OrientDefault ? given : natural;
}

// Bits of one pixel of an RGB destination code.
constexpr int32_t RgbBitsOf(uint32_t fcc) {
    return fcc == FCC_RG24 ? 24 : fcc == FCC_RG32 ? 32 : 16;
}

// A block of `count` bytes, or null.  The count is the 32-bit number the
// transform computed, taken as unsigned.
uint8_t* NewByteBlock(int32_t count);

}  // namespace pixmoor

// What every class below the root shows of it.
class CColorXFormFields : public CColorXForm {
public:
    using CColorXForm::destBufferSize;
    using CColorXForm::destFCC;
    using CColorXForm::destOrientation;
    using CColorXForm::initialised;
    using CColorXForm::size;
    using CColorXForm::srcFCC;
    using CColorXForm::srcOrientation;
    using CColorXForm::xformRoutine;

    // True when the picture is to be turned over (for the pairs that honour
    // orientation at all).
    bool Flips() const { return srcOrientation != destOrientation; }

protected:
    CColorXFormFields(uint32_t src, uint32_t dest) : CColorXForm(src, dest) {}
};

// Destination "I420": the tight planar layout.
class CColorXFormToI420 : public CColorXFormFields {
public:
    bool Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) override;

    int32_t destYSize = 0;
    int32_t destChromaSize = 0;
    int32_t destUOffset = 0;
    int32_t destVOffset = 0;

protected:
    CColorXFormToI420(uint32_t src, uint32_t dest) : CColorXFormFields(src, dest) {}
};

// Destinations "RG24", "RG32", "RG55" and "RG56": rows of destLineSize bytes.
template <uint32_t DestFCC>
class CColorXFormToRGB : public CColorXFormFields {
public:
    static constexpr uint32_t kDestFCC = DestFCC;
    static constexpr int32_t kBitsPerPixel = pixmoor::RgbBitsOf(DestFCC);

    bool Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) override;

    int32_t destLineSize = 0;

protected:
    CColorXFormToRGB(uint32_t src, uint32_t dest) : CColorXFormFields(src, dest) {}
};

using CColorXFormToRG24 = CColorXFormToRGB<FCC_RG24>;
using CColorXFormToRG32 = CColorXFormToRGB<FCC_RG32>;
using CColorXFormToRG55 = CColorXFormToRGB<FCC_RG55>;
using CColorXFormToRG56 = CColorXFormToRGB<FCC_RG56>;

extern template class CColorXFormToRGB<FCC_RG24>;
extern template class CColorXFormToRGB<FCC_RG32>;
extern template class CColorXFormToRGB<FCC_RG55>;
extern template class CColorXFormToRGB<FCC_RG56>;

// A leaf class with no fields of its own: stage 1 resolves the source
// orientation and installs the routine, then the destination's stage runs.
template <class Dest, CColorXForm::EOrientation NaturalSrc, CColorXForm::XFormRoutine Routine>
class CColorXFormRoutedLeaf : public Dest {
public:
    CColorXFormRoutedLeaf(uint32_t src, uint32_t dest) : Dest(src, dest) {}

    bool Init(AbsSIZE size, CColorXForm::EOrientation srcOrientation,
              CColorXForm::EOrientation destOrientation) override {
        this->srcOrientation = pixmoor::ResolveOrientation(srcOrientation, NaturalSrc);
        this->xformRoutine = Routine;
        return Dest::Init(size, srcOrientation, destOrientation);
    }
};

#endif
