// Before a line edit: what is typed or pasted goes in as far as insertable() says; what is there already stays.
#pragma once

#include <QValidator>
#include <limits>

class QLineEdit;

class InsertionLimit : public QValidator {
public:
    // The line edit owns it.
    explicit InsertionLimit(QLineEdit* edit);

    void setLimit(int units) { limit_ = units; }  // UTF-16 units of the whole text
    // The text that the program is about to set: exempt from the limit, now and after an undo.
    void exempt(const QString& text);

    State validate(QString& input, int& caret) const override;

private:
    int limit_ = std::numeric_limits<int>::max();
    QString exempt_;
    mutable QString previous_;  // as last validated; validate() is const in Qt
};
