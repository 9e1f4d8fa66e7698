// The widest instruction set the processor offers for the fast paths inside
// tier entries and transform routines.  This is independent of the tiers:
// a tier fixes which arithmetic (and so which bytes) an entry produces; the
// instruction set only decides how fast those same bytes are made.  It is
// detected once, from the processor itself (not through the platform seam,
// which plays the tier detection), and tests can lower it to prove that every
// narrower path gives the same bytes.
//
// A fast path is written as a function with PIXMOOR_TARGET_AVX2 (or
// PIXMOOR_TARGET_AVX512) in a unit of its own, and its caller picks it with
//     if (pixmoor::isa::Has(pixmoor::isa::kAvx2)) ... else <plain or SSE2 form>
// once per row or per frame, never per pixel.
#ifndef PIXMOOR_RUNTIME_ISA_H
#define PIXMOOR_RUNTIME_ISA_H

namespace pixmoor::isa {

enum Level : int {
    kPlain = 0,   // no vector instructions assumed
    kSse2 = 1,    // 128-bit integer and double vectors
    kAvx2 = 2,    // 256-bit integer vectors
    kAvx512 = 3   // 512-bit vectors with byte and word lanes (F, BW, VL)
};

// What the processor offers, detected on the first call.
Level Detected();

// The level in force: the detected one, lowered by SetLimit.
Level Current();

inline bool Has(Level level) { return Current() >= level; }

// Lowers (or, with kAvx512, lifts) the ceiling for every later call.
void SetLimit(Level limit);

// Holds a ceiling for its lifetime (tests).
class ScopedLimit {
public:
    explicit ScopedLimit(Level limit);
    ~ScopedLimit();
    ScopedLimit(const ScopedLimit&) = delete;
    ScopedLimit& operator=(const ScopedLimit&) = delete;

private:
    Level previous_;
};

Level Limit();

}  // namespace pixmoor::isa

#if (defined(__GNUC__) || defined(__clang__)) && (defined(__x86_64__) || defined(__i386__))
#define PIXMOOR_HAVE_X86_TARGETS 1
#define PIXMOOR_TARGET_AVX2 __attribute__((target("avx2")))
#define PIXMOOR_TARGET_AVX512 __attribute__((target("avx512f,avx512bw,avx512vl,avx2")))
#else
#define PIXMOOR_HAVE_X86_TARGETS 0
#define PIXMOOR_TARGET_AVX2
#define PIXMOOR_TARGET_AVX512
#endif

#endif
