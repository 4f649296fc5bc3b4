#include <gtest/gtest.h>

#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/Text.h"
#include "messages/mMsgBox.h"

namespace {

constexpr WindowHandle kBox = 100;
constexpr int kCreateWindow = 3;  // an event of the hook other than activation

// Activates the window of a message box while it is shown, as the system does.
class mMsgBoxTest : public testing::Test {
protected:
    mMsgBoxTest() {
        box.whileShown = [this] {
            hookedDuringBox = hook.live != 0;
            if (hook.listener != nullptr) {
                allowed = hook.listener->hookProcedure(kHookActivate, kBox, 0);
            }
        };
    }
    void addChild(WindowHandle handle, std::u16string className, std::u16string caption) {
        hook.windows[handle] = {std::move(className), std::move(caption), kBox};
    }
    std::string captionOf(WindowHandle handle) { return narrow(hook.windows[handle].caption); }
    void showOnce(int style = BoxStyle::Ok, int answer = BoxAnswer::Ok) {
        box.expect({u"text", u"Halcyon_K7", style, answer});
        EXPECT_EQ(messages.show(u"text", style), answer);
    }

    FakeWindowHook hook;
    FakeMessageBox box;
    mMsgBox messages{box, hook};
    bool hookedDuringBox = false;
    std::intptr_t allowed = -1;  // the result of the hook procedure
};

TEST_F(mMsgBoxTest, AChineseAbortRetryIgnoreBoxBecomesEnglishAndKeepsItsAccelerators) {
    addChild(101, u"Button", u"中止(&A)");
    addChild(102, u"Button", u"重试(&R)");
    addChild(103, u"Button", u"忽略(&I)");
    showOnce(BoxStyle::AbortRetryIgnore, BoxAnswer::Retry);
    EXPECT_EQ(captionOf(101), "Abort(&A)");
    EXPECT_EQ(captionOf(102), "Retry(&R)");
    EXPECT_EQ(captionOf(103), "Ignore(&I)");
}

TEST_F(mMsgBoxTest, AChineseOkCancelBoxBecomesEnglish) {
    addChild(101, u"Button", u"确定");
    addChild(102, u"Button", u"取消");
    showOnce(BoxStyle::OkCancel, BoxAnswer::Cancel);
    EXPECT_EQ(captionOf(101), "Ok");
    EXPECT_EQ(captionOf(102), "Cancel");
}

TEST_F(mMsgBoxTest, AChineseYesNoBoxKeepsItsCaptions) {
    addChild(101, u"Button", u"是(&Y)");
    addChild(102, u"Button", u"否(&N)");
    showOnce(BoxStyle::YesNo, BoxAnswer::Yes);
    EXPECT_EQ(captionOf(101), "是(&Y)");
    EXPECT_EQ(captionOf(102), "否(&N)");
    EXPECT_EQ(hook.captionsSet, 0);
}

TEST_F(mMsgBoxTest, OnAnEnglishSystemNoCaptionChanges) {
    addChild(101, u"Button", u"OK");
    addChild(102, u"Button", u"Cancel");
    addChild(103, u"Button", u"&Retry");
    showOnce(BoxStyle::OkCancel);
    EXPECT_EQ(hook.captionsSet, 0);
}

TEST_F(mMsgBoxTest, OnlyWindowsOfTheButtonClassAreRenamed) {
    addChild(101, u"Static", u"确定");
    addChild(102, u"button", u"确定");
    addChild(103, u"BUTTON", u"确定");
    addChild(104, u"ButtonX", u"确定");
    addChild(105, u"Button", u"确定");
    showOnce();
    EXPECT_EQ(hook.captionsSet, 1);
    EXPECT_EQ(captionOf(105), "Ok");
}

TEST_F(mMsgBoxTest, ASecondActivationFindsEnglishCaptionsAndChangesNothing) {
    addChild(101, u"Button", u"确定");
    addChild(102, u"Button", u"重试(&R)");
    messages.Install();
    hook.listener->hookProcedure(kHookActivate, kBox, 0);
    EXPECT_EQ(hook.captionsSet, 2);
    hook.listener->hookProcedure(kHookActivate, kBox, 0);
    EXPECT_EQ(hook.captionsSet, 2);
}

TEST_F(mMsgBoxTest, ANullChildEndsTheEnumeration) {
    addChild(0, u"Button", u"确定");
    addChild(101, u"Button", u"确定");
    showOnce();
    EXPECT_EQ(hook.captionsSet, 0);
}

TEST_F(mMsgBoxTest, AChildContinuesTheEnumerationAndANullChildEndsIt) {
    addChild(101, u"Static", u"text");
    messages.Install();
    EXPECT_EQ(hook.listener->childProcedure(101), 1);
    EXPECT_EQ(hook.listener->childProcedure(0), 0);
}

TEST_F(mMsgBoxTest, ANegativeCodeIsPassedOnWithItsResult) {
    addChild(101, u"Button", u"确定");
    messages.Install();
    EXPECT_EQ(hook.listener->hookProcedure(-1, kBox, 0), 77);
    EXPECT_EQ(hook.passedOn, (std::vector<int>{-1}));
    EXPECT_EQ(hook.captionsSet, 0);
}

TEST_F(mMsgBoxTest, AnActivationIsAllowedAndNotPassedOn) {
    showOnce();
    EXPECT_EQ(allowed, 0);
    EXPECT_TRUE(hook.passedOn.empty());
}

TEST_F(mMsgBoxTest, EveryOtherCodeGivesZeroWithoutTheNextHook) {
    addChild(101, u"Button", u"确定");
    messages.Install();
    for (const int code : {0, 1, 2, kCreateWindow, 4, 6, 9}) {
        EXPECT_EQ(hook.listener->hookProcedure(code, kBox, 0), 0) << code;
    }
    EXPECT_TRUE(hook.passedOn.empty());
    EXPECT_EQ(hook.captionsSet, 0);
}

TEST_F(mMsgBoxTest, TheHookOfTheRightTypeExistsDuringTheBoxOnly) {
    EXPECT_EQ(hook.live, 0U);
    showOnce();
    EXPECT_TRUE(hookedDuringBox);
    EXPECT_EQ(hook.lastType, 5);
    EXPECT_EQ(hook.live, 0U);
    EXPECT_EQ(hook.staleUnhooks, 0);
}

TEST_F(mMsgBoxTest, InstallingTwiceSetsOneHook) {
    messages.Install();
    messages.Install();
    EXPECT_EQ(hook.issued, 1U);
    messages.Remove();
    EXPECT_EQ(hook.live, 0U);
    EXPECT_EQ(hook.staleUnhooks, 0);
}

TEST_F(mMsgBoxTest, RemovingTwiceNeverUnhooksAStaleHandle) {
    messages.Remove();
    messages.Install();
    messages.Remove();
    messages.Remove();
    EXPECT_EQ(hook.staleUnhooks, 0);
    messages.Install();
    EXPECT_EQ(hook.issued, 2U);
    EXPECT_EQ(hook.live, 2U);
}

TEST_F(mMsgBoxTest, WithoutAHookTheBoxKeepsTheSystemsCaptions) {
    hook.failing = true;
    addChild(101, u"Button", u"确定");
    showOnce(BoxStyle::OkCancel, BoxAnswer::Cancel);
    EXPECT_EQ(hook.captionsSet, 0);
    EXPECT_EQ(hook.staleUnhooks, 0);
}

TEST_F(mMsgBoxTest, APlainBoxIsShownWithoutTheHook) {
    addChild(101, u"Button", u"确定");
    box.expect({u"plain", u"Halcyon_K7", BoxStyle::Ok, BoxAnswer::Ok});
    EXPECT_EQ(messages.showPlain(u"plain"), BoxAnswer::Ok);
    EXPECT_FALSE(hookedDuringBox);
    EXPECT_EQ(hook.issued, 0U);
    EXPECT_EQ(hook.captionsSet, 0);
}

TEST_F(mMsgBoxTest, EveryAnswerOfTheBoxIsReturned) {
    for (const int answer : {BoxAnswer::Abort, BoxAnswer::Retry, BoxAnswer::Ignore}) {
        showOnce(BoxStyle::AbortRetryIgnore, answer);
    }
    for (const int answer : {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::Cancel}) {
        showOnce(BoxStyle::YesNoCancel, answer);
    }
}

TEST_F(mMsgBoxTest, AGivenTitleIsShown) {
    box.expect({u"text", u"Add List", BoxStyle::Ok, BoxAnswer::Ok});
    messages.show(u"text", BoxStyle::Ok, u"Add List");
    EXPECT_EQ(box.shown.size(), 1U);
}

struct CaptionCase {
    const char16_t* systems;
    const char* english;  // empty: stays
};

class mMsgBoxTestCaptions : public testing::TestWithParam<CaptionCase> {};

TEST_P(mMsgBoxTestCaptions, GivesTheEnglishCaption) {
    const auto renamed = englishCaption(GetParam().systems);
    EXPECT_EQ(narrow(renamed.value_or(u"")), GetParam().english);
    EXPECT_EQ(renamed.has_value(), *GetParam().english != '\0');
}

INSTANTIATE_TEST_SUITE_P(
    AllRows, mMsgBoxTestCaptions,
    testing::Values(CaptionCase{u"确定", "Ok"}, CaptionCase{u"取消", "Cancel"}, CaptionCase{u"中止(&A)", "Abort(&A)"},
                    CaptionCase{u"终止(&A)", "Abort(&A)"}, CaptionCase{u"重试(&R)", "Retry(&R)"},
                    CaptionCase{u"忽略(&I)", "Ignore(&I)"}, CaptionCase{u"请终止(&T)", "Abort(&T)"},
                    // The first matching row wins.
                    CaptionCase{u"重试中止(&X)", "Abort(&X)"}, CaptionCase{u"忽略重试(&Y)", "Retry(&Y)"},
                    // A caption shorter than the suffix is kept whole.
                    CaptionCase{u"中止", "Abort中止"}, CaptionCase{u"重试(&", "Retry重试(&"},
                    // These rows match whole captions only.
                    CaptionCase{u"确定(&O)", ""}, CaptionCase{u" 确定", ""}, CaptionCase{u"取消(&C)", ""},
                    CaptionCase{u"是(&Y)", ""}, CaptionCase{u"否(&N)", ""}, CaptionCase{u"OK", ""},
                    CaptionCase{u"Ok", ""}, CaptionCase{u"Abort(&A)", ""}, CaptionCase{u"", ""}));

}  // namespace
