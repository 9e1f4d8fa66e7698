#include "core/progress.h"

#include <unistd.h>

#include <chrono>

namespace pixmoor_tool {

double SteadySeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool IsTerminal(std::FILE* stream) { return ::isatty(::fileno(stream)) == 1; }

ProgressMeter::ProgressMeter(std::FILE* out, bool show, Clock clock)
    : out_(out), show_(show), clock_(std::move(clock)), start_(clock_()) {}

void ProgressMeter::CountFrame() {
    ++frames_;
    if (!show_) return;
    const double now = clock_() - start_;
    if (now < kDelay || (lastDraw_ >= 0.0 && now - lastDraw_ < kInterval)) return;
    lastDraw_ = now;
    char line[96];
    const int n = std::snprintf(line, sizeof line, "\rpixmoor: frame %lld, %.1f frames/s",
                                static_cast<long long>(frames_), static_cast<double>(frames_) / now);
    // Pad over a longer line drawn before.
    const size_t length = static_cast<size_t>(n) - 1;
    std::fprintf(out_, "%s%*s", line, static_cast<int>(lineLength_ > length ? lineLength_ - length : 0), "");
    std::fflush(out_);
    lineLength_ = std::max(lineLength_, length);
    drawn_ = true;
}

void ProgressMeter::Finish() {
    if (!drawn_) return;
    std::fprintf(out_, "\r%*s\r", static_cast<int>(lineLength_), "");
    std::fflush(out_);
    drawn_ = false;
}

std::string SummaryLine(const std::string& verb, int64_t frames, const std::string& what, double seconds) {
    char rate[64];
    if (seconds > 0.0)
        std::snprintf(rate, sizeof rate, "%.1f frames/s", static_cast<double>(frames) / seconds);
    else
        std::snprintf(rate, sizeof rate, "too fast to time");
    char text[512];
    std::snprintf(text, sizeof text, "%s %lld frame%s (%s) in %.3f s, %s", verb.c_str(),
                  static_cast<long long>(frames), frames == 1 ? "" : "s", what.c_str(), seconds, rate);
    return text;
}

}  // namespace pixmoor_tool
