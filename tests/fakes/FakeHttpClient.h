// Returns the configured answers.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/HttpClient.h"

class FakeHttpClient : public HttpClient {
public:
    HttpAnswer get(std::u16string_view url, const HttpLimits& limits) override {
        urls.emplace_back(url);
        limitsGiven.push_back(limits);
        during();
        const auto special = answersAt.find(urls.back());
        return special == answersAt.end() ? answer : special->second;
    }

    std::function<void()> during = [] {};  // called during a download
    HttpAnswer answer{200, u"", {}, "", ""};
    std::map<std::u16string, HttpAnswer> answersAt;  // by address; others get `answer`
    std::vector<std::u16string> urls;
    std::vector<HttpLimits> limitsGiven;
};
