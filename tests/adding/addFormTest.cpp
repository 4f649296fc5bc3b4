#include <functional>

#include "adding/AddListFixture.h"

namespace {

class addFormTest : public AddListFixture {};

using F = AddField;

TEST_F(addFormTest, OpeningDisablesTheMainWindowAndUpdatesTheTotal) {
    openFor(ListKind::Drm);
    EXPECT_FALSE(mainWindow.enabled);
    EXPECT_EQ(status(), "Total Number Of DRM List: 0");
}

TEST_F(addFormTest, OpensWithTheFocusInTheProgramme) {
    openFor(ListKind::Drm);
    EXPECT_EQ(dialog.focused, (std::vector<F>{F::txtLabel}));
}

TEST_F(addFormTest, HasItsDesignedCaptions) {
    openFor(ListKind::Drm);
    const std::vector<std::pair<AddControl, std::string>> expected = {
        {AddControl::Label1, "Programme:"}, {AddControl::Label2, "Frequency:"},
        {AddControl::LaFreq, "kHz"},        {AddControl::Label3, "Start Time(UTC):"},
        {AddControl::Label4, "--"},         {AddControl::Label5, "StopTime(UTC):"},
        {AddControl::Label6, "--"},         {AddControl::Label7, "Target:"},
        {AddControl::saveCmd, "Save"},      {AddControl::cancelCmd, "Cancel"}};
    for (const auto& [control, caption] : expected) {
        EXPECT_EQ(narrow(withoutMnemonic(dialog.caption(control))), caption);
    }
}

TEST_F(addFormTest, ForDrmAllFieldsAreEnabledAndTheCombosFilled) {
    openFor(ListKind::Drm);
    EXPECT_EQ(narrow(dialog.title), "Add List--[DRM List]");
    for (const F field : kAllFields) {
        EXPECT_TRUE(dialog.at(field).enabled);
        EXPECT_EQ(dialog.text(field), u"");
    }
    for (const F combo : kCombos) {
        const bool hours = combo == F::sHourComb || combo == F::eHourComb;
        const auto& items = dialog.at(combo).items;
        ASSERT_EQ(items.size(), hours ? 24U : 60U);
        for (std::size_t i = 0; i < items.size(); ++i) {
            EXPECT_EQ(narrow(items[i]), std::to_string(i));
        }
    }
}

TEST_F(addFormTest, ForAmAndFmTheTimesAndTheTargetAreDisabledAndEmpty) {
    for (const ListKind kind : {ListKind::Am, ListKind::Fm}) {
        openFor(kind);
        for (const F field : {F::txtTarget, F::sHourComb, F::sMinComb, F::eHourComb, F::eMinComb}) {
            EXPECT_FALSE(dialog.at(field).enabled);
            EXPECT_TRUE(dialog.at(field).items.empty());
        }
        EXPECT_TRUE(dialog.at(F::txtLabel).enabled);
        EXPECT_TRUE(dialog.at(F::txtFreq).enabled);
        EXPECT_EQ(narrow(dialog.title), kind == ListKind::Am ? "Add List--[AM List]" : "Add List--[FM List]");
        EXPECT_EQ(narrow(dialog.caption(AddControl::LaFreq)), kind == ListKind::Am ? "kHz" : "MHz");
        form.close();
    }
}

TEST_F(addFormTest, EachOpeningStartsEmpty) {
    openFor(ListKind::Drm);
    typeValidDrm();
    form.close();
    openFor(ListKind::Drm);
    for (const F field : kAllFields) {
        EXPECT_EQ(dialog.text(field), u"");
    }
    EXPECT_EQ(dialog.at(F::eMinComb).items.size(), 60U);
    EXPECT_EQ(dialog.createCount, 2);
}

TEST_F(addFormTest, OpeningWhileOpenDoesNothing) {
    openFor(ListKind::Drm);
    type(F::txtLabel, u"Radio");
    form.open();
    EXPECT_EQ(dialog.createCount, 1);
    EXPECT_EQ(dialog.text(F::txtLabel), u"Radio");
    EXPECT_FALSE(mainWindow.enabled);
}

TEST_F(addFormTest, With255RowsItOpensAndAfterOneRowNoMore) {
    for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
        fill(kind, 255);
        openFor(kind);
        typeValidDrm();
        type(F::txtFreq, kind == ListKind::Fm ? u"98.5" : u"9620");
        save();
        expectClosed();
        EXPECT_EQ(grid(kind).rowCount(), 256);
        box.expect({u"Max number of each list is 256!"});
        form.open();
        expectClosed();
    }
}

