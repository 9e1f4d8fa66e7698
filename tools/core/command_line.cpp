#include "core/command_line.h"

#include "core/errors.h"
#include "core/formats.h"

namespace pixmoor_tool {

int32_t ParseOrientation(const std::string& word) {
    if (word == "default") return 0;
    if (word == "top-down") return 1;
    if (word == "bottom-up") return 2;
    FailUsage("bad orientation '" + word + "': expected top-down, bottom-up or default");
}

namespace {

const char* const kFormatHelp = "format code; accepted spellings: ";

void AddStreamOptions(CLI::App* cmd, std::string& input, std::string& output, bool& y4mStdout, std::string& rate,
                      bool& quiet) {
    cmd->add_option("input,-i,--input", input,
                    "input file, or - for standard input; a .y4m name or a stream that starts with "
                    "\"YUV4MPEG2\" is read as Y4M")
        ->required();
    cmd->add_option("output,-o,--output", output,
                    "output file, or - for standard output; .y4m writes Y4M, .png one PNG a frame "
                    "(NAME-000001.png, or a name with %d or %0Nd), anything else raw frames")
        ->required();
    cmd->add_flag("--y4m", y4mStdout, "write Y4M to standard output (with -o -)");
    cmd->add_option("--rate", rate, "frame rate N:D of a Y4M output whose input gives none (default 25:1)");
    cmd->add_flag("-q,--quiet", quiet, "no progress line and no summary");
}

}  // namespace

void DefineCommandLine(CLI::App& app, CommandLine& line) {
    app.description(
        "pixmoor: convert and resize raw video frames, show the machine's code tier, and run a demo.\n"
        "Exit status: 0 done, 1 input/output or library failure, 2 bad command line, "
        "3 input ended inside a frame (the complete frames before it were written).");
    app.require_subcommand(1);
    app.set_help_all_flag("--help-all", "help for every subcommand");
    app.set_version_flag("--version", std::string(), "the version of the tool");

    const std::string spellings = SpellingList();

    ConvertOptions& c = line.convert;
    CLI::App* convert = app.add_subcommand("convert", "convert raw frames from one format code to another");
    line.convertCommand = convert;
    AddStreamOptions(convert, c.input, c.output, c.y4mStdout, c.rate, c.quiet);
    convert->add_option("-f,--from,--src", c.from, std::string("source ") + kFormatHelp + spellings);
    convert->add_option("-t,--to,--dest", c.to, "destination format code (I420, RG24, RG32, RG55, RG56)")->required();
    convert->add_option("-s,--size", c.size, "frame size WIDTHxHEIGHT (from the header for Y4M input)");
    CLI::Option* src = convert->add_option("--src-orient", c.srcOrient,
                                           "orientation of the source rows: top-down (default), bottom-up "
                                           "or default (the format's natural one)");
    CLI::Option* dst = convert->add_option("--dest-orient", c.destOrient,
                                           "orientation of the destination rows: top-down (default), "
                                           "bottom-up or default");
    convert->add_flag("--native", c.native,
                      "use the library's natural orientations (YUV top-down, RGB bottom-up) instead of "
                      "top-down files")
        ->excludes(src)
        ->excludes(dst);
    convert->add_option("--dest-pitch,--pitch", c.destPitch,
                        "bytes from one destination row to the next, at least the row's length "
                        "(RGB destinations; default: tight rows)")
        ->check(CLI::Range(int64_t{0}, int64_t{1} << 30));
    convert->add_option("--tier", c.tier,
                        "run the library's primitives at this code tier (px, m6, a6 or w7) instead of the one "
                        "selection picks for the processor")
        ->check(CLI::IsMember({"px", "m6", "a6", "w7"}));

    ResizeOptions& r = line.resize;
    CLI::App* resize = app.add_subcommand(
        "resize", "crop and pad I420/YV12 frames, or scale RGB frames (nearest neighbour)");
    line.resizeCommand = resize;
    AddStreamOptions(resize, r.input, r.output, r.y4mStdout, r.rate, r.quiet);
    resize->add_option("-f,--format", r.format,
                       "I420, IYUV or YV12 (and lower case) to crop and pad; RG24, RG32, RG55, RG56 (and lower "
                       "case) or 0rgb with --bits to scale");
    resize->add_option("--bits", r.bits, "bits per pixel of RGB frames (8, 16, 24 or 32)")
        ->check(CLI::IsMember({8, 16, 24, 32}));
    resize->add_option("-s,--size", r.size, "input frame size WIDTHxHEIGHT (from the header for Y4M input)");
    resize->add_option("-S,--out-size", r.outSize, "output frame size WIDTHxHEIGHT")->required();

    line.infoCommand = app.add_subcommand(
        "info", "show what the processor reports, the tier selection picks and why, the version records and "
                "the supported pairs");

    DemoOptions& d = line.demo;
    CLI::App* demo = app.add_subcommand(
        "demo", "convert a built-in test picture through every supported pair and a set of size transforms; "
                "write a PNG of each result and a contact sheet");
    line.demoCommand = demo;
    demo->add_option("directory", d.directory, "folder for the pictures (default: pixmoor-demo)");
    demo->add_option("--size", d.size, "size of the test picture (default: 352x288)");
    demo->add_option("--repeat", d.repeat, "frames timed for each pair (default: 20)")
        ->check(CLI::Range(int64_t{1}, int64_t{100000}));
}

}  // namespace pixmoor_tool
