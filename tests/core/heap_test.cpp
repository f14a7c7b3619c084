// Free memory between blocks in use goes back to the system.
#include "core/heap.h"

#include <QFile>

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace orvanta {

namespace {

/// Memory of this process that is no file's, in kilobytes.
qint64 anonymousMemory()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArrayList lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("Anonymous:")) {
            return line.simplified().split(' ').value(1).toLongLong();
        }
    }
    ADD_FAILURE() << "the system does not tell";
    return 0;
}

std::unique_ptr<char[]> block()
{
    constexpr std::size_t kBytes = 1000;
    auto bytes = std::make_unique<char[]>(kBytes);
    std::memset(bytes.get(), 1, kBytes);
    return bytes;
}

} // namespace

TEST(Heap, WhatLiesFreeBelowABlockInUseGoesBack)
{
#ifdef ORVANTA_SANITIZE
    GTEST_SKIP() << "the sanitizers bring a heap of their own";
#endif
    constexpr int kBlocks = 40'000;
    std::vector<std::unique_ptr<char[]>> blocks(kBlocks);
    for (auto& one : blocks) {
        one = block();
    }
    const auto above = block();
    blocks.clear();
    const qint64 before = anonymousMemory();
    giveFreeMemoryBack();
    EXPECT_LT(anonymousMemory(), before - kBlocks / 2);
    EXPECT_EQ(above[0], 1);
}

} // namespace orvanta
