// A workload for an instruction counter, in a separate process: "load", "save" or "sort", or "nothing" for the cost of
// the preparation. "compiler" prints what the counts depend on. Lists of 256 records, files in memory.
#include <cstdio>
#include <functional>
#include <map>
#include <string>

#include "MemoryFiles.h"
#include "SampleLists.h"
#include "editing/SortListview.h"
#include "platform/posix/PosixCodePages.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"

namespace {

constexpr int kTimes = 20;  // so that the workload outweighs the start of the process

// Compares code units: the order of a language would count instructions of the system's library.
class PlainCompare : public TextCompare {
public:
    int compare(std::u16string_view left, std::u16string_view right) override {
        const int order = left.compare(right);
        return (order > 0 ? 1 : 0) - (order < 0 ? 1 : 0);
    }
};

}  // namespace

int main(int argc, char** argv) {
    const std::string name = argc == 2 ? argv[1] : "";
    if (name == "compiler") {
        std::puts(COUNTED_COMPILER);
        return 0;
    }
    SampleLists sample(u"/");
    MemoryFiles files;
    PosixCodePages codePages;
    PlainCompare textCompare;
    SortListview sorter(textCompare);
    sample.fill(kMaxRecords);
    sample.writeUtf16(files, codePages);

    const std::map<std::string, std::function<void()>> works = {
        {"nothing", [] {}},
        {"load",
         [&] {
             sample.clear();
             ListLoader loader(sample.lists(), sample.copies(), sample.settings(), files, codePages);
             loader.LoadDrmList(false);
             loader.LoadAmList(false);
             loader.LoadFmList(false);
             loader.LoadFavList(false);
         }},
        {"save", [&] { ListSaver(sample.lists(), sample.copies(), sample.settings(), files, codePages).SaveLists(); }},
        {"sort", [&] { sorter.headerClicked(sample.lists()[ListKind::Drm], u"PROG"); }},
    };
    const auto work = works.find(name);
    if (work == works.end()) {
        std::fprintf(stderr, "usage: counted_work nothing|load|save|sort|compiler\n");
        return 2;
    }
    for (int i = 0; i < kTimes; ++i) {
        work->second();
    }
    return 0;
}
