// Building the run lists of the RGB scaler.
#include "size/run_list.h"

#include <new>

#include "geometry/wrapping.h"

using pixmoor::WrapAdd;
using pixmoor::WrapSub;

namespace {

// One input item weighs this much in the error accumulator.
constexpr int32_t kItemWeight = 2000;

// Appends runs to a list whose records lie one behind the other.
class RunWriter {
public:
    explicit RunWriter(ScaleRun* first) : current_(first) {
        current_->next = nullptr;
        current_->kind = RunNotStarted;
        current_->count = 0;
    }

    // Adds one item to the current run if it has this kind, else starts one.
    void Extend(int32_t kind) {
        if (current_->kind == kind)
            ++current_->count;
        else
            Start(kind, 1);
    }

    // The first run goes into the first record; every later one into the
    // next record, linked from the current one.
    void Start(int32_t kind, int32_t count) {
        if (current_->kind != RunNotStarted) {
            ScaleRun* following = current_ + 1;
            current_->next = following;
            current_ = following;
            current_->next = nullptr;
        }
        current_->kind = kind;
        current_->count = count;
    }

    ScaleRun& Current() { return *current_; }

private:
    ScaleRun* current_;
};

}  // namespace

void BuildRunList(int32_t inLen, int32_t outLen, int32_t step, ScaleRun** list, int32_t* unconsumed) {
    // Runs alternate between keeping and dropping (shrinking) or keeping and
    // repeating (stretching), so there are never more runs than the longer
    // of the two lengths.  One record at least holds the "not started" mark
    // when a length is below 1.
    int32_t records = inLen > outLen ? inLen : outLen;
    if (records < 1) records = 1;
    ScaleRun* first = new (std::nothrow) ScaleRun[static_cast<size_t>(records)];
    *list = first;
    if (first == nullptr) return;
    RunWriter runs(first);

    int32_t in = 0;
    int32_t out = 0;
    int32_t error = 0;
    while (in < inLen && out < outLen) {
        error = WrapSub(error, kItemWeight);
        if (error < 0) {
            // Keep this item, then repeat it while the error stays negative.
            runs.Extend(RunCopy);
            ++in;
            ++out;
            error = WrapAdd(error, step);
            if (error < 0 && out < outLen) {
                runs.Start(RunDuplicate, 0);
                do {
                    if (out >= outLen) break;
                    ++out;
                    error = WrapAdd(error, step);
                    ++runs.Current().count;
                } while (error < 0);
            }
        } else {
            // Drop it; the step is not added.
            runs.Extend(RunDrop);
            ++in;
        }
    }
    if (unconsumed != nullptr) *unconsumed = inLen - in;
}

void FreeRunList(ScaleRun* list) { delete[] list; }