TEST_F(addFormTest, AListOfMoreThan256RowsIsFull) {
    fill(ListKind::Am, 257);
    showTab(ListKind::Am);
    box.expect({u"Max number of each list is 256!"});
    form.open();
    expectClosed();
    EXPECT_EQ(status(), "Total Number Of AM List: 257");
}

TEST_F(addFormTest, AnotherListBeingFullDoesNotMatter) {
    fill(ListKind::Am, 256);
    openFor(ListKind::Drm);
}

TEST_F(addFormTest, TheFavouriteTabGetsTheFullMessageWhateverItsCount) {
    showTab(ListKind::Favourite);
    box.expect({u"Max number of each list is 256!"});
    form.open();
    expectClosed();
    EXPECT_EQ(dialog.createCount, 0);
    EXPECT_EQ(status(), "Total Number Of Favourite List: 0");
}

TEST_F(addFormTest, ATabOutsideTheListsGetsTheFullMessage) {
    for (const int tab : {-1, 4}) {
        currentTab.SetCurrentTab(tab);
        box.expect({u"Max number of each list is 256!"});
        form.open();
        expectClosed();
    }
    EXPECT_EQ(dialog.createCount, 0);
}

TEST_F(addFormTest, TheFullMessageIsShownWithoutTheCaptionHook) {
    showTab(ListKind::Favourite);
    box.expect({u"Max number of each list is 256!"});
    form.open();
    EXPECT_EQ(hook.issued, 0U);
}

TEST_F(addFormTest, CancelAddsNothing) {
    openFor(ListKind::Am);
    typePlain(u"999");
    dialog.listener->cancelClicked();
    expectClosed();
    EXPECT_EQ(grid(ListKind::Am).rowCount(), 0);
}

TEST_F(addFormTest, ClosingInAnyWayEnablesTheMainWindowAndShowsTheTotal) {
    fill(ListKind::Fm, 4);
    const std::vector<std::function<void()>> ways = {[this] { dialog.listener->cancelClicked(); },
                                                     [this] { dialog.listener->closeBoxClicked(); },
                                                     [this] { form.close(); }};
    for (const auto& way : ways) {
        openFor(ListKind::Fm);
        statusBar.setMessage(u"hint");
        way();
        expectClosed();
        EXPECT_EQ(status(), "Total Number Of FM List: 4");
    }
}

TEST_F(addFormTest, TheTotalAtTheEndIsThatOfTheCurrentTabAsTheMainWindowSetIt) {
    fill(ListKind::Favourite, 3);
    openFor(ListKind::Drm);
    currentTab.SetCurrentTab(3);
    form.close();
    EXPECT_EQ(status(), "Total Number Of Favourite List: 3");
}

TEST_F(addFormTest, WithoutADialogTheMainWindowStaysEnabled) {
    dialog.failsToCreate = true;
    showTab(ListKind::Drm);
    form.open();
    expectClosed();
    dialog.failsToCreate = false;
    openFor(ListKind::Drm);
}

TEST_F(addFormTest, MnemonicsAreUnique) {
    openFor(ListKind::Drm);
    std::string letters;
    const auto mnemonicOf = [this](AddControl control) {
        const std::u16string caption = dialog.caption(control);
        const std::size_t mark = caption.find(u'&');
        return mark < caption.size() - 1 ? static_cast<char>(caption[mark + 1] | 0x20) : '-';
    };
    for (const AddRow& row : kAddRows) {
        letters += mnemonicOf(row.label);
    }
    for (const AddControl button : kAddButtons) {
        letters += mnemonicOf(button);
    }
    EXPECT_EQ(letters, "pftoasc");
}

TEST_F(addFormTest, ClosingAClosedDialogDoesNothing) {
    mainWindow.enabled = false;
    form.close();
    EXPECT_FALSE(mainWindow.enabled);
    EXPECT_TRUE(statusBar.history.empty());
}

}  // namespace
