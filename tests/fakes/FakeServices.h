// Volumes, single instance, clock, text order and window hook as plain data.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/SingleInstance.h"
#include "platform/TextCompare.h"
#include "platform/Volumes.h"
#include "platform/WindowHook.h"

class FakeVolumes : public Volumes {
public:
    struct Volume {
        std::u16string root;
        std::optional<DiskGeometry> geometry;
        std::optional<std::u16string> label = u"";
        bool present = true;
    };

    std::vector<std::u16string> roots() override {
        std::vector<std::u16string> result;
        for (const Volume& volume : volumes) {
            result.push_back(volume.root);
        }
        return result;
    }
    bool isPresent(std::u16string_view root) override { return find(root).present; }
    std::optional<std::u16string> label(std::u16string_view root) override { return find(root).label; }
    std::optional<DiskGeometry> geometry(std::u16string_view root) override {
        ++geometryQueries;
        return find(root).geometry;
    }

    std::vector<Volume> volumes;
    int geometryQueries = 0;

private:
    Volume find(std::u16string_view root) const {
        for (const Volume& volume : volumes) {
            if (volume.root == root) {
                return volume;
            }
        }
        return {std::u16string(root), std::nullopt, std::nullopt, false};
    }
};

class FakeSingleInstance : public SingleInstance {
public:
    bool previousInstance() override { return running; }
    bool running = false;
};

// Stands still unless a test sets it.
class FakeClock : public Clock {
public:
    UtcTime now() override { return time; }
    UtcTime time{2026, 11, 20, 22, 45, 1};
};

// Compares by code unit after folding A to Z.
class FakeTextCompare : public TextCompare {
public:
    int compare(std::u16string_view left, std::u16string_view right) override {
        const std::u16string a = fold(left);
        const std::u16string b = fold(right);
        return a == b ? 0 : (a < b ? -1 : 1);
    }

private:
    static std::u16string fold(std::u16string_view text) {
        std::u16string folded(text);
        for (char16_t& c : folded) {
            c = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
        }
        return folded;
    }
};

// Windows with class names and captions, and the hooks set on them.
class FakeWindowHook : public WindowHook {
public:
    struct Window {
        std::u16string className;
        std::u16string caption;
        WindowHandle parent = 0;
    };

    HookHandle setHook(int type, HookListener& hookListener) override {
        if (failing) {
            return 0;
        }
        lastType = type;
        listener = &hookListener;
        return live = ++issued;
    }
    void unhook(HookHandle hook) override {
        staleUnhooks += hook == live ? 0 : 1;
        live = 0;
        listener = nullptr;
    }
    std::intptr_t callNext(HookHandle, int code, std::uintptr_t, std::intptr_t) override {
        passedOn.push_back(code);
        return 77;
    }
    void enumerateChildren(WindowHandle parent, HookListener& hookListener) override {
        for (const auto& [handle, window] : windows) {
            if (window.parent == parent && hookListener.childProcedure(handle) == 0) {
                return;
            }
        }
    }
    std::u16string className(WindowHandle window) override { return windows[window].className; }
    std::u16string caption(WindowHandle window) override { return windows[window].caption; }
    void setCaption(WindowHandle window, std::u16string_view caption) override {
        windows[window].caption = caption;
        ++captionsSet;
    }

    std::map<WindowHandle, Window> windows;
    HookListener* listener = nullptr;
    HookHandle live = 0;  // the installed hook
    HookHandle issued = 0;
    int lastType = 0;
    int staleUnhooks = 0;
    int captionsSet = 0;
    bool failing = false;
    std::vector<int> passedOn;
};
