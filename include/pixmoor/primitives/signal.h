/* Signal primitives: sums with hints and scale factors, and the threshold
   family on real and complex vectors.  C linkage; compiles as C99 and as C++.

   Every member exists in the four tiers (px_, m6_, a6_, w7_) and under its
   plain name.  SigSum32f and SigThreshold32fI are reached through dispatch
   slots; the others run the tier that PrimGetTier reports. */
#ifndef PIXMOOR_PRIMITIVES_SIGNAL_H
#define PIXMOOR_PRIMITIVES_SIGNAL_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

/* Direction of a threshold: 4 limits from above; every other value limits
   from below. */
typedef PIXMOOR_ENUM(SigCmpOp) {
    SigCmpLT = 0,
    SigCmpGT = 4
} SigCmpOp;

/* Sums.  Lengths count elements (complex elements for complex vectors). */
PIXMOOR_TIERED(PrimStatus, SigSum32f,
               (const float* src, int32_t len, float* sum, PrimAlgHint hint));
PIXMOOR_TIERED(PrimStatus, SigSum64f, (const double* src, int32_t len, double* sum));
PIXMOOR_TIERED(PrimStatus, SigSum32fc,
               (const SigComplex32f* src, int32_t len, SigComplex32f* sum, PrimAlgHint hint));
PIXMOOR_TIERED(PrimStatus, SigSum16s32sSfs,
               (const int16_t* src, int32_t len, int32_t* sum, int32_t scaleFactor));
PIXMOOR_TIERED(PrimStatus, SigSum16sc32scSfs,
               (const SigComplex16s* src, int32_t len, SigComplex32s* sum, int32_t scaleFactor));
PIXMOOR_TIERED(PrimStatus, SigSum16sSfs,
               (const int16_t* src, int32_t len, int16_t* sum, int32_t scaleFactor));
PIXMOOR_TIERED(PrimStatus, SigSum16scSfs,
               (const SigComplex16s* src, int32_t len, SigComplex16s* sum, int32_t scaleFactor));

/* Threshold family: five kinds for each element type, in place (trailing I)
   and to a destination.  The level has the element's real type; the
   replacement value of the Val kinds has the element type. */
#define PIXMOOR_SIG_THRESHOLD_MEMBERS(sfx, Elem, Level)                                           \
    PIXMOOR_TIERED(PrimStatus, SigThreshold##sfx##I,                                              \
                   (Elem* srcDst, int32_t len, Level level, SigCmpOp relOp));                     \
    PIXMOOR_TIERED(PrimStatus, SigThreshold##sfx,                                                 \
                   (const Elem* src, Elem* dst, int32_t len, Level level, SigCmpOp relOp));       \
    PIXMOOR_TIERED(PrimStatus, SigThresholdLT##sfx##I, (Elem* srcDst, int32_t len, Level level)); \
    PIXMOOR_TIERED(PrimStatus, SigThresholdLT##sfx,                                               \
                   (const Elem* src, Elem* dst, int32_t len, Level level));                       \
    PIXMOOR_TIERED(PrimStatus, SigThresholdGT##sfx##I, (Elem* srcDst, int32_t len, Level level)); \
    PIXMOOR_TIERED(PrimStatus, SigThresholdGT##sfx,                                               \
                   (const Elem* src, Elem* dst, int32_t len, Level level));                       \
    PIXMOOR_TIERED(PrimStatus, SigThresholdLTVal##sfx##I,                                         \
                   (Elem* srcDst, int32_t len, Level level, Elem value));                         \
    PIXMOOR_TIERED(PrimStatus, SigThresholdLTVal##sfx,                                            \
                   (const Elem* src, Elem* dst, int32_t len, Level level, Elem value));           \
    PIXMOOR_TIERED(PrimStatus, SigThresholdGTVal##sfx##I,                                         \
                   (Elem* srcDst, int32_t len, Level level, Elem value));                         \
    PIXMOOR_TIERED(PrimStatus, SigThresholdGTVal##sfx,                                            \
                   (const Elem* src, Elem* dst, int32_t len, Level level, Elem value))

PIXMOOR_SIG_THRESHOLD_MEMBERS(32f, float, float);
PIXMOOR_SIG_THRESHOLD_MEMBERS(32fc, SigComplex32f, float);
PIXMOOR_SIG_THRESHOLD_MEMBERS(64f, double, double);
PIXMOOR_SIG_THRESHOLD_MEMBERS(64fc, SigComplex64f, double);
PIXMOOR_SIG_THRESHOLD_MEMBERS(16s, int16_t, int16_t);
PIXMOOR_SIG_THRESHOLD_MEMBERS(16sc, SigComplex16s, int16_t);

#undef PIXMOOR_SIG_THRESHOLD_MEMBERS

PIXMOOR_EXTERN_C_END

#endif
