// Argument checks of the colour primitives' wrappers.  The order of the
// checks decides which status a call with several bad arguments gets, so it
// is fixed here once:
//   1. the outer pointers, all at once (buffers, plane arrays, step arrays): -8
//   2. width or height below 1: -6
//   3. each pointer inside a plane array, in array order, source first: -8
//   4. each step below 1, in argument order (plane steps before dstStep): -14
// A chain stops at its first failure; later links then test nothing.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_WRAPPER_CHECKS_H
#define PIXMOOR_PRIMITIVES_COLOUR_WRAPPER_CHECKS_H

#include <pixmoor/runtime.h>

#include <cstdint>
#include <initializer_list>

namespace pixmoor::colour {

class ArgChecks {
public:
    // Step 1.  Takes every outer pointer of the call.
    ArgChecks& Pointers(std::initializer_list<const void*> pointers) {
        for (const void* p : pointers)
            if (status_ == PrimStatusOk && p == nullptr) status_ = PrimStatusNullPointer;
        return *this;
    }

    // Step 2.
    ArgChecks& Size(int32_t width, int32_t height) {
        if (status_ == PrimStatusOk && (width < 1 || height < 1)) status_ = PrimStatusSizeError;
        return *this;
    }

    // Step 3, for one plane array.
    template <typename Plane>
    ArgChecks& Planes(const Plane* const planes) {
        for (int i = 0; i < 3; ++i)
            if (status_ == PrimStatusOk && planes[i] == nullptr) status_ = PrimStatusNullPointer;
        return *this;
    }

    // Step 4, for one step value or one array of three.
    ArgChecks& Step(int32_t step) {
        if (status_ == PrimStatusOk && step < 1) status_ = PrimStatusStepError;
        return *this;
    }
    ArgChecks& Steps(const int32_t* steps) {
        for (int i = 0; i < 3; ++i) Step(steps[i]);
        return *this;
    }

    PrimStatus Status() const { return status_; }

private:
    PrimStatus status_ = PrimStatusOk;
};

// The argument shapes of the colour primitives.

// src, srcStep, dst, dstStep, width, height
inline PrimStatus CheckPackedToPacked(const void* src, int32_t srcStep, const void* dst,
                                      int32_t dstStep, int32_t width, int32_t height) {
    return ArgChecks().Pointers({src, dst}).Size(width, height).Step(srcStep).Step(dstStep).Status();
}

// src, srcStep, dst[3], dstStep[3], width, height
template <typename Plane>
PrimStatus CheckPackedToPlanes(const void* src, int32_t srcStep, Plane* const dst,
                               const int32_t* dstStep, int32_t width, int32_t height) {
    return ArgChecks()
        .Pointers({src, dst, dstStep})
        .Size(width, height)
        .Planes(dst)
        .Step(srcStep)
        .Steps(dstStep)
        .Status();
}

// src[3], srcStep[3], dst, dstStep, width, height
template <typename Plane>
PrimStatus CheckPlanesToPacked(Plane* const src, const int32_t* srcStep, const void* dst,
                               int32_t dstStep, int32_t width, int32_t height) {
    return ArgChecks()
        .Pointers({src, srcStep, dst})
        .Size(width, height)
        .Planes(src)
        .Steps(srcStep)
        .Step(dstStep)
        .Status();
}

// src[3], srcStep, dst[3], dstStep[3], width, height: full-size source planes
template <typename SrcPlane, typename DstPlane>
PrimStatus CheckPlanesToPlanes(SrcPlane* const src, int32_t srcStep, DstPlane* const dst,
                               const int32_t* dstStep, int32_t width, int32_t height) {
    return ArgChecks()
        .Pointers({src, dst, dstStep})
        .Size(width, height)
        .Planes(src)
        .Planes(dst)
        .Step(srcStep)
        .Steps(dstStep)
        .Status();
}

// src[3], srcStep[3], dst[3], dstStep, width, height: subsampled source planes
template <typename SrcPlane, typename DstPlane>
PrimStatus CheckPlanesToPlanes(SrcPlane* const src, const int32_t* srcStep, DstPlane* const dst,
                               int32_t dstStep, int32_t width, int32_t height) {
    return ArgChecks()
        .Pointers({src, srcStep, dst})
        .Size(width, height)
        .Planes(src)
        .Planes(dst)
        .Steps(srcStep)
        .Step(dstStep)
        .Status();
}

// Compact forms: no steps to test.

// src, dst[3], width, height
template <typename Plane>
PrimStatus CheckPackedToPlanesCompact(const void* src, Plane* const dst, int32_t width,
                                      int32_t height) {
    return ArgChecks().Pointers({src, dst}).Size(width, height).Planes(dst).Status();
}

// src[3], dst, width, height
template <typename Plane>
PrimStatus CheckPlanesToPackedCompact(Plane* const src, const void* dst, int32_t width,
                                      int32_t height) {
    return ArgChecks().Pointers({src, dst}).Size(width, height).Planes(src).Status();
}

// src[3], dst[3], width, height
template <typename SrcPlane, typename DstPlane>
PrimStatus CheckPlanesToPlanesCompact(SrcPlane* const src, DstPlane* const dst, int32_t width,
                                      int32_t height) {
    return ArgChecks().Pointers({src, dst}).Size(width, height).Planes(src).Planes(dst).Status();
}

}  // namespace pixmoor::colour

#endif
