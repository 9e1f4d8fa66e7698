// The model of the comparison: a row is one job (a transform route, a pair,
// a primitive member) at one frame size.  It holds the Pixmoor variants (the
// selected tier and each forced tier, or one variant where tiers don't
// apply), the peer routines that do the nearest job on the same bytes, and
// memcpy of the same output bytes.  Every variant is measured as one Google
// Benchmark; the report then lines them up row by row.
#ifndef PIXMOOR_BENCH_BENCH_ROWS_H
#define PIXMOOR_BENCH_BENCH_ROWS_H

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench {

// One prepared measurement: buffers and objects are made when the job is
// made, so that `run` does one frame and nothing else.  `ran` is asked once,
// after a first run, and tells whether the routine did its work (a status
// of success and a destination that changed); outputs are not compared
// between libraries, whose colour models differ.
struct Job {
    std::function<void()> run;
    std::function<bool()> ran;
};

// Makes a job, or returns null when the routine can't be set up here (a peer
// that refuses the format, for instance).  A maker that knows why throws
// Unavailable with the reason instead.
using JobMaker = std::function<std::unique_ptr<Job>()>;

struct Unavailable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Variant {
    std::string label;  // "w7", "selected (w7)", "libyuv I420ToRGB24", "memcpy"
    JobMaker make;
    // Variants with the same non-empty key do the same job on the same
    // bytes (memcpy of a length, a peer routine shared by several rows):
    // one of them is measured and the others take its result.
    std::string shareKey;
    // Filled by the run.
    bool measured = false;
    bool failed = false;      // set up but did not do its work
    bool unavailable = false; // could not be set up
    std::string why;          // what stood in the way, when known
    double seconds = 0;       // best time per frame over the repetitions
};

struct Row {
    std::string group;  // "size", "colour", "primitive", "mirror"
    std::string name;   // what is measured, e.g. "I420 > RG24"
    std::string size;   // frame size, e.g. "1920x1080" or "176x144>352x288"
    std::string note;   // how the peers were mapped, where it needs saying
    int64_t outputBytes = 0;
    std::vector<Variant> pixmoor;
    std::vector<Variant> peers;
    Variant memcpyLimit;
};

// All rows of one run, in the order they are reported.  A deque keeps every
// row where it is while others are added, so variants can be referred to.
using RowList = std::deque<Row>;

// The three frame sizes of the comparison.
struct FrameSize {
    int32_t width;
    int32_t height;
};
extern const FrameSize kFrameSizes[3];
std::string SizeLabel(int32_t width, int32_t height);

// Each family adds its rows from its own tables.
void AddSizeRows(RowList& rows);
void AddColourRows(RowList& rows);
void AddPrimitiveRows(RowList& rows);
void AddMirrorRows(RowList& rows);

// memcpy of `bytes` bytes, the memory limit of every row.
Variant MemcpyVariant(int64_t bytes);

}  // namespace bench

#endif
