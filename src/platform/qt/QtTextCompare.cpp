#include "platform/qt/QtTextCompare.h"

#include "platform/qt/Units.h"

QtTextCompare::QtTextCompare(const QLocale& locale) : collator_(locale) {
    collator_.setCaseSensitivity(Qt::CaseInsensitive);
}

int QtTextCompare::compare(std::u16string_view left, std::u16string_view right) {
    const int order = collator_.compare(QStringView(left.data(), static_cast<qsizetype>(left.size())),
                                        QStringView(right.data(), static_cast<qsizetype>(right.size())));
    return (order > 0 ? 1 : 0) - (order < 0 ? 1 : 0);
}
