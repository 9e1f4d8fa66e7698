#include "core/colour_transform.h"

#include <algorithm>
#include <cstring>

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

}  // namespace pixmoor_tool
