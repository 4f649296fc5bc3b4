#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "editing/ListCommands.h"
#include "fakes/FakeControls.h"
#include "platform/GridView.h"
#include "storage/stations/RowStore.h"

namespace {

using enum Command;

constexpr std::array<ListKind, 4> kLists = {ListKind::Drm, ListKind::Am, ListKind::Fm, ListKind::Favourite};

enum class When { CtrlAlone, CtrlAloneOnASelection, WithoutCtrl, Unshifted };

struct KeyRule {
    int key;
    When when;
    std::array<Command, 4> commands;  // by list
};

const std::vector<KeyRule> kKeyTable = {
    {46, When::WithoutCtrl, {DeleteSelected, DeleteSelected, DeleteSelected, DeleteSelected}},
    {13, When::WithoutCtrl, {Edit, Edit, Edit, Edit}},
    {37, When::Unshifted, {PreviousColumn, PreviousColumn, PreviousColumn, PreviousColumn}},
    {39, When::Unshifted, {NextColumn, NextColumn, NextColumn, NextColumn}},
    {78, When::CtrlAlone, {AddNew, AddNew, AddNew, None}},
    {76, When::CtrlAlone, {LoadFromReceiver, LoadFromReceiver, LoadFromReceiver, LoadFromReceiver}},
    {73, When::CtrlAlone, {SyncInternet, None, None, None}},
    {83, When::CtrlAlone, {SaveToReceiver, SaveToReceiver, SaveToReceiver, SaveToReceiver}},
    {69, When::CtrlAloneOnASelection, {Edit, Edit, Edit, Edit}},
    {68, When::CtrlAloneOnASelection, {DeleteSelected, DeleteSelected, DeleteSelected, DeleteSelected}},
    {65, When::CtrlAloneOnASelection, {AddToFavourites, AddToFavourites, AddToFavourites, None}},
};

bool holds(When when, int shift, bool selection) {
    switch (when) {
        case When::CtrlAlone:
            return shift == 2;
        case When::CtrlAloneOnASelection:
            return shift == 2 && selection;
        case When::WithoutCtrl:
            return shift == 0 || shift == 1 || shift == 4 || shift == 5;
        case When::Unshifted:
            return shift == 0;
    }
    return false;
}

Command expectedCommand(ListKind kind, int key, int shift, bool selection) {
    for (const KeyRule& rule : kKeyTable) {
        if (rule.key == key && holds(rule.when, shift, selection)) {
            return rule.commands[static_cast<std::size_t>(kind)];
        }
    }
    return None;
}

RowStore threeRows(int selectedRow) {
    RowStore grid;
    for (int row = 0; row < 3; ++row) {
        grid.appendRow({u"Row"});
    }
    grid.setSelected(selectedRow, true);
    return grid;
}

TEST(ListCommandsTest, RoutesEveryKeyInEveryShiftStateOfEveryList) {
    for (const int selectedRow : {0, 1, 3}) {
        const RowStore grid = threeRows(selectedRow);
        for (const ListKind kind : kLists) {
            for (int key = 0; key < 256; ++key) {
                for (int shift = 0; shift < 8; ++shift) {
                    EXPECT_EQ(expectedCommand(kind, key, shift, selectedRow > 0), commandForKey(kind, grid, key, shift))
                        << "list " << static_cast<int>(kind) << " key " << key << " shift " << shift;
                }
            }
        }
    }
}

TEST(ListCommandsTest, RoutesKeysOfAnEmptyListAsWithoutASelection) {
    const RowStore grid;
    EXPECT_EQ(DeleteSelected, commandForKey(ListKind::Am, grid, Key::Delete, Shift::None));
    EXPECT_EQ(Edit, commandForKey(ListKind::Am, grid, Key::Enter, Shift::None));
    EXPECT_EQ(None, commandForKey(ListKind::Am, grid, 'D', Shift::Ctrl));
    EXPECT_EQ(None, commandForKey(ListKind::Am, grid, 'E', Shift::Ctrl));
    EXPECT_EQ(None, commandForKey(ListKind::Am, grid, 'A', Shift::Ctrl));
}

TEST(ListCommandsTest, KeepsItsKeysFromTheGridEvenIfTheyDoNothing) {
    for (int key = 0; key < 256; ++key) {
        for (int shift = 0; shift < 8; ++shift) {
            const bool ctrl = shift == 2 || shift == 3 || shift == 6 || shift == 7;
            const bool expected =
                key == 46 || key == 13 || (ctrl && key >= 65 && key <= 90) || (shift == 0 && (key == 37 || key == 39));
            EXPECT_EQ(expected, keepsKeyFromGrid(key, shift)) << "key " << key << " shift " << shift;
        }
    }
}

TEST(ListCommandsTest, KeepsEveryKeyFromTheGridThatIsACommand) {
    const RowStore grid = threeRows(2);
    int commands = 0;
    for (const ListKind kind : kLists) {
        for (int key = 0; key < 256; ++key) {
            for (int shift = 0; shift < 8; ++shift) {
                if (commandForKey(kind, grid, key, shift) != None) {
                    ++commands;
                    EXPECT_TRUE(keepsKeyFromGrid(key, shift)) << "key " << key << " shift " << shift;
                }
            }
        }
    }
    // Delete and Enter in four shift states, two arrows, and 7, 6, 6 and 4 letters.
    EXPECT_EQ(4 * (2 * 4 + 2) + 7 + 6 + 6 + 4, commands);
}

TEST(ListCommandsTest, EnablesTheMenuItemsOfEachList) {
    for (const ListKind kind : kLists) {
        for (const int rows : {0, 3}) {
            for (const int selectedRow : {0, 1, 3}) {
                for (const bool before : {false, true}) {
                    const RowStore grid = rows == 0 ? RowStore() : threeRows(selectedRow);
                    FakePopupMenu menu;
                    for (const MenuItem item : {MenuItem::Edt, MenuItem::Del, MenuItem::AddNew, MenuItem::AddTo,
                                                MenuItem::SyncInternet, MenuItem::DeleteAll}) {
                        menu.setEnabled(item, before);
                    }
                    enableMenuItems(menu, kind, grid);
                    SCOPED_TRACE("list " + std::to_string(static_cast<int>(kind)) + " rows " + std::to_string(rows) +
                                 " selected " + std::to_string(selectedRow));
                    const bool selection = rows > 0 && selectedRow > 0;
                    EXPECT_EQ(rows > 0, menu.isEnabled(MenuItem::DeleteAll));
                    EXPECT_EQ(selection, menu.isEnabled(MenuItem::Edt));
                    EXPECT_EQ(selection, menu.isEnabled(MenuItem::Del));
                    EXPECT_EQ(selection && kind != ListKind::Favourite, menu.isEnabled(MenuItem::AddTo));
                    EXPECT_EQ(kind == ListKind::Drm, menu.isEnabled(MenuItem::SyncInternet));
                    EXPECT_EQ(kind != ListKind::Favourite, menu.isEnabled(MenuItem::AddNew));
                    EXPECT_FALSE(menu.enabled.contains(MenuItem::LoadFromReceiver));
                    EXPECT_FALSE(menu.enabled.contains(MenuItem::SaveToReceiver));
                }
            }
        }
    }
}

}  // namespace
