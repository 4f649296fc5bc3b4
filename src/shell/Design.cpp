#include "shell/Design.h"

namespace {

constexpr const char16_t* kProgramName = u"Halcyon_K7";

}  // namespace

WindowDesign mainWindowDesign() {
    WindowDesign design;
    design.caption = kProgramName;
    design.tabCaptions = {u"DRM List", u"AM List", u"FM List", u"Favourite"};
    design.menuCaptions = {u"Edit(&E)",
                           u"Delete(&D)",
                           u"Add New Record(&N)",
                           u"Add To Favourite(&A)",
                           u"Sync From Internet(&I)",
                           u"Load From Receiver(&L)",
                           u"Save To Receiver(&S)",
                           u"Delete All Record"};
    design.width = 11'400;  // 760 pixels at 96 to the inch
    design.height = 8'100;  // 540 pixels
    design.gridTopInset = 145;
    return design;
}

std::u16string programFolder(ProgramFolders& folders) {
    std::u16string own = folders.ofExecutable();
    if (folders.canWrite(own)) {
        return own;
    }
    const std::u16string users = folders.ofUser(kProgramName);
    return users.empty() ? own : users;
}
