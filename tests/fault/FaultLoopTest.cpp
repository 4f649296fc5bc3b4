// Runs the whole program on files whose n-th operation fails, for every n until a run meets no fault: only that one,
// all from there on, or one more later. After each run a program without faults starts on the files that are left.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "fakes/FakeFiles.h"
#include "fakes/Text.h"
#include "fault/FaultyFiles.h"
#include "fault/FaultyRun.h"
#include "fault/LongLists.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/ListFile.h"
#include "storage/text/Utf8.h"

namespace {

using Texts = FaultyRun::Programmes;

constexpr const char16_t* kList = u"/app/List.ini";
constexpr const char16_t* kUser = u"/app/User.ini";
constexpr const char16_t* kReceiverList = u"/rx/List.ini";
constexpr const char16_t* kReceiverUser = u"/rx/User.ini";

const std::string kEnd = "\r\n[kvt update end]\r\n";

std::string listFile(const std::string& programme) {
    return " \r\n[Total]\r\ndrmnumber=1\r\namnumber=1\r\nfmnumber=0\r\n[DRMSchedule0]\r\nFrequency=6095\r\nProgramme=" +
           programme +
           "\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=Europe\r\nUserDef=0\r\n[AMSchedule0]\r\nFrequency=198\r\n"
           "Programme=\xE4\xB8\xAD\r\nUserDef=0\r\n" +
           kEnd;
}

std::string userFile(const std::string& programme) {
    return " \r\n[Version]\r\nmajor=1\r\n[LAST]\r\nTYPE=DRM\r\nStation=21000\r\nname=ZORPA "
           "TEST\r\nIndex=1\r\n[Total]\r\n"
           "favnumber=1\r\n[FAVSchedule0]\r\nProgramme=" +
           programme + "\r\nFrequency=198\r\nTYPE=AM\r\nUserDef=0\r\n" + kEnd;
}

struct Scenario {
    const char* name;
    std::function<void(FaultyRun&)> run;
    bool closes;
    // What the next start may show; the first is what it shows if the run met no fault, the last if the run changed
    // nothing.
    std::vector<Texts> outcomes;
    // True if after a single fault only the first outcome is allowed.
    bool survivesOneFault;
};

const Texts kOld = {u"Old;", u"中;", u"", u"Favourite;"};
const Texts kEdited = {u"Edited;", u"中;", u"", u"Favourite;"};
const Texts kLoaded = {u"Receiver;", u"中;", u"", u"Other;"};
const Texts kSynced = {u"Synced;", u"中;", u"", u"Favourite;"};

const std::vector<Scenario>& scenarios() {
    static const std::vector<Scenario> all = {
        {"start", [](FaultyRun&) {}, false, {kOld}, true},
        {"start and close", [](FaultyRun& p) { p.close(); }, true, {kOld}, true},
        {"edit", [](FaultyRun& p) { p.edit(); }, false, {kEdited, kOld}, true},
        {"edit and close", [](FaultyRun& p) { p.edit(), p.close(); }, true, {kEdited, kOld}, true},
        {"save", [](FaultyRun& p) { p.edit(), p.choose(MenuItem::SaveToReceiver); }, false, {kEdited, kOld}, true},
        {"save and close",
         [](FaultyRun& p) { p.edit(), p.choose(MenuItem::SaveToReceiver), p.close(); },
         true,
         {kEdited, kOld},
         true},
        {"load", [](FaultyRun& p) { p.choose(MenuItem::LoadFromReceiver); }, false, {kLoaded, kOld}, false},
        {"load and close",
         [](FaultyRun& p) { p.choose(MenuItem::LoadFromReceiver), p.close(); },
         true,
         {kLoaded, kOld},
         false},
        {"sync", [](FaultyRun& p) { p.choose(MenuItem::SyncInternet); }, false, {kSynced, kOld}, false},
        {"sync and close",
         [](FaultyRun& p) { p.choose(MenuItem::SyncInternet), p.close(); },
         true,
         {kSynced, kOld},
         false},
    };
    return all;
}

FakeFiles soundDisk() {
    FakeFiles disk;
    disk.files = {{kList, listFile("Old")},
                  {kUser, userFile("Favourite")},
                  {kReceiverList, listFile("Receiver")},
                  {kReceiverUser, userFile("Other")}};
    return disk;
}

FakeFiles longDisk() {
    FakeFiles disk = soundDisk();
    for (const char16_t* const path : {kList, kReceiverList}) {
        LongLists::addTo(disk.files[path]);
    }
    return disk;
}

Scenario ofLongLists(Scenario scenario) {
    for (Texts& outcome : scenario.outcomes) {
        outcome[2] = LongLists::shown();
    }
    return scenario;
}

// An interrupted run leaves UTF-16 working copies and its snapshots.
FakeFiles diskOfAKilledRun() {
    FaultyRun killed(soundDisk(), {});
    return killed.disk();
}

FakeFiles diskOfAKilledRunWithAnEdit() {
    FaultyRun killed(soundDisk(), {});
    killed.edit();
    return killed.disk();
}

// The older of the snapshots cannot be read.
FakeFiles diskWithAnUnreadSnapshot() {
    FakeFiles disk = diskOfAKilledRunWithAnEdit();
    disk.unreadable = {u"/app/Recovery/Snapshot1"};
    return disk;
}

Scenario afterAnEdit(Scenario scenario) {
    std::replace(scenario.outcomes.begin(), scenario.outcomes.end(), kOld, kEdited);
    return scenario;
}

// True if the bytes begin as a list file, end with the end marker and contain every counted record.
bool isWhole(const std::string& bytes) {
    FakeCodePages codePages;
    const bool isUtf16 = bytes.starts_with("\xFF\xFE");
    const std::u16string text = isUtf16 ? decodeIni(bytes, codePages).text : fromUtf8(bytes);
    IniReader profile(text);
    const auto holds = [&](ListKind kind) {
        const bool announced = profile.get(ListFile::kTotal, ListFile::countKey(kind)) == u"1";
        return !announced || !profile.get(RecordSection(kind).of(0), ListFile::kUserDef).empty();
    };
    return text.starts_with(u" \r\n[") && text.ends_with(u"\r\n[kvt update end]\r\n") && holds(ListKind::Drm) &&
           holds(ListKind::Am) && holds(ListKind::Favourite);
}

bool noTemporaryFile(const FakeFiles& disk, std::u16string_view folder) {
    return std::none_of(disk.files.begin(), disk.files.end(), [&](const auto& file) {
        return file.first.starts_with(folder) && file.first.ends_with(u".K7N");
    });
}

auto snapshotsOn(const FakeFiles& disk) {
    return std::count_if(disk.files.begin(), disk.files.end(),
                         [](const auto& file) { return file.first.starts_with(u"/app/Recovery/"); });
}

class Loop : public testing::Test {
protected:
    static void SetUpTestSuite() { runsOfSuite = 0; }
    static void TearDownTestSuite() {
        const auto* const suite = testing::UnitTest::GetInstance()->current_test_suite();
        std::cout << suite->name() << ": " << runsOfSuite << " runs\n";
    }
    void TearDown() override {
        runsOfSuite += runs;
        EXPECT_GT(faults, 0) << "no operation was hit";
    }
    // False if the run ended before the plan's last fault.
    bool run(const Scenario& scenario, const FakeFiles& disk, const FaultPlan& plan) {
        ++runs;
        SCOPED_TRACE(std::string(scenario.name) + ": " + nameOf(plan.fault) + " at " + std::to_string(plan.first) +
                     (plan.forGood ? " for good" : "") + ", again after " + std::to_string(plan.second));
        FakeFiles left;
        bool reached = false;
        bool couldEdit = true;
        {
            FaultyRun process(disk, plan);
            scenario.run(process);
            left = process.disk();
            couldEdit = process.couldEdit();
            reached = plan.second > 0 ? process.files().secondFailed() : process.files().firstFailed();
        }
        faults += reached ? 1 : 0;
        const bool sound = !reached && plan.second == 0;
        const bool first = sound || (scenario.survivesOneFault && !plan.forGood && plan.second == 0);
        checkFiles(left);
        if (couldEdit) {
            checkRestart(scenario, left, first, sound);
        } else {
            Scenario unchanged = scenario;
            unchanged.outcomes = {scenario.outcomes.back()};
            checkRestart(unchanged, left, true, sound);
        }
        return reached;
    }

