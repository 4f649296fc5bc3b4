#include <gtest/gtest.h>

#include "fakes/Text.h"
#include "storage/stations/RowStore.h"
#include "sync/ScheduleRecords.h"
#include "sync/ScheduleTexts.h"

namespace {

std::string parse(std::u16string_view line, std::size_t fieldIndex) {
    return narrow(ParseScheduleLine(line, fieldIndex));
}

TEST(ScheduleRecordsTestLine, GivesTheValueAfterTheKeyOfItsPosition) {
    EXPECT_EQ(parse(u"StartStopTimeUTC=0600-0700", 0), "0600-0700");
    EXPECT_EQ(parse(u"Frequency=5955", 2), "5955");
    EXPECT_EQ(parse(u"Target=West Europe", 3), "West Europe");
    EXPECT_EQ(parse(u"Programme=A=B", 5), "A=B");
}

TEST(ScheduleRecordsTestLine, OfAPositionWithoutAKeyIsUnchanged) {
    for (const std::size_t index : {1U, 4U, 6U, 7U, 8U}) {
        EXPECT_EQ(parse(u" any text =", index), " any text =");
        EXPECT_EQ(parse(u"Frequency=5955", index), "Frequency=5955");
    }
}

TEST(ScheduleRecordsTestLine, WithAnotherKeyIsEmpty) {
    EXPECT_EQ(parse(u"Frequency=5955", 0), "");
    EXPECT_EQ(parse(u"frequency=5955", 2), "");
    EXPECT_EQ(parse(u"FREQUENCY=5955", 2), "");
    EXPECT_EQ(parse(u" Frequency=5955", 2), "");
    EXPECT_EQ(parse(u"Frequency =5955", 2), "");
    EXPECT_EQ(parse(u"Frequency", 2), "");
    EXPECT_EQ(parse(u"", 2), "");
}

TEST(ScheduleRecordsTestLine, WithoutAValueIsEmpty) {
    EXPECT_EQ(parse(u"Frequency=", 2), "");
    EXPECT_EQ(parse(u"Frequency=\r", 2), "");
    EXPECT_EQ(parse(u"", 1), "");
}

TEST(ScheduleRecordsTestLine, DropsOneCarriageReturnOrLineFeedAtItsEnd) {
    EXPECT_EQ(parse(u"Target=Asia\r", 3), "Asia");
    EXPECT_EQ(parse(u"Target=Asia\n", 3), "Asia");
    EXPECT_EQ(parse(u"Target=Asia\r\r", 3), "Asia\r");
    EXPECT_EQ(parse(u"Target=Asia\r\n", 3), "Asia\r");
    EXPECT_EQ(parse(u"\r", 1), "");
    EXPECT_EQ(parse(u"a\rb\r", 1), "a\rb");
}

TEST(ScheduleRecordsTestLine, KeepsBlanksAroundTheValue) { EXPECT_EQ(parse(u"Target= Asia ", 3), " Asia "); }

class ScheduleRecordsTestRecord : public testing::Test {
protected:
    static ScheduleFields fieldsOf(const RecordTexts& texts) {
        ScheduleFields fields;
        fields[0] = texts.time;
        fields[2] = texts.frequency;
        fields[3] = texts.target;
        fields[5] = texts.programme;
        return fields;
    }
    bool add(const RecordTexts& texts, int existing = 0) { return AddScheduleRecord(drmLV, fieldsOf(texts), existing); }
    std::string row(int number) {
        return narrow(drmLV.text(number, 1)) + "|" + narrow(drmLV.text(number, 2)) + "|" +
               narrow(drmLV.text(number, 3)) + "|" + narrow(drmLV.text(number, 4));
    }

