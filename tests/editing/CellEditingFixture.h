// Cell editing with its box and a simulated user.
#pragma once

#include "editing/CellEditing.h"
#include "editing/EditingFixture.h"

// Reports the loss of focus when it is hidden, as toolkits do.
class FocusLosingEditBox : public FakeEditBox {
public:
    void setVisible(bool shown) override {
        const bool losesFocus = visible && !shown;
        FakeEditBox::setVisible(shown);
        if (losesFocus && listener != nullptr) {
            listener->lostFocus();
        }
    }
};

class CellEditingFixture : public EditingFixture, private EditBoxListener {
protected:
    CellEditingFixture() { box.setListener(*this); }

    void enterPressed() override { editing.commit(); }
    void lostFocus() override { editing.commit(); }

    // Double-clicks at x on the only selected row of the list.
    void start(ListKind kind, double x, int selectedRow = 1) {
        showTab(kind);
        select(kind, selectedRow);
        editing.setLastMouseX(x, 77);
        editing.startEdit(kind);
    }
    void addDrmRow() { addRow(ListKind::Drm, {u"Voice", u"9620", u"0000-2400", u"Europe"}); }
    // A row with the box open over its programme, and "Typed" in the box.
    void typeOverProgramme() {
        addDrmRow();
        start(ListKind::Drm, 0);
        box.content = u"Typed";
    }
    void expectHidden() {
        EXPECT_FALSE(editing.isEditing());
        EXPECT_FALSE(box.visible);
        EXPECT_EQ((std::array<double, 4>{0, 0, 0, 0}), box.bounds);
    }

    FocusLosingEditBox box;
    EditState edit;
    FieldValidation validation{lists, tabs, edit, messages};
    CellEditing editing{lists, {tabs, box, statusBar}, validation, edit};
};

// In a grid of 6,000 twips the DRM columns end at 1,200, 2,400, 3,600 and 5,600; those of the other lists at 1,935,
// 3,870 and 5,805.
inline constexpr double kDrmFrequencyX = 1500;
inline constexpr double kDrmTimeX = 3000;
inline constexpr double kDrmTargetX = 4000;
inline constexpr double kFrequencyX = 2500;
inline constexpr double kThirdX = 4500;