    // Cuts the power at the n-th operation. Files that were not flushed get the given fates; the others stay.
    bool cut(const Scenario& scenario, const FakeFiles& disk, int n, FakeFiles::Fate list, FakeFiles::Fate user) {
        ++runs;
        SCOPED_TRACE(std::string(scenario.name) + ": power cut at " + std::to_string(n) + ", fates " +
                     std::to_string(static_cast<int>(list)) + " and " + std::to_string(static_cast<int>(user)));
        FakeFiles left;
        bool reached = false;
        {
            FaultyRun process(disk, {DiskFault::InputOutput, n, 0, true});
            scenario.run(process);
            left = process.disk();
            reached = process.files().firstFailed();
        }
        faults += reached ? 1 : 0;
        left.cutPower([&](std::u16string_view path) { return path.starts_with(kUser) ? user : list; });
        checkRestart(scenario, left, !reached, false);
        return reached;
    }

    // Interrupts the run at the n-th operation; then another "List.ini" replaces the program's and "User.ini" is
    // removed.
    bool changedAfter(const Scenario& scenario, const FakeFiles& disk, int n) {
        ++runs;
        SCOPED_TRACE(std::string(scenario.name) + ": cut off at " + std::to_string(n) + ", then changed");
        FakeFiles left;
        bool reached = false;
        {
            FaultyRun process(disk, {DiskFault::InputOutput, n, 0, true});
            scenario.run(process);
            left = process.disk();
            reached = process.files().firstFailed();
        }
        faults += reached ? 1 : 0;
        left.files[kList] = listFile("Foreigner");
        left.files.erase(kUser);
        FaultyRun next(left, {});
        EXPECT_EQ(next.programmes(), (Texts{u"Foreigner;", u"中;", u"", u""}));
        next.close();
        EXPECT_EQ(next.disk().files[kList], listFile("Foreigner"));
        return reached;
    }

