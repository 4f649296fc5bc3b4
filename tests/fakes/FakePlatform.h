// All fakes in one bundle: the third backend.
#pragma once

#include <array>

#include "fakes/FakeAddFormView.h"
#include "fakes/FakeCodePages.h"
#include "fakes/FakeControls.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeGridView.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "platform/Platform.h"

struct FakePlatform {
    std::array<FakeGridView, 4> gridViews;
    FakeTabControl tabs;
    FakeEditBox editBox;
    FakeStatusBar statusBar;
    FakePopupMenu popupMenu;
    FakeMessageBox messageBox;
    FakeWindowHook windowHook;
    FakeAddFormView addFormView;
    FakeMainWindow mainWindow;
    FakeFiles files;
    FakeVolumes volumes;
    FakeHttpClient httpClient;
    FakeCodePages codePages;
    FakeTextCompare textCompare;
    FakeSingleInstance singleInstance;
    FakeClock clock;
    Platform bundle{{&gridViews[0], &gridViews[1], &gridViews[2], &gridViews[3]},
                    tabs,
                    editBox,
                    statusBar,
                    popupMenu,
                    messageBox,
                    windowHook,
                    addFormView,
                    mainWindow,
                    files,
                    volumes,
                    httpClient,
                    codePages,
                    textCompare,
                    singleInstance,
                    clock,
                    u"/app/"};

    // Connects a receiver of the right capacity at this root, which ends with its separator.
    void connectReceiver(std::u16string root) {
        volumes.volumes.push_back({std::move(root), DiskGeometry{1, 1024, 999}});
    }
    GridListener& grid(int tab) { return *gridViews[static_cast<std::size_t>(tab)].listener; }
    const Grid& rows(int tab) { return *gridViews[static_cast<std::size_t>(tab)].grid; }
};
