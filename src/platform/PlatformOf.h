// Bundles the parts of a backend, to which every backend gives the same names.
#pragma once

#include "platform/Platform.h"

template <typename Backend>
Platform platformOf(Backend& backend) {
    return {backend.gridViews(),
            backend.window_.tabs(),
            backend.window_.editBox(),
            backend.window_.statusBar(),
            backend.window_.popupMenu(),
            backend.messageBox_,
            backend.windowHook_,
            backend.addForm_,
            backend.window_,
            backend.files_,
            backend.volumes_,
            backend.httpClient_,
            backend.codePages_,
            backend.textCompare_,
            backend.singleInstance_,
            backend.clock_,
            backend.programFolder_};
}
