// Power cuts and failing devices on real file systems: a user-mode kernel runs the cases on a device that records its
// requests; every medium that a cut may leave is read as it is and after a check of the file system.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

#include "fakes/FakeFiles.h"
#include "fakes/ForwardingFiles.h"
#include "fakes/Text.h"
#include "fat/Cases.h"
#include "fat/Contents.h"
#include "fat/KillTest.h"
#include "fat/Medium.h"
#include "fat/Program.h"
#include "fat/StateTable.h"
#include "fat/States.h"

namespace {

Settings settings;

constexpr std::u16string_view kFolder = u"/app/";

// Files of which some can be read in part only.
class DamagedFiles : public ForwardingFiles {
public:
    DamagedFiles(Files& files, const Tree& tree) : ForwardingFiles(files), tree_(tree) {}
    FileRead read(std::u16string_view path) override {
        const auto found = tree_.find(std::u16string(path.substr(std::min(kFolder.size(), path.size()))));
        FileRead read = ForwardingFiles::read(path);
        return read.bytes || read.isMissing || found == tree_.end() ? read : found->second;
    }

private:
    const Tree& tree_;
};

// What the next start shows with these files in the program folder.
std::u16string shownBy(const Tree& tree) {
    FakeFiles files;
    for (const auto& [path, read] : tree) {
        const std::u16string name = std::u16string(kFolder) + path;
        files.files[name] = read.bytes.value_or("");
        if (!read.bytes) {
            files.unreadable.insert(name);
        }
        const std::size_t slash = path.find(u'/');
        if (slash != path.npos) {
            files.folders.insert(std::u16string(kFolder) + path.substr(0, slash));
        }
    }
    DamagedFiles damaged(files, tree);
    return Program(damaged, std::u16string(kFolder)).programmes();
}

// returned: the number of operations that have returned.
bool isWhole(const Case& one, const Tree& tree, int returned) {
    if (one.operation == "folder") {
        const std::u16string shown = shownBy(tree);
        const auto shows = [&](int edits) {
            const std::size_t last = std::min<std::size_t>(static_cast<std::size_t>(edits), kProgrammes.size() - 1);
            return shown == std::u16string(kProgrammes[last]) + u";Favourite;";
        };
        return shows(returned) || shows(returned + 1);
    }
    const auto holds = [&](const char16_t* name, const std::string& oldBytes, const std::string& newBytes) {
        const auto found = tree.find(name);
        if (found == tree.end()) {
            return returned == 0 && one.operation == "first";
        }
        const std::optional<std::string>& bytes = found->second.bytes;
        return bytes == newBytes || (returned == 0 && one.operation != "first" && bytes == oldBytes);
    };
    const bool list = holds(u"List.ini", kOldList, kNewList);
    const bool user = holds(u"User.ini", kOldUser, kNewUser);
    // Without room for second copies, or for their names, the files are overwritten in place, one by one; a cut may
    // tear one of them.
    if (one.operation == "crowded0" && returned == 0) {
        return list || user;
    }
    if (one.operation == "full" && returned == 0) {
        const auto other = tree.find(u"FILLER");
        return (list || user) && other != tree.end() && other->second.bytes &&
               other->second.bytes->find_first_not_of('f') == std::string::npos;
    }
    return list && user;
}

// The rename of a first save writes the new name and removes the temporary one, in two sectors at some positions. If
// the cut comes between them, both names lead to one file. It is whole, but fsck.fat empties the second name. The state
// counts as broken; no order of operations on a FAT avoids it without leaving an empty file for longer.
bool isEmptiedByCheck(const Case& one, const Tree& tree, int returned) {
    const auto holds = [&](const char16_t* name, const std::string& bytes) {
        const auto found = tree.find(name);
        return found != tree.end() && found->second.bytes == bytes;
    };
    const auto isKept = [&](const char16_t* name, const char16_t* temporary, const std::string& bytes) {
        return !tree.contains(name) || holds(name, bytes) || (holds(name, "") && holds(temporary, bytes));
    };
    return one.operation == "first" && returned == 0 && isKept(u"List.ini", u"LIST.K7N", kNewList) &&
           isKept(u"User.ini", u"USER.K7N", kNewUser);
}

bool areSame(const Tree& left, const Tree& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](const auto& one, const auto& other) {
        return one.first == other.first && one.second.bytes == other.second.bytes &&
               one.second.part == other.second.part;
    });
}

