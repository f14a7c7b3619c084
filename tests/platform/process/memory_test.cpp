// What is freed goes back to the system.
#include "platform/process/memory.h"

#include <QFile>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace orvanta::test {

using namespace Qt::StringLiterals;

/// In pages of the system.
static qint64 residentPages()
{
    QFile file(u"/proc/self/statm"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().split(' ').value(1).toLongLong();
}

TEST(FreeMemory, GoesBackFromBetweenSmallBlocksThatAreStillInUse)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer has a heap of its own";
#endif
    constexpr int kBlocks = 2000;
    constexpr int kBytes = 32 * 1024;
    constexpr int kKept = 100; // one of so many stays
    const qint64 before = residentPages();
    std::vector<std::unique_ptr<char[]>> blocks(kBlocks);
    for (auto& block : blocks) {
        block = std::make_unique<char[]>(kBytes);
    }
    const qint64 full = residentPages();
    for (int i = 0; i < kBlocks; ++i) {
        if (i % kKept != kKept - 1) {
            blocks[i].reset();
        }
    }
    giveFreeMemoryBack();
    EXPECT_LT(residentPages() - before, (full - before) / 4);
}

} // namespace orvanta::test