    RowStore drmLV;
};

TEST_F(ScheduleRecordsTestRecord, BecomesARow) {
    EXPECT_TRUE(add({}));
    EXPECT_EQ(row(1), "Radio|5955|06:00-07:00|Europe");
}

TEST_F(ScheduleRecordsTestRecord, NeedsAllFourFields) {
    EXPECT_FALSE(add({.time = u""}));
    EXPECT_FALSE(add({.frequency = u""}));
    EXPECT_FALSE(add({.target = u""}));
    EXPECT_FALSE(add({.programme = u""}));
    EXPECT_EQ(drmLV.rowCount(), 0);
}

struct FrequencyCase {
    const char16_t* frequency;
    bool accepted;
};

class ScheduleRecordsTestFrequency : public ScheduleRecordsTestRecord,
                                     public testing::WithParamInterface<FrequencyCase> {};

TEST_P(ScheduleRecordsTestFrequency, IsDigitsUpTo30000) {
    EXPECT_EQ(add({.frequency = GetParam().frequency}), GetParam().accepted);
    EXPECT_EQ(narrow(drmLV.text(1, 2)), GetParam().accepted ? narrow(GetParam().frequency) : "");
}

INSTANTIATE_TEST_SUITE_P(Bounds, ScheduleRecordsTestFrequency,
                         testing::Values(FrequencyCase{u"0", true}, FrequencyCase{u"149", true},
                                         FrequencyCase{u"30000", true}, FrequencyCase{u"30001", false},
                                         FrequencyCase{u"0005955", true}, FrequencyCase{u"00000000000000030000", true},
                                         FrequencyCase{u"99999999999999999999", false}, FrequencyCase{u"5955.5", false},
                                         FrequencyCase{u"-1", false}, FrequencyCase{u"+1", false},
                                         FrequencyCase{u" 5955", false}, FrequencyCase{u"5955 ", false},
                                         FrequencyCase{u"1e3", false}, FrequencyCase{u"/", false},
                                         FrequencyCase{u":", false}, FrequencyCase{u"５９５５", false}));

struct TimeCase {
    const char16_t* time;
    const char* cell;  // empty: refused
};

class ScheduleRecordsTestTime : public ScheduleRecordsTestRecord, public testing::WithParamInterface<TimeCase> {};

TEST_P(ScheduleRecordsTestTime, BecomesASpanThatEndsAfterItsStart) {
    EXPECT_EQ(add({.time = GetParam().time}), *GetParam().cell != '\0');
    EXPECT_EQ(narrow(drmLV.text(1, 3)), GetParam().cell);
}

INSTANTIATE_TEST_SUITE_P(
    Spans, ScheduleRecordsTestTime,
    testing::Values(TimeCase{u"0600-0700", "06:00-07:00"}, TimeCase{u"2300-2400", "23:00-24:00"},
                    TimeCase{u"0000-2400", "00:00-24:00"}, TimeCase{u"2359-2459", "23:59-24:59"},
                    TimeCase{u"0000-0001", "00:00-00:01"}, TimeCase{u"0700-0600", ""}, TimeCase{u"0600-0600", ""},
                    TimeCase{u"2300-0100", ""}, TimeCase{u"2400-2401", ""}, TimeCase{u"0600-2500", ""},
                    TimeCase{u"0660-0700", ""}, TimeCase{u"0600-0760", ""}, TimeCase{u"0659-0759", "06:59-07:59"},
                    TimeCase{u"2200-2359", "22:00-23:59"}, TimeCase{u"06:0-0700", ""}, TimeCase{u"0600-07:0", ""},
                    TimeCase{u" 600-0700", ""}, TimeCase{u"0600- 700", ""}, TimeCase{u"06000700", "06:00-07:00"},
                    TimeCase{u"0600 to 0700", "06:00-07:00"}, TimeCase{u"0600x0700", "06:00-07:00"},
                    TimeCase{u"0600-0700 ", ""}, TimeCase{u"00010", "00:01-00:10"}, TimeCase{u"0600", ""},
                    TimeCase{u"060", ""}, TimeCase{u"1", ""}, TimeCase{u"06", ""}));

TEST_F(ScheduleRecordsTestRecord, EqualToAnEarlierRowIsADuplicate) {
    ASSERT_TRUE(add({}));
    EXPECT_FALSE(add({}, 1));
    EXPECT_FALSE(add({.programme = u"Another name"}, 1)) << "the programme does not count";
    EXPECT_EQ(drmLV.rowCount(), 1);
}

TEST_F(ScheduleRecordsTestRecord, DifferingInFrequencyTimeOrTargetIsNoDuplicate) {
    ASSERT_TRUE(add({}));
    EXPECT_TRUE(add({.frequency = u"05955"}, 1));
    EXPECT_TRUE(add({.time = u"0600-0701"}, 1));
    EXPECT_TRUE(add({.target = u"europe"}, 1));
    EXPECT_EQ(drmLV.rowCount(), 4);
}

TEST_F(ScheduleRecordsTestRecord, IsComparedWithTheFirstRowsOnly) {
    ASSERT_TRUE(add({.target = u"Asia"}));
    ASSERT_TRUE(add({}));
    EXPECT_TRUE(add({}, 0));
    EXPECT_TRUE(add({}, 1));
    EXPECT_FALSE(add({}, 2));
    EXPECT_FALSE(add({}, 99));
    EXPECT_EQ(drmLV.rowCount(), 4);
}

class ScheduleRecordsTest : public ScheduleRecordsTestRecord {
protected:
    int scan(const std::u16string& text) { return AddScheduleRecords(drmLV, text, 0); }
};

TEST_F(ScheduleRecordsTest, ReadsLinesThatEndInCrLfOrInLfAlike) {
    EXPECT_EQ(scan(recordLines()), 1);
    EXPECT_EQ(scan(recordLines({}, u"\n")), 1);
    EXPECT_EQ(row(1), "Radio|5955|06:00-07:00|Europe");
    EXPECT_EQ(row(2), row(1));
}

TEST_F(ScheduleRecordsTest, DoesNotEndALineAtACarriageReturnAlone) {
    EXPECT_EQ(scan(recordLines({}, u"\r") + u"\n"), 0);
}

TEST_F(ScheduleRecordsTest, SkipsEmptyLinesOfAnLfFileEvenWithinARecord) {
    const std::u16string record = recordLines({}, u"\n");
    const std::size_t middle = record.find(u"Frequency=");
    EXPECT_EQ(scan(u"\n\n" + record + u"\n\n" + record.substr(0, middle) + u"\n" + record.substr(middle)), 2);
}

TEST_F(ScheduleRecordsTest, ALineOfACarriageReturnAloneBreaksARecord) {
    const std::u16string record = recordLines();
    for (const char16_t* key : {u"Days=", u"Frequency=", u"Power=", u"Country="}) {
        const std::size_t at = record.find(key);
        EXPECT_EQ(scan(record.substr(0, at) + u"\r\n" + record.substr(at)), 0) << narrow(key);
    }
}

TEST_F(ScheduleRecordsTest, ALineOfACarriageReturnAloneBetweenRecordsIsHarmless) {
    EXPECT_EQ(scan(recordLines() + u"\r\n" + recordLines()), 2);
}

TEST_F(ScheduleRecordsTest, ALowerCaseKeyDropsTheRecordAndScanningContinues) {
    std::u16string broken = recordLines({.programme = u"Broken"});
    broken.replace(broken.find(u"Frequency"), 9, u"frequency");
    EXPECT_EQ(scan(broken + recordLines()), 1);
    EXPECT_EQ(row(1), "Radio|5955|06:00-07:00|Europe");
}

TEST_F(ScheduleRecordsTest, TheLineThatBreaksARecordIsNotTheFirstOfAnother) {
    // The first line of the second record is where the third line of the first should be.
    EXPECT_EQ(scan(u"StartStopTimeUTC=0100-0200\nDays=1\n" + recordLines()), 0);
    EXPECT_EQ(scan(u"StartStopTimeUTC=0100-0200\nDays=1\nbroken\n" + recordLines()), 1);
}

TEST_F(ScheduleRecordsTest, ALastRecordWithoutALineFeedIsNotAdded) {
    std::u16string text = recordLines() + recordLines({.programme = u"Last"});
    text.pop_back();
    EXPECT_EQ(scan(text), 1);
    EXPECT_EQ(drmLV.rowCount(), 1);
}

TEST_F(ScheduleRecordsTest, AnInvalidRecordIsSkippedAndNotCounted) {
    EXPECT_EQ(scan(recordLines({.time = u"0700-0600"}) + recordLines() + recordLines({.frequency = u"30001"})), 1);
    EXPECT_EQ(drmLV.rowCount(), 1);
}

TEST_F(ScheduleRecordsTest, TheSameRecordTwiceGivesTwoRows) {
    EXPECT_EQ(scan(recordLines() + recordLines()), 2);
    EXPECT_EQ(row(1), row(2));
}

TEST_F(ScheduleRecordsTest, EndsAfterThe257thRecord) {
    std::u16string text;
    for (int i = 0; i < 300; ++i) {
        text += recordLines();
    }
    EXPECT_EQ(scan(text), 257);
    EXPECT_EQ(drmLV.rowCount(), 257);
}

TEST_F(ScheduleRecordsTest, InvalidRecordsDoNotCountTowardsTheLimit) {
    std::u16string text;
    for (int i = 0; i < 256; ++i) {
        text += recordLines() + recordLines({.time = u"0700-0600"});
    }
    EXPECT_EQ(scan(text), 256);
}

TEST_F(ScheduleRecordsTest, AnEmptyTextHasNoRecord) {
    EXPECT_EQ(scan(u""), 0);
    EXPECT_EQ(scan(u"\n"), 0);
}

}  // namespace
