// The four lists on fake controls, for the tests of editing.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/FakeControls.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/FourLists.h"
#include "messages/Totals.h"
#include "messages/mMsgBox.h"
#include "storage/stations/ListColumns.h"

class EditingFixture : public ::testing::Test, protected FourLists {
protected:
    EditingFixture() {
        for (const ListKind kind : kAllLists) {
            addListColumns(lists[kind]);
            view(kind).calls.clear();
        }
    }

    void showTab(ListKind kind) { tabs.tab = static_cast<int>(kind); }
    void addRow(ListKind kind, std::initializer_list<std::u16string_view> cells) { grid(kind).appendRow(cells); }
    void select(ListKind kind, int row) { grid(kind).setSelected(row, true); }

    std::vector<std::string> column(ListKind kind, int number) {
        std::vector<std::string> texts;
        for (int at = 1; at <= grid(kind).rowCount(); ++at) {
            texts.push_back(narrow(grid(kind).text(at, number)));
        }
        return texts;
    }

    FakeTabControl tabs;
    FakeStatusBar statusBar;
    FakeMessageBox messageBox;
    FakeWindowHook hook;
    mMsgBox messages{messageBox, hook};
    Totals totals{tabs, statusBar, allGrids()};
};
