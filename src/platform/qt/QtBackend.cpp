#include "platform/qt/QtBackend.h"

#include <utility>

#include "platform/PlatformOf.h"
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

std::array<GridView*, kTabCount> QtBackend::gridViews() {
    return {&window_.tabs().grid(0), &window_.tabs().grid(1), &window_.tabs().grid(2), &window_.tabs().grid(3)};
}

Platform QtBackend::platform() { return platformOf(*this); }
