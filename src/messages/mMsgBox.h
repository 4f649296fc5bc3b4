// Message boxes with English button captions, also on a Chinese system: a hook around each box replaces the captions
// listed in a table.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/MessageBox.h"
#include "platform/ProgramTitle.h"
#include "platform/WindowHook.h"

// The English caption from the table; nullopt if the caption is not in it.
std::optional<std::u16string> englishCaption(std::u16string_view caption);

class mMsgBox : private HookListener {
public:
    mMsgBox(StandardMessageBox& box, WindowHook& hook) : box_(box), hook_(hook) {}

    // Repeated calls of either are allowed.
    void Install();
    void Remove();

    // Install, the standard box, Remove; returns the button pressed (BoxAnswer).
    int show(std::u16string_view text, int style = BoxStyle::Ok, std::u16string_view title = kProgramTitle);
    // The standard box without the hook.
    int showPlain(std::u16string_view text, int style = BoxStyle::Ok, std::u16string_view title = kProgramTitle);

private:
    std::intptr_t hookProcedure(int code, std::uintptr_t window, std::intptr_t other) override;
    int childProcedure(WindowHandle child) override;

    StandardMessageBox& box_;
    WindowHook& hook_;
    HookHandle handle_ = 0;
};
