#include "platform/win32/Win32Backend.h"

#include <windows.h>
#include <commctrl.h>

#include <utility>

#include "platform/PlatformOf.h"

Win32Backend::ControlClasses::ControlClasses() {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
}

Win32Backend::Win32Backend(const WindowDesign& design, std::u16string programFolder)
    : programFolder_(std::move(programFolder)),
      window_(design),
      messageBox_(window_.window()),
      addForm_(window_.window()),
      singleInstance_(programFolder_) {}

std::array<GridView*, kTabCount> Win32Backend::gridViews() {
    return {&window_.grid(0), &window_.grid(1), &window_.grid(2), &window_.grid(3)};
}

Platform Win32Backend::platform() { return platformOf(*this); }

int Win32Backend::runEvents() {
    MSG message{};
    // If the window closes during a download, the message loop there consumes WM_QUIT.
    while (IsWindow(window_.window()) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!addForm_.usesMessage(message) && !window_.usesKey(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return message.message == WM_QUIT ? static_cast<int>(message.wParam) : 0;
}
