// The command-line program on Windows.
#include <windows.h>

#include <string>
#include <variant>
#include <vector>

#include "ctl/CommandLine.h"
#include "ctl/Commands.h"
#include "ctl/DownloadProgress.h"
#include "ctl/Sources.h"
#include "ctl/WorkingFolder.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32CodePages.h"
#include "platform/win32/Win32Console.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32HttpClient.h"
#include "platform/win32/Win32ProgramFolders.h"
#include "platform/win32/Win32SingleInstance.h"
#include "platform/win32/Win32Volumes.h"
#include "storage/text/Utf8.h"

namespace {

std::u16string currentFolder() {
    std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return folderPath(fromWide(path), u'\\');
}

std::vector<std::string> utf8Arguments(int argc, wchar_t** argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.push_back(toUtf8(fromWide(argv[i])));
    }
    return arguments;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    Win32Console console;
    const auto parsed = parseCommandLine(utf8Arguments(argc, argv));
    const auto* const options = std::get_if<Options>(&parsed);
    if (options == nullptr) {
        return static_cast<int>(endCommandLine(console, *std::get_if<CommandLineEnd>(&parsed)));
    }
    Win32Files files;
    Win32ProgramFolders folders;
    const std::u16string current = currentFolder();
    const std::u16string folder = workingFolder(*options, current, folders, files);
    Win32CodePages codePages;
    Win32Volumes volumes;
    DownloadProgress progress(console);
    Win32HttpClient httpClient([&progress](const HttpProgress& soFar) { progress.update(soFar); });
    Win32SingleInstance singleInstance(folder);
    Win32Clock clock;
    Services services{files, codePages, volumes, httpClient, singleInstance, clock, console, progress, folder, current};
    return static_cast<int>(runCommand(services, *options));
}
