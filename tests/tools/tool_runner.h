// Runs the pixmoor program as a user would: installed into a scratch prefix
// with `cmake --install` (the tool's own component), then started through
// the shell with its standard streams in files.
#ifndef PIXMOOR_TESTS_TOOLS_TOOL_RUNNER_H
#define PIXMOOR_TESTS_TOOLS_TOOL_RUNNER_H

#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "temp_dir.h"

namespace pixmoor_test {

struct ToolRun {
    int status = -1;
    std::string out;
    std::string err;

    // Lines of standard error.
    std::vector<std::string> ErrLines() const {
        std::vector<std::string> lines;
        size_t start = 0;
        for (size_t nl; (nl = err.find('\n', start)) != std::string::npos; start = nl + 1)
            lines.push_back(err.substr(start, nl - start));
        if (start < err.size()) lines.push_back(err.substr(start));
        return lines;
    }
};

inline std::string ShellQuote(const std::string& word) {
    std::string quoted = "'";
    for (char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

inline std::string ReadText(const std::string& path) {
    const std::vector<uint8_t> bytes = ReadBytes(path);
    return std::string(bytes.begin(), bytes.end());
}

// The installed program; installs it on first use.
inline const std::string& InstalledTool() {
    static TempDir prefix;
    static const std::string tool = [] {
        const std::string command = ShellQuote(PIXMOOR_TOOL_CMAKE) + " --install " +
                                    ShellQuote(PIXMOOR_TOOL_BUILD_DIR) + " --component tool --prefix " +
                                    ShellQuote(prefix.path().string()) + " > " + ShellQuote(prefix / "install.log") +
                                    " 2>&1";
        if (std::system(command.c_str()) != 0)
            throw std::runtime_error("installing the tool failed: " + ReadText(prefix / "install.log"));
        return prefix / "bin/pixmoor";
    }();
    return tool;
}

// The shell words that start the installed tool: on a build for another
// processor, the emulator that runs the target's programs comes first.
inline std::string ToolCommand() { return PIXMOOR_TOOL_EMULATOR + ShellQuote(InstalledTool()); }

// Runs the installed tool with `args` in folder `dir`; `stdinPath` (if not
// empty) feeds standard input, `stdoutPath` (if not empty) takes standard
// output instead of the capture.
inline ToolRun RunTool(const TempDir& dir, const std::vector<std::string>& args, const std::string& stdinPath = "",
                       const std::string& stdoutPath = "") {
    std::string command = "cd " + ShellQuote(dir.path().string()) + " && " + ToolCommand();
    for (const std::string& a : args) command += " " + ShellQuote(a);
    const std::string outFile = stdoutPath.empty() ? dir / ".run.out" : stdoutPath;
    const std::string errFile = dir / ".run.err";
    command += " > " + ShellQuote(outFile) + " 2> " + ShellQuote(errFile);
    command += " < " + ShellQuote(stdinPath.empty() ? std::string("/dev/null") : stdinPath);
    const int raw = std::system(command.c_str());
    ToolRun run;
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + (WIFSIGNALED(raw) ? WTERMSIG(raw) : 0);
    if (stdoutPath.empty()) run.out = ReadText(outFile);
    run.err = ReadText(errFile);
    std::remove(errFile.c_str());
    if (stdoutPath.empty()) std::remove(outFile.c_str());
    return run;
}

}  // namespace pixmoor_test

#endif
