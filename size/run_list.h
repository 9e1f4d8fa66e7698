// Run lists of the RGB scaler: the nearest-neighbour selection of items
// (pixels of a line, or lines of a frame) precomputed as runs of copies,
// repeats and drops, so that a frame is scaled without arithmetic per item.
#ifndef PIXMOOR_SIZE_RUN_LIST_H
#define PIXMOOR_SIZE_RUN_LIST_H

#include <cstdint>

enum ScaleRunKind : int32_t {
    RunNotStarted = -1,  // only in the first record, while nothing is started
    RunCopy = 0,         // take the next count source items
    RunDuplicate = 1,    // repeat the item output last, count more times
    RunDrop = 2          // skip the next count source items
};

// The runs of a list lie one behind the other in a single block; next always
// points at the neighbouring record and is null at the end.
struct ScaleRun {
    ScaleRun* next;
    int32_t kind;
    int32_t count;
};

// Error accumulator at the scale of 2000 per input item.  Builds the list for
// inLen items to outLen items with the given step (2000 times the ratio of
// input to output, truncated), stores it at *list (to be freed by
// FreeRunList) and, when unconsumed isn't null, the number of input items
// left unread at the end.
void BuildRunList(int32_t inLen, int32_t outLen, int32_t step, ScaleRun** list, int32_t* unconsumed);

// Frees a list as one block through its first record; null is allowed.
void FreeRunList(ScaleRun* list);

#endif
