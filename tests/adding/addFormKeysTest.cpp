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

TEST_F(addFormKeysTest, AKeyInAStopTimeIsTypedAfterARefusedSave) {
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

TEST_F(addFormKeysTest, EscapeElsewhereCancels) {
    openFor(ListKind::Drm);
    typeValidDrm();
    dialog.press(F::txtLabel, 27);
    expectClosed();
    EXPECT_EQ(grid(ListKind::Drm).rowCount(), 0);
}

}  // namespace
