#include "platform/qt/ShortTime.h"

namespace {

// The fields that Qt supports, except seconds, which only the C locale has in its short format.
bool isKnownField(QChar c) { return QStringLiteral("HhmAaPp").contains(c); }

// Removes the fields that Qt would show as letters: "Bh:mm" of Chinese (Taiwan) contains the part of the day, which Qt
// 6.4 does not support.
QString knownFormat(const QString& format) {
    QString known;
    bool isQuoted = false;
    for (const QChar c : format) {
        isQuoted = c == u'\'' ? !isQuoted : isQuoted;
        const bool isField = !isQuoted && ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'));
        if (!isField || isKnownField(c)) {
            known += c;
        }
    }
    return known == format ? format : known.trimmed();
}

}  // namespace

QString shortTime(const QLocale& locale, QTime time) {
    const QString format = locale.timeFormat(QLocale::ShortFormat);
    if (locale.language() == QLocale::C) {
        return time.toString(QStringLiteral("HH:mm"));
    }
    QString known = knownFormat(format);
    if (known != format) {
        known.replace(u'h', u'H');  // without the part of the day twelve hours would be ambiguous
    }
    return locale.toString(time, known);
}
