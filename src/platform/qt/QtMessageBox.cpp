#include "platform/qt/QtMessageBox.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QSpacerItem>
#include <QStyle>
#include <algorithm>
#include <vector>

#include "platform/qt/Units.h"

namespace {

struct Button {
    QMessageBox::StandardButton standard;
    int answer;
    char16_t accelerator;  // 0: the captions of this button have none
};

constexpr Button kOk{QMessageBox::Ok, BoxAnswer::Ok, 0};
constexpr Button kCancel{QMessageBox::Cancel, BoxAnswer::Cancel, 0};
constexpr Button kAbort{QMessageBox::Abort, BoxAnswer::Abort, u'A'};
constexpr Button kRetry{QMessageBox::Retry, BoxAnswer::Retry, u'R'};
constexpr Button kIgnore{QMessageBox::Ignore, BoxAnswer::Ignore, u'I'};
constexpr Button kYes{QMessageBox::Yes, BoxAnswer::Yes, u'Y'};
constexpr Button kNo{QMessageBox::No, BoxAnswer::No, u'N'};

std::vector<Button> buttonsOf(int style) {
    switch (style) {
        case BoxStyle::OkCancel:
            return {kOk, kCancel};
        case BoxStyle::AbortRetryIgnore:
            return {kAbort, kRetry, kIgnore};
        case BoxStyle::YesNoCancel:
            return {kYes, kNo, kCancel};
        case BoxStyle::YesNo:
            return {kYes, kNo};
        case BoxStyle::RetryCancel:
            return {kRetry, kCancel};
        default:
            return {kOk};
    }
}

// A caption in a script without the accelerator's letter is followed by the accelerator, as on Windows; Qt's
// translations omit it.
void addAccelerator(QPushButton& button, char16_t accelerator) {
    const QString caption = button.text();
    const bool latin = std::any_of(caption.cbegin(), caption.cend(), [](QChar c) { return c.unicode() < 0x250; });
    if (accelerator != 0 && !latin) {
        button.setText(QStringLiteral("%1(&%2)").arg(caption, QChar(accelerator)));
    }
}

// Qt sizes a message box by its text and buttons only.
void makeRoomForTitle(QMessageBox& box) {
    QFont bold = box.font();
    bold.setBold(true);  // many desktops show titles in bold
    const int button = box.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &box);
    const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + 4 * button;
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace

int QtMessageBox::show(std::u16string_view text, int style, std::u16string_view title) {
    QWidget* active = QApplication::activeWindow();
    QMessageBox box(active != nullptr ? active : mainWindow_);
    box.setTextFormat(Qt::PlainText);
    box.setText(toQt(text));
    box.setWindowTitle(toQt(title));
    box.setAccessibleName(toQt(title));
    box.setAccessibleDescription(toQt(text));
    const std::vector<Button> buttons = buttonsOf(style);
    for (const Button& button : buttons) {
        QPushButton* added = box.addButton(button.standard);
        added->setIcon(QIcon());  // the standard buttons of the dialog have none either
        addAccelerator(*added, button.accelerator);
    }
    makeRoomForTitle(box);
    box.setDefaultButton(buttons.front().standard);
    if (buttons.back().standard == QMessageBox::Cancel) {
        box.setEscapeButton(QMessageBox::Cancel);
    }
    const int pressed = box.exec();
    const auto found = std::find_if(buttons.begin(), buttons.end(),
                                    [pressed](const Button& button) { return button.standard == pressed; });
    return found != buttons.end() ? found->answer : buttons.back().answer;
}
