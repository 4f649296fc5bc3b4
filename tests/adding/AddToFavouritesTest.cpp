#include "adding/AddToFavourites.h"
#include "adding/AddingFixture.h"

namespace {

constexpr ListKind kFavourite = ListKind::Favourite;

class AddToFavouritesTest : public AddingFixture {
protected:
    void addStation(ListKind kind, const std::u16string& programme, const std::u16string& frequency,
                    bool selected = true) {
        grid(kind).appendRow({programme, frequency, u"third", u"fourth"});
        grid(kind).setSelected(grid(kind).rowCount(), selected);
    }
    void add(ListKind tab) {
        showTab(tab);
        command.AddSelectedToFavourites();
    }
    void expectFull() { box.expect({u"Max number of each list is 256!"}); }

    AddToFavourites command{lists, tabs, totals, messages};
};

TEST_F(AddToFavouritesTest, KeepProgrammeFrequencyWithUnitAndSystem) {
    addStation(ListKind::Drm, u"Радио", u"09620");
    addStation(ListKind::Am, u"中波", u"999");
    addStation(ListKind::Fm, u"City", u"98.5");
    for (const ListKind tab : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
        add(tab);
    }
    EXPECT_EQ(rowText(kFavourite, 1), "Радио|09620  kHz|DRM");
    EXPECT_EQ(rowText(kFavourite, 2), "中波|999  kHz|AM");
    EXPECT_EQ(rowText(kFavourite, 3), "City|98.5  MHz|FM");
    EXPECT_EQ(grid(kFavourite).rowCount(), 3);
}

TEST_F(AddToFavouritesTest, With255OneOfThreeIsAddedAndTheMessageShownOnce) {
    fill(kFavourite, 255);
    for (const char16_t* programme : {u"first", u"second", u"third"}) {
        addStation(ListKind::Drm, programme, u"6095");
    }
    expectFull();
    add(ListKind::Drm);
    EXPECT_EQ(grid(kFavourite).rowCount(), 256);
    EXPECT_EQ(rowText(kFavourite, 256), "first|6095  kHz|DRM");
    EXPECT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(view(ListKind::Drm).focusCount, 1);
}

TEST_F(AddToFavouritesTest, UpTo256AreAddedWithoutAMessage) {
    fill(kFavourite, 254);
    addStation(ListKind::Drm, u"first", u"6095");
    addStation(ListKind::Drm, u"second", u"6095");
    addStation(ListKind::Drm, u"third", u"6095", false);
    add(ListKind::Drm);
    EXPECT_EQ(grid(kFavourite).rowCount(), 256);
}

TEST_F(AddToFavouritesTest, AFullListGetsTheMessageAtOnceWhateverIsSelected) {
    fill(kFavourite, 256);
    for (const ListKind tab : {ListKind::Drm, ListKind::Am, ListKind::Fm, kFavourite}) {
        expectFull();
        add(tab);
        EXPECT_TRUE(box.allShown());
        EXPECT_EQ(view(tab).focusCount, 0);
    }
    EXPECT_EQ(grid(kFavourite).rowCount(), 256);
}

TEST_F(AddToFavouritesTest, TheMessageIsShownWithTheCaptionHook) {
    fill(kFavourite, 257);
    expectFull();
    add(ListKind::Am);
    EXPECT_EQ(hook.issued, 1U);
    EXPECT_EQ(hook.live, 0U);
}

TEST_F(AddToFavouritesTest, TheSameStationTwiceGivesTwoEqualRows) {
    addStation(ListKind::Am, u"Twice", u"198");
    add(ListKind::Am);
    add(ListKind::Am);
    ASSERT_EQ(grid(kFavourite).rowCount(), 2);
    EXPECT_EQ(rowText(kFavourite, 1), "Twice|198  kHz|AM");
    EXPECT_EQ(rowText(kFavourite, 2), rowText(kFavourite, 1));
}

TEST_F(AddToFavouritesTest, OnlySelectedRowsAreAddedFromTopToBottomBehindTheOthers) {
    fill(kFavourite, 1);
    addStation(ListKind::Fm, u"a", u"88");
    addStation(ListKind::Fm, u"b", u"89", false);
    addStation(ListKind::Fm, u"c", u"90");
    add(ListKind::Fm);
    ASSERT_EQ(grid(kFavourite).rowCount(), 3);
    EXPECT_EQ(rowText(kFavourite, 2), "a|88  MHz|FM");
    EXPECT_EQ(rowText(kFavourite, 3), "c|90  MHz|FM");
    EXPECT_EQ(grid(ListKind::Fm).rowCount(), 3);
    EXPECT_TRUE(grid(ListKind::Fm).isSelected(1));
}

TEST_F(AddToFavouritesTest, TheTotalIsShownBeforeAndNotUpdated) {
    addStation(ListKind::Drm, u"a", u"6095");
    statusBar.setMessage(u"hint");
    add(ListKind::Drm);
    EXPECT_EQ(status(), "Total Number Of DRM List: 1");
    EXPECT_EQ(statusBar.history.size(), 2U);
    showTab(kFavourite);
    EXPECT_EQ(status(), "Total Number Of DRM List: 1");
    totals.ShowTotals();
    EXPECT_EQ(status(), "Total Number Of Favourite List: 1");
}

TEST_F(AddToFavouritesTest, TheFocusReturnsToTheSource) {
    addStation(ListKind::Fm, u"a", u"88");
    add(ListKind::Fm);
    EXPECT_EQ(view(ListKind::Fm).focusCount, 1);
    EXPECT_EQ(view(kFavourite).focusCount, 0);
}

TEST_F(AddToFavouritesTest, WithNothingSelectedNothingIsAdded) {
    addStation(ListKind::Drm, u"a", u"6095", false);
    add(ListKind::Drm);
    EXPECT_EQ(grid(kFavourite).rowCount(), 0);
    EXPECT_EQ(view(ListKind::Drm).focusCount, 1);
}

TEST_F(AddToFavouritesTest, AnEmptyListAddsNothing) {
    add(ListKind::Drm);
    EXPECT_EQ(grid(kFavourite).rowCount(), 0);
    EXPECT_EQ(view(ListKind::Drm).focusCount, 0);
}

TEST_F(AddToFavouritesTest, OnTheFavouriteTabNothingIsAdded) {
    addStation(kFavourite, u"a", u"6095  kHz");
    add(kFavourite);
    EXPECT_EQ(grid(kFavourite).rowCount(), 1);
    EXPECT_EQ(view(kFavourite).focusCount, 0);
}

TEST_F(AddToFavouritesTest, OnATabOutsideTheListsNothingHappens) {
    addStation(ListKind::Drm, u"a", u"6095");
    for (const int tab : {-1, 4}) {
        tabs.tab = tab;
        command.AddSelectedToFavourites();
    }
    EXPECT_EQ(grid(kFavourite).rowCount(), 0);
    EXPECT_TRUE(statusBar.history.empty());
}

}  // namespace
