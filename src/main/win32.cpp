#include <windows.h>

#include "platform/win32/Win32Backend.h"
#include "platform/win32/Win32ProgramFolders.h"
#include "shell/Design.h"
#include "shell/MainForm.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int showCommand) {
    Win32ProgramFolders folders;
    Win32Backend backend(mainWindowDesign(), programFolder(folders));
    MainForm form(backend.platform());
    if (!form.Form_Load()) {
        return 0;
    }
    backend.window().show(showCommand);
    return backend.runEvents();
}
