// A run record is three words: the address of the next record, the kind and
// the count.  On a 32-bit build that is the classic 12 bytes; on a 64-bit
// build the address word is 8 bytes wide.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "size/run_list.h"

TEST(RunListWords, RecordIsAnAddressAndTwo32BitFields) {
#if UINTPTR_MAX == 0xFFFFFFFFu
    EXPECT_EQ(sizeof(ScaleRun), 12u);
#else
    EXPECT_EQ(sizeof(ScaleRun), 16u);
#endif
    EXPECT_EQ(offsetof(ScaleRun, next), 0u);
    EXPECT_EQ(offsetof(ScaleRun, kind), sizeof(void*));
    EXPECT_EQ(offsetof(ScaleRun, count), sizeof(void*) + 4);
}

TEST(RunListWords, RecordsLieOneRecordApartInTheBlock) {
    ScaleRun* list = nullptr;
    BuildRunList(7, 20, 700, &list, nullptr);  // copies and repeats in turn
    ASSERT_NE(list, nullptr);
    int records = 0;
    for (const ScaleRun* r = list; r->next != nullptr; r = r->next, ++records)
        EXPECT_EQ(reinterpret_cast<uintptr_t>(r->next) - reinterpret_cast<uintptr_t>(r), sizeof(ScaleRun));
    EXPECT_GT(records, 2);
    FreeRunList(list);
}
