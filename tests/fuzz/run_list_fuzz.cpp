// Fuzzes the scaler's run list builder with any lengths (below 1 included)
// and any step, not only the ones Init computes.  The list must stay inside
// its one block (AddressSanitizer watches the block's end), be well formed,
// account for every item, and hold exactly the runs that an error
// accumulator of its own, walked item by item, gives.
#include "size/run_list.h"

#include <vector>

#include "fuzz_support.h"

using namespace pixmoor_fuzz;

namespace {

// Arithmetic of the accumulator: 32-bit, wrapping.
int32_t Wrap(int64_t v) { return static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(v))); }

struct Run {
    int32_t kind, count;
};

// Item by item: keep (copy), repeat the kept item, or drop; then merged
// into runs of one kind.  A repeat run always starts anew after its copy.
std::vector<Run> ModelRuns(int32_t inLen, int32_t outLen, int32_t step, int32_t* unconsumed) {
    std::vector<Run> runs;
    auto add = [&](int32_t kind, bool fresh) {
        if (!fresh && !runs.empty() && runs.back().kind == kind)
            ++runs.back().count;
        else
            runs.push_back({kind, 1});
    };
    int32_t in = 0, out = 0, error = 0;
    while (in < inLen && out < outLen) {
        error = Wrap(static_cast<int64_t>(error) - 2000);
        if (error >= 0) {
            add(RunDrop, false);
            ++in;
            continue;
        }
        add(RunCopy, false);
        ++in, ++out;
        error = Wrap(static_cast<int64_t>(error) + step);
        bool first = true;
        while (error < 0 && out < outLen) {
            add(RunDuplicate, first);
            first = false;
            ++out;
            error = Wrap(static_cast<int64_t>(error) + step);
        }
    }
    *unconsumed = inLen - in;
    return runs;
}

int32_t ReadLength(FuzzInput& in) {
    const uint8_t how = in.Byte();
    if (how < 180) return 1 + in.U16() % 2000;
    if (how < 200) return 1 + in.Byte() % 8;
    if (how < 220) return -static_cast<int32_t>(in.Byte());
    const int32_t any = in.I32();
    return any > 0 ? 1 + any % 50000 : any;  // a block of a few megabytes at most
}

int32_t ReadStep(FuzzInput& in, int32_t inLen, int32_t outLen) {
    const uint8_t how = in.Byte();
    if (how < 200 && inLen > 0 && outLen > 0)  // as Init computes it
        return static_cast<int32_t>(1.0 / (static_cast<double>(outLen) / inLen) * 2000.0);
    if (how < 230) return static_cast<int32_t>(in.U16());
    return in.I32();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    const int32_t inLen = ReadLength(in), outLen = ReadLength(in);
    const int32_t step = ReadStep(in, inLen, outLen);
    const bool askUnconsumed = in.Byte() < 200;

    ScaleRun* list = nullptr;
    int32_t unconsumed = -12345;
    BuildRunList(inLen, outLen, step, &list, askUnconsumed ? &unconsumed : nullptr);
    FUZZ_CHECK(list != nullptr, "no list for %d to %d", inLen, outLen);

    int32_t modelUnconsumed = 0;
    const std::vector<Run> model = ModelRuns(inLen, outLen, step, &modelUnconsumed);
    if (askUnconsumed)
        FUZZ_CHECK(unconsumed == modelUnconsumed, "%d to %d step %d: unconsumed %d, model %d", inLen, outLen, step,
                   unconsumed, modelUnconsumed);
    else
        FUZZ_CHECK(unconsumed == -12345, "unconsumed written though not asked for");

    if (model.empty()) {
        FUZZ_CHECK(list->kind == RunNotStarted && list->next == nullptr, "an empty list is one unstarted record");
        FreeRunList(list);
        return 0;
    }
    int64_t consumed = 0, produced = 0;
    size_t i = 0;
    for (const ScaleRun* r = list; r != nullptr; r = r->next, ++i) {
        FUZZ_CHECK(i < model.size(), "%d to %d step %d: more than the model's %zu runs", inLen, outLen, step,
                   model.size());
        FUZZ_CHECK(r->kind == model[i].kind && r->count == model[i].count,
                   "%d to %d step %d: run %zu is %d x%d, model %d x%d", inLen, outLen, step, i, r->kind, r->count,
                   model[i].kind, model[i].count);
        FUZZ_CHECK(r->next == nullptr || r->next == r + 1, "run %zu does not link its neighbour", i);
        if (r->kind != RunDuplicate) consumed += r->count;
        if (r->kind != RunDrop) produced += r->count;
    }
    FUZZ_CHECK(i == model.size(), "%d to %d step %d: %zu runs, model %zu", inLen, outLen, step, i, model.size());
    FUZZ_CHECK(list->kind == RunCopy, "the first item is always kept");
    FUZZ_CHECK(consumed == inLen - modelUnconsumed && produced <= outLen, "items unaccounted for");
    FUZZ_CHECK(consumed == inLen || produced == outLen, "the walk stopped before either end");
    FreeRunList(list);
    return 0;
}
