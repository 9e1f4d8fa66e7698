// The 19 rows of the dispatch table, in row order.
//
// PIXMOOR_DISPATCH_ROWS(ROW, ABSENT) expands ROW(name) for a row whose member
// exists in all four tiers (px_name, m6_name, a6_name, w7_name) and
// ABSENT(name) for a row whose family has not been built yet: such a row gets
// null entries and a null slot, so that a fill stops there and selection
// falls through the whole waterfall.  When a family lands, its rows turn from
// ABSENT to ROW here (one line each) and its stubs join dispatch_stubs.cpp.
#ifndef PIXMOOR_RUNTIME_DISPATCH_ROWS_H
#define PIXMOOR_RUNTIME_DISPATCH_ROWS_H

#define PIXMOOR_DISPATCH_ROWS(ROW, ABSENT) \
    ROW(SigGetLibVersion)          /*  0 */ \
    ROW(SigMalloc32f)              /*  1 */ \
    ROW(SigFree)                   /*  2 */ \
    ROW(SigThreshold32fI)          /*  3: signal threshold family */ \
    ROW(SigSum32f)                 /*  4: signal sum */ \
    ROW(SigGetStatusString)        /*  5 */ \
    ROW(ImgGetLibVersion)          /*  6 */ \
    ROW(ImgMomentStateAlloc)       /*  7: image moments */ \
    ROW(ImgMomentStateFree)        /*  8: image moments */ \
    ROW(ImgMoments32fC1)           /*  9: image moments */ \
    ROW(ImgGetSpatialMoment)       /* 10: image moments */ \
    ROW(ImgRGBToYUV420)            /* 11: colour primitives */ \
    ROW(ImgYUV420ToRGB)            /* 12: colour primitives */ \
    ROW(ImgYUV420ToRGB_Step)       /* 13: colour primitives */ \
    ROW(ImgYUVAToRGBA)             /* 14: colour primitives */ \
    ROW(ImgYUV422ToRGB)            /* 15: colour primitives */ \
    ROW(ImgMirror8uC3I)            /* 16 */ \
    ROW(ImgMirror8uC3)             /* 17 */ \
    ROW(ImgMirror8uAC4I)           /* 18 */

#endif
