// pixmoor demo: a test picture made in memory goes through every colour
// pair the factory accepts and a set of size transforms; each result is
// written as a PNG, all of them once more as one contact sheet, and a table
// of the pairs with their time per frame is printed.
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include <pixmoor/runtime.h>

#include "core/colour_transform.h"
#include "core/commands.h"
#include "core/contact_sheet.h"
#include "core/errors.h"
#include "core/library_tables.h"
#include "core/png_file.h"
#include "core/progress.h"
#include "core/size_transforms.h"
#include "core/test_picture.h"
#include "core/tier_reason.h"

namespace pixmoor_tool {
namespace {

struct DemoResult {
    std::string label;     // for the sheet and the table
    std::string fileName;  // PNG beside the sheet
    double msPerFrame;     // negative: not timed
    RgbImage picture;
};

// Runs `transform` on `frame` `repeat` times; returns a copy of the
// `outputBytes` bytes of the last output and the mean time of one run.
std::vector<uint8_t> TimeTransform(FrameTransform& transform, const std::vector<uint8_t>& frame, int64_t repeat,
                                   size_t outputBytes, double& msPerFrame) {
    std::vector<uint8_t> input(std::max(transform.inputCapacity(), frame.size()), 0);
    std::memcpy(input.data(), frame.data(), frame.size());
    const uint8_t* out = nullptr;
    const double start = SteadySeconds();
    for (int64_t i = 0; i < repeat; ++i) out = transform.Apply(input.data());
    msPerFrame = (SteadySeconds() - start) * 1000.0 / double(repeat);
    return std::vector<uint8_t>(out, out + outputBytes);
}

std::string Lower(std::string text) {
    for (char& c : text) c = char(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

DemoResult RunColourPair(const ColourPair& pair, const RgbImage& picture, int64_t repeat) {
    ConvertOptions options;  // top-down files, tight rows: as convert does
    options.from = pair.src->name;
    options.to = pair.dst->name;
    const ColourJob job = PrepareColourJob(options, {picture.width, picture.height}, false);
    const ConvertPlan& plan = job.plan;

    DemoResult result;
    result.label = std::string(pair.src->name) + ">" + pair.dst->name;
    result.fileName = "colour-" + Lower(pair.src->name) + "-to-" + Lower(pair.dst->name) + ".png";
    const std::vector<uint8_t> out = TimeTransform(*job.transform, EncodeFrame(*pair.src, picture), repeat,
                                                   size_t(plan.outputFrameBytes), result.msPerFrame);
    if (job.transform->copiesOnly()) result.msPerFrame = -1.0;
    result.picture = DecodeFrame(*plan.dst.info, out.data(), picture.width, picture.height, int32_t(plan.destPitch),
                                 plan.layout);
    return result;
}

struct SizeCase {
    const char* format;
    FrameSize out;
};

DemoResult RunSizeCase(const SizeCase& c, const RgbImage& picture, int64_t repeat) {
    ResizeOptions options;
    options.format = c.format;
    options.outSize = FrameSizeText(c.out);
    const SizeJob job = PrepareSizeJob(options, {picture.width, picture.height}, false);
    const ResizePlan& plan = job.plan;

    DemoResult result;
    result.label = std::string(c.format) + " " + FrameSizeText(c.out);
    result.fileName = "size-" + Lower(c.format) + "-" + FrameSizeText(c.out) + ".png";
    const std::vector<uint8_t> out = TimeTransform(*job.transform, EncodeFrame(*plan.format, picture), repeat,
                                                   size_t(plan.outputFrameBytes), result.msPerFrame);
    result.picture = DecodeFrame(*plan.format, out.data(), plan.out.width, plan.out.height);
    return result;
}

void MakeDirectory(const std::string& path) {
    std::string partial;
    for (size_t i = 0; i <= path.size(); ++i) {
        if (i < path.size() && path[i] != '/') continue;
        partial = path.substr(0, i);
        if (partial.empty()) continue;
        struct stat info;
        if (::stat(partial.c_str(), &info) == 0) {
            if (!S_ISDIR(info.st_mode)) Fail("cannot make folder '" + path + "': '" + partial + "' is a file");
            continue;
        }
        if (::mkdir(partial.c_str(), 0777) != 0 && errno != EEXIST)
            Fail("cannot make folder '" + path + "': " + std::strerror(errno));
    }
}

}  // namespace

int RunDemo(const DemoOptions& options) {
    const FrameSize size = ParseFrameSize(options.size);
    if (size.width % 4 != 0 || size.height % 4 != 0 || size.width < 16 || size.height < 16)
        FailUsage("demo size " + FrameSizeText(size) + ": width and height must be multiples of 4, at least 16");
    MakeDirectory(options.directory);
    const std::string folder = options.directory.back() == '/' ? options.directory : options.directory + "/";

    PrimSelectBestTier();
    const std::string tier = TierName(PrimGetTier());
    const RgbImage picture = MakeTestPicture(size.width, size.height);

    std::vector<DemoResult> results;
    results.push_back({"SOURCE " + FrameSizeText(size), "source.png", -1.0, picture});
    for (const ColourPair& pair : ColourPairs()) results.push_back(RunColourPair(pair, picture, options.repeat));

    // Halving and doubling hit the fixed routines at 352x288; the others run
    // the generic scaler or crop and pad the planar frame.
    const FrameSize half{size.width / 2 / 4 * 4, size.height / 2 / 4 * 4};
    const FrameSize twice{size.width * 2, size.height * 2};
    const SizeCase sizeCases[] = {
        {"RG24", half},
        {"RG24", twice},
        {"RG24", {size.width * 3 / 4 + 1, size.height * 3 / 4 + 1}},
        {"RG32", {size.width * 5 / 4, size.height * 2 / 3}},
        {"RG56", {size.width / 3, size.height / 3}},
        {"I420", {size.width - 32, size.height - 48}},
        {"I420", {size.width + 48, size.height}},
        {"YV12", {size.width + 32, size.height + 32}},
    };
    for (const SizeCase& c : sizeCases) results.push_back(RunSizeCase(c, picture, options.repeat));

    std::printf("%-22s %12s  %s\n", "transform", "ms/frame", "picture");
    std::vector<SheetTile> tiles;
    for (const DemoResult& r : results) {
        SavePng(folder + r.fileName, r.picture);
        tiles.push_back({r.label, r.picture});
        if (r.msPerFrame >= 0.0)
            std::printf("%-22s %12.3f  %s%s\n", r.label.c_str(), r.msPerFrame, folder.c_str(), r.fileName.c_str());
        else
            std::printf("%-22s %12s  %s%s\n", r.label.c_str(), r.label.rfind("SOURCE", 0) == 0 ? "" : "no routine",
                        folder.c_str(), r.fileName.c_str());
    }
    const std::string sheetName = folder + "contact-sheet.png";
    SavePng(sheetName, BuildContactSheet(tiles, "PIXMOOR DEMO " + FrameSizeText(size) + "  TIER " + tier));
    std::printf("\npixmoor: %zu pictures and the contact sheet %s written to %s (tier %s, %lld frames timed a pair)\n",
                results.size(), sheetName.c_str(), folder.c_str(), tier.c_str(),
                static_cast<long long>(options.repeat));
    return kExitOk;
}

}  // namespace pixmoor_tool
