// The 19 rows of the dispatch table, in row order.
//
// PIXMOOR_DISPATCH_ROWS(ROW) expands ROW(name) for each row; the member exists
// in all four tiers (px_name, m6_name, a6_name, w7_name), and its plain name is
// the stub in dispatch_stubs.cpp.
#ifndef PIXMOOR_RUNTIME_DISPATCH_ROWS_H
#define PIXMOOR_RUNTIME_DISPATCH_ROWS_H

#define PIXMOOR_DISPATCH_ROWS(ROW) \
    ROW(SigGetLibVersion)          /*  0 */ \
    ROW(SigMalloc32f)              /*  1 */ \
    ROW(SigFree)                   /*  2 */ \
    ROW(SigThreshold32fI)          /*  3 */ \
    ROW(SigSum32f)                 /*  4 */ \
    ROW(SigGetStatusString)        /*  5 */ \
    ROW(ImgGetLibVersion)          /*  6 */ \
    ROW(ImgMomentStateAlloc)       /*  7 */ \
    ROW(ImgMomentStateFree)        /*  8 */ \
    ROW(ImgMoments32fC1)           /*  9 */ \
    ROW(ImgGetSpatialMoment)       /* 10 */ \
    ROW(ImgRGBToYUV420)            /* 11 */ \
    ROW(ImgYUV420ToRGB)            /* 12 */ \
    ROW(ImgYUV420ToRGB_Step)       /* 13 */ \
    ROW(ImgYUVAToRGBA)             /* 14 */ \
    ROW(ImgYUV422ToRGB)            /* 15 */ \
    ROW(ImgMirror8uC3I)            /* 16 */ \
    ROW(ImgMirror8uC3)             /* 17 */ \
    ROW(ImgMirror8uAC4I)           /* 18 */

#endif
