// The four lists on fakes, with what the classes of adding use.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fakes/FakeControls.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/FourLists.h"
#include "messages/CurrentTab.h"
#include "messages/Totals.h"
#include "messages/mMsgBox.h"

class AddingFixture : public testing::Test, protected FourLists {
protected:
    AddingFixture() { showTab(ListKind::Drm); }

    void showTab(ListKind kind) {
        tabs.tab = static_cast<int>(kind);
        currentTab.SetCurrentTab(tabs.tab);
    }
    void fill(ListKind kind, int rows) {
        while (grid(kind).rowCount() < rows) {
            grid(kind).appendRow({u"filler"});
        }
    }
    std::string status() const { return narrow(statusBar.message); }

    FakeTabControl tabs;
    CurrentTab currentTab;
    FakeStatusBar statusBar;
    Totals totals{tabs, statusBar, allGrids()};
    FakeMessageBox box;
    FakeWindowHook hook;
    mMsgBox messages{box, hook};
};
