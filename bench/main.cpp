// The benchmark of Pixmoor against its peers and against memcpy.  Options:
//   --out=DIR          where report.md, report.json and the chart data go
//                      (default bench-results)
//   --min-time=SEC     minimum time of one repetition (default 0.02)
//   --repetitions=N    repetitions; the best one counts (default 3)
//   --filter=TEXT      measure only the variants whose name contains TEXT
// Other arguments go to Google Benchmark.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "bench_rows.h"
#include "frame_buffer.h"
#include "jobs.h"
#include "report.h"
#include "runner.h"
#include "tiers.h"

namespace bench {

const FrameSize kFrameSizes[3] = {{352, 288}, {1280, 720}, {1920, 1080}};

std::string SizeLabel(int32_t width, int32_t height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

Variant MemcpyVariant(int64_t bytes) {
    Variant v;
    v.label = "memcpy";
    v.shareKey = "memcpy " + std::to_string(bytes);
    v.make = [bytes]() -> std::unique_ptr<Job> {
        std::shared_ptr<FrameBuffer> dst = MakeDestination(size_t(bytes));
        uint8_t* to = dst->data();
        const uint8_t* from = SharedSource();
        size_t n = size_t(bytes);
        return WritingJob([to, from, n] { std::memcpy(to, from, n); return true; }, dst, n);
    };
    return v;
}

}  // namespace bench

namespace {

std::string ProcessorName() {
    std::ifstream info("/proc/cpuinfo");
    std::string line;
    while (std::getline(info, line)) {
        if (line.rfind("model name", 0) == 0) {
            size_t colon = line.find(':');
            if (colon != std::string::npos) return line.substr(colon + 2);
        }
    }
    return "an unknown processor";
}

std::string UtcNow() {
    std::time_t now = std::time(nullptr);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M UTC", std::gmtime(&now));
    return text;
}

bool Option(const char* arg, const char* name, std::string& value) {
    size_t n = std::strlen(name);
    if (std::strncmp(arg, name, n) != 0 || arg[n] != '=') return false;
    value = arg + n + 1;
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    std::string dir = "bench-results", filter, value;
    bench::RunSettings settings;
    std::vector<char*> rest{argv[0]};
    for (int i = 1; i < argc; ++i) {
        if (Option(argv[i], "--out", value)) dir = value;
        else if (Option(argv[i], "--min-time", value)) settings.minSeconds = std::atof(value.c_str());
        else if (Option(argv[i], "--repetitions", value)) settings.repetitions = std::atoi(value.c_str());
        else if (Option(argv[i], "--filter", value)) filter = value;
        else rest.push_back(argv[i]);
    }
    int restCount = int(rest.size());
    benchmark::Initialize(&restCount, rest.data());
    if (benchmark::ReportUnrecognizedArguments(restCount, rest.data())) return 2;
    mkdir(dir.c_str(), 0755);

    bench::RowList rows;
    bench::AddSizeRows(rows);
    bench::AddColourRows(rows);
    bench::AddPrimitiveRows(rows);
    bench::AddMirrorRows(rows);

    bench::SharedSource();  // made once, before anything is timed
    std::fprintf(stderr, "measuring...\n");
    size_t count = bench::RunRows(rows, settings, filter);
    std::fprintf(stderr, "%zu variants measured\n\n", count);

    bench::RunFacts facts{UtcNow(), ProcessorName(), bench::SelectedTierName(), settings.minSeconds,
                          settings.repetitions};
    int failures = bench::WriteReport(rows, facts, dir);
    std::fprintf(stderr, "\nwritten: %s/report.md, %s/report.json and the chart data\n", dir.c_str(), dir.c_str());
    if (failures > 0) {
        std::fprintf(stderr, "%d routine(s) did not run\n", failures);
        return 1;
    }
    return 0;
}
