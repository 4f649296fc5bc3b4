// The library that the program carries inside, whole and damaged.
#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QResource>

#include "platform/qt/HttpExchange.h"

namespace {

QByteArray carried() { return QResource(":/http_exchange.so").uncompressedData(); }

qsizetype openDescriptors() { return QDir("/proc/self/fd").entryList(QDir::System | QDir::AllEntries).size(); }

TEST(HttpLibraryTest, TheOneInsideIsLoaded) { EXPECT_NE(loadHttpExchange(carried()), nullptr); }

TEST(HttpLibraryTest, DamagedOnesAreNot) {
    ASSERT_FALSE(carried().isEmpty());
    for (const QByteArray& bytes : {QByteArray(), QByteArray("no library"), carried().left(100), carried().mid(1)}) {
        EXPECT_EQ(loadHttpExchange(bytes), nullptr) << bytes.size() << " bytes";
    }
}

TEST(HttpLibraryTest, AnotherLibraryIsNot) {
    QByteArray renamed = carried();
    ASSERT_TRUE(renamed.contains("exchangeOverHttp"));
    renamed.replace("exchangeOverHttp", "otherOfSameSize!");
    EXPECT_EQ(loadHttpExchange(renamed), nullptr);
}

TEST(HttpLibraryTest, AFailureLeavesNoFileOpen) {
    const qsizetype before = openDescriptors();
    EXPECT_EQ(loadHttpExchange("no library"), nullptr);
    EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
