// Compares texts by the user's locale, ignoring letter case.
#pragma once

#include <QCollator>

#include "platform/TextCompare.h"

class QtTextCompare : public TextCompare {
public:
    explicit QtTextCompare(const QLocale& locale = QLocale::system().collation());

    int compare(std::u16string_view left, std::u16string_view right) override;

private:
    QCollator collator_;
};
