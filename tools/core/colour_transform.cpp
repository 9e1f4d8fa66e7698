#include "core/colour_transform.h"

#include <algorithm>
#include <cstring>

#include "core/errors.h"
#include "core/tier_reason.h"

namespace pixmoor_tool {

ColourTransform::ColourTransform(std::unique_ptr<CColorXForm> xform, const ConvertPlan& plan)
    : xform_(std::move(xform)),
      pitch_(plan.destPitch),
      inputBytes_(size_t(plan.inputFrameBytes)),
      output_(std::max(size_t(xform_->DestBufferSize()), size_t(plan.outputFrameBytes)) + kBufferSlack),
      // "I420" to "I420" has no routine in the library: it is accepted and
      // initialised, but XForm must not run.  Its frames pass as they are.
      copyOnly_(plan.src.info->code == FCC_I420 && plan.dst.info->code == FCC_I420) {}

const uint8_t* ColourTransform::Apply(uint8_t* input) {
    if (copyOnly_) return input;
    // Bytes that the pair leaves alone (between rows of a wide pitch) read
    // as zero.
    std::memset(output_.data(), 0, output_.size());
    xform_->XForm(input, output_.data(), pitch_);
    return output_.data();
}

ColourJob PrepareColourJob(const ConvertOptions& options, FrameSize size, bool y4mInput) {
    std::unique_ptr<CColorXForm> xform;
    ColourJob job;
    job.plan = PlanConversion(options, size, y4mInput, [&](uint32_t src, uint32_t dst) {
        xform.reset(CColorXForm::CreateInstance(src, dst));
        return xform != nullptr;
    });
    if (!xform->Init(AbsSIZE(size.width, size.height), CColorXForm::EOrientation(job.plan.srcOrientation),
                     CColorXForm::EOrientation(job.plan.destOrientation)))
        Fail("the library could not set up " + PairText(job.plan) + " at " + FrameSizeText(size));
    // Init selects the best tier for the processor; a tier asked for
    // replaces it in the dispatch slots afterwards.
    if (!options.tier.empty() && !PrimSelectTier(TierNumber(options.tier)))
        Fail("the library could not select tier " + options.tier);
    job.transform = std::make_unique<ColourTransform>(std::move(xform), job.plan);
    return job;
}

}  // namespace pixmoor_tool
