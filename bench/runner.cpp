#include "runner.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <new>

namespace bench {
namespace {

// Google Benchmark calls a benchmark's function several times (to find the
// iteration count, then once per repetition).  The job of the variant being
// measured is made at the first call and kept until the next variant
// starts, so that frames are allocated and written once, untimed.
struct LiveJob {
    Variant* variant = nullptr;
    std::unique_ptr<Job> job;
};
LiveJob live;

void Prepare(Variant* variant) {
    live.job.reset();
    live.variant = variant;
    try {
        live.job = variant->make ? variant->make() : nullptr;
    } catch (const std::bad_alloc&) {
        live.job.reset();
        variant->why = "out of memory";
    } catch (const Unavailable& reason) {
        live.job.reset();
        variant->why = reason.what();
    }
    if (!live.job) {
        variant->unavailable = true;
        return;
    }
    live.job->run();
    if (!live.job->ran()) variant->failed = true;
}

void Measure(benchmark::State& state, Variant* variant) {
    if (live.variant != variant) Prepare(variant);
    if (variant->unavailable) {
        state.SkipWithError(variant->why.empty() ? "could not be set up" : variant->why.c_str());
        return;
    }
    if (variant->failed) {
        state.SkipWithError("did not run");
        return;
    }
    Job& job = *live.job;
    for (auto _ : state) job.run();
}

// Keeps the best time per frame of each variant and prints one line when a
// variant is done.
class ProgressReporter : public benchmark::BenchmarkReporter {
public:
    explicit ProgressReporter(std::map<std::string, Variant*> variants) : variants_(std::move(variants)) {}

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            auto found = variants_.find(run.run_name.function_name);
            if (found == variants_.end()) continue;
            Variant* v = found->second;
            if (run.error_occurred) {
                std::fprintf(stderr, "  %-70s %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
                continue;
            }
            if (run.iterations < 1) continue;
            // Processor time of this thread's process: the machine is shared,
            // and time spent waiting for a core is not the routine's.
            double seconds = run.cpu_accumulated_time / double(run.iterations);
            if (!v->measured || seconds < v->seconds) v->seconds = seconds;
            v->measured = true;
            if (run.repetition_index + 1 >= run.repetitions)
                std::fprintf(stderr, "  %-70s %10.1f us\n", run.run_name.function_name.c_str(), v->seconds * 1e6);
        }
    }

private:
    std::map<std::string, Variant*> variants_;
};

}  // namespace

size_t RunRows(RowList& rows, const RunSettings& settings, const std::string& filter) {
    std::map<std::string, Variant*> byName;
    std::map<std::string, Variant*> byKey;          // the measured one of each shared job
    std::vector<std::pair<Variant*, Variant*>> sharers;  // (takes the result, of)
    auto add = [&](const Row& row, Variant& v) {
        std::string name = row.group + "/" + row.name + "/" + row.size + "/" + v.label;
        if (!filter.empty() && name.find(filter) == std::string::npos) return;
        if (!v.shareKey.empty()) {
            auto known = byKey.find(v.shareKey);
            if (known != byKey.end()) {
                sharers.emplace_back(&v, known->second);
                return;
            }
            byKey[v.shareKey] = &v;
        }
        // Names are unique by construction; a repeat would be a table error.
        while (byName.count(name)) name += "'";
        byName[name] = &v;
        Variant* target = &v;
        benchmark::RegisterBenchmark(name.c_str(), [target](benchmark::State& s) { Measure(s, target); })
            ->MinTime(settings.minSeconds)
            ->Repetitions(settings.repetitions)
            ->ReportAggregatesOnly(false);
    };
    for (Row& row : rows) {
        for (Variant& v : row.pixmoor) add(row, v);
        for (Variant& v : row.peers) add(row, v);
        add(row, row.memcpyLimit);
    }
    ProgressReporter reporter(byName);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    live = LiveJob();
    for (auto& [sharer, measured] : sharers) {
        std::string label = sharer->label;
        *sharer = *measured;
        sharer->label = label;
    }
    return byName.size();
}

}  // namespace bench
