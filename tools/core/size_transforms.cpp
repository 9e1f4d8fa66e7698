#include "core/size_transforms.h"

#include <algorithm>
#include <cstring>

#include "core/errors.h"

namespace pixmoor_tool {
namespace {

// Copies rows from one row length to another; false (and nothing done) when
// the two are the same.
bool Repack(const uint8_t* from, uint8_t* to, FrameSize size, int32_t fromLine, int32_t toLine) {
    if (fromLine == toLine) return false;
    const size_t row = size_t(std::min(fromLine, toLine));
    for (int32_t y = 0; y < size.height; ++y)
        std::memcpy(to + size_t(y) * size_t(toLine), from + size_t(y) * size_t(fromLine), row);
    return true;
}

}  // namespace

CropPadTransform::CropPadTransform(std::unique_ptr<CSizeXForm> xform, const ResizePlan& plan)
    : xform_(std::move(xform)),
      inputBytes_(size_t(plan.inputFrameBytes)),
      output_(2 * std::max(size_t(xform_->DestBufferSize()), size_t(plan.outputFrameBytes)) + kBufferSlack) {}

size_t CropPadTransform::inputCapacity() const { return 2 * inputBytes_ + kBufferSlack; }

const uint8_t* CropPadTransform::Apply(uint8_t* input) {
    // Bytes that an odd size difference leaves unwritten read as zero.
    std::memset(output_.data(), 0, output_.size());
    xform_->XForm(input, output_.data());
    return output_.data();
}

ScaleTransform::ScaleTransform(std::unique_ptr<CSizeXForm> xform, const ResizePlan& plan)
    : xform_(std::move(xform)),
      bits_(plan.format->bitsPerPixel),
      in_(plan.in),
      out_(plan.out),
      libraryIn_(size_t(LibraryLineBytes(in_.width, bits_)) * size_t(in_.height + 1) + kBufferSlack),
      libraryOut_(std::max(size_t(xform_->DestBufferSize()),
                           size_t(LibraryLineBytes(out_.width, bits_)) * size_t(out_.height)) +
                  kBufferSlack),
      fileOut_(size_t(plan.outputFrameBytes)) {}

const uint8_t* ScaleTransform::Apply(uint8_t* input) {
    const int32_t tightIn = TightLineBytes(in_.width, bits_), paddedIn = LibraryLineBytes(in_.width, bits_);
    const uint8_t* source = Repack(input, libraryIn_.data(), in_, tightIn, paddedIn) ? libraryIn_.data() : input;
    std::memset(libraryOut_.data(), 0, libraryOut_.size());
    xform_->XForm(source, libraryOut_.data());
    const int32_t paddedOut = LibraryLineBytes(out_.width, bits_), tightOut = TightLineBytes(out_.width, bits_);
    return Repack(libraryOut_.data(), fileOut_.data(), out_, paddedOut, tightOut) ? fileOut_.data()
                                                                                   : libraryOut_.data();
}

SizeJob PrepareSizeJob(const ResizeOptions& options, FrameSize in, bool y4mInput) {
    std::unique_ptr<CSizeXForm> xform;
    SizeJob job;
    job.plan = PlanResize(options, in, y4mInput, [&](uint32_t code, uint32_t bits) {
        xform.reset(CSizeXForm::CreateInstance(code, bits));
        return xform != nullptr;
    });
    const ResizePlan& plan = job.plan;
    if (!xform->Init(AbsSIZE(plan.in.width, plan.in.height), AbsSIZE(plan.out.width, plan.out.height),
                     plan.cropPad ? XFormCropPad : XFormScale, InterpDefault))
        Fail("the library could not set up " + ResizeText(plan));
    if (plan.cropPad)
        job.transform = std::make_unique<CropPadTransform>(std::move(xform), plan);
    else
        job.transform = std::make_unique<ScaleTransform>(std::move(xform), plan);
    return job;
}

}  // namespace pixmoor_tool
