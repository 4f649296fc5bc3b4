#include "platform/qt/InsertionLimit.h"

#include <QLineEdit>
#include <algorithm>

#include "platform/EditBox.h"
#include "platform/qt/Units.h"

InsertionLimit::InsertionLimit(QLineEdit* edit) : QValidator(edit) {
    edit->setMaxLength(std::numeric_limits<int>::max());  // Qt's own limit could split a surrogate pair
    edit->setValidator(this);
}

void InsertionLimit::exempt(const QString& text) {
    exempt_ = text;
    previous_ = text;
}

// The caret is at the end of the inserted text; the text after the caret was there before.
QValidator::State InsertionLimit::validate(QString& input, int& caret) const {
    if (input != exempt_ && input != previous_) {
        const qsizetype behind = input.size() - caret;
        const qsizetype shared = std::min<qsizetype>(caret, std::max<qsizetype>(0, previous_.size() - behind));
        const auto differs = std::mismatch(input.cbegin(), input.cbegin() + shared, previous_.cbegin());
        const qsizetype start = differs.first - input.cbegin();
        const auto room = static_cast<std::size_t>(std::max<qsizetype>(0, limit_ - start - behind));
        const std::u16string inserted = fromQt(input.mid(start, caret - start));
        const QString accepted = toQt(insertable(inserted, room));
        input = input.left(start) + accepted + input.mid(caret);
        caret = static_cast<int>(start + accepted.size());
    }
    previous_ = input;
    return Acceptable;
}
