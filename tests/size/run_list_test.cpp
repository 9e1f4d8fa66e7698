// ListRun lists of the RGB scaler, tested as lists: the kind and count of each
// run, the links between records, and the count of unconsumed input items.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>
#include <vector>

#include "size/rgb_scale.h"
#include "size/run_list.h"
#include "size_test_support.h"

using namespace size_test;

namespace {

struct ListRun {
    int32_t kind, count;
    bool operator==(const ListRun& o) const { return kind == o.kind && count == o.count; }
};

std::ostream& operator<<(std::ostream& os, const ListRun& r) {
    static const char* const names[] = {"Copy", "Duplicate", "Drop"};
    return os << (r.kind >= 0 && r.kind <= 2 ? names[r.kind] : "NotStarted") << " " << r.count;
}

const ListRun C1{RunCopy, 1}, D1{RunDuplicate, 1}, X1{RunDrop, 1};

// Builds a list and reads it back, checking that each record links to its
// neighbour in the block and that the last one ends the list.
struct Built {
    std::vector<ListRun> runs;
    int32_t unconsumed = -12345;
};

Built Build(int32_t inLen, int32_t outLen, int32_t step) {
    ScaleRun* list = nullptr;
    Built b;
    BuildRunList(inLen, outLen, step, &list, &b.unconsumed);
    EXPECT_NE(list, nullptr);
    for (const ScaleRun* r = list; r != nullptr; r = r->next) {
        b.runs.push_back({r->kind, r->count});
        if (r->next != nullptr) {
            EXPECT_EQ(r->next, r + 1);
        }
    }
    FreeRunList(list);
    return b;
}

std::vector<ListRun> Repeat(const std::vector<ListRun>& pattern, int times) {
    std::vector<ListRun> r;
    for (int i = 0; i < times; ++i) r.insert(r.end(), pattern.begin(), pattern.end());
    return r;
}

// Expands a list into the input item shown at each output position.
std::vector<int32_t> Expand(const std::vector<ListRun>& runs) {
    std::vector<int32_t> shown;
    int32_t next = 0;
    for (const ListRun& r : runs) {
        for (int32_t i = 0; i < r.count; ++i) {
            if (r.kind == RunCopy) shown.push_back(next++);
            if (r.kind == RunDuplicate) shown.push_back(next - 1);
            if (r.kind == RunDrop) ++next;
        }
    }
    return shown;
}

}  // namespace

TEST(RunList, DoublingAlternatesCopyAndDuplicate) {
    const Built b = Build(10, 20, 1000);
    EXPECT_EQ(b.runs, Repeat({C1, D1}, 10));
    EXPECT_EQ(b.unconsumed, 0);
}

TEST(RunList, HalvingAlternatesCopyAndDrop) {
    // The output is full after the ninth item; the tenth is unconsumed.
    const Built b = Build(10, 5, 4000);
    std::vector<ListRun> expected = Repeat({C1, X1}, 4);
    expected.push_back(C1);
    EXPECT_EQ(b.runs, expected);
    EXPECT_EQ(b.unconsumed, 1);
}

TEST(RunList, OneSixtyToOneSeventySixRepeatsItemZeroAtOnce) {
    // Step 1818: the first item is repeated straight away, then the error
    // drifts by 182 an item and every tenth item is repeated.  The output is
    // full before a seventeenth repeat.
    std::vector<ListRun> expected = {C1, D1, {RunCopy, 9}, D1};
    const std::vector<ListRun> tens = Repeat({{RunCopy, 10}, D1}, 14);
    expected.insert(expected.end(), tens.begin(), tens.end());
    expected.push_back({RunCopy, 10});
    const Built b = Build(160, 176, 1818);
    EXPECT_EQ(b.runs, expected);
    EXPECT_EQ(b.unconsumed, 0);
}

TEST(RunList, OddRatios) {
    // 3 to 7, step 857: the last repeat stops at the end of the output.
    Built b = Build(3, 7, 857);
    EXPECT_EQ(b.runs, (std::vector<ListRun>{C1, {RunDuplicate, 2}, C1, D1, C1, D1}));
    EXPECT_EQ(b.unconsumed, 0);
    // 7 to 3, step 4666.
    b = Build(7, 3, 4666);
    EXPECT_EQ(b.runs, (std::vector<ListRun>{C1, X1, C1, X1, C1}));
    EXPECT_EQ(b.unconsumed, 2);
    // 5 to 3, step 3333: the second item is kept too.
    b = Build(5, 3, 3333);
    EXPECT_EQ(b.runs, (std::vector<ListRun>{{RunCopy, 2}, X1, C1}));
    EXPECT_EQ(b.unconsumed, 1);
    // 2 to 7, step 571.
    b = Build(2, 7, 571);
    EXPECT_EQ(b.runs, (std::vector<ListRun>{C1, {RunDuplicate, 3}, C1, {RunDuplicate, 2}}));
    EXPECT_EQ(b.unconsumed, 0);
}

