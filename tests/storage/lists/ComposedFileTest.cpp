#include <gtest/gtest.h>

#include "storage/lists/ComposedFile.h"
#include "storage/text/Utf8.h"

TEST(ComposedFileTest, BytesWhoseMemoryIsUsedAgainAreNotInTheFile) {
    ComposedFile file(u"start ", 5, std::string(100, 'x'));
    file.text() += u"end";
    EXPECT_EQ(file.units(), 9U);
    EXPECT_EQ(file.takeBytes(), "start end");
}

TEST(ComposedFileTest, EncodingInPartsGivesTheSameBytes) {
    std::u16string whole = u" \r\n";
    ComposedFile file(whole, 10'000);
    for (int record = 0; record < 2000; ++record) {
        const std::u16string text =
            std::u16string(static_cast<std::size_t>(record % 23), u'\u4E2D') + u"\U0001F4FB\r\n";
        file.text() += text;
        whole += text;
        EXPECT_EQ(file.units(), whole.size());
        file.endRecord();
        EXPECT_EQ(file.units(), whole.size());
    }
    EXPECT_LT(file.text().size(), whole.size() / 2) << "none was encoded on the way";
    EXPECT_EQ(file.takeBytes(), toUtf8(whole));
}

TEST(ComposedFileTest, AShortFileConsistsOfItsStart) {
    ComposedFile file(u"[x]\r\n", 0);
    file.endRecord();
    EXPECT_EQ(file.takeBytes(), "[x]\r\n");
}
