/* Primitive runtime: tiers, processor detection, dispatch slots, status
   codes and texts, aligned blocks and version records.  C linkage; compiles
   as C99 and as C++. */
#ifndef PIXMOOR_RUNTIME_H
#define PIXMOOR_RUNTIME_H

#include <stdint.h>
#include <pixmoor/export.h>
#include <pixmoor/primitives/tiered.h>

PIXMOOR_EXTERN_C_BEGIN

/* Result of every primitive: 0 success, positive a warning, negative an error. */
typedef int32_t PrimStatus;

/* The codes that this library's primitives return.  SigGetStatusString knows
   many more; these are the ones worth a name. */
enum {
    PrimStatusOk                = 0,
    PrimStatusSizeError         = -6,
    PrimStatusNullPointer       = -8,
    PrimStatusNoMemory          = -9,
    PrimStatusStepError         = -14,
    PrimStatusContextMismatch   = -17,
    PrimStatusNegativeLevel     = -19,
    PrimStatusMomentTooSmall    = -20,
    PrimStatusBadFlipMode       = -21,
    PrimStatusStrideTooSmall    = -37,
    PrimStatusBadChannelCount   = -47
};

/* Code tiers, in order of the instructions they may use. */
typedef PIXMOOR_ENUM(PrimTier) {
    PrimTierPx = 0,   /* plain code */
    PrimTierM6 = 1,   /* 64-bit multimedia vectors */
    PrimTierA6 = 2,   /* 64-bit vectors with the first streaming extensions */
    PrimTierW7 = 3,   /* 128-bit vectors */
    PrimTierEnd = 4   /* closes a waterfall row; not a tier */
} PrimTier;

typedef PIXMOOR_ENUM(PrimAlgHint) {
    PrimAlgHintFast = 1,
    PrimAlgHintAccurate = 2
} PrimAlgHint;

typedef void (*PrimEntry)(void);

/* One row of the dispatch table: the slot it fills, then the entries of the
   px, m6, a6 and w7 tiers.  A null entry means the tier has no variant. */
typedef struct PrimDispatchRow {
    PrimEntry* slot;
    PrimEntry entries[4];
} PrimDispatchRow;

enum { PrimDispatchRowCount = 19 };

PIXMOOR_API extern PrimDispatchRow PrimDispatchTable[PrimDispatchRowCount];
PIXMOOR_API extern int32_t PrimSlotCount;
PIXMOOR_API extern int32_t PrimCurrentTier;
PIXMOOR_API extern const int32_t PrimWaterfallTable[4][5];
PIXMOOR_API extern const char* PrimErrorCaption;

/* Processor description read through CPUID, eleven 32-bit words. */
typedef struct CpuInfo {
    uint32_t family;
    uint32_t stepping;
    uint32_t model;
    uint32_t processorType;
    uint32_t featureWord;
    uint32_t cacheInfoLow;
    uint32_t cacheInfoHigh;
    uint32_t hasMmx;
    uint32_t reservedFlag;
    uint32_t hasSse;
    uint32_t hasSse2;
} CpuInfo;

/* The processor seam: the runtime reaches the processor and the user only
   through this record, so tests can play any processor and read messages. */
typedef struct PrimCpuidRegs { uint32_t eax, ebx, ecx, edx; } PrimCpuidRegs;
typedef struct PrimPlatform {
    int32_t (*hasCpuid)(void);
    void    (*cpuid)(uint32_t leaf, PrimCpuidRegs* out);
    void    (*messageBeep)(uint32_t type);
    void    (*messageBox)(const char* text, const char* caption, uint32_t style);
} PrimPlatform;

PIXMOOR_API void PrimSetPlatform(const PrimPlatform* platform);

PIXMOOR_API int32_t CpuHasCpuid(void);
PIXMOOR_API int32_t CpuIsReferenceVendor(void);
PIXMOOR_API void CpuReadInfo(CpuInfo* info);

PIXMOOR_API PrimTier PrimDetectTier(void);
PIXMOOR_API int32_t PrimFillSlots(int32_t column);
PIXMOOR_API int32_t PrimSelectBestTier(void);
PIXMOOR_API int32_t PrimSelectTier(int32_t tier);
PIXMOOR_API int32_t PrimGetTier(void);

/* Status texts. */
PIXMOOR_TIERED(const char*, SigGetStatusString, (PrimStatus status));

/* Version records. */
typedef struct PrimVersion {
    int32_t versionMajor;
    int32_t versionMinor;
    int32_t versionMajorBuild;
    int32_t versionBuild;
    char targetCpu[4];
    const char* name;
    const char* version;
    const char* buildDate;
} PrimVersion;

PIXMOOR_TIERED(const PrimVersion*, SigGetLibVersion, (void));
PIXMOOR_TIERED(const PrimVersion*, ImgGetLibVersion, (void));

/* Complex element types of the signal side. */
typedef struct SigComplex16s { int16_t re, im; } SigComplex16s;
typedef struct SigComplex32s { int32_t re, im; } SigComplex32s;
typedef struct SigComplex32f { float re, im; } SigComplex32f;
typedef struct SigComplex64f { double re, im; } SigComplex64f;

/* Aligned blocks: 32-byte aligned, freed by SigFree of any tier. */
PIXMOOR_TIERED(uint8_t*, SigMalloc8u, (int32_t count));
PIXMOOR_TIERED(uint16_t*, SigMalloc16u, (int32_t count));
PIXMOOR_TIERED(uint32_t*, SigMalloc32u, (int32_t count));
PIXMOOR_TIERED(int8_t*, SigMalloc8s, (int32_t count));
PIXMOOR_TIERED(int16_t*, SigMalloc16s, (int32_t count));
PIXMOOR_TIERED(int32_t*, SigMalloc32s, (int32_t count));
PIXMOOR_TIERED(int64_t*, SigMalloc64s, (int32_t count));
PIXMOOR_TIERED(float*, SigMalloc32f, (int32_t count));
PIXMOOR_TIERED(double*, SigMalloc64f, (int32_t count));
PIXMOOR_TIERED(int8_t*, SigMalloc8sc, (int32_t count));
PIXMOOR_TIERED(SigComplex16s*, SigMalloc16sc, (int32_t count));
PIXMOOR_TIERED(SigComplex32s*, SigMalloc32sc, (int32_t count));
PIXMOOR_TIERED(int64_t*, SigMalloc64sc, (int32_t count));
PIXMOOR_TIERED(SigComplex32f*, SigMalloc32fc, (int32_t count));
PIXMOOR_TIERED(SigComplex64f*, SigMalloc64fc, (int32_t count));
PIXMOOR_TIERED(void, SigFree, (void* block));

PIXMOOR_EXTERN_C_END

#endif
