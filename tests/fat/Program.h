// The whole program on fake controls and the given files, from its start until this object is destroyed.
#pragma once

#include <memory>
#include <string>

#include "fakes/FakePlatform.h"
#include "shell/MainForm.h"

class Program {
public:
    // folder ends with its separator.
    Program(Files& files, const std::u16string& folder) {
        const Platform& p = platform_.bundle;
        form_ = std::make_unique<MainForm>(Platform{
            p.gridViews, p.tabs, p.editBox, p.statusBar, p.popupMenu, box_, p.windowHook, p.addFormView, p.mainWindow,
            files, p.volumes, p.httpClient, p.codePages, p.textCompare, p.singleInstance, p.clock, folder});
        form_->Form_Load();
    }

    void rename(std::u16string_view programme) {
        platform_.gridViews[0].grid->setSelected(1, true);
        platform_.grid(0).itemDoubleClicked();
        platform_.editBox.content = programme;
        platform_.editBox.listener->enterPressed();
    }
    void close() { platform_.mainWindow.close(); }

    // The programmes of the DRM and favourite lists: "Name;Name;".
    std::u16string programmes() {
        std::u16string names;
        for (const int tab : {0, 3}) {
            for (int row = 1; row <= platform_.rows(tab).rowCount(); ++row) {
                names += std::u16string(platform_.rows(tab).text(row, 1)) + u';';
            }
        }
        return names;
    }

private:
    // Answers every box with OK: failing files may show one.
    class AnyMessageBox : public StandardMessageBox {
    public:
        int show(std::u16string_view, int, std::u16string_view) override { return BoxAnswer::Ok; }
    };

    FakePlatform platform_;
    AnyMessageBox box_;
    std::unique_ptr<MainForm> form_;
};
