// The command-line program on a POSIX system.
#include <unistd.h>

#include <array>
#include <climits>
#include <string>
#include <variant>
#include <vector>

#include "ctl/CommandLine.h"
#include "ctl/Commands.h"
#include "ctl/DownloadProgress.h"
#include "ctl/WorkingFolder.h"
#include "platform/posix/NativePath.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/posix/PosixConsole.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixHttpClient.h"
#include "platform/posix/PosixProgramFolders.h"
#include "platform/posix/PosixSingleInstance.h"
#include "platform/posix/PosixVolumes.h"

namespace {

std::u16string currentFolder() {
    std::array<char, PATH_MAX> path{};
    return ::getcwd(path.data(), path.size()) == nullptr ? u"/" : portablePath(path.data()) + u"/";
}

}  // namespace

// std::variant throws only if it has no value, which cannot happen here.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
    PosixConsole console;
    const auto parsed = parseCommandLine(std::vector<std::string>(argv + 1, argv + argc));
    const auto* const options = std::get_if<Options>(&parsed);
    if (options == nullptr) {
        return static_cast<int>(endCommandLine(console, *std::get_if<CommandLineEnd>(&parsed)));
    }
    PosixFiles files;
    PosixProgramFolders folders;
    const std::u16string current = currentFolder();
    const std::u16string folder = workingFolder(*options, current, folders, files);
    PosixCodePages codePages;
    PosixVolumes volumes;
    DownloadProgress progress(console);
    PosixHttpClient httpClient([&progress](const HttpProgress& soFar) { progress.update(soFar); });
    PosixSingleInstance singleInstance(folder);
    PosixClock clock;
    Services services{files, codePages, volumes, httpClient, singleInstance, clock, console, progress, folder, current};
    return static_cast<int>(runCommand(services, *options));
}
