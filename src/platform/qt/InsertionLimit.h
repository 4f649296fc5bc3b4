// A validator for a line edit: inserts typed or pasted text as insertable() defines; existing text stays.
#pragma once

#include <QValidator>
#include <limits>

class QLineEdit;

class InsertionLimit : public QValidator {
public:
    // The line edit owns the object.
    explicit InsertionLimit(QLineEdit* edit);

    void setLimit(int units) { limit_ = units; }  // UTF-16 units of the whole text
    // The limit does not apply to this text, which the program is about to set, now or after an undo.
    void exempt(const QString& text);

    State validate(QString& input, int& caret) const override;

private:
    int limit_ = std::numeric_limits<int>::max();
    QString exempt_;
    mutable QString previous_;  // the text last validated; mutable because Qt's validate() is const
};
