#include "adding/AddListFixture.h"

namespace {

class addFormSaveTest : public AddListFixture {};

using F = AddField;

TEST_F(addFormSaveTest, NothingIsAddedToTheFavouriteList) {
    openFor(ListKind::Am);
    currentTab.SetCurrentTab(3);
    typePlain(u"9620");
    save();
    EXPECT_TRUE(dialog.isOpen());
    EXPECT_EQ(grid(ListKind::Favourite).rowCount(), 0);
}

TEST_F(addFormSaveTest, TheFieldMessagesAreShownWithTheCaptionHook) {
    openFor(ListKind::Drm);
    saveRefused(u"Programme: Input can't be empty");
    EXPECT_EQ(hook.issued, 1U);
    EXPECT_EQ(hook.live, 0U);
}

TEST_F(addFormSaveTest, ADrmRecordIsAppendedAsTypedWithTwoDigitTimes) {
    fill(ListKind::Drm, 2);
    openFor(ListKind::Drm);
    typeValidDrm();
    type(F::txtLabel, u" Радио  ");
    type(F::txtFreq, u"09620");
    type(F::txtTarget, u" West ");
    save();
    EXPECT_EQ(rowText(ListKind::Drm, 3), " Радио  |09620|07:05-08:00| West ");
    EXPECT_EQ(grid(ListKind::Drm).rowCount(), 3);
    expectClosed();
    EXPECT_EQ(status(), "Total Number Of DRM List: 3");
}

TEST_F(addFormSaveTest, SavingShowsNoMessageAndNotifiesTheViewOfOneRow) {
    openFor(ListKind::Drm);
    typeValidDrm();
    view(ListKind::Drm).calls.clear();
    save();
    EXPECT_EQ(view(ListKind::Drm).calls, (std::vector<std::string>{"beforeAppend", "afterAppend"}));
    EXPECT_TRUE(box.shown.empty());
}

TEST_F(addFormSaveTest, AStopThatIsNotAfterTheStartIsRejected) {
    using Times = std::array<std::u16string, 4>;
    openFor(ListKind::Drm);
    typeDrm();
    for (const Times& times : {Times{u"7", u"30", u"7", u"30"}, Times{u"23", u"0", u"1", u"0"},
                               Times{u"10", u"1", u"10", u"0"}, Times{u"0", u"0", u"0", u"0"}}) {
        typeTimes(times);
        saveRefused(u"Start Time Must Smaller Than Stop Time");
    }
}

TEST_F(addFormSaveTest, TypedTimesAreUnchangedAndComparedByCodePoint) {
    openFor(ListKind::Drm);
    typeDrm();
    typeTimes({u"007", u"5", u"ab", u"x"});
    save();
    EXPECT_EQ(rowText(ListKind::Drm, 1), "Radio|9620|007:05-ab:0x|Europe");
    openFor(ListKind::Drm);
    typeDrm();
    // "a" is after "Z" by code point, whatever the order of a language.
    typeTimes({u"aa", u"00", u"ZZ", u"00"});
    saveRefused(u"Start Time Must Smaller Than Stop Time");
}

TEST_F(addFormSaveTest, AMissingTimeIsRejectedWithItsPrefix) {
    openFor(ListKind::Drm);
    typeDrm();
    using Times = std::array<std::u16string, 4>;
    for (const Times& times : {Times{u"", u"5", u"8", u"0"}, Times{u"7", u"", u"8", u"0"}, Times{}}) {
        typeTimes(times);
        saveRefused(u"Start Time(UTC): Input can't be empty");
    }
    for (const Times& times : {Times{u"7", u"5", u"", u"0"}, Times{u"7", u"5", u"8", u""}}) {
        typeTimes(times);
        saveRefused(u"Stop Time(UTC): Input can't be empty");
    }
}

TEST_F(addFormSaveTest, TheDrmChecksRunInTheirOrder) {
    openFor(ListKind::Drm);
    saveRefused(u"Programme: Input can't be empty");
    type(F::txtLabel, u"Radio");
    saveRefused(u"Frequency: Input can't be empty");
    type(F::txtFreq, u"9x");
    saveRefused(u"Frequency: Please input zero to nine");
    type(F::txtFreq, u"9620");
    saveRefused(u"Target: Input can't be empty");
    type(F::txtTarget, u"  ");
    saveRefused(u"Target: Input can't be all space");
    type(F::txtTarget, u"Europe");
    saveRefused(u"Start Time(UTC): Input can't be empty");
    typeTimes({u"8", u"0", u"", u""});
    saveRefused(u"Stop Time(UTC): Input can't be empty");
    typeTimes({u"8", u"0", u"7", u"0"});
    saveRefused(u"Start Time Must Smaller Than Stop Time");
    type(F::eHourComb, u"9");
    save();
    EXPECT_EQ(rowText(ListKind::Drm, 1), "Radio|9620|08:00-09:00|Europe");
}

TEST_F(addFormSaveTest, ABlankProgrammeIsRejectedAndGetsTheFocus) {
    openFor(ListKind::Drm);
    dialog.focused.clear();
    typeValidDrm();
    type(F::txtLabel, u"   ");
    saveRefused(u"Programme: Input can't be all space");
    EXPECT_EQ(dialog.focused, (std::vector<F>{F::txtLabel}));
}

TEST_F(addFormSaveTest, OnlyAProgrammeErrorMovesTheFocus) {
    openFor(ListKind::Drm);
    dialog.focused.clear();
    typeDrm(u"149");
    saveRefused(u"Frequency: Out of range: (150--30000) kHz");
    typeDrm(u"9620", u"");
    saveRefused(u"Target: Input can't be empty");
    typeDrm();
    saveRefused(u"Start Time(UTC): Input can't be empty");
    EXPECT_TRUE(dialog.focused.empty());
}

TEST_F(addFormSaveTest, DrmFrequenciesFrom150To30000AreAdded) {
    for (const char16_t* frequency : {u"150", u"30000"}) {
        openFor(ListKind::Drm);
        typeValidDrm();
        type(F::txtFreq, frequency);
        save();
        expectClosed();
    }
    openFor(ListKind::Drm);
    typeValidDrm();
    for (const char16_t* frequency : {u"149", u"30001"}) {
        type(F::txtFreq, frequency);
        saveRefused(u"Frequency: Out of range: (150--30000) kHz");
    }
    EXPECT_EQ(grid(ListKind::Drm).rowCount(), 2);
}

TEST_F(addFormSaveTest, AnAmRecordGetsItsBandFromTheFrequency) {
    const std::vector<std::pair<std::u16string, std::string>> cases = {
        {u"150", "LW"},  {u"288", "LW"},   {u"522", "MW"}, {u"1709", "MW"},
        {u"1710", "SW"}, {u"29999", "SW"}, {u"30000", ""}, {u"0999", "MW"}};
    int row = 0;
    for (const auto& [frequency, band] : cases) {
        openFor(ListKind::Am);
        typePlain(frequency);
        save();
        expectClosed();
        EXPECT_EQ(rowText(ListKind::Am, ++row), "Radio|" + narrow(frequency) + "|" + band);
    }
    EXPECT_EQ(status(), "Total Number Of AM List: 8");
}

TEST_F(addFormSaveTest, AnAmFrequencyBetweenTheBandsIsRejected) {
    openFor(ListKind::Am);
    for (const char16_t* frequency : {u"149", u"289", u"521", u"30001"}) {
        typePlain(frequency);
        saveRefused(u"Frequency: Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!");
    }
}

TEST_F(addFormSaveTest, AnFmRecordGetsTheBandVhf) {
    int row = 0;
    for (const char16_t* frequency : {u"87", u"108", u"98.50"}) {
        openFor(ListKind::Fm);
        typePlain(frequency);
        save();
        expectClosed();
        EXPECT_EQ(rowText(ListKind::Fm, ++row), "Radio|" + narrow(frequency) + "|VHF");
    }
    EXPECT_EQ(status(), "Total Number Of FM List: 3");
}

TEST_F(addFormSaveTest, AWrongFmFrequencyIsRejected) {
    openFor(ListKind::Fm);
    for (const char16_t* frequency : {u"86.9", u"108.1", u"."}) {
        typePlain(frequency);
        saveRefused(u"Frequency: Out of range: (87.0-108.0) MHz!");
    }
    for (const char16_t* frequency : {u"87.5.1", u"1,5"}) {
        typePlain(frequency);
        saveRefused(u"Frequency: Please input zero to nine");
    }
}

TEST_F(addFormSaveTest, FieldsHaveNoLengthLimit) {
    openFor(ListKind::Am);
    type(F::txtLabel, std::u16string(1000, u'x'));
    type(F::txtFreq, std::u16string(500, u'0') + u"999");
    save();
    EXPECT_EQ(grid(ListKind::Am).text(1, 1).size(), 1000U);
    EXPECT_EQ(grid(ListKind::Am).text(1, 2).size(), 503U);
    EXPECT_EQ(grid(ListKind::Am).text(1, 3), u"MW");
}

TEST_F(addFormSaveTest, TheListKindIsReadAgainWhenSaving) {
    openFor(ListKind::Am);
    typePlain(u"98.5");
    currentTab.SetCurrentTab(2);
    save();
    EXPECT_EQ(rowText(ListKind::Fm, 1), "Radio|98.5|VHF");
    EXPECT_EQ(grid(ListKind::Am).rowCount(), 0);
}

TEST_F(addFormSaveTest, TheLimitIsNotTestedAgainWhenSaving) {
    openFor(ListKind::Am);
    fill(ListKind::Am, 256);
    typePlain(u"999");
    save();
    EXPECT_EQ(grid(ListKind::Am).rowCount(), 257);
}

}  // namespace
