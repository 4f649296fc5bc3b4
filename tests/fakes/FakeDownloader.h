// Puts given bytes into the fake files in place of a server's answer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "fakes/FakeFiles.h"
#include "platform/Downloader.h"

class FakeDownloader : public Downloader {
public:
    explicit FakeDownloader(FakeFiles& target) : files_(target) {}

    bool download(std::u16string_view url, std::u16string_view path) override {
        urls.emplace_back(url);
        paths.emplace_back(path);
        during();
        if (succeeds && writes) {
            files_.files[std::u16string(path)] = bytes;
        }
        return succeeds;
    }
    void forgetCached(std::u16string_view url) override { forgotten.emplace_back(url); }

    std::function<void()> during = [] {};  // what happens while the server is waited for
    std::string bytes;
    bool succeeds = true;
    bool writes = true;  // false: success is reported, but no file appears
    std::vector<std::u16string> urls;
    std::vector<std::u16string> paths;
    std::vector<std::u16string> forgotten;

private:
    FakeFiles& files_;
};
