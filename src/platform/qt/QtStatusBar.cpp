#include "platform/qt/QtStatusBar.h"

#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QStatusBar>
#include <algorithm>

#include "platform/qt/Units.h"

namespace {

constexpr int kPanelPadding = 24;  // pixels, left and right together

QString shortTime(const QLocale& locale, QTime time) {
    // Only the C locale has seconds in its short format.
    return locale.language() == QLocale::C ? time.toString(QStringLiteral("HH:mm"))
                                           : locale.toString(time, QLocale::ShortFormat);
}

}  // namespace

QtStatusBar::QtStatusBar(QWidget* client) : bar_(new QStatusBar(client)) {
    bar_->setObjectName("StatusBar1");
    bar_->setSizeGripEnabled(false);
    message_ = addPanel("Panel1", 1);
    date_ = addPanel("Panel2", 0);
    time_ = addPanel("Panel3", 0);
    message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long message widens no window
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
