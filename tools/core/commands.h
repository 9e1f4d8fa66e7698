// The four subcommands of the tool.
#ifndef PIXMOOR_TOOL_COMMANDS_H
#define PIXMOOR_TOOL_COMMANDS_H

#include "core/command_line.h"

namespace pixmoor_tool {

// Runs the subcommand that the parsed command line names; returns the exit
// status of a successful run, throws a ToolError otherwise.
int RunCommand(const CommandLine& line);

int RunConvert(const ConvertOptions& options);
int RunResize(const ResizeOptions& options);
int RunInfo();
int RunDemo(const DemoOptions& options);

}  // namespace pixmoor_tool

#endif
