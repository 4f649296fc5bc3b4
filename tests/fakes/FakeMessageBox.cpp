#include "fakes/FakeMessageBox.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/Text.h"

namespace {

bool hasButton(int style, int answer) {
    static const std::vector<std::vector<int>> kButtons = {
        {BoxAnswer::Ok},
        {BoxAnswer::Ok, BoxAnswer::Cancel},
        {BoxAnswer::Abort, BoxAnswer::Retry, BoxAnswer::Ignore},
        {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::Cancel},
        {BoxAnswer::Yes, BoxAnswer::No},
        {BoxAnswer::Retry, BoxAnswer::Cancel},
    };
    if (style < 0 || style >= static_cast<int>(kButtons.size())) {
        return false;
    }
    const auto& buttons = kButtons[static_cast<std::size_t>(style)];
    return std::find(buttons.begin(), buttons.end(), answer) != buttons.end();
}

}  // namespace

FakeMessageBox::~FakeMessageBox() {
    for (const Box& box : expected_) {
        ADD_FAILURE() << "expected message box was not shown: " << narrow(box.text);
    }
}

int FakeMessageBox::show(std::u16string_view text, int style, std::u16string_view title) {
    shown.push_back({std::u16string(text), std::u16string(title), style, 0});
    if (expected_.empty()) {
        ADD_FAILURE() << "unexpected message box: " << narrow(text);
        return BoxAnswer::Ok;
    }
    const Box box = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(narrow(box.text), narrow(text));
    EXPECT_EQ(narrow(box.title), narrow(title));
    EXPECT_EQ(box.style, style);
    EXPECT_TRUE(hasButton(style, box.answer)) << "the box has no such button: " << box.answer;
    shown.back().answer = box.answer;
    whileShown();
    return box.answer;
}
