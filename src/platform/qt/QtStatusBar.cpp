#include "platform/qt/QtStatusBar.h"

#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QSizeGrip>
#include <QStatusBar>
#include <algorithm>

#include "platform/qt/ShortTime.h"
#include "platform/qt/Units.h"

namespace {

constexpr int kPanelPadding = 24;  // pixels, left and right in total

}  // namespace

QtStatusBar::QtStatusBar(QWidget* client) : bar_(new QStatusBar(client)) {
    bar_->setObjectName("StatusBar1");
    message_ = addPanel("Panel1", 1);
    addSeparator();
    date_ = addPanel("Panel2", 0);
    addSeparator();
    time_ = addPanel("Panel3", 0);
    addSizeGrip();
    message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long message must not widen the window
    message_->setContentsMargins(kPanelPadding / 3, 0, 0, 0);
    date_->setAlignment(Qt::AlignCenter);
    time_->setAlignment(Qt::AlignCenter);
    minute_.setSingleShot(true);
    minute_.setTimerType(Qt::PreciseTimer);
    connect(&minute_, &QTimer::timeout, this, &QtStatusBar::showClock);
    showClock();
}

QLabel* QtStatusBar::addPanel(const char* objectName, int stretch) {
    auto* panel = new QLabel(bar_);
    panel->setObjectName(objectName);
    panel->setTextFormat(Qt::PlainText);
    bar_->addPermanentWidget(panel, stretch);
    return panel;
}

void QtStatusBar::addSeparator() {
    auto* line = new QFrame(bar_);
    line->setFrameStyle(static_cast<int>(QFrame::VLine) | static_cast<int>(QFrame::Sunken));
    bar_->addPermanentWidget(line);
}

// The bar's own size grip is taller than a line of text and would reduce the height of the lists.
void QtStatusBar::addSizeGrip() {
    bar_->setSizeGripEnabled(false);
    auto* grip = new QSizeGrip(bar_);
    grip->setMaximumHeight(bar_->fontMetrics().height());
    bar_->addPermanentWidget(grip);
}

void QtStatusBar::setMessage(std::u16string_view text) {
    message_->setText(toQt(text));
    message_->repaint();
}

void QtStatusBar::showClock() {
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale = QLocale::system();
    date_->setText(locale.toString(now.date(), QLocale::ShortFormat));
    time_->setText(shortTime(locale, now.time()));
    const QFontMetrics metrics = bar_->fontMetrics();
    const int width = std::max(metrics.horizontalAdvance(date_->text()), metrics.horizontalAdvance(time_->text()));
    date_->setFixedWidth(width + kPanelPadding);
    time_->setFixedWidth(width + kPanelPadding);
    minute_.start(millisecondsToNextMinute(now.time().second(), now.time().msec()));
}