    static void checkFiles(const FakeFiles& left) {
        for (const char16_t* const path : {kList, kUser, kReceiverList, kReceiverUser}) {
            const auto found = left.files.find(path);
            ASSERT_NE(found, left.files.end()) << narrow(path) << " is gone";
            EXPECT_TRUE(isWhole(found->second)) << narrow(path) << ": " << found->second;
        }
    }

    static void checkRestart(const Scenario& scenario, const FakeFiles& left, bool first, bool sound) {
        FakeFiles afterwards;
        {
            FaultyRun next(left, {});
            const auto shown = next.programmes();
            const auto end = first ? scenario.outcomes.begin() + 1 : scenario.outcomes.end();
            EXPECT_NE(std::find(scenario.outcomes.begin(), end, shown), end)
                << narrow(shown[0]) << narrow(shown[1]) << narrow(shown[3]);
            if (sound && scenario.closes) {
                EXPECT_EQ(snapshotsOn(left), 1);
            }
            EXPECT_TRUE(noTemporaryFile(next.disk(), u"/app/"));
            next.choose(MenuItem::SaveToReceiver);
            EXPECT_EQ(next.disk().files[kReceiverList], next.disk().files[kList]);
            EXPECT_EQ(next.disk().files[kReceiverUser], next.disk().files[kUser]);
            next.close();
            afterwards = next.disk();
        }
        EXPECT_TRUE(noTemporaryFile(afterwards, u"/rx/"));
        EXPECT_EQ(snapshotsOn(afterwards), 1);
        for (const char16_t* const path : {kList, kUser, kReceiverList, kReceiverUser}) {
            EXPECT_TRUE(isWhole(afterwards.files[path]));
        }
    }

    inline static int runsOfSuite = 0;
    int runs = 0;
    int faults = 0;  // runs that met the last fault of their plan
};

class FaultLoopTest : public Loop, public testing::WithParamInterface<DiskFault> {};
class FaultLoopTestWrites : public Loop, public testing::WithParamInterface<DiskFault> {};
class FaultLoopTestPowerCut : public Loop {
protected:
    void cutEverywhere(const Scenario& scenario, const FakeFiles& disk) {
        using Fate = FakeFiles::Fate;
        for (const Fate list : {Fate::Old, Fate::New, Fate::Empty, Fate::Torn}) {
            for (const Fate user : {Fate::Old, Fate::New, Fate::Empty, Fate::Torn}) {
                for (int n = 1; cut(scenario, disk, n, list, user) && !HasFailure(); ++n) {
                }
            }
        }
    }
};

std::string nameOfTest(const testing::TestParamInfo<DiskFault>& kind) {
    std::string name = nameOf(kind.param);
    std::erase_if(name, [](char c) { return std::isalpha(static_cast<unsigned char>(c)) == 0; });
    return name;
}

}  // namespace

