// Nearest-neighbour scaling of packed RGB frames: pixels and lines are
// copied, repeated or dropped, never computed.  Any pair of sizes goes
// through two run lists; seven pairs of video sizes at 24 bits have fixed
// routines of their own.
#ifndef PIXMOOR_SIZE_RGB_SCALE_H
#define PIXMOOR_SIZE_RGB_SCALE_H

#include <pixmoor/size.h>

#include "size/pixel_map.h"
#include "size/run_list.h"

class CSizeXFormRGBScale : public CSizeXForm {
public:
    CSizeXFormRGBScale(uint32_t fourcc, uint32_t bits);
    ~CSizeXFormRGBScale() override;

    bool Init(AbsSIZE in, AbsSIZE out, XFormType type, XFormInterpType interp) override;

    // Fills the line fields and rebuilds both run lists for the generic routine.
    void PrepareGenericScale(int32_t inWidth, int32_t inHeight, int32_t outWidth, int32_t outHeight);

    // Per-frame routines.  ScaleGeneric walks the run lists; the three fixed
    // routines serve 24-bit frames of the table sizes only and take no
    // account of line padding.
    static int32_t ScaleGeneric(CSizeXForm* object, const uint8_t* src, uint8_t* dst);
    static int32_t ScaleDouble24(CSizeXForm* object, const uint8_t* src, uint8_t* dst);
    static int32_t ScaleHalve24(CSizeXForm* object, const uint8_t* src, uint8_t* dst);
    static int32_t ScaleElevenTenths24(CSizeXForm* object, const uint8_t* src, uint8_t* dst);

    // Filled on the generic path only.  Public for the library's tests; the
    // class itself is internal, callers see a CSizeXForm.
    uint32_t bytesPerPixel;
    int32_t srcActiveBytes;
    int32_t srcLineSize;
    int32_t srcLinePad;
    int32_t srcTrailBytes;  // end of a source line's active part left unread
    int32_t dstActiveBytes;
    int32_t dstLineSize;
    int32_t dstLinePad;
    int32_t stepX;
    int32_t stepY;
    ScaleRun* runsX;  // owned: pixels of a line
    ScaleRun* runsY;  // owned: lines of a frame

private:
    static SizeXFormRoutine FixedRoutineFor(AbsSIZE in, AbsSIZE out);
    static void MapLine(const CSizeXFormRGBScale& s, const uint8_t*& src, uint8_t*& dst);

    // runsX flattened at the start of each frame, room reserved at Init.
    PixelMap pixelMap;
};

#endif
