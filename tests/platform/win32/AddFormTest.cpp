// The dialog when the system cannot create its window.
#include <gtest/gtest.h>

#include "adding/addForm.h"
#include "fakes/FakeControls.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/FourLists.h"
#include "platform/win32/Win32AddForm.h"

TEST(AddFormTest, WithoutADialogTheMainWindowStaysEnabled) {
    const auto noWindow = reinterpret_cast<HWND>(0xFFFC);  // no valid owner, so the system creates no dialog
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
    addForm form(view, mainWindow, currentTab, four.lists, {messages, totals});
    form.open();
    EXPECT_FALSE(view.isOpen());
    EXPECT_TRUE(mainWindow.enabled);
}
