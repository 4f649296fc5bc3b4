// Measures what crash recovery adds to a command: composing both files of four lists and writing them, flushed, to the
// folder named by TMPDIR.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "MemoryFiles.h"
#include "SampleLists.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/posix/PosixFiles.h"
#include "shell/KeptLists.h"
#include "storage/lists/ListSaver.h"
#include "storage/recovery/Recovery.h"
#include "storage/text/Numbers.h"

namespace {

void keepAfterEachEdit(benchmark::State& state, Files& files, const std::u16string& folder) {
    PosixCodePages codePages;
    SampleLists sample(folder);
    sample.fill(static_cast<int>(state.range(0)));
    ListSaver saver(sample.lists(), sample.copies(), sample.settings(), files, codePages);
    Recovery recovery(folder, files);
    KeptLists kept({&sample.grid(ListKind::Drm), &sample.grid(ListKind::Am), &sample.grid(ListKind::Fm),
                    &sample.grid(ListKind::Favourite)},
                   saver, recovery);
    int edit = 0;
    const auto editAndKeep = [&] {
        sample.grid(ListKind::Drm).setText(1, 2, decimal(++edit));
        kept.keep();
    };
    editAndKeep();
    for ([[maybe_unused]] auto _ : state) {
        editAndKeep();
    }
    const auto newest = Recovery(folder, files).find();
    if (!newest || newest->bytes != saver.compose()) {
        state.SkipWithError("the newest snapshot is not of the last edit");
    }
}

// The first edit of a run finds neither the folder nor anything composed.
void keepFirstEdit(benchmark::State& state, Files& files, const std::u16string& folder) {
    PosixCodePages codePages;
    SampleLists sample(folder);
    sample.fill(static_cast<int>(state.range(0)));
    int edit = 0;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto saver = std::make_unique<ListSaver>(sample.lists(), sample.copies(), sample.settings(), files, codePages);
        auto recovery = std::make_unique<Recovery>(folder, files);
        state.ResumeTiming();
        sample.grid(ListKind::Drm).setText(1, 2, decimal(++edit));
        const bool kept = recovery->keep(saver->compose());
        state.PauseTiming();
        files.remove(folder + u"Recovery/Snapshot1");
        files.removeFolder(folder + u"Recovery");
        recovery.reset();
        saver.reset();
        state.ResumeTiming();
        if (!kept) {
            state.SkipWithError("cannot write the snapshot");
            break;
        }
    }
}

using Keep = void (*)(benchmark::State& state, Files& files, const std::u16string& folder);

void inFolder(benchmark::State& state, Keep keep) {
    const auto folder = std::filesystem::temp_directory_path() / ("halcyon-snapshot-" + std::to_string(::getpid()));
    std::filesystem::create_directory(folder);
    PosixFiles files;
    keep(state, files, folder.u16string() + u'/');
    std::filesystem::remove_all(folder);
}

void SnapshotOnDisk(benchmark::State& state) { inFolder(state, keepAfterEachEdit); }

void FirstEditOnDisk(benchmark::State& state) { inFolder(state, keepFirstEdit); }

void SnapshotInMemory(benchmark::State& state) {
    MemoryFiles files;
    keepAfterEachEdit(state, files, u"/");
}

constexpr int kMostRows = 32'767;

BENCHMARK(SnapshotInMemory)->Arg(kMaxRecords)->Arg(kMostRows)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(SnapshotOnDisk)->Arg(kMaxRecords)->Arg(kMostRows)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(FirstEditOnDisk)->Arg(kMaxRecords)->Arg(kMostRows)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