TEST(RunList, EqualLengthsAreOneCopy) {
    const Built b = Build(37, 37, 2000);
    EXPECT_EQ(b.runs, (std::vector<ListRun>{{RunCopy, 37}}));
    EXPECT_EQ(b.unconsumed, 0);
}

TEST(RunList, TruncatedStepLeavesInputUnconsumed) {
    // 300 to 299: step 2006 (2006.69 truncated) keeps every item up to the
    // end of the output and never drops one.
    ASSERT_EQ(AccumulatorStep(300, 299), 2006);
    Built b = Build(300, 299, 2006);
    EXPECT_EQ(b.runs, (std::vector<ListRun>{{RunCopy, 299}}));
    EXPECT_EQ(b.unconsumed, 1);
    // 2 to 1 keeps the first and never reaches the second.
    b = Build(2, 1, 4000);
    EXPECT_EQ(b.runs, (std::vector<ListRun>{C1}));
    EXPECT_EQ(b.unconsumed, 1);
}

TEST(RunList, UnconsumedIsOptional) {
    ScaleRun* list = nullptr;
    BuildRunList(10, 5, 4000, &list, nullptr);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->kind, RunCopy);
    FreeRunList(list);
}

TEST(RunList, LengthsBelowOneLeaveTheNotStartedMark) {
    const int32_t lengths[][2] = {{0, 5}, {5, 0}, {0, 0}, {-3, 4}, {4, -3}};
    for (const auto& l : lengths) {
        const Built b = Build(l[0], l[1], 2000);
        ASSERT_EQ(b.runs.size(), 1u);
        EXPECT_EQ(b.runs[0].kind, RunNotStarted);
        EXPECT_EQ(b.unconsumed, l[0]);
    }
}

TEST(RunList, RandomLengthsSelectLikeTheAccumulator) {
    std::mt19937 rng(7);
    std::uniform_int_distribution<int32_t> len(1, 300);
    for (int i = 0; i < 3000; ++i) {
        const int32_t in = len(rng), out = len(rng);
        const int32_t step = AccumulatorStep(in, out);
        const Built b = Build(in, out, step);
        const Selection model = SelectByAccumulator(in, out, step);
        EXPECT_EQ(Expand(b.runs), model.shown) << in << " to " << out;
        EXPECT_EQ(b.unconsumed, model.unconsumed) << in << " to " << out;
        // The whole output is reached, no run is empty, neighbours differ in
        // kind, and there are never more runs than the longer length.
        EXPECT_EQ(static_cast<int32_t>(model.shown.size()), out);
        EXPECT_LE(static_cast<int32_t>(b.runs.size()), std::max(in, out));
        ASSERT_EQ(b.runs[0].kind, RunCopy);
        for (size_t r = 0; r < b.runs.size(); ++r) {
            EXPECT_GE(b.runs[r].count, 1);
            if (r > 0) {
                EXPECT_NE(b.runs[r].kind, b.runs[r - 1].kind);
            }
        }
    }
}

TEST(PrepareGenericScale, StepsAndLineFields) {
    const struct {
        int32_t inW, outW, bits, stepX, bpp, srcLine, srcPad, dstLine, dstPad, trailPixels;
    } cases[] = {
        {10, 20, 24, 1000, 3, 32, 2, 60, 0, 0},
        {10, 5, 24, 4000, 3, 32, 2, 16, 1, 1},
        {160, 176, 32, 1818, 4, 640, 0, 704, 0, 0},
        {7, 3, 8, 4666, 1, 8, 1, 4, 1, 2},
        {5, 3, 16, 3333, 2, 12, 2, 8, 2, 1},
    };
    for (const auto& c : cases) {
        Transform t = Make(0, static_cast<uint32_t>(c.bits));
        ASSERT_TRUE(t->Init(AbsSIZE(c.inW, 4), AbsSIZE(c.outW, 8), XFormScale, InterpDefault));
        const auto& s = dynamic_cast<const CSizeXFormRGBScale&>(*t);
        EXPECT_EQ(s.stepX, c.stepX);
        EXPECT_EQ(s.stepY, 1000);
        EXPECT_EQ(s.bytesPerPixel, static_cast<uint32_t>(c.bpp));
        EXPECT_EQ(s.srcActiveBytes, c.inW * c.bpp);
        EXPECT_EQ(s.srcLineSize, c.srcLine);
        EXPECT_EQ(s.srcLinePad, c.srcPad);
        EXPECT_EQ(s.dstActiveBytes, c.outW * c.bpp);
        EXPECT_EQ(s.dstLineSize, c.dstLine);
        EXPECT_EQ(s.dstLinePad, c.dstPad);
        EXPECT_EQ(s.srcTrailBytes, c.trailPixels * c.bpp);
        ASSERT_NE(s.runsX, nullptr);
        ASSERT_NE(s.runsY, nullptr);
        EXPECT_EQ(s.runsY->kind, RunCopy);
        EXPECT_EQ(s.runsY->next->kind, RunDuplicate);
    }
}
