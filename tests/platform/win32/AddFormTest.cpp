// The dialog where the system has no room for it.
#include <gtest/gtest.h>

#include "adding/addForm.h"
#include "fakes/FakeControls.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/FourLists.h"
#include "platform/win32/Win32AddForm.h"

TEST(AddFormTest, ADialogThatCannotBeMadeLeavesTheMainWindowEnabled) {
    const auto noWindow = reinterpret_cast<HWND>(0xFFFC);  // the system makes no dialog of an owner that is none
    Win32AddForm view(noWindow);
    FakeMainWindow mainWindow;
    FakeTabControl tabs;
    FakeStatusBar statusBar;
    FourLists four;
    Totals totals(tabs, statusBar, four.allGrids());
    FakeMessageBox box;
    FakeWindowHook hook;
    mMsgBox messages(box, hook);
    const CurrentTab currentTab;
    addForm form(view, mainWindow, currentTab, four.lists, totals, messages);
    form.open();
    EXPECT_FALSE(view.isOpen());
    EXPECT_TRUE(mainWindow.enabled);
}
