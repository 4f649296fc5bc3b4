// The commands that change the lists on files whose n-th operation fails, for every n until a run meets no fault: once,
// or for good as if the process were killed or the power were cut there. Afterwards a sound process reads what is left.
#include <gtest/gtest.h>

#include <iostream>

#include "ctl/CtlProgram.h"
#include "fakes/FakePlatform.h"
#include "fakes/Text.h"
#include "fault/FaultyFiles.h"
#include "shell/MainForm.h"
#include "storage/recovery/Recovery.h"

namespace {

constexpr int kDone = 0;
constexpr int kFile = 3;
constexpr const char16_t* kPaths[] = {u"/app/List.ini", u"/app/User.ini", u"/disk/List.ini", u"/disk/User.ini"};

std::string listFile(const std::string& programme) {
    return "\xEF\xBB\xBF \r\n[Total]\r\ndrmnumber=1\r\namnumber=0\r\nfmnumber=0\r\n[DRMSchedule0]\r\nFrequency=6095\r\n"
           "Programme=" +
           programme + "\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=Europe\r\nUserDef=0\r\n\r\n[kvt update end]\r\n";
}

std::string userFile(const std::string& programme) {
    return "\xEF\xBB\xBF \r\n[Version]\r\nmajor=1\r\n[Total]\r\nfavnumber=1\r\n[FAVSchedule0]\r\nProgramme=" +
           programme + "\r\nFrequency=198\r\nTYPE=AM\r\nUserDef=0\r\n\r\n[kvt update end]\r\n";
}

FakeFiles soundDisk() {
    FakeFiles disk;
    disk.files = {{kPaths[0], listFile("Old")},
                  {kPaths[1], userFile("Favourite")},
                  {kPaths[2], listFile("Receiver")},
                  {kPaths[3], userFile("Other")},
                  {u"/app/Backup/List-20260101T000000Z.ini", listFile("Backup")},
                  {u"/app/Backup/User-20260101T000000Z.ini", userFile("Backup")},
                  {u"/home/new.csv",
                   "list,programme,frequency_khz,start_utc,stop_utc,target,system\n"
                   "drm,Csv,7000,07:00,08:00,Asia,\nfav,Csv,198,,,,AM\n"},
                  {u"/home/nine.txt",
                   "[DRMSchedule]\nStartStopTimeUTC=0600-0730\nDays=1\nFrequency=7000\nTarget=Asia\nPower=1\n"
                   "Programme=Nine\nLanguage=E\nSite=S\nCountry=C\n"}};
    return disk;
}

// A killed run of the window has lists in its snapshot that the files do not have yet.
FakeFiles diskWithSnapshot() {
    FakeFiles disk = soundDisk();
    Recovery recovery(u"/app/", disk);
    recovery.mayLeave(ListFileId::List, FileState::of(disk.files[kPaths[0]]));
    recovery.mayLeave(ListFileId::User, FileState::of(disk.files[kPaths[1]]));
    recovery.keep({listFile("Unsaved"), userFile("Unsaved")});
    return disk;
}

struct Command {
    const char* name;
    std::vector<std::string> words;
};

const Command kCommands[] = {
    {"import", {"import", "new.csv"}},
    {"import --replace", {"import", "new.csv", "--replace"}},
    {"schedule merge", {"schedule", "merge", "nine.txt"}},
    {"schedule replace", {"schedule", "replace", "nine.txt"}},
    {"backup restore", {"backup", "restore", "20260101T000000Z"}},
    {"receiver load", {"receiver", "load"}},
    {"receiver save", {"receiver", "save"}},
};

struct Outcome {
    Outcome(const FakeFiles& disk, const Command& command, const FaultPlan& plan) {
        CtlProgram program;
        program.folder = u"/app/";
        program.files = disk;
        program.volumes.volumes = {{u"/disk/", DiskGeometry{1, 1024, 999}}};
        FaultyFiles faulty(program.files);
        faulty.plan(plan);
        exit = program.run(command.words, faulty);
        out = program.console.out;
        errors = program.console.errors;
        reached = faulty.firstFailed();
        left = program.files;
    }

    int exit = kDone;
    std::string out;
    std::string errors;
    bool reached = false;
    FakeFiles left;
};

// The programmes of the DRM list and the favourites as a sound start of the window shows them.
std::u16string shownByWindow(const FakeFiles& disk) {
    FakePlatform platform;
    platform.files = disk;
    platform.connectReceiver(u"/disk/");
    std::u16string shown;
    {
        MainForm form(platform.bundle);
        form.Form_Load();
        for (const int tab : {0, 3}) {
            for (int row = 1; row <= platform.rows(tab).rowCount(); ++row) {
                shown += std::u16string(platform.rows(tab).text(row, 1)) + u';';
            }
        }
        platform.mainWindow.close();
    }
    for (const auto& [path, bytes] : platform.files.files) {
        EXPECT_FALSE(path.starts_with(u"/app/") && path.ends_with(u".K7N")) << narrow(path);
    }
    return shown;
}

std::string shownByProgram(const FakeFiles& disk) {
    const Outcome run(disk, {"export", {"export"}}, {});
    EXPECT_EQ(run.exit, kDone) << run.errors;
    return run.out;
}

struct Shown {
    std::u16string byWindow;
    std::string byProgram;

