#include "platform/qt/QtBackend.h"

#include <utility>

#include "platform/qt/QtEditBox.h"
#include "platform/qt/QtPopupMenu.h"
#include "platform/qt/QtStatusBar.h"
#include "platform/qt/QtTabControl.h"

QtBackend::QtBackend(const WindowDesign& design, std::u16string programFolder)
    : programFolder_(std::move(programFolder)),
      window_(design),
      messageBox_(window_.widget()),
      addForm_(window_.widget()),
      singleInstance_(programFolder_) {}

Platform QtBackend::platform() {
    QtTabControl& tabs = window_.tabs();
    return {{&tabs.grid(0), &tabs.grid(1), &tabs.grid(2), &tabs.grid(3)},
            tabs,
            window_.editBox(),
            window_.statusBar(),
            window_.popupMenu(),
            messageBox_,
            windowHook_,
            addForm_,
            window_,
            files_,
            volumes_,
            httpClient_,
            codePages_,
            textCompare_,
            singleInstance_,
            clock_,
            programFolder_};
}
