// Colour transforms: CColorXForm, its factory and leaf classes.
//
// A transform turns whole frames of one format code into another.  Ask the
// factory for a pair, initialise it once for a size and two orientations,
// read DestBufferSize, then push frames through XForm:
//
//     CColorXForm* x = CColorXForm::CreateInstance(FCC_YUY2, FCC_RG24);
//     if (x && x->Init(AbsSIZE(320, 240), CColorXForm::OrientDefault,
//                      CColorXForm::OrientDefault)) {
//         std::vector<uint8_t> rgb(x->DestBufferSize());
//         x->XForm(yuy2Frame, rgb.data(), 0);
//     }
//     delete x;
//
// The caller's contract: XForm checks nothing.  It must follow a successful
// Init, the source must hold a whole picture in the source format's layout
// and the destination must have room for the picture at the pitch passed
// (DestBufferSize bytes for the default pitch; some pairs write past it, see
// below).  Sizes must be multiples of 4.  A zero size passes Init, but the
// RG24 repacking pairs and the planar pairs to RG32, RG55 and RG56 still
// write a pixel for it: do not push frames through a transform of zero size.
//
// What each destination pitch means (0 asks for the default where one exists):
//   YUY2/UYVY -> RG24/RG32/RG55/RG56, RG24 -> RG32/RG55/RG56: 0 is the tight
//       line; other values are the distance between row starts.
//   RG24->RG24, RG32->RG32, RG55->RG55, RG56->RG56: the pitch is used only
//       when the picture is turned over, and 0 then stacks every row on the
//       first one; unflipped, the picture is copied as one tight block.
//   I420/YV12 -> RG24: 0 or the tight line give a tight picture.
//   I420/YV12 -> RG32: 0 starts every row one byte later than a tight row.
//   I420/YV12 -> RG55/RG56: 0 stacks every row on the first one.
//   Pairs to I420 always write the tight planar layout.
// The 5-5-5 words written from YUY2/UYVY keep their fields in bits 15..1
// (bit 0 clear), unlike every other 5-5-5 writer of the library.
// A flip is made where the two orientations differ and the pair honours
// orientation: the packed YUV pairs to RG24 and RG32, the RG24 repacking
// pairs, the copying pairs and the planar pair to RG24.  I420 to I420 is
// accepted and initialised but converts nothing; never call XForm on it.
#ifndef PIXMOOR_COLOUR_H
#define PIXMOOR_COLOUR_H

#include <cstdint>
#include <pixmoor/export.h>
#include <pixmoor/geometry.h>

class PIXMOOR_API CColorXForm {
public:
    // Only equality of the two orientations of a transform matters; any
    // non-zero value is kept as it was given.
    enum EOrientation : int32_t {
        OrientDefault = 0,   // the natural orientation of the format
        OrientTopDown = 1,   // natural for the YUV formats
        OrientBottomUp = 2   // natural for the RGB formats
    };

    // The per-frame work of a transform, chosen at Init.
    typedef void (*XFormRoutine)(const CColorXForm* xform, const uint8_t* src, uint8_t* dst,
                                 uint32_t destPitch);

    virtual ~CColorXForm();

    // Computes every size, offset and buffer for one picture size.  Fails
    // when the width or height is no multiple of 4 (or a helper buffer can't
    // be had).  May be called again for another size.
    virtual bool Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation);

    // A new transform for the pair, or null for a pair the library has no
    // road for (or when memory ran out).  Aliases select the same road.
    static CColorXForm* CreateInstance(uint32_t src, uint32_t dest);

    // Answers by creating and initialising a transform, then deleting it.
    static bool IsSupported(uint32_t src, uint32_t dest, AbsSIZE size, EOrientation srcOrientation,
                            EOrientation destOrientation);

    // False only for two different spellings of one packed format, or for
    // IYUV against I420.
    static bool NeedsConversion(uint32_t codeA, uint32_t codeB);

    // Converts one frame.  Checks nothing; see the caller's contract above.
    void XForm(const uint8_t* src, uint8_t* dst, uint32_t destPitch);

    // Bytes of one destination picture at the default pitch.
    int32_t DestBufferSize() const;

protected:
    CColorXForm(uint32_t src, uint32_t dest);

    bool initialised;
    uint32_t srcFCC;
    uint32_t destFCC;
    AbsSIZE size;
    int32_t destBufferSize;
    XFormRoutine xformRoutine;
    EOrientation srcOrientation;
    EOrientation destOrientation;

private:
    // Transforms are not to be copied.
    CColorXForm();
    CColorXForm(const CColorXForm& other);
    CColorXForm& operator=(const CColorXForm& other);
};

#endif
