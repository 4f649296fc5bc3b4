// Loads and saves four lists with as many records as the argument says. The receiver has 256.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <string>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeGridView.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "storage/stations/RowStore.h"
#include "storage/text/Numbers.h"

namespace {

struct Program {
    explicit Program(int records) {
        createWorkingCopy(copies.ListFilePath, files, codePages);
        createWorkingCopy(copies.UserFilePath, files, codePages);
        for (int i = 0; i < records; ++i) {
            const std::u16string name = u"Radio Example " + decimal(i);
            drm.appendRow({name, decimal(5900 + i % 20000), u"06:00-07:30", u"Western Europe"});
            am.appendRow({name, decimal(531 + 9 * (i % 120)), u"MW"});
            fm.appendRow({name, shortestDecimal((64000 + 50 * (i % 880)) / 1000.0), u"VHF"});
            favourites.appendRow({name, decimal(5900 + i % 20000) + u"  kHz", u"DRM"});
        }
        saver.SaveLists();
        saved = files.files;
    }
    void convert() {
        convertWorkingCopy(copies.ListFilePath, files);
        convertWorkingCopy(copies.UserFilePath, files);
    }
    void clear() {
        for (RowStore* grid : {&drm, &am, &fm, &favourites}) {
            grid->clear();
        }
    }
    void load() {
        loader.LoadDrmList(false);
        loader.LoadAmList(false);
        loader.LoadFmList(false);
        loader.LoadFavList(false);
    }
    std::int64_t bytes() const {
        std::size_t total = 0;
        for (const auto& [path, content] : files.files) {
            total += content.size();
        }
        return static_cast<std::int64_t>(total);
    }

    FakeFiles files;
    FakeCodePages codePages;
    FakeGridView views[kListCount];
    RowStore drm, am, fm, favourites;
    StationLists lists{{StationList{ListKind::Drm, drm, views[0]}, StationList{ListKind::Am, am, views[1]},
                        StationList{ListKind::Fm, fm, views[2]},
                        StationList{ListKind::Favourite, favourites, views[3]}}};
    WorkingCopies copies{u"/List.ini", u"/User.ini"};
    ReceiverSettings settings;
    ListLoader loader{lists, copies, settings, files, codePages};
    ListSaver saver{lists, copies, settings, files, codePages};
    std::map<std::u16string, std::string> saved;  // both files as saved, in UTF-8
};

void report(benchmark::State& state, const Program& program) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * program.bytes());
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0) * kListCount);
}

// Loads both working copies, in the encoding of a running program, into empty grids.
void Load(benchmark::State& state) {
    Program program(static_cast<int>(state.range(0)));
    program.convert();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        program.clear();
        program.files.accesses.clear();
        state.ResumeTiming();
        program.load();
    }
    report(state, program);
}

// Parses "List.ini" only, from memory.
void Parse(benchmark::State& state) {
    Program program(static_cast<int>(state.range(0)));
    program.convert();
    const IniText file = decodeIni(program.files.files[program.copies.ListFilePath], program.codePages);
    for ([[maybe_unused]] auto _ : state) {
        IniReader profile(file.text);
        benchmark::DoNotOptimize(profile.get(u"Total", u"drmnumber"));
    }
}

// As at the start of the program: from the UTF-8 of the last save.
void ConvertAndLoad(benchmark::State& state) {
    Program program(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        program.clear();
        program.files.files = program.saved;
        program.files.accesses.clear();
        state.ResumeTiming();
        program.convert();
        program.load();
    }
    report(state, program);
}

void Save(benchmark::State& state) {
    Program program(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        program.files.accesses.clear();
        program.saver.SaveLists();
    }
    report(state, program);
}

BENCHMARK(Load)->Arg(256)->Arg(8192)->Unit(benchmark::kMicrosecond);
BENCHMARK(Parse)->Arg(256)->Arg(8192)->Unit(benchmark::kMicrosecond);
BENCHMARK(ConvertAndLoad)->Arg(256)->Arg(8192)->Unit(benchmark::kMicrosecond);
BENCHMARK(Save)->Arg(256)->Arg(8192)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
