#include <windows.h>

#include "platform/win32/Win32Backend.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32ProgramFolders.h"
#include "shell/Design.h"
#include "shell/MainForm.h"
#include "shell/ProgramFolder.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int showCommand) {
    Win32ProgramFolders folders;
    Win32Files files;
    Win32Backend backend(mainWindowDesign(), findProgramFolder(folders, files));
    MainForm form(backend.platform());
    if (!form.Form_Load()) {
        return 0;
    }
    backend.window().show(showCommand);
    return backend.runEvents();
}
