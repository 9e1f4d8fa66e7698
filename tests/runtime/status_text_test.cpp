// Status codes and their texts, in every tier and through the dispatch stub.
#include <gtest/gtest.h>
#include <pixmoor/runtime.h>

#include <map>
#include <set>
#include <string>

namespace {

struct CodeText {
    PrimStatus code;
    const char* text;
};

// Every code with a text of its own, misspellings and all.
const CodeText kTexts[] = {
    {-2, "Unknown/unspecified error"},
    {-4, "Not enough memory for the operation"},
    {-5, "Function arg/param is bad"},
    {-6, "Wrong value of data size"},
    {-7, "Bad values of bounds: the low bound is greater than a high bound"},
    {-8, "Null pointer error"},
    {-9, "Not enough memory for the operation"},
    {-10, "An attempt to divide by zero"},
    {-11, "Argument is out of range or point is outside the image"},
    {-12, "Bad or unsupported data type"},
    {-13, "Scale bounds is out of range"},
    {-14, "Step value is less or equal zero"},
    {-15, "Invalid value of the FFT order parameter"},
    {-16, "Invalid value of the FFT flag parameter"},
    {-17, "The context parameter doesn't match to the operation"},
    {-18, "Invalid treshold bounds"},
    {-19, "Negative value of the level in the threshold operation"},
    {-20, "Moment value M(0,0) is too small to continue calculation"},
    {-21, "Invalid flip mode"},
    {-22, "Invalid interpolation mode"},
    {-23, "Resize factor(s) less or equal to zero"},
    {-24, "Invalid value of the delay line sample index"},
    {-25, "The order of IIR is less or equal zero"},
    {-26, "The number iterations of FIR is less or equal zero"},
    {-27, "Relative frequency value is out of range"},
    {-28, "Wrong value of the MR FIR sampling phase parameter"},
    {-29, "Wrong value of the MR FIR sampling factor parameter"},
    {-30, "Phase value is out of range: 0 <= phase < factor"},
    {-31, "Sampling factor is less or equal zero"},
    {-32, "Value of shift is less than zero"},
    {-33, "Invalid mask size"},
    {-34, "The anchor point is outside mask"},
    {-35, "Invalid offset value of wavelet filter"},
    {-36, "Negative epsilon value error"},
    {-37, "The stride value is less than the row length"},
    {-38, "Magnitude value is negative"},
    {-39, "Kaiser window is too huge"},
    {-40, "The asymmetry of the Triangle is less -PI or greater or equal PI"},
    {-41, "The phase of the Triangle is less 0 or greater or equal 2*PI"},
    {-42, "The frequency of the Triangle is less 0 or greater or equal 0.5"},
    {-43, "The magnitude of the Triangle is less or equal to zero"},
    {-44, "The phase of the Tone is less 0 or greater or equal 2*PI"},
    {-45, "The frequency of the Tone is less 0 or greater or equal 0.5"},
    {-46, "The magnitude of the Tone is less or equal to zero"},
    {-47, "Illegal channel number"},
    {-48, "Sum of the ToGray converion coefficients must be less or equal to 1"},
    {-49, "Gamma range bounds is less or equal zero"},
    {-50, "Illegal type of image compositing operation"},
    {-51, "Divisor is equal zero, function is aborted"},
    {-52, "COI is out of range"},
    {-53, "Bad or unsupported number of channels"},
    {-54, "Number of dithering levels is out of range"},
    {-55, "Bad value of noise amplitude for dithering"},
    {-56, "Unallowable values of the transformation coefficients"},
    {-57, "Size of the rectangle region is less or equal to the one"},
    {-58, "The quadrangle degenerates into triangle, line or point"},
    {-59, "All values of the mask are zero"},
    {-60, "Wrong order of the destination channels"},
    {-61, "System error in the draw text operation"},
    {-62, "JPEG marker was met in the bitstream"},
    {-63, "JPEG DCT coefficient out of range"},
    {-64, "JPEG Huffman table destroyed"},
    {-65, "No sonvergence of SVD algorithm"},
    {-66, "Incorrect value of the codebook flag parameter"},
    {-67, "Negative occupation count"},
    {-69, "Filter bank is not correctly initialized"},
    {-70, "Incorrect value of the filter bank parameter"},
    {-71, "Incorrect value of the filter bank frequency parameter"},
    {-72, "The zigzag compact length is more then 64"},
    {-73, "Illegal code while DC stream processing"},
    {-74, "Illegal Huffman code while VLC stream processing"},
    {-75, "Illegal Huffman code while MV stream processing"},
    {-76, "The quantizer value is less or qual to zero or more then 31"},
    {-77, "The plane step is less then plane width"},
    {-78, "The expand pixels number is less then 8"},
    {-79, "The frame height is less or equal to zero"},
    {-80, "The frame width is less then 8"},
    {-81, "The step value is less than 16"},
    {-82, "The step value is less than 8"},
    {-83, "Prediction Mode value error"},
    {-90, "Incorrect DC linear mode"},
    {-91, "Incorrect video component mode"},
    {-92, "Incorrect number of bits per pixel"},
    {-93, "Incorrect prediction direction"},
    {-94, "All BAB values are zero"},
    {-95, "Incorrect size of block or macroblock"},
    {-96, "Incorrect temporal difference"},
    {-97, "Incorrect buffer alignment"},
    {-98, "Incorrect fcode value"},
    {-99, "Illegal code while DC stream processing"},
    {-100, "Illegal Huffman code while VLC stream processing"},
    {-101, "Illegal Huffman code while MV stream processing"},
    {-102, "Incorrect block type"},
    {-103, "Incorrect block index"},
    {-104, "Incorrect quantization parameter"},
    {-105, "Incorrect bit offset value"},
    {-106, "Number of levels for LUT is less than 2"},
    {-107, "Number of levels for histogram is less than 2"},
    {-108, "The step value is not pixel multiple"},
    {-9998, "The target cpu is not supported"},
    {-9999, "The requested mode is currently not supported"},
    {0, "No error, it's ok"},
    {1, "No operation has been executed"},
    {2, "Misaligned pointer in operation in which must be aligned"},
    {3, "Negative value(s) of argument in the function Sqrt"},
    {4, "INF result. Zero value was met by InvThresh with zero level"},
    {5, "Even size of Median Filter mask was replaced by odd one"},
    {6, "Zero value(s) of divisor in the function Div"},
    {7, "Zero value(s) of argument in the Ln function"},
    {8, "Negative value(s) of argument in the Ln function"},
    {9, "Not a Number argument value warning"},
    {10, "JPEG marker was met in the bitstream"},
    {11, "All result values are floored"},
    {12, "An overflow occurred in the operation"},
    {13, "Quantized LP syntethis filter stability check is applied at the low boundary of [0,pi]"},
    {14, "Quantized LP syntethis filter stability check is applied at the high boundary of [0,pi]"},
    {15, "Quantized LP syntethis filter stability check is applied at both boundaries of [0,pi]"},
    {16, "Zero occupation count"},
    {17, "An underflow occurred in the operation"},
    {18, "A singularity occurred in the operation"},
    {19, "Argument is out of function domain"},
};

const char kFallback[] = "Unknown Status Code";

using Getter = const char* (*)(PrimStatus);
const Getter kTiers[] = {px_SigGetStatusString, m6_SigGetStatusString, a6_SigGetStatusString,
                         w7_SigGetStatusString, SigGetStatusString};

}  // namespace

