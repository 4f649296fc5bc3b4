// The design of the window that the real backends open for the contract cases.
#pragma once

#include "shell/Design.h"

inline WindowDesign smallDesign() {
    WindowDesign design;
    design.tabCaptions = {u"1", u"2", u"3", u"4"};
    design.width = 9000;
    design.height = 6000;
    design.gridTopInset = 145;
    return design;
}
