#include "editing/DeleteCommands.h"
#include "editing/EditingFixture.h"

namespace {

using enum ListKind;

const std::u16string kQuestion = u"All list will be deleted and can't be recovered";
const std::u16string kTitle = u"Delete all List";

class DeleteCommandsTest : public EditingFixture {
protected:
    void addRows(ListKind kind, int count) {
        for (int number = 1; number <= count; ++number) {
            const std::string digits = std::to_string(number);
            addRow(kind, {std::u16string(digits.begin(), digits.end())});
        }
    }

    DeleteCommands commands{lists, tabs, messages, totals};
};

TEST_F(DeleteCommandsTest, RemovesTheSelectedRowsAndKeepsTheOrderOfTheOthers) {
    for (const ListKind kind : kAllLists) {
        addRows(kind, 6);
        for (const int number : {2, 5, 6}) {
            select(kind, number);
        }
        commands.deleteSelected(kind);
        EXPECT_EQ((std::vector<std::string>{"1", "3", "4"}), column(kind, 1));
        EXPECT_EQ(0, grid(kind).firstSelected());
        EXPECT_EQ(1, view(kind).focusCount);
    }
    EXPECT_TRUE(statusBar.history.empty());
}

TEST_F(DeleteCommandsTest, TheLastRowCanBeDeletedToo) {
    addRows(Fm, 1);
    select(Fm, 1);
    commands.deleteSelected(Fm);
    EXPECT_EQ(0, grid(Fm).rowCount());
    EXPECT_TRUE(messageBox.shown.empty());
}

TEST_F(DeleteCommandsTest, EachHandlerDeletesFromItsOwnList) {
    const std::array<void (DeleteCommands::*)(), 4> twins = {
        &DeleteCommands::DeleteSelectedDrm, &DeleteCommands::DeleteSelectedAm, &DeleteCommands::DeleteSelectedFm,
        &DeleteCommands::DeleteSelectedFav};
    for (const ListKind kind : kAllLists) {
        addRows(kind, 2);
        select(kind, 1);
    }
    for (const ListKind kind : kAllLists) {
        EXPECT_EQ(2, grid(kind).rowCount());
        (commands.*twins[static_cast<std::size_t>(kind)])();
        EXPECT_EQ((std::vector<std::string>{"2"}), column(kind, 1));
    }
}

TEST_F(DeleteCommandsTest, DoesNothingToAListWithoutSelection) {
    addRows(Am, 3);
    commands.deleteSelected(Am);
    EXPECT_EQ((std::vector<std::string>{"1", "2", "3"}), column(Am, 1));
    EXPECT_TRUE(messageBox.shown.empty());
}

TEST_F(DeleteCommandsTest, AnEmptyListGetsAMessage) {
    for (const ListKind kind : kAllLists) {
        messageBox.expect({u"No List"});
        commands.deleteSelected(kind);
        EXPECT_TRUE(messageBox.allShown());
        EXPECT_EQ(0, view(kind).focusCount);
    }
    EXPECT_EQ(4U, hook.issued);
    EXPECT_EQ(0U, hook.live);
}

TEST_F(DeleteCommandsTest, DeletesMostOfTheLargestListAsOneChange) {
    addRows(Drm, 32767);
    for (int number = 1; number <= 32000; ++number) {
        select(Drm, number);
    }
    view(Drm).calls.clear();
    commands.DeleteSelectedDrm();
    EXPECT_EQ(767, grid(Drm).rowCount());
    EXPECT_EQ(u"32001", grid(Drm).text(1, 1));
    EXPECT_EQ(u"32767", grid(Drm).text(767, 1));
    EXPECT_EQ((std::vector<std::string>{"beforeReset", "afterReset"}), view(Drm).calls);
}

TEST_F(DeleteCommandsTest, EmptiesTheCurrentListAfterOk) {
    const std::vector<std::u16string> totalsShown = {u"Total Number Of DRM List: 0", u"Total Number Of AM List: 0",
                                                     u"Total Number Of FM List: 0",
                                                     u"Total Number Of Favourite List: 0"};
    for (const ListKind kind : kAllLists) {
        addRows(kind, 3);
    }
    for (const ListKind kind : kAllLists) {
        EXPECT_EQ(3, grid(kind).rowCount());
        showTab(kind);
        messageBox.expect({kQuestion, kTitle, BoxStyle::OkCancel, BoxAnswer::Ok});
        commands.DeleteAll_Click();
        EXPECT_EQ(0, grid(kind).rowCount());
    }
    EXPECT_EQ(totalsShown, statusBar.history);
}

TEST_F(DeleteCommandsTest, CancelKeepsTheDrmListWithoutAMessage) {
    addRows(Drm, 3);
    messageBox.expect({kQuestion, kTitle, BoxStyle::OkCancel, BoxAnswer::Cancel});
    commands.DeleteAll_Click();
    EXPECT_EQ(3, grid(Drm).rowCount());
    EXPECT_EQ(u"Total Number Of DRM List: 3", statusBar.message);
}

TEST_F(DeleteCommandsTest, CancelKeepsTheOtherListsWithAMessage) {
    for (const ListKind kind : {Am, Fm, Favourite}) {
        addRows(kind, 3);
        showTab(kind);
        messageBox.expect({kQuestion, kTitle, BoxStyle::OkCancel, BoxAnswer::Cancel});
        messageBox.expect({u"No List", kTitle});
        commands.DeleteAll_Click();
        EXPECT_TRUE(messageBox.allShown());
        EXPECT_EQ(3, grid(kind).rowCount());
    }
    EXPECT_EQ(3U, statusBar.history.size());
}

TEST_F(DeleteCommandsTest, AnEmptyDrmListGetsAMessage) {
    messageBox.expect({u"No List", kTitle});
    commands.DeleteAll_Click();
    EXPECT_EQ(u"Total Number Of DRM List: 0", statusBar.message);
}

TEST_F(DeleteCommandsTest, OtherEmptyListsGetNoMessage) {
    for (const ListKind kind : {Am, Fm, Favourite}) {
        showTab(kind);
        commands.DeleteAll_Click();
    }
    EXPECT_TRUE(messageBox.shown.empty());
    EXPECT_EQ(3U, statusBar.history.size());
}

TEST_F(DeleteCommandsTest, LeavesEverythingOnATabOutsideTheFourLists) {
    for (const ListKind kind : kAllLists) {
        addRows(kind, 1);
    }
    for (const int tab : {-1, 4}) {
        tabs.tab = tab;
        commands.DeleteAll_Click();
    }
    for (const ListKind kind : kAllLists) {
        EXPECT_EQ(1, grid(kind).rowCount());
    }
    EXPECT_TRUE(messageBox.shown.empty());
    EXPECT_TRUE(statusBar.history.empty());
}

}  // namespace
