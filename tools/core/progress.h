// The progress line (standard error, only on a terminal and only once the
// work has run a while) and the closing summary of a run.
#ifndef PIXMOOR_TOOL_PROGRESS_H
#define PIXMOOR_TOOL_PROGRESS_H

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>

namespace pixmoor_tool {

// Seconds on a steady clock.
double SteadySeconds();

class ProgressMeter {
public:
    using Clock = std::function<double()>;
    // Work that ends before `delay` seconds shows no progress line at all;
    // after that the line is redrawn at most every `interval` seconds.
    static constexpr double kDelay = 1.0;
    static constexpr double kInterval = 0.25;

    // `show` is false when the stream is no terminal or the user asked for
    // quiet; the meter then only counts.
    ProgressMeter(std::FILE* out, bool show, Clock clock = SteadySeconds);

    void CountFrame();
    // Erases the progress line if one was drawn.
    void Finish();

    int64_t frames() const { return frames_; }
    double elapsed() const { return clock_() - start_; }
    bool drewLine() const { return drawn_; }

private:
    std::FILE* out_;
    bool show_;
    Clock clock_;
    double start_;
    double lastDraw_ = -1.0;
    int64_t frames_ = 0;
    bool drawn_ = false;
    size_t lineLength_ = 0;
};

// True when the stream is a terminal.
bool IsTerminal(std::FILE* stream);

// "converted 12 frames (I420 352x288 -> RG24 352x288) in 0.034 s, 352.9 frames/s"
std::string SummaryLine(const std::string& verb, int64_t frames, const std::string& what, double seconds);

}  // namespace pixmoor_tool

#endif
