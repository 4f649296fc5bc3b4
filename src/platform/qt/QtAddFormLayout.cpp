// The looks of the Add List dialog: its controls and where they stand.
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/qt/QtAddForm.h"
#include "platform/qt/Units.h"

namespace {

QComboBox* timeCombo(QWidget* dialog) {
    auto* combo = new QComboBox(dialog);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);  // a typed text is taken as it stands
    combo->setMinimumContentsLength(3);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMaxVisibleItems(12);
    return combo;
}

}  // namespace

void QtAddForm::makeControls(const AddCaptions& captions) {
    static constexpr std::array kFieldNames{"txtLabel", "txtFreq",   "txtTarget", "sHourComb",
                                            "sMinComb", "eHourComb", "eMinComb"};
    static constexpr std::array kControlNames{"Label1", "Label2", "LaFreq", "Label3",  "Label4",
                                              "Label5", "Label6", "Label7", "saveCmd", "cancelCmd"};
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        const auto which = static_cast<AddControl>(i);
        const QString caption = toQt(captions[i]);
        if (which == AddControl::saveCmd || which == AddControl::cancelCmd) {
            auto* button = new QPushButton(caption, dialog_);
            button->setDefault(which == AddControl::saveCmd);
            controls_[i] = button;
        } else {
            controls_[i] = new QLabel(caption, dialog_);
        }
        controls_[i]->setObjectName(kControlNames[i]);
    }
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const bool text = static_cast<AddField>(i) <= AddField::txtTarget;
        fields_[i] = text ? static_cast<QWidget*>(new QLineEdit(dialog_)) : timeCombo(dialog_);
        fields_[i]->setObjectName(kFieldNames[i]);
    }
}

// What a screen reader says of a field is what stands to its left.
void QtAddForm::nameFields(const AddCaptions& captions) {
    const auto name = [&](AddControl label, AddField first, AddField last) {
        qobject_cast<QLabel*>(control(label))->setBuddy(field(first));
        for (auto i = static_cast<std::size_t>(first); i <= static_cast<std::size_t>(last); ++i) {
            const QString caption = toQt(captions[static_cast<std::size_t>(label)]);
            fields_[i]->setAccessibleName(caption);
            if (const auto* combo = qobject_cast<QComboBox*>(fields_[i])) {
                combo->lineEdit()->setAccessibleName(caption);  // it is the one that has the focus
            }
        }
    };
    name(AddControl::Label1, AddField::txtLabel, AddField::txtLabel);
    name(AddControl::Label2, AddField::txtFreq, AddField::txtFreq);
    name(AddControl::Label3, AddField::sHourComb, AddField::sMinComb);
    name(AddControl::Label5, AddField::eHourComb, AddField::eMinComb);
    name(AddControl::Label7, AddField::txtTarget, AddField::txtTarget);
}

void QtAddForm::layOut() {
    constexpr int kMargin = 16;  // pixels
    constexpr int kTextWidth = 220;
    auto* grid = new QGridLayout(dialog_);
    grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(10);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    const auto row = [&](int line, AddControl label, QLayout* content) {
        grid->addWidget(control(label), line, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addLayout(content, line, 1);
    };
    const auto box = [](std::initializer_list<QWidget*> widgets) {
        auto* layout = new QHBoxLayout;
        for (QWidget* widget : widgets) {
            layout->addWidget(widget);
        }
        return layout;
    };
    field(AddField::txtLabel)->setMinimumWidth(kTextWidth);
    row(0, AddControl::Label1, box({field(AddField::txtLabel)}));
    row(1, AddControl::Label2, box({field(AddField::txtFreq), control(AddControl::LaFreq)}));
    const auto times = [&](AddField hour, AddControl separator, AddField minute) {
        QHBoxLayout* layout = box({field(hour), control(separator), field(minute)});
        layout->addStretch();
        return layout;
    };
    row(2, AddControl::Label3, times(AddField::sHourComb, AddControl::Label4, AddField::sMinComb));
    row(3, AddControl::Label5, times(AddField::eHourComb, AddControl::Label6, AddField::eMinComb));
    row(4, AddControl::Label7, box({field(AddField::txtTarget)}));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(control(AddControl::saveCmd));
    buttons->addWidget(control(AddControl::cancelCmd));
    grid->setRowMinimumHeight(5, kMargin / 2);
    grid->addLayout(buttons, 6, 0, 1, 2);

    QWidget* previous = nullptr;
    for (QWidget* next : {field(AddField::txtLabel), field(AddField::txtFreq), field(AddField::sHourComb),
                          field(AddField::sMinComb), field(AddField::eHourComb), field(AddField::eMinComb),
                          field(AddField::txtTarget), control(AddControl::saveCmd), control(AddControl::cancelCmd)}) {
        if (previous != nullptr) {
            QWidget::setTabOrder(previous, next);
        }
        previous = next;
    }
}
