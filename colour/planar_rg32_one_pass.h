// "I420"/"YV12" to "RG32" in one pass, where the conversion's slot holds
// one of the library's own entries (px, m6, a6, w7): each pixel goes
// straight into the destination as four bytes, with no 3-byte picture in
// between.
//
// The two passes leave each frame's 3-byte picture in rgbBuffer, and a
// later frame whose conversion fails (or whose slot holds a function that
// writes only part of it) widens what is left there.  So that such a frame
// still finds the picture of the last frame converted, a frame that goes
// in one pass keeps a copy of the planes it read in rgbBuffer instead (half
// the bytes of the picture), and a mark in the buffer's last byte, which
// the picture never reaches, tells which of the two the buffer holds; the
// next frame that goes through the buffer first turns the copy back into
// the picture.
#ifndef PIXMOOR_COLOUR_PLANAR_RG32_ONE_PASS_H
#define PIXMOOR_COLOUR_PLANAR_RG32_ONE_PASS_H

#include <cstdint>

#include "colour/planar_to_rgb.h"

namespace pixmoor {

// Called by Init once rgbBuffer (of RGBImageSize(W, H, 32) bytes) is
// there: the buffer holds a picture, of no frame yet.
void MarkRG32BufferFresh(uint8_t* rgbBuffer, AbsSIZE size);

// Converts the frame in one pass when the slot, the sizes, the placement
// of the rows (`gap` bytes after each) and the buffers allow it exactly;
// returns false, having done nothing, otherwise.  `planes` are the three
// planes as handed to the conversion.
bool ConvertRG32InOnePass(const CColorXFormPlanarToRG32* t, const uint8_t* const planes[3], uint8_t* dst,
                          int32_t gap);

// Before a frame goes through rgbBuffer: brings back the picture of the
// last frame converted, if that frame went in one pass.
void RestoreRG32Picture(const CColorXFormPlanarToRG32* t);

}  // namespace pixmoor

#endif
