// Plain names of the threshold family: each runs the tier that PrimGetTier
// reports.  SigThreshold32fI is a dispatch row, so its plain name is the
// row's stub and is not defined here.
#include <pixmoor/primitives/signal.h>

#include "runtime/tier_call.h"

#define PIXMOOR_THRESHOLD_PLAIN_IN_PLACE(sfx, Elem, Level)   \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, SigThreshold##sfx##I, \
                           (Elem * v, int32_t len, Level level, SigCmpOp relOp), (v, len, level, relOp))

#define PIXMOOR_THRESHOLD_PLAIN_DIRECTED(kind, sfx, Elem, Level)                                         \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, SigThreshold##kind##sfx##I, (Elem * v, int32_t len, Level level), \
                           (v, len, level))                                                              \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, SigThreshold##kind##sfx,                                          \
                           (const Elem* s, Elem* d, int32_t len, Level level), (s, d, len, level))

#define PIXMOOR_THRESHOLD_PLAIN_REPLACING(kind, sfx, Elem, Level)                                    \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, SigThreshold##kind##sfx##I,                                   \
                           (Elem * v, int32_t len, Level level, Elem value), (v, len, level, value)) \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, SigThreshold##kind##sfx,                                      \
                           (const Elem* s, Elem* d, int32_t len, Level level, Elem value),           \
                           (s, d, len, level, value))

// Every member of a type but SigThreshold<type>I.
#define PIXMOOR_THRESHOLD_PLAIN(sfx, Elem, Level)                                              \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, SigThreshold##sfx,                                      \
                           (const Elem* s, Elem* d, int32_t len, Level level, SigCmpOp relOp), \
                           (s, d, len, level, relOp))                                          \
    PIXMOOR_THRESHOLD_PLAIN_DIRECTED(LT, sfx, Elem, Level)                                     \
    PIXMOOR_THRESHOLD_PLAIN_DIRECTED(GT, sfx, Elem, Level)                                     \
    PIXMOOR_THRESHOLD_PLAIN_REPLACING(LTVal, sfx, Elem, Level)                                 \
    PIXMOOR_THRESHOLD_PLAIN_REPLACING(GTVal, sfx, Elem, Level)

PIXMOOR_THRESHOLD_PLAIN(32f, float, float)
PIXMOOR_THRESHOLD_PLAIN(32fc, SigComplex32f, float)
PIXMOOR_THRESHOLD_PLAIN(64f, double, double)
PIXMOOR_THRESHOLD_PLAIN(64fc, SigComplex64f, double)
PIXMOOR_THRESHOLD_PLAIN(16s, int16_t, int16_t)
PIXMOOR_THRESHOLD_PLAIN(16sc, SigComplex16s, int16_t)

PIXMOOR_THRESHOLD_PLAIN_IN_PLACE(32fc, SigComplex32f, float)
PIXMOOR_THRESHOLD_PLAIN_IN_PLACE(64f, double, double)
PIXMOOR_THRESHOLD_PLAIN_IN_PLACE(64fc, SigComplex64f, double)
PIXMOOR_THRESHOLD_PLAIN_IN_PLACE(16s, int16_t, int16_t)
PIXMOOR_THRESHOLD_PLAIN_IN_PLACE(16sc, SigComplex16s, int16_t)