std::string described(const Tree& tree) {
    std::string text;
    for (const auto& [path, read] : tree) {
        const std::string size = std::to_string(read.bytes ? read.bytes->size() : read.part.size());
        text += narrow(path) + ": " + size + (read.bytes ? "; " : " of an unreadable file; ");
    }
    return text;
}

StateTable table;

class FatTest : public testing::TestWithParam<Case> {
protected:
    static void SetUpTestSuite() {
        work = std::make_unique<WorkFolder>();
        const auto cases = allCases(settings);
        std::ofstream list(work->at("cases"));
        for (const Case& one : cases) {
            list << one.name() << ' ' << one.image << ' ' << one.fileSystem << ' ' << one.options << ' '
                 << one.operation << ' ' << one.fillers << ' ' << one.fault << '\n';
        }
        list.close();
        ASSERT_TRUE(makeImages(*work)) << "needs mkfs.fat and mke2fs";
        succeeds("cd " + work->path() + " && HOME=" + work->path() + " timeout " + std::to_string(settings.seconds) +
                 " linux.uml mem=256M root=/dev/root rootfstype=hostfs rootflags=/ rw init=" + settings.recorder +
                 " HALCYON_WORK=" + work->path() + " con=null quiet");
        std::ifstream lines(work->at("results"));
        std::string line;
        while (std::getline(lines, line)) {
            results.push_back(line);
        }
        ASSERT_FALSE(results.empty()) << "needs linux.uml";
        ASSERT_EQ(results.back(), "end");
    }
    static void TearDownTestSuite() {
        const std::string text = tableOf(table);
        std::cout << text;
        if (!settings.table.empty()) {
            std::ofstream(settings.table) << text;
        }
        if (!settings.page.empty()) {
            EXPECT_TRUE(putOnPage(settings.page, settings.thorough ? Loop::Soak : Loop::Test, table));
        }
        work.reset();
    }

    void check(const Case& one, const std::string& medium, int returned) const {
        StateRow& row = table[one.rowName()];
        ++row.states;
        const Medium checker(*work);
        const bool isFat = one.fileSystem == "vfat";
        const Tree found = isFat ? Medium::rawFat(medium) : checker.checkedExt(medium);
        const Tree checked = isFat ? checker.checkedFat(medium) : found;
        const bool raw = isWhole(one, found, returned);
        const bool afterwards = areSame(found, checked) ? raw : isWhole(one, checked, returned);
        row.brokenRaw += raw ? 0 : 1;
        row.brokenChecked += afterwards ? 0 : 1;
        EXPECT_TRUE(raw && (afterwards || isEmptiedByCheck(one, checked, returned)))
            << described(found) << "\nafter a check " << described(checked);
    }

    static std::unique_ptr<WorkFolder> work;
    static std::vector<std::string> results;
};

std::unique_ptr<WorkFolder> FatTest::work;
std::vector<std::string> FatTest::results;

}  // namespace

TEST_P(FatTest, LeavesWholeFiles) {
    const Case& one = GetParam();
    const StateRow before = table[one.rowName()];
    int runs = 0;
    for (const std::string& line : results) {
        std::istringstream words(line);
        std::string name;
        std::string end;
        std::string below;
        words >> name >> end >> below;
        if (name != one.name() && !name.starts_with(one.name() + "-")) {
            continue;
        }
        ++runs;
        SCOPED_TRACE(line);
        BlockLog log;
        ASSERT_TRUE(readLog(work->at(name + ".log"), log)) << line;
        EXPECT_NE(below, "below") << line << ": files in the folder under the mount point";
        if (one.fault == "none") {
            EXPECT_EQ(end, "saved");
            eachState(log, [&](const std::string& medium, int returned) { check(one, medium, returned); });
        } else {
            check(one, log.before, end == "saved" ? 1 : 0);
        }
    }
    EXPECT_GT(runs, 0);
    const StateRow& after = table[one.rowName()];
    EXPECT_GT(after.states, before.states);
    EXPECT_EQ(after.brokenRaw, before.brokenRaw);
}

TEST(FatTestKill, AKilledKernelLeavesWholeFiles) { expectWholeFilesAfterKills(settings.recorder, settings.kills); }

TEST(FatTestPage, NamesEveryCase) {
    const StateTable shown = tableOnPage(HALCYON_PAGE, Loop::Test);
    for (const Case& one : allCases(Settings())) {
        EXPECT_TRUE(shown.contains(one.rowName())) << one.rowName();
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, FatTest, testing::ValuesIn(allCases(settings)), [](const auto& one) {
    std::string name = one.param.name();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

int main(int argc, char** argv) {
    settings = settingsOf(std::vector<std::string>(argv + 1, argv + argc));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
