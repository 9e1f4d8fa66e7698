// The eight version records: one per side (image, signal) and tier.  The
// getters are dispatch rows 0 and 6, so the record returned tells which
// tier the slots hold.
#include <pixmoor/runtime.h>

namespace {

// Texts shared by all eight records.
const char kVersionText[] = "v2.0 gold";
const char kBuildDate[] = "Dec 10 2001";

constexpr int32_t kImageBuild = 35;
constexpr int32_t kSignalBuild = 38;

constexpr PrimVersion Record(int32_t build, char tierLetter, char tierDigit, const char* name) {
    return PrimVersion{2, 0, 6, build, {tierLetter, tierDigit, 0, 0}, name, kVersionText, kBuildDate};
}

const PrimVersion kImagePx = Record(kImageBuild, 'p', 'x', "primipx");
const PrimVersion kImageM6 = Record(kImageBuild, 'm', '6', "primim6");
const PrimVersion kImageA6 = Record(kImageBuild, 'a', '6', "primia6");
const PrimVersion kImageW7 = Record(kImageBuild, 'w', '7', "primiw7");
const PrimVersion kSignalPx = Record(kSignalBuild, 'p', 'x', "primspx");
const PrimVersion kSignalM6 = Record(kSignalBuild, 'm', '6', "primsm6");
const PrimVersion kSignalA6 = Record(kSignalBuild, 'a', '6', "primsa6");
const PrimVersion kSignalW7 = Record(kSignalBuild, 'w', '7', "primsw7");

}  // namespace

extern "C" {
const PrimVersion* px_ImgGetLibVersion(void) { return &kImagePx; }
const PrimVersion* m6_ImgGetLibVersion(void) { return &kImageM6; }
const PrimVersion* a6_ImgGetLibVersion(void) { return &kImageA6; }
const PrimVersion* w7_ImgGetLibVersion(void) { return &kImageW7; }
const PrimVersion* px_SigGetLibVersion(void) { return &kSignalPx; }
const PrimVersion* m6_SigGetLibVersion(void) { return &kSignalM6; }
const PrimVersion* a6_SigGetLibVersion(void) { return &kSignalA6; }
const PrimVersion* w7_SigGetLibVersion(void) { return &kSignalW7; }
}
