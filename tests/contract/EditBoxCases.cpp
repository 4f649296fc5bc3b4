#include <gtest/gtest.h>

#include "contract/Backend.h"
#include "fakes/Text.h"

namespace {

class EditBoxContract : public testing::Test {
protected:
    EditBoxContract() {
        box.setBounds(300, 300, 3000, 400);
        box.setVisible(true);
        box.takeFocus();
    }
    std::string text() const { return narrow(box.text()); }

    std::unique_ptr<Backend> backend = makeBackend();
    std::unique_ptr<EditBoxProbe> probe = backend->editBox();
    EditBox& box = probe->box();
};

TEST_F(EditBoxContract, ANewTextIsFullySelected) {
    box.setLimit(10);
    box.setText(u"Radio");
    probe->type(u"x");
    EXPECT_EQ(text(), "x");
}

TEST_F(EditBoxContract, TypingStopsAtTheLimit) {
    box.setLimit(5);
    box.setText(u"");
    probe->type(u"123456789");
    EXPECT_EQ(text(), "12345");
    probe->pressBackspace();
    probe->type(u"xy");
    EXPECT_EQ(text(), "1234x");
}

TEST_F(EditBoxContract, APasteIsCutToWhatFits) {
    box.setLimit(5);
    box.setText(u"ab");
    probe->pressEnd();
    probe->paste(u"123456789");
    EXPECT_EQ(text(), "ab123");
}

TEST_F(EditBoxContract, ALongerTextStaysButCannotGrow) {
    const std::string longText = "abcdefghijklmnopqrstuvwxyz";
    box.setLimit(10);
    box.setText(u"abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(text(), longText);
    probe->pressEnd();
    probe->type(u"!");
    EXPECT_EQ(text(), longText);
    probe->pressBackspace();
    EXPECT_EQ(text(), longText.substr(0, 25));
    probe->type(u"!");
    EXPECT_EQ(text(), longText.substr(0, 25));
}

TEST_F(EditBoxContract, AChangedLimitAppliesToTheNextText) {
    box.setLimit(3);
    box.setText(u"");
    probe->type(u"12345");
    box.setLimit(6);
    box.setText(u"");
    probe->type(u"123456789");
    EXPECT_EQ(text(), "123456");
}

TEST_F(EditBoxContract, LineBreaksNeverEnter) {
    box.setLimit(20);
    box.setText(u"");
    probe->paste(u"one\r\ntwo");
    EXPECT_EQ(text(), "one");
}

TEST_F(EditBoxContract, ACutNeverSplitsASurrogatePair) {
    box.setLimit(10);
    box.setText(u"123456789");
    probe->pressEnd();
    probe->paste(u"\U0001F4FB");
    EXPECT_EQ(box.text(), u"123456789");
    probe->type(u"\U0001F4FB");
    EXPECT_EQ(box.text(), u"123456789");
    probe->type(u"x\U0001F4FB");
    EXPECT_EQ(box.text(), u"123456789x");
    probe->pressBackspace();
    probe->pressBackspace();
    probe->type(u"\U0001F4FB");
    EXPECT_EQ(box.text(), u"12345678\U0001F4FB");
}

TEST_F(EditBoxContract, APasteReplacesTheSelection) {
    box.setLimit(5);
    box.setText(u"abcdefghij");
    probe->paste(u"123\n");
    EXPECT_EQ(text(), "123");
}

TEST_F(EditBoxContract, UnitsOutsideTheBasicPlaneCountTwice) {
    box.setLimit(5);
    box.setText(u"");
    probe->paste(u"\U0001F4FB\U0001F4FB");
    EXPECT_EQ(box.text().size(), 4U);
    probe->type(u"ab");
    EXPECT_EQ(box.text().size(), 5U);
}

}  // namespace
