// A run of the whole program on files that fail as planned, from its start until the object is destroyed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fakes/FakePlatform.h"
#include "fault/FaultyFiles.h"
#include "shell/MainForm.h"

class FaultyRun {
public:
    using Programmes = std::vector<std::u16string>;  // of the four lists

    FaultyRun(const FakeFiles& disk, const FaultPlan& plan) {
        platform_.files = disk;
        platform_.connectReceiver(u"/rx/");
        platform_.httpClient.answer.body = kSchedule;
        files_.plan(plan);
        form_ = std::make_unique<MainForm>(bundle());
        form_->Form_Load();
    }
    FaultyRun(const FaultyRun&) = delete;
    FaultyRun& operator=(const FaultyRun&) = delete;

    void edit() {
        if (platform_.rows(0).rowCount() == 0) {
            couldEdit_ = false;
            return;
        }
        platform_.gridViews[0].grid->setSelected(1, true);
        platform_.grid(0).itemDoubleClicked();
        platform_.editBox.content = u"Edited";
        platform_.editBox.listener->enterPressed();
    }
    void choose(MenuItem item) { platform_.popupMenu.listener->menuChosen(item); }
    void close() { platform_.mainWindow.close(); }

    FakeFiles& disk() { return platform_.files; }
    const FaultyFiles& files() const { return files_; }
    // False if a list that could not be read left nothing to edit.
    bool couldEdit() const { return couldEdit_; }
    Programmes programmes() {
        Programmes texts(kListCount);
        for (int tab = 0; tab < kListCount; ++tab) {
            for (int row = 1; row <= platform_.rows(tab).rowCount(); ++row) {
                texts[static_cast<std::size_t>(tab)] += std::u16string(platform_.rows(tab).text(row, 1)) + u';';
            }
        }
        return texts;
    }

private:
    static constexpr const char* kSchedule =
        "[DRMSchedule]\r\nStartStopTimeUTC=0600-0730\r\nDays=1234567\r\nFrequency=7000\r\nTarget=Asia\r\nPower=10\r\n"
        "Programme=Synced\r\nLanguage=English\r\nSite=A\r\nCountry=XA\r\n";

    // Answers every box with OK: faults may change which box appears.
    class AnyMessageBox : public StandardMessageBox {
    public:
        int show(std::u16string_view, int, std::u16string_view) override { return BoxAnswer::Ok; }
    };

    Platform bundle() {
        const Platform& p = platform_.bundle;
        return {p.gridViews,  p.tabs,        p.editBox,        p.statusBar, p.popupMenu,    box_,
                p.windowHook, p.addFormView, p.mainWindow,     files_,      p.volumes,      p.httpClient,
                p.codePages,  p.textCompare, p.singleInstance, p.clock,     p.programFolder};
    }

    FakePlatform platform_;
    FaultyFiles files_{platform_.files};
    bool couldEdit_ = true;
    AnyMessageBox box_;
    std::unique_ptr<MainForm> form_;
};
