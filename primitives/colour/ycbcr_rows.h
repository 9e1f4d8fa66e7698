// The row kernels of the YCbCr members, one set per tier, and what each
// tier does after its last row.  Each tier's unit fills its set; the
// wrappers pick the set of the tier they serve.  MakeYCbCrRows fills a set
// with one arithmetic for every member; the vector tiers then put their own
// kernels in the places where they have one.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_ROWS_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_ROWS_H

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/ycbcr_drivers.h"
#include "primitives/colour/ycbcr_layouts.h"
#include "primitives/colour/ycbcr_packing.h"
#include "primitives/colour/ycbcr_row_kernels.h"
#include "primitives/colour/yuv420_driver.h"

namespace pixmoor::colour {

// The six packings of a member group that writes 16-bit words.
template <class In>
struct WordRows {
    LineRow<In, WordsOut<PackBGR565>> bgr565;
    LineRow<In, WordsOut<PackRGB565>> rgb565;
    LineRow<In, WordsOut<PackBGR555>> bgr555;
    LineRow<In, WordsOut<PackRGB555>> rgb555;
    LineRow<In, WordsOut<PackBGR444>> bgr444;
    LineRow<In, WordsOut<PackRGB444>> rgb444;
};

struct YCbCrRows {
    // 4:2:2 interleaved
    LineRow<C3In, C2Out> rgbToC2;
    LineRow<RgbPlanesIn, C2Out> planesToC2;
    LineRow<C2In, C3Out> c2ToRgb;
    LineRow<C2In, RgbPlanesOut> c2ToPlanes;
    WordRows<C2In> c2ToWords;
    // 4:2:0
    ToYuv420Row<PackedRgbIn> rgbTo420;
    FromYuv420Row<PackedRgbOut> from420ToRgb;
    // 4:4:4
    LineRow<RgbPlanesIn, RgbPlanesOut> planesToYccPlanes;
    LineRow<RgbPlanesIn, RgbPlanesOut> yccPlanesToPlanes;
    LineRow<C3In, C3Out> rgbToC3;
    LineRow<C3In, C3Out> c3ToRgb;
    LineRow<AC4In, AC4Out> rgbToAC4;
    LineRow<AC4In, AC4Out> ac4ToRgb;
    WordRows<C3In> c3ToWords;

    TierFinish finish;
};

extern const YCbCrRows kYCbCrRowsPx;
extern const YCbCrRows kYCbCrRowsM6;
extern const YCbCrRows kYCbCrRowsA6;
extern const YCbCrRows kYCbCrRowsW7;

namespace ycc {

// The six word rows of one source layout: Row<Out>::Run is the kernel
// writing the words of Out.
template <class In, template <class Out> class Row>
constexpr WordRows<In> MakeWordRows() {
    return WordRows<In>{&Row<WordsOut<PackBGR565>>::Run, &Row<WordsOut<PackRGB565>>::Run,
                        &Row<WordsOut<PackBGR555>>::Run, &Row<WordsOut<PackRGB555>>::Run,
                        &Row<WordsOut<PackBGR444>>::Run, &Row<WordsOut<PackRGB444>>::Run};
}

// The inverse kernels of one arithmetic, by destination layout.
template <class Arith>
struct InverseRows {
    template <class Out>
    struct FromC2 {
        static void Run(const uint8_t* src, typename Out::Line dst, int32_t count) {
            Inverse422Row<Out, Arith>(src, dst, count);
        }
    };
    template <class Out>
    struct FromC3 {
        static void Run(const uint8_t* src, typename Out::Line dst, int32_t count) {
            PixelRow<C3In, Out, InversePixel<Arith>>(src, dst, count);
        }
    };
};

// Every member with the one arithmetic Arith.
template <class Arith>
constexpr YCbCrRows MakeYCbCrRows(TierFinish finish) {
    using Inverse = InverseRows<Arith>;
    return YCbCrRows{
        &Forward422Row<C3In, Arith>,
        &Forward422Row<RgbPlanesIn, Arith>,
        &Inverse422Row<C3Out, Arith>,
        &Inverse422Row<RgbPlanesOut, Arith>,
        MakeWordRows<C2In, Inverse::template FromC2>(),
        &Forward420Row<Arith>,
        &Inverse420Row<Arith>,
        &PixelRow<RgbPlanesIn, RgbPlanesOut, ForwardPixel<Arith>>,
        &PixelRow<RgbPlanesIn, RgbPlanesOut, InversePixel<Arith>>,
        &PixelRow<C3In, C3Out, ForwardPixel<Arith>>,
        &PixelRow<C3In, C3Out, InversePixel<Arith>>,
        &PixelRow<AC4In, AC4Out, ForwardPixel<Arith>>,
        &PixelRow<AC4In, AC4Out, InversePixel<Arith>>,
        MakeWordRows<C3In, Inverse::template FromC3>(),
        finish,
    };
}

}  // namespace ycc
}  // namespace pixmoor::colour

#endif
