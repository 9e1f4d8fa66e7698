// Runs every variant of every row as a Google Benchmark and stores the best
// time per frame in the variant.
#ifndef PIXMOOR_BENCH_RUNNER_H
#define PIXMOOR_BENCH_RUNNER_H

#include "bench_rows.h"

namespace bench {

struct RunSettings {
    double minSeconds = 0.02;  // per repetition
    int repetitions = 3;
};

// Registers the variants (all of them, or those whose full name contains
// `filter`), runs them with a reporter that prints one progress line per
// variant, and fills in the results.  Returns the number of variants run.
size_t RunRows(RowList& rows, const RunSettings& settings, const std::string& filter);

}  // namespace bench

#endif
