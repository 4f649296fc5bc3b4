#include "shell/Design.h"

#include "editing/CellEditing.h"
#include "platform/ProgramTitle.h"

WindowDesign mainWindowDesign() {
    WindowDesign design;
    design.caption = kProgramTitle;
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
    design.gridTopInset = CellEditing::kTopInset;
    return design;
}
