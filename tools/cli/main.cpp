// The pixmoor command: parses the command line, runs one subcommand and
// turns every failure into one line on standard error and an exit status.
#include <csignal>
#include <cstdio>
#include <exception>
#include <new>

#include "core/command_line.h"
#include "core/commands.h"
#include "core/errors.h"

int main(int argc, char** argv) {
    using namespace pixmoor_tool;
    // A reader that goes away (a pipe into `head`) shows as a failed write,
    // reported like any other, instead of ending the process by a signal.
    std::signal(SIGPIPE, SIG_IGN);
    CLI::App app;
    CommandLine line;
    DefineCommandLine(app, line);
    try {
        try {
            app.parse(argc, argv);
        } catch (const CLI::CallForHelp&) {
            std::fputs(app.help().c_str(), stdout);
            return kExitOk;
        } catch (const CLI::CallForAllHelp&) {
            std::fputs(app.help("", CLI::AppFormatMode::All).c_str(), stdout);
            return kExitOk;
        } catch (const CLI::CallForVersion&) {
            std::puts("pixmoor " PIXMOOR_TOOL_VERSION);
            return kExitOk;
        } catch (const CLI::ParseError& e) {
            FailUsage(std::string(e.what()) + " (see pixmoor --help)");
        }
        return RunCommand(line);
    } catch (const ToolError& e) {
        std::fflush(stdout);
        std::fprintf(stderr, "pixmoor: error: %s\n", e.what());
        return e.exitStatus();
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "pixmoor: error: out of memory\n");
        return kExitFailure;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "pixmoor: error: %s\n", e.what());
        return kExitFailure;
    }
}
