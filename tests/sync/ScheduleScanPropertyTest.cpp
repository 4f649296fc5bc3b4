// Compares the scanner with a simple one on many random texts.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "fakes/Text.h"
#include "storage/stations/RowStore.h"
#include "sync/PlainScan.h"
#include "sync/ScheduleTexts.h"

namespace {

class RandomText {
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    // Whole records, single lines and stray characters, with a few characters changed afterwards.
    std::u16string next() {
        std::u16string text;
        const int pieces = below(below(16) == 0 ? 1200 : 12);
        for (int i = 0; i < pieces; ++i) {
            text += piece();
        }
        const int changes = below(4);
        for (int i = 0; i < changes && !text.empty(); ++i) {
            change(text);
        }
        return text;
    }

private:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
    std::size_t below(std::size_t end) { return static_cast<std::size_t>(below(static_cast<int>(end))); }

    std::u16string piece() {
        static const std::vector<std::u16string> kStray = {u"\r",
                                                           u"\n",
                                                           u"\r\n",
                                                           u"x",
                                                           u"Frequency=",
                                                           u"Target=",
                                                           u"Programme=P",
                                                           u"[DRMSchedule]\r\n",
                                                           u"StartStopTimeUTC=0100-0200\n"};
        if (below(5) == 0) {
            return kStray[below(kStray.size())];
        }
        static const std::vector<std::u16string> kTimes = {u"0600-0700", u"2300-2400", u"0700-0600", u"060", u""};
        static const std::vector<std::u16string> kEnds = {u"\r\n", u"\n", u"\r\r\n", u"\n\n"};
        const auto name = static_cast<char16_t>(u'A' + below(26));
        return recordLines(
            {.time = kTimes[below(3) == 0 ? below(kTimes.size()) : 0], .programme = std::u16string(1, name)},
            kEnds[below(kEnds.size())]);
    }

    void change(std::u16string& text) {
        static const std::u16string kCharacters = u"\r\n=0x";
        const std::size_t at = below(text.size());
        if (below(2) == 0) {
            text.erase(at, 1);
        } else {
            text[at] = kCharacters[below(kCharacters.size())];
        }
    }

    std::mt19937 random_;
};

std::string contentOf(const Grid& grid) {
    std::string content;
    for (int row = 1; row <= grid.rowCount(); ++row) {
        for (int column = 1; column <= 4; ++column) {
            content += narrow(grid.text(row, column)) + "|";
        }
        content += "\n";
    }
    return content;
}

TEST(ScheduleScanPropertyTest, EqualsThePlainScanOnRandomTexts) {
    RandomText random(20'240'601);
    int added = 0;
    int full = 0;
    int without = 0;
    for (int i = 0; i < 800; ++i) {
        const std::u16string text = random.next();
        RowStore plain;
        RowStore real;
        const int expected = plainScan(plain, text);
        ASSERT_EQ(AddScheduleRecords(real, text, 0), expected) << narrow(text);
        ASSERT_EQ(contentOf(real), contentOf(plain)) << narrow(text);
        added += expected;
        full += expected == 257 ? 1 : 0;
        without += expected == 0 ? 1 : 0;
    }
    // The random texts must have included schedules with records, without records, and with more than the limit.
    EXPECT_GT(added, 1000);
    EXPECT_GT(full, 0);
    EXPECT_GT(without, 50);
}

}  // namespace
