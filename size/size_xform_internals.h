// Read access to the state of a CSizeXForm for the library's own code and
// its tests.  The public header keeps these fields protected.
#ifndef PIXMOOR_SIZE_SIZE_XFORM_INTERNALS_H
#define PIXMOOR_SIZE_SIZE_XFORM_INTERNALS_H

#include <pixmoor/size.h>

struct SizeXFormInternals {
    static bool Initialised(const CSizeXForm& x) { return x.initialised != 0; }
    static bool NeedsXForm(const CSizeXForm& x) { return x.needsXForm != 0; }
    static uint32_t FourCC(const CSizeXForm& x) { return x.fourCC; }
    static uint32_t BitsPerPixel(const CSizeXForm& x) { return x.bitsPerPixel; }
    static XFormType Type(const CSizeXForm& x) { return x.xformType; }
    static XFormInterpType Interp(const CSizeXForm& x) { return x.interpType; }
    static SizeXFormRoutine Routine(const CSizeXForm& x) { return x.xformRoutine; }
};

#endif
