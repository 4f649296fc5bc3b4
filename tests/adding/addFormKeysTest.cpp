#include "adding/AddListFixture.h"

namespace {

class addFormKeysTest : public AddListFixture {};

using F = AddField;

TEST_F(addFormKeysTest, EnterSavesFromEveryField) {
    for (const F field : kAllFields) {
        const int before = grid(ListKind::Drm).rowCount();
        openFor(ListKind::Drm);
        typeValidDrm();
        EXPECT_TRUE(dialog.press(field, kEnter));
        EXPECT_EQ(grid(ListKind::Drm).rowCount(), before + 1);
        expectClosed();
    }
}

TEST_F(addFormKeysTest, OtherKeysAreTypedInTheOtherFields) {
    openFor(ListKind::Drm);
    for (const F field : {F::txtLabel, F::txtFreq, F::txtTarget, F::sHourComb, F::sMinComb}) {
        for (const char16_t key : {u'7', u'x', u' ', u'.'}) {
            EXPECT_FALSE(dialog.press(field, key));
        }
        EXPECT_EQ(dialog.text(field), u"7x .");
    }
    EXPECT_TRUE(dialog.isOpen());
    EXPECT_TRUE(box.shown.empty());
}

TEST_F(addFormKeysTest, EveryKeyInAStopTimeRunsSave) {
    openFor(ListKind::Drm);
    for (const F field : {F::eHourComb, F::eMinComb}) {
        for (const char16_t key : {u'7', u'x', u' ', char16_t{8}, char16_t{27}, kEnter}) {
            box.expect({u"Programme: Input can't be empty", u"Add List"});
            dialog.press(field, key);
            EXPECT_TRUE(box.allShown());
            EXPECT_TRUE(dialog.isOpen());
        }
    }
}

TEST_F(addFormKeysTest, AKeyInAStopTimeSavesACompleteRecordBeforeItIsTyped) {
    for (const F field : {F::eHourComb, F::eMinComb}) {
        const int row = grid(ListKind::Drm).rowCount() + 1;
        openFor(ListKind::Drm);
        typeValidDrm();
        EXPECT_TRUE(dialog.press(field, u'9')) << "the field is gone";
        EXPECT_EQ(rowText(ListKind::Drm, row), "Radio|9620|07:05-08:00|Europe");
        expectClosed();
    }
}

TEST_F(addFormKeysTest, AKeyInAStopTimeIsTypedAfterARejectedSave) {
    openFor(ListKind::Drm);
    typeDrm();
    typeTimes({u"7", u"5", u"", u""});
    box.expect({u"Stop Time(UTC): Input can't be empty", u"Add List"});
    EXPECT_FALSE(dialog.press(F::eHourComb, u'8'));
    EXPECT_EQ(dialog.text(F::eHourComb), u"8");
}

TEST_F(addFormKeysTest, EscapeInAStopTimeSavesAndDoesNotCancel) {
    openFor(ListKind::Drm);
    typeValidDrm();
    EXPECT_TRUE(dialog.press(F::eMinComb, 27));
    EXPECT_EQ(grid(ListKind::Drm).rowCount(), 1);
    expectClosed();
}

class addFormKeysTestOpenList : public AddListFixture {
protected:
    addFormKeysTestOpenList() {
        openFor(ListKind::Drm);
        typeValidDrm();
    }
    void openList(F combo, std::u16string highlighted) {
        dialog.at(combo).listOpen = true;
        dialog.at(combo).highlighted = std::move(highlighted);
    }
};

TEST_F(addFormKeysTestOpenList, EnterTakesTheHighlightedEntryAndSaves) {
    openList(F::sHourComb, u"6");
    EXPECT_TRUE(dialog.press(F::sHourComb, kEnter));
    EXPECT_EQ(rowText(ListKind::Drm, 1), "Radio|9620|06:05-08:00|Europe");
    expectClosed();
    openFor(ListKind::Drm);
    typeValidDrm();
    openList(F::eMinComb, u"45");
    EXPECT_TRUE(dialog.press(F::eMinComb, kEnter));
    EXPECT_EQ(rowText(ListKind::Drm, 2), "Radio|9620|07:05-08:45|Europe");
}

TEST_F(addFormKeysTestOpenList, EscapeOnlyClosesTheListOfAStartTime) {
    openList(F::sMinComb, u"6");
    EXPECT_TRUE(dialog.press(F::sMinComb, 27));
    EXPECT_FALSE(dialog.at(F::sMinComb).listOpen);
    EXPECT_EQ(dialog.text(F::sMinComb), u"5");
    EXPECT_TRUE(dialog.isOpen());
    EXPECT_FALSE(dialog.press(F::sMinComb, 27)) << "cancels";
    expectClosed();
    EXPECT_EQ(rowsOfAllLists(), 0);
}

TEST_F(addFormKeysTestOpenList, EveryKeyClosesTheListOfAStopTimeAndSaves) {
    int rows = 0;
    for (const F field : {F::eHourComb, F::eMinComb}) {
        for (const char16_t key : {u'7', u' ', char16_t{8}, char16_t{27}}) {
            openList(field, u"0");
            EXPECT_TRUE(dialog.press(field, key));
            EXPECT_EQ(grid(ListKind::Drm).rowCount(), ++rows);
            EXPECT_EQ(rowText(ListKind::Drm, rows), "Radio|9620|07:05-08:00|Europe");
            openFor(ListKind::Drm);
            typeValidDrm();
        }
    }
}

TEST_F(addFormKeysTestOpenList, AKeyOfARejectedSaveIsTypedAfterTheListHasClosed) {
    type(F::txtLabel, u"");
    openList(F::eHourComb, u"0");
    box.expect({u"Programme: Input can't be empty", u"Add List"});
    EXPECT_FALSE(dialog.press(F::eHourComb, u'9'));
    EXPECT_FALSE(dialog.at(F::eHourComb).listOpen);
    EXPECT_EQ(dialog.text(F::eHourComb), u"89");
}

TEST_F(addFormKeysTestOpenList, AKeyInAStartTimeClosesTheListAndIsTyped) {
    openList(F::sHourComb, u"0");
    EXPECT_FALSE(dialog.press(F::sHourComb, u'1'));
    EXPECT_FALSE(dialog.at(F::sHourComb).listOpen);
    EXPECT_EQ(dialog.text(F::sHourComb), u"71");
    EXPECT_TRUE(dialog.isOpen());
}

TEST_F(addFormKeysTest, EscapeElsewhereCancels) {
    openFor(ListKind::Drm);
    typeValidDrm();
    dialog.press(F::txtLabel, 27);
    expectClosed();
    EXPECT_EQ(grid(ListKind::Drm).rowCount(), 0);
}

}  // namespace