TEST(SigGetStatusString, HasOneHundredAndTwentyOneCodes) {
    std::set<PrimStatus> codes;
    int negative = 0, positive = 0;
    for (const auto& t : kTexts) {
        codes.insert(t.code);
        negative += t.code < 0;
        positive += t.code > 0;
    }
    EXPECT_EQ(codes.size(), 121u);
    EXPECT_EQ(negative, 101);
    EXPECT_EQ(positive, 19);
}

TEST(SigGetStatusString, EveryCodeMapsToItsTextInEveryTier) {
    for (Getter get : kTiers)
        for (const auto& t : kTexts) EXPECT_STREQ(get(t.code), t.text) << t.code;
}

TEST(SigGetStatusString, AllTiersReturnTheSameString) {
    for (const auto& t : kTexts)
        for (Getter get : kTiers) EXPECT_EQ(get(t.code), px_SigGetStatusString(t.code)) << t.code;
}

TEST(SigGetStatusString, CodesWithOneTextShareOneString) {
    const PrimStatus pairs[][2] = {{-75, -101}, {-74, -100}, {-73, -99}, {-4, -9}, {10, -62}};
    for (const auto& p : pairs) EXPECT_EQ(px_SigGetStatusString(p[0]), px_SigGetStatusString(p[1])) << p[0];
    // And no other two codes share one.
    std::map<const char*, int> uses;
    for (const auto& t : kTexts) ++uses[px_SigGetStatusString(t.code)];
    EXPECT_EQ(uses.size(), 116u);
}

TEST(SigGetStatusString, WorkedValues) {
    EXPECT_STREQ(SigGetStatusString(0), "No error, it's ok");
    EXPECT_STREQ(SigGetStatusString(-68), kFallback);
    EXPECT_STREQ(SigGetStatusString(16), "Zero occupation count");
    EXPECT_STREQ(SigGetStatusString(-9998), "The target cpu is not supported");
    EXPECT_STREQ(SigGetStatusString(-9999), "The requested mode is currently not supported");
    for (PrimStatus code : {20, -109, -1}) EXPECT_STREQ(SigGetStatusString(code), kFallback) << code;
}

TEST(SigGetStatusString, EveryOtherCodeGivesTheFallback) {
    std::set<PrimStatus> known;
    for (const auto& t : kTexts) known.insert(t.code);
    for (Getter get : kTiers) {
        const char* fallback = get(-1);
        EXPECT_STREQ(fallback, kFallback);
        for (PrimStatus code = -10050; code <= 100; ++code) {
            if (known.count(code) == 0) {
                ASSERT_EQ(get(code), fallback) << code;
            }
        }
        for (PrimStatus code : {INT32_MIN, INT32_MIN + 1, -65536, 65536, INT32_MAX, -3, -84, -85, -86, -87, -88, -89})
            EXPECT_EQ(get(code), fallback) << code;
    }
}
