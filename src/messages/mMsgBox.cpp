#include "messages/mMsgBox.h"

namespace {

bool contains(std::u16string_view text, std::u16string_view part) { return text.find(part) != text.npos; }

// A localised system caption ends in its accelerator: "(", "&", the letter, ")".
std::u16string withAccelerator(std::u16string_view english, std::u16string_view caption) {
    constexpr std::size_t kSuffix = 4;
    std::u16string renamed(english);
    renamed += caption.substr(caption.size() > kSuffix ? caption.size() - kSuffix : 0);
    return renamed;
}

}  // namespace

std::optional<std::u16string> englishCaption(std::u16string_view caption) {
    if (caption == u"确定") {
        return u"Ok";
    }
    if (caption == u"取消") {
        return u"Cancel";
    }
    if (contains(caption, u"中止") || contains(caption, u"终止")) {
        return withAccelerator(u"Abort", caption);
    }
    if (contains(caption, u"重试")) {
        return withAccelerator(u"Retry", caption);
    }
    if (contains(caption, u"忽略")) {
        return withAccelerator(u"Ignore", caption);
    }
    return std::nullopt;
}

void mMsgBox::Install() {
    if (handle_ == 0) {
        handle_ = hook_.setHook(kHookTypeCbt, *this);
    }
}

void mMsgBox::Remove() {
    if (handle_ != 0) {
        hook_.unhook(handle_);
        handle_ = 0;
    }
}

int mMsgBox::show(std::u16string_view text, int style, std::u16string_view title) {
    Install();
    const int answer = box_.show(text, style, title);
    Remove();
    return answer;
}

int mMsgBox::showPlain(std::u16string_view text, int style, std::u16string_view title) {
    return box_.show(text, style, title);
}

std::intptr_t mMsgBox::hookProcedure(int code, std::uintptr_t window, std::intptr_t other) {
    if (code < 0) {
        return hook_.callNext(handle_, code, window, other);
    }
    if (code == kHookActivate) {
        hook_.enumerateChildren(window, *this);
    }
    return 0;
}

int mMsgBox::childProcedure(WindowHandle child) {
    if (child == 0) {
        return 0;
    }
    if (hook_.className(child) == u"Button") {
        if (const auto caption = englishCaption(hook_.caption(child))) {
            hook_.setCaption(child, *caption);
        }
    }
    return 1;
}
