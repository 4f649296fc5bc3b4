#include "platform/qt/InsertionLimit.h"

#include <QRegularExpression>
#include <algorithm>

void InsertionLimit::exempt(const QString& text) {
    exempt_ = text;
    previous_ = text;
}

// The caret stands behind what has just been inserted; what follows it was there before.
QValidator::State InsertionLimit::validate(QString& input, int& caret) const {
    static const QRegularExpression kLineBreak(QStringLiteral("[\\r\\n\\x{2028}\\x{2029}]"));
    if (input != exempt_ && input != previous_) {
        const qsizetype behind = input.size() - caret;
        const qsizetype shared = std::min<qsizetype>(caret, std::max<qsizetype>(0, previous_.size() - behind));
        const auto differs = std::mismatch(input.cbegin(), input.cbegin() + shared, previous_.cbegin());
        const qsizetype start = differs.first - input.cbegin();
        QString inserted = input.mid(start, caret - start);
        if (const qsizetype lineBreak = inserted.indexOf(kLineBreak); lineBreak >= 0) {
            inserted.truncate(lineBreak);
        }
        inserted.truncate(std::max<qsizetype>(0, limit_ - start - behind));
        if (!inserted.isEmpty() && inserted.back().isHighSurrogate()) {
            inserted.chop(1);
        }
        input = input.left(start) + inserted + input.mid(caret);
        caret = static_cast<int>(start + inserted.size());
    }
    previous_ = input;
    return Acceptable;
}
