// Message boxes with English button captions, also on a system whose own language is Chinese:
// a hook around each box renames the buttons that the caption table knows.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/MessageBox.h"
#include "platform/ProgramTitle.h"
#include "platform/WindowHook.h"

// The caption table: the new caption of a button, nullopt when the caption stays.
std::optional<std::u16string> englishCaption(std::u16string_view caption);

class mMsgBox : private HookListener {
public:
    mMsgBox(StandardMessageBox& box, WindowHook& hook) : box_(box), hook_(hook) {}

    // Both may be called any number of times in a row.
    void Install();
    void Remove();

    // Install, the standard box, Remove; returns the button (BoxAnswer).
    int show(std::u16string_view text, int style = BoxStyle::Ok, std::u16string_view title = kProgramTitle);
    // The standard box as it is, without the hook.
    int showPlain(std::u16string_view text, int style = BoxStyle::Ok, std::u16string_view title = kProgramTitle);

private:
    std::intptr_t hookProcedure(int code, std::uintptr_t window, std::intptr_t other) override;
    int childProcedure(WindowHandle child) override;

    StandardMessageBox& box_;
    WindowHook& hook_;
    HookHandle handle_ = 0;
};
