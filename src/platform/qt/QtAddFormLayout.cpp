// The layout of the Add List dialog: creates its controls and places them.
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/qt/InsertionLimit.h"
#include "platform/qt/QtAddForm.h"
#include "platform/qt/Units.h"

namespace {

QComboBox* timeCombo(QWidget* dialog) {
    auto* combo = new QComboBox(dialog);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);  // no completion of a typed text
    combo->setMinimumContentsLength(3);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMaxVisibleItems(12);
    return combo;
}

}  // namespace

// In tab order: Qt uses the order of creation.
void QtAddForm::makeControls(const AddCaptions& captions) {
    for (const AddRow& row : kAddRows) {
        QLabel* label = makeLabel(row.label, captions);
        const QString name = toQt(withoutMnemonic(captions[static_cast<std::size_t>(row.label)]));
        label->setBuddy(makeField(row.field, name));
        if (row.after) {
            makeLabel(*row.after, captions);
        }
        if (row.second) {
            makeField(*row.second, name);
        }
    }
    for (const AddControl button : kAddButtons) {
        makeButton(button, captions);
    }
}

QLabel* QtAddForm::makeLabel(AddControl which, const AddCaptions& captions) {
    const auto index = static_cast<std::size_t>(which);
    auto* label = new QLabel(toQt(captions[index]), dialog_);
    label->setObjectName(kAddControlNames[index]);
    controls_[index] = label;
    return label;
}

QWidget* QtAddForm::makeField(AddField which, const QString& accessibleName) {
    QWidget* made = nullptr;
    if (isCombo(which)) {
        QComboBox* combo = timeCombo(dialog_);
        combo->lineEdit()->setAccessibleName(accessibleName);  // the control that gets the focus
        new InsertionLimit(combo->lineEdit());
        made = combo;
    } else {
        auto* edit = new QLineEdit(dialog_);
        new InsertionLimit(edit);
        made = edit;
    }
    const auto index = static_cast<std::size_t>(which);
    made->setObjectName(kAddFieldNames[index]);
    made->setAccessibleName(accessibleName);
    fields_[index] = made;
    return made;
}

void QtAddForm::makeButton(AddControl which, const AddCaptions& captions) {
    const auto index = static_cast<std::size_t>(which);
    auto* button = new QPushButton(toQt(captions[index]), dialog_);
    button->setObjectName(kAddControlNames[index]);
    button->setDefault(which == kAddDefaultButton);
    controls_[index] = button;
}

void QtAddForm::layOut() {
    constexpr int kMargin = 16;  // pixels
    constexpr int kTextWidth = 220;
    auto* grid = new QGridLayout(dialog_);
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(10);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    int line = 0;
    for (const AddRow& row : kAddRows) {
        auto* content = new QHBoxLayout;
        content->addWidget(field(row.field));
        if (row.after) {
            content->addWidget(control(*row.after));
        } else {
            field(row.field)->setMinimumWidth(kTextWidth);
        }
        if (row.second) {
            content->addWidget(field(*row.second));
            content->addStretch();
        }
        grid->addWidget(control(row.label), line, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addLayout(content, line++, 1);
    }
    grid->setRowMinimumHeight(line++, kMargin / 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (const AddControl button : kAddButtons) {
        buttons->addWidget(control(button));
    }
    grid->addLayout(buttons, line, 0, 1, 2);
}
