// Claims the folder that it is given as an open window does, says "held", and keeps it until standard input ends.
#include <iostream>
#include <iterator>
#include <string>

#include "storage/text/Utf8.h"
#ifdef _WIN32
#include "platform/win32/WideText.h"
#include "platform/win32/Win32SingleInstance.h"
#else
#include "platform/posix/PosixSingleInstance.h"
#endif

namespace {

template <typename Instance>
int hold(std::u16string folder) {
    Instance instance(std::move(folder));
    if (instance.previousInstance()) {
        return 1;
    }
    std::cout << "held" << std::endl;
    std::string ignored(std::istreambuf_iterator<char>(std::cin), {});
    return 0;
}

}  // namespace

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) { return argc == 2 ? hold<Win32SingleInstance>(fromWide(argv[1]) + u"/") : 2; }
#else
int main(int argc, char** argv) { return argc == 2 ? hold<PosixSingleInstance>(fromUtf8(argv[1]) + u"/") : 2; }
#endif
