// Answers message boxes by a script. An unexpected box, or an answer that is no button of the box, fails the test.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/MessageBox.h"

class FakeMessageBox : public StandardMessageBox {
public:
    struct Box {
        std::u16string text;
        std::u16string title = u"Halcyon_K7";
        int style = BoxStyle::Ok;
        int answer = BoxAnswer::Ok;
    };

    ~FakeMessageBox() override;  // fails the test if an expected box has not been shown

    void expect(Box box) { expected_.push_back(std::move(box)); }
    bool allShown() const { return expected_.empty(); }
    int show(std::u16string_view text, int style, std::u16string_view title) override;

    std::vector<Box> shown;
    std::function<void()> whileShown = [] {};  // called before the box is answered

private:
    std::deque<Box> expected_;
};
