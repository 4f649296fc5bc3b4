// Measures the resident memory that loading four lists of 32,767 rows adds to a fresh process. Argument: a folder for
// the files. Prints: bytes added, bytes of both files as loaded (UTF-16).
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "SampleLists.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/posix/PosixFiles.h"
#include "storage/lists/ListLoader.h"
#include "storage/text/Utf8.h"

namespace {

constexpr int kMostRows = 32'767;

long residentBytes() {
    const std::string label = "Rss:";
    std::ifstream summary("/proc/self/smaps_rollup");
    for (std::string line; std::getline(summary, line);) {
        if (line.rfind(label, 0) == 0) {
            return std::strtol(line.c_str() + label.size(), nullptr, 10) * 1024;
        }
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: loaded_memory FOLDER [write]\n");
        return 2;
    }
    PosixFiles files;
    PosixCodePages codePages;
    SampleLists sample(fromUtf8(argv[1]) + u'/');
    if (argc > 2) {  // in a separate process, whose memory does not count
        sample.fill(kMostRows);
        sample.writeUtf16(files, codePages);
        return 0;
    }
    const long before = residentBytes();
    {
        ListLoader loader(sample.lists(), sample.copies(), sample.settings(), files, codePages);
        loader.LoadDrmList(false);
        loader.LoadAmList(false);
        loader.LoadFmList(false);
        loader.LoadFavList(false);
    }
    const long added = residentBytes() - before;
    if (sample.grid(ListKind::Favourite).rowCount() != kMostRows || sample.grid(ListKind::Fm).rowCount() != kMostRows) {
        std::fprintf(stderr, "loaded_memory: not every record was loaded\n");
        return 1;
    }
    const auto size =
        files.size(sample.copies().ListFilePath).value_or(0) + files.size(sample.copies().UserFilePath).value_or(0);
    std::printf("%ld\t%llu\n", added, static_cast<unsigned long long>(size));
    return 0;
}
