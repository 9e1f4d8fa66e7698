// How the tool reports a mistake: one line of text and an exit status.
#ifndef PIXMOOR_TOOL_ERRORS_H
#define PIXMOOR_TOOL_ERRORS_H

#include <stdexcept>
#include <string>

namespace pixmoor_tool {

enum ExitStatus : int {
    kExitOk = 0,
    kExitFailure = 1,    // input, output or library failure
    kExitUsage = 2,      // bad command line: options, formats, sizes
    kExitTruncated = 3,  // input ended inside a frame; complete frames kept
};

class ToolError : public std::runtime_error {
public:
    ToolError(int exitStatus, const std::string& message)
        : std::runtime_error(message), exitStatus_(exitStatus) {}
    int exitStatus() const { return exitStatus_; }

private:
    int exitStatus_;
};

[[noreturn]] inline void FailUsage(const std::string& message) {
    throw ToolError(kExitUsage, message);
}
[[noreturn]] inline void Fail(const std::string& message) {
    throw ToolError(kExitFailure, message);
}

}  // namespace pixmoor_tool

#endif
