// The length limit of the edit box: it holds back what is typed or pasted, never what is there already.
#pragma once

#include <QValidator>

class InsertionLimit : public QValidator {
public:
    using QValidator::QValidator;

    void setLimit(int units) { limit_ = units; }
    // The text that the program is about to set: exempt from the limit, now and after an undo.
    void exempt(const QString& text);

    State validate(QString& input, int& caret) const override;

private:
    int limit_ = 32'767;
    QString exempt_;
    mutable QString previous_;  // as last validated; validate() is const in Qt
};
