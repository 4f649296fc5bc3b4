#include <windows.h>
#include <commctrl.h>

#include "platform/Platform.h"
#include "platform/win32/Win32AddForm.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32CodePages.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32HttpClient.h"
#include "platform/win32/Win32MainWindow.h"
#include "platform/win32/Win32MessageBox.h"
#include "platform/win32/Win32ProgramFolders.h"
#include "platform/win32/Win32SingleInstance.h"
#include "platform/win32/Win32TextCompare.h"
#include "platform/win32/Win32Volumes.h"
#include "platform/win32/Win32WindowHook.h"
#include "shell/Design.h"
#include "shell/MainForm.h"

namespace {

int runEvents(Win32MainWindow& window, Win32AddForm& dialog) {
    MSG message{};
    // A window that goes during a download takes the message that ends the program along.
    while (IsWindow(window.window()) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!dialog.usesMessage(message) && !window.usesKey(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return message.message == WM_QUIT ? static_cast<int>(message.wParam) : 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int showCommand) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);

    const WindowDesign design = mainWindowDesign();
    Win32MainWindow window(design);
    Win32AddForm dialog(window.window());
    Win32MessageBox messageBox(window.window());
    Win32WindowHook hook;
    Win32Files files;
    Win32Volumes volumes;
    Win32HttpClient httpClient;
    Win32CodePages codePages;
    Win32TextCompare textCompare;
    Win32ProgramFolders folders;
    const std::u16string folder = programFolder(folders);
    Win32SingleInstance singleInstance(folder);
    Win32Clock clock;

    Platform platform{{&window.grids[0], &window.grids[1], &window.grids[2], &window.grids[3]},
                      window.tabs,
                      window.editBox,
                      window.statusBar,
                      window.popupMenu,
                      messageBox,
                      hook,
                      dialog,
                      window,
                      files,
                      volumes,
                      httpClient,
                      codePages,
                      textCompare,
                      singleInstance,
                      clock,
                      folder};
    MainForm form(platform);
    if (!form.Form_Load()) {
        return 0;
    }
    window.show(showCommand);
    return runEvents(window, dialog);
}
