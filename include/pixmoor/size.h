// Size transforms: CSizeXForm, crop and pad of planar frames, RGB scaling.
//
// A caller asks the factory for a transform by format code and bit depth,
// initialises it with an input size, an output size and a transform type,
// reads DestBufferSize to size its destination buffer, and then passes one
// frame per XForm call.  The library allocates no frame: source and
// destination belong to the caller, and XForm trusts both pointers.
//
// Caller's contract (nothing of it is checked):
// - XForm is called only after a successful Init; before it the routine is
//   null and the call faults.
// - A crop and pad transform whose height changes writes more than
//   DestBufferSize bytes (the chroma borders are counted in luma bytes), and
//   in the crop case reads past the end of the source frame by the same
//   amount.  Buffers must be large enough for that.
// - Once an Init has seen equal input and output sizes, XForm copies
//   DestBufferSize bytes for the rest of the object's life.
#ifndef PIXMOOR_SIZE_H
#define PIXMOOR_SIZE_H

#include <cstdint>
#include <pixmoor/export.h>
#include <pixmoor/geometry.h>

// Only the value 1 is tested for; every other value counts as crop and pad.
PIXMOOR_ENUM(XFormType) {
    XFormCropPad = 0,
    XFormScale = 1
};

// Stored by Init; no transform acts on it.
PIXMOOR_ENUM(XFormInterpType) {
    InterpDefault = 1
};

// One interpolation mode as SupportedInterp reports it.
struct SInterpInfo {
    int32_t interpType;
    int32_t interpAux;
};

class CSizeXForm;

// The per-frame routine an Init chooses; its result is ignored.
typedef int32_t (*SizeXFormRoutine)(CSizeXForm* object, const uint8_t* src, uint8_t* dst);

class PIXMOOR_API CSizeXForm {
public:
    // Returns a new transform for the format code, owned by the caller and
    // ended through the virtual destructor, or null for an unknown code.
    static CSizeXForm* CreateInstance(uint32_t fourcc, uint32_t bits);
    // Answers by initialising a fresh transform with InterpDefault.
    static bool IsSupported(uint32_t fourcc, uint32_t bits, AbsSIZE in, AbsSIZE out, XFormType type);

    virtual ~CSizeXForm();
    // Fills info[0] when capacity is at least 1; returns the number of modes, 1.
    virtual int32_t SupportedInterp(int32_t capacity, SInterpInfo* info);
    virtual bool Init(AbsSIZE in, AbsSIZE out, XFormType type, XFormInterpType interp);

    void XForm(const uint8_t* src, uint8_t* dst);
    int32_t DestBufferSize() const;
    AbsSIZE& GetInputSize();
    AbsSIZE& GetOutputSize();

protected:
    CSizeXForm(uint32_t fourcc, uint32_t bits);

    uint8_t initialised;
    uint8_t needsXForm;  // cleared by an Init with equal sizes, never set again
    uint32_t fourCC;
    uint32_t bitsPerPixel;
    AbsSIZE inputSize;
    AbsSIZE outputSize;
    int32_t destBufferSize;
    XFormType xformType;
    XFormInterpType interpType;
    SizeXFormRoutine xformRoutine;

private:
    // Copying is forbidden.
    CSizeXForm();
    CSizeXForm(const CSizeXForm& other);
    CSizeXForm& operator=(const CSizeXForm& other);

    friend struct SizeXFormInternals;
};

#endif