TEST_P(FaultLoopTest, EveryOperationFailsOnce) {
    for (const Scenario& scenario : scenarios()) {
        for (int n = 1; run(scenario, soundDisk(), {GetParam(), n, 0, false}) && !HasFailure(); ++n) {
        }
    }
}

TEST_P(FaultLoopTest, AChangeBehindASnapshotFails) {
    for (const Scenario& scenario : scenarios()) {
        const std::string name = scenario.name;
        if (!name.starts_with("edit") && !name.starts_with("save")) {
            continue;
        }
        FaultyRun sound(longDisk(), {});
        scenario.run(sound);
        EXPECT_TRUE(LongLists::changeWasAppended(sound.disk()));
        for (const bool forGood : {false, true}) {
            for (int n = 1; run(ofLongLists(scenario), longDisk(), {GetParam(), n, 0, forGood}) && !HasFailure(); ++n) {
            }
        }
    }
}

TEST_P(FaultLoopTest, AllFromAnyOperationOnFail) {
    for (const Scenario& scenario : scenarios()) {
        for (int n = 1; run(scenario, soundDisk(), {GetParam(), n, 0, true}) && !HasFailure(); ++n) {
        }
    }
}

TEST_P(FaultLoopTest, OneFailsInAStartAfterAKilledRun) {
    for (const bool forGood : {false, true}) {
        for (const Scenario& scenario : scenarios()) {
            for (int n = 1; run(scenario, diskOfAKilledRun(), {GetParam(), n, 0, forGood}) && !HasFailure(); ++n) {
            }
        }
    }
}

// If the other snapshot cannot be read either, the edit is lost.
TEST_P(FaultLoopTestWrites, OneFailsBesideAnUnreadSnapshot) {
    for (const bool forGood : {false, true}) {
        for (const Scenario& scenario : scenarios()) {
            const FakeFiles disk = diskWithAnUnreadSnapshot();
            for (int n = 1; run(afterAnEdit(scenario), disk, {GetParam(), n, 0, forGood}) && !HasFailure(); ++n) {
            }
        }
    }
}

TEST_P(FaultLoopTest, ASecondOneFailsDuringTheRecoveryFromTheFirst) {
    constexpr int kRecoveryOperations = 12;
    for (const Scenario& scenario : scenarios()) {
        for (int second = 1; second <= kRecoveryOperations; ++second) {
            for (int n = 1; run(scenario, soundDisk(), {GetParam(), n, second, false}) && !HasFailure(); ++n) {
            }
        }
    }
}

TEST_F(FaultLoopTestPowerCut, AFileChangedAfterwardsCounts) {
    for (const FakeFiles& disk : {soundDisk(), diskOfAKilledRun()}) {
        for (const Scenario& scenario : scenarios()) {
            for (int n = 1; changedAfter(scenario, disk, n) && !HasFailure(); ++n) {
            }
        }
    }
}

TEST_F(FaultLoopTestPowerCut, AtEveryOperation) {
    for (const FakeFiles& disk : {soundDisk(), diskOfAKilledRun()}) {
        for (const Scenario& scenario : scenarios()) {
            cutEverywhere(scenario, disk);
        }
    }
}

TEST_F(FaultLoopTestPowerCut, AtEveryOperationAfterAKilledRunWithAnEdit) {
    for (const FakeFiles& disk : {diskOfAKilledRunWithAnEdit(), diskWithAnUnreadSnapshot()}) {
        for (const Scenario& scenario : scenarios()) {
            cutEverywhere(afterAnEdit(scenario), disk);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, FaultLoopTest, testing::ValuesIn(kFaults), nameOfTest);
INSTANTIATE_TEST_SUITE_P(Kinds, FaultLoopTestWrites,
                         testing::Values(DiskFault::NoSpace, DiskFault::ReadOnly, DiskFault::ShortWrite,
                                         DiskFault::FailedFlush, DiskFault::FailedClose, DiskFault::FailedRename),
                         nameOfTest);
