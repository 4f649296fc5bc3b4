#include <string_view>

#include "contract/Backend.h"

namespace {

std::u16string& address() {
    static std::u16string value;
    return value;
}

}  // namespace

const std::u16string& httpServer() { return address(); }

void readArguments(int argc, char** argv) {
    constexpr std::string_view kHttp = "--http=";
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument.starts_with(kHttp)) {
            address().assign(argument.begin() + kHttp.size(), argument.end());
        }
    }
}