    friend bool operator==(const Shown&, const Shown&) = default;
};

Shown shownAfter(const FakeFiles& disk) { return {shownByWindow(disk), shownByProgram(disk)}; }

// Both files of the receiver.
std::pair<std::string, std::string> receiverOf(FakeFiles disk) {
    return {disk.files[kPaths[2]], disk.files[kPaths[3]]};
}

class CtlLoop : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_GT(faults_, 0) << "no operation was hit";
        std::cout << runs_ << " runs, " << faults_ << " with a fault\n";
    }

    void loop(const FakeFiles& disk, DiskFault fault, bool forGood) {
        for (const Command& command : kCommands) {
            const Outcome sound(disk, command, {});
            ASSERT_EQ(sound.exit, kDone) << command.name << ": " << sound.errors;
            old_ = shownAfter(disk);
            new_ = shownAfter(sound.left);
            for (int n = 1; check(disk, command, sound.left, {fault, n, 0, forGood}) && !HasFailure(); ++n) {
            }
        }
    }

    // Cuts the power at every operation. Files that were not flushed get the given fates; the others stay.
    void cutPower(const FakeFiles& disk, FakeFiles::Fate list, FakeFiles::Fate user) {
        for (const Command& command : kCommands) {
            const Outcome sound(disk, command, {});
            old_ = shownAfter(disk);
            new_ = shownAfter(sound.left);
            for (int n = 1; cut(disk, command, sound.left, n, list, user) && !HasFailure(); ++n) {
            }
        }
    }

private:
    // False: the run met no fault.
    bool check(const FakeFiles& disk, const Command& command, const FakeFiles& done, const FaultPlan& plan) {
        SCOPED_TRACE(std::string(command.name) + ": " + nameOf(plan.fault) + " at " + std::to_string(plan.first) +
                     (plan.forGood ? " for good" : ""));
        const Outcome run(disk, command, plan);
        ++runs_;
        faults_ += run.reached ? 1 : 0;
        EXPECT_TRUE(run.exit == kDone || run.exit == kFile) << run.exit;
        EXPECT_EQ(run.errors.empty(), run.exit == kDone) << run.errors;
        if (run.exit == kFile) {
            EXPECT_TRUE(run.errors.starts_with("halcyon_k7ctl: /")) << run.errors;
        }
        checkFiles(disk, done, run.left);
        checkLists(disk, done, run, plan.forGood);
        return run.reached;
    }

    bool cut(const FakeFiles& disk, const Command& command, const FakeFiles& done, int n, FakeFiles::Fate list,
             FakeFiles::Fate user) {
        SCOPED_TRACE(std::string(command.name) + ": power cut at " + std::to_string(n) + ", fates " +
                     std::to_string(static_cast<int>(list)) + " and " + std::to_string(static_cast<int>(user)));
        Outcome run(disk, command, {DiskFault::InputOutput, n, 0, true});
        ++runs_;
        faults_ += run.reached ? 1 : 0;
        run.left.cutPower([&](std::u16string_view path) { return path.find(u"User") != path.npos ? user : list; });
        checkFiles(disk, done, run.left);
        checkLists(disk, done, run, true);
        return run.reached;
    }

    // Each file is the old one or the new one, to the byte.
    static void checkFiles(FakeFiles before, FakeFiles done, const FakeFiles& left) {
        for (const char16_t* const path : kPaths) {
            const auto found = left.files.find(path);
            ASSERT_NE(found, left.files.end()) << narrow(path) << " is gone";
            EXPECT_TRUE(found->second == before.files[path] || found->second == done.files[path])
                << narrow(path) << ": " << found->second;
        }
        for (const auto& [path, bytes] : before.files) {
            EXPECT_TRUE(!path.starts_with(u"/app/Backup/") || left.files.contains(path)) << narrow(path) << " is gone";
        }
    }

    // A command that reports success has changed the lists. One that fails has changed nothing, unless its process was
    // killed before it could undo its first steps; the lists are then old or new.
    void checkLists(const FakeFiles& before, const FakeFiles& done, const Outcome& run, bool isKilled) const {
        const Shown shown = shownAfter(run.left);
        const bool isDone = run.exit == kDone;
        EXPECT_TRUE(shown == (isDone ? new_ : old_) || (isKilled && !isDone && shown == new_))
            << narrow(shown.byWindow) << shown.byProgram;
        const auto receiver = receiverOf(run.left);
        if (isDone) {
            EXPECT_EQ(receiver, receiverOf(done));
        } else if (!isKilled) {
            EXPECT_EQ(receiver, receiverOf(before));
        }
    }

    Shown old_;
    Shown new_;
    int runs_ = 0;
    int faults_ = 0;
};

class CtlFaultLoopTest : public CtlLoop, public testing::WithParamInterface<DiskFault> {};
class CtlFaultLoopTestPowerCut : public CtlLoop {};

}  // namespace

TEST_P(CtlFaultLoopTest, EveryOperationFailsOnce) { loop(soundDisk(), GetParam(), false); }

TEST_P(CtlFaultLoopTest, EveryOperationAndAllAfterItFail) { loop(soundDisk(), GetParam(), true); }

TEST_P(CtlFaultLoopTest, EveryOperationFailsOnceAfterAKilledRunOfTheWindow) {
    loop(diskWithSnapshot(), GetParam(), false);
}

TEST_P(CtlFaultLoopTest, EveryOperationAndAllAfterItFailAfterAKilledRunOfTheWindow) {
    loop(diskWithSnapshot(), GetParam(), true);
}

TEST_F(CtlFaultLoopTestPowerCut, AtEveryOperation) {
    using Fate = FakeFiles::Fate;
    for (const FakeFiles& disk : {soundDisk(), diskWithSnapshot()}) {
        for (const Fate list : {Fate::Old, Fate::New, Fate::Empty, Fate::Torn}) {
            for (const Fate user : {Fate::Old, Fate::New, Fate::Empty, Fate::Torn}) {
                cutPower(disk, list, user);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, CtlFaultLoopTest, testing::ValuesIn(kFaults), [](const auto& kind) {
    std::string name = nameOf(kind.param);
    std::erase_if(name, [](char c) { return std::isalpha(static_cast<unsigned char>(c)) == 0; });
    return name;
});
