// The command line of the pixmoor tool: subcommands, their options and the
// checks that need no library call.
#ifndef PIXMOOR_TOOL_COMMAND_LINE_H
#define PIXMOOR_TOOL_COMMAND_LINE_H

#include <CLI/CLI.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace pixmoor_tool {

// Orientation words: "default" (0, the format's natural one), "top-down"
// (1), "bottom-up" (2).
int32_t ParseOrientation(const std::string& word);

struct ConvertOptions {
    std::string input;
    std::string output;
    std::string from;  // empty: I420 for a Y4M input, else required
    std::string to;
    std::string size;  // empty: taken from a Y4M header, else required
    std::string srcOrient = "top-down";
    std::string destOrient = "top-down";
    bool native = false;
    int64_t destPitch = 0;  // 0: tight rows
    bool y4mStdout = false;
    std::string rate;  // Y4M output rate when the input gives none
    bool quiet = false;
    std::string tier;  // empty: the tier that selection picks
};

struct ResizeOptions {
    std::string input;
    std::string output;
    std::string format;  // empty: I420 for a Y4M input, else required
    int64_t bits = 0;    // depth for "0rgb"; must agree with an RGB code
    std::string size;
    std::string outSize;
    bool y4mStdout = false;
    std::string rate;
    bool quiet = false;
};

struct DemoOptions {
    std::string directory = "pixmoor-demo";
    std::string size = "352x288";
    int64_t repeat = 20;  // frames timed per pair
};

struct CommandLine {
    ConvertOptions convert;
    ResizeOptions resize;
    DemoOptions demo;
    CLI::App* convertCommand = nullptr;
    CLI::App* resizeCommand = nullptr;
    CLI::App* infoCommand = nullptr;
    CLI::App* demoCommand = nullptr;
};

// Declares every subcommand and option on `app`, bound to `line`.
void DefineCommandLine(CLI::App& app, CommandLine& line);

}  // namespace pixmoor_tool

#endif
