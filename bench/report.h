// What a run shows: the comparison table (Markdown, on standard output and
// in report.md), the JSON file and the data the chart is drawn from.
#ifndef PIXMOOR_BENCH_REPORT_H
#define PIXMOOR_BENCH_REPORT_H

#include <string>

#include "bench_rows.h"

namespace bench {

// Facts about the run printed above the table and stored in the JSON file.
struct RunFacts {
    std::string date;
    std::string processor;
    std::string selectedTier;  // what PrimSelectBestTier picks here, or "" when not measured
    double minSeconds;
    int repetitions;
};

// Writes the table to standard output and to `dir`/report.md, the rows of
// the largest frames and the fixed size pairs to `dir`/summary.md, the JSON file
// `dir`/report.json and the chart data `dir`/chart-peers.tsv and
// `dir`/chart-memcpy.tsv.  Returns the number of variants that were set up
// but did not run (failures).
int WriteReport(const RowList& rows, const RunFacts& facts, const std::string& dir);

}  // namespace bench

#endif
