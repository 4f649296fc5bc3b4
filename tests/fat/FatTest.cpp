// Power cuts and failing devices on real file systems: a user-mode kernel runs the cases on a device that records its
// requests; every medium that a cut may leave is read as it is and after a check of the file system.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <sstream>

#include "fakes/FakeFiles.h"
#include "fakes/Text.h"
#include "fat/Contents.h"
#include "fat/FatImage.h"
#include "fat/Program.h"
#include "fat/States.h"

namespace {

struct Settings {
    std::string recorder;  // the program that the kernel runs
    std::string table;     // the file for the table
    bool thorough = false;
};
Settings settings;

constexpr const char* kDesktop = "uid=1000,gid=1000,shortname=mixed,utf8=1,showexec,flush";

// Exit status of a command, whose output is dropped.
int statusOf(const std::string& command) {
    const int status = std::system((command + " >/dev/null 2>&1").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool succeeds(const std::string& command) { return statusOf("{ " + command + "; }") == 0; }

// 0: the file system was sound; 1: it was repaired.
bool isSoundAfter(const std::string& check) {
    const int status = statusOf("exec " + check);
    return status == 0 || status == 1;
}

class WorkFolder {
public:
    WorkFolder() {
        std::string name = std::filesystem::temp_directory_path().string() + "/halcyon-fat-XXXXXX";
        path_ = ::mkdtemp(name.data());
    }
    ~WorkFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    std::string at(const std::string& name) const { return path_ + "/" + name; }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

struct Case {
    std::string fileSystem;
    std::string image;
    std::string options;
    std::string operation;
    int fillers = 0;
    std::string fault = "none";

    std::string name() const {
        return image + "-" + (options == "default" ? "default" : "desktop") + "-" + operation + "-" +
               std::to_string(fillers) + "-" + fault;
    }
};

std::vector<Case> allCases() {
    std::vector<Case> cases;
    const std::vector<int> few{11};  // the names that a save writes cross a sector then
    std::vector<int> many(16);
    for (int i = 0; i < 16; ++i) {
        many[static_cast<std::size_t>(i)] = i;
    }
    std::vector<std::string> images{"fat1024"};
    if (settings.thorough) {
        images.insert(images.end(), {"fat512", "fat1024one"});
    }
    for (const std::string& image : images) {
        for (const std::string& options : {std::string("default"), std::string(kDesktop)}) {
            for (const char* const operation : {"replace", "first", "full", "folder"}) {
                const bool isQuick = operation != std::string_view("full") &&
                                     (options == "default" || operation == std::string_view("replace"));
                for (const int fillers : settings.thorough ? many : isQuick ? few : std::vector<int>()) {
                    cases.push_back({"vfat", image, options, operation, fillers});
                }
            }
            if (!settings.thorough && options != "default") {
                continue;
            }
            for (const char* const fault :
                 {"write-once", "write-for-good", "flush-once", "flush-for-good", "cut", "read-only"}) {
                cases.push_back({"vfat", image, options, "replace", 0, fault});
            }
            if (settings.thorough) {
                cases.push_back({"vfat", image, options, "replace", 0, "unmounted"});  // no promise yet
            }
        }
    }
    for (const char* const fileSystem : settings.thorough ? std::vector{"ext2", "ext4"} : std::vector<const char*>()) {
        for (const char* const operation : {"replace", "first", "folder"}) {
            cases.push_back({fileSystem, fileSystem, "default", operation, 0});
        }
    }
    return cases;
}

bool makeImages(const WorkFolder& work) {
    const auto fat = [&](const char* name, const char* options) {
        const std::string file = work.at(name);
        return succeeds("truncate -s 1042944 " + file + " && mkfs.fat -a -F 12 -S 512 -r 512 -R 1 " + options + " " +
                        file);
    };
    const auto ext = [&](const std::string& kind, const char* size) {
        const std::string file = work.at(kind);
        return succeeds("truncate -s " + std::string(size) + " " + file + " && mke2fs -F -t " + kind +
                        " -b 1024 -N 32 -m 0 " + file);
    };
    return fat("fat1024", "-s 2 -f 2") && fat("fat512", "-s 1 -f 2") && fat("fat1024one", "-s 2 -f 1") &&
           ext("ext2", "1022976") && ext("ext4", "4M");
}

// The files of a file system by path; nullopt: the file cannot be read.
using Tree = FatImage::Tree;

class Volume {
public:
    explicit Volume(const WorkFolder& work) : file_(work.at("state")) {}

    static Tree raw(const std::string& medium) { return FatImage(medium).files(); }
    Tree checkedFat(const std::string& medium) {
        put(medium);
        return isSoundAfter("fsck.fat -a " + file_) ? FatImage(get()).files() : Tree();
    }
    Tree checkedExt(const std::string& medium) {
        put(medium);
        if (!isSoundAfter("e2fsck -fy " + file_)) {
            return {};
        }
        const std::string copies = file_ + ".files";
        std::filesystem::remove_all(copies);
        std::filesystem::create_directory(copies);
        statusOf("exec debugfs -R 'rdump / " + copies + "' " + file_);
        Tree tree;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(copies)) {
            if (entry.is_regular_file()) {
                tree[std::filesystem::relative(entry.path(), copies).u16string()] = contentOf(entry.path());
            }
        }
        return tree;
    }
    static std::string contentOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    void put(const std::string& medium) const {
        std::ofstream(file_, std::ios::binary).write(medium.data(), static_cast<std::streamsize>(medium.size()));
    }
    std::string get() const { return contentOf(file_); }

    std::string file_;
};

// What the next start shows with these files of a program folder.
std::u16string shownBy(const Tree& tree) {
    FakeFiles files;
    for (const auto& [path, bytes] : tree) {
        const std::u16string name = u"/app/" + path;
        files.files[name] = bytes.value_or("");
        if (!bytes) {
            files.unreadable.insert(name);
        }
        const std::size_t slash = path.find(u'/');
        if (slash != path.npos) {
            files.folders.insert(u"/app/" + path.substr(0, slash));
        }
    }
    return Program(files, u"/app/").programmes();
}

// returned: the number of operations that have returned.
bool isWhole(const Case& one, const Tree& tree, int returned) {
    if (one.operation == "folder") {
        const std::u16string shown = shownBy(tree);
        return shown == u"Edited;Favourite;" || (returned == 0 && shown == u"Old;Favourite;");
    }
    const auto holds = [&](const char16_t* name, const std::string& oldBytes, const std::string& newBytes) {
        const auto found = tree.find(name);
        if (found == tree.end()) {
            return returned == 0 && one.operation == "first";
        }
        return found->second == newBytes || (returned == 0 && one.operation != "first" && found->second == oldBytes);
    };
    // Without space for a second copy the list is overwritten in place, and a cut may tear it.
    const bool mayTear = one.operation == "full" && returned == 0;
    return (mayTear || holds(u"List.ini", kOldList, kNewList)) && holds(u"User.ini", kOldUser, kNewUser);
}

std::string described(const Tree& tree) {
    std::string text;
    for (const auto& [path, bytes] : tree) {
        text += narrow(path) + (bytes ? ": " + std::to_string(bytes->size()) : ": unreadable") + "; ";
    }
    return text;
}

struct Row {
    int states = 0;
    int brokenRaw = 0;
    int brokenChecked = 0;
};
std::map<std::string, Row> table;

std::string rowName(const Case& one) {
    const char* const options = one.fileSystem != "vfat" ? "default" : one.options == "default" ? "default" : "desktop";
    const std::string fault = one.fault == "none" ? "power cut" : one.fault;
    return one.image + " | " + options + " | " + one.operation + " | " + fault;
}

class FatTest : public testing::TestWithParam<Case> {
protected:
    static void SetUpTestSuite() {
        work = std::make_unique<WorkFolder>();
        const auto cases = allCases();
        std::ofstream list(work->at("cases"));
        for (const Case& one : cases) {
            list << one.name() << ' ' << one.image << ' ' << one.fileSystem << ' ' << one.options << ' '
                 << one.operation << ' ' << one.fillers << ' ' << one.fault << '\n';
        }
        list.close();
        ASSERT_TRUE(makeImages(*work)) << "needs mkfs.fat and mke2fs";
        succeeds("cd " + work->path() + " && HOME=" + work->path() +
                 " timeout 900 linux.uml mem=256M root=/dev/root rootfstype=hostfs rootflags=/ rw init=" +
                 settings.recorder + " HALCYON_WORK=" + work->path() + " con=null quiet");
        std::ifstream lines(work->at("results"));
        std::string line;
        while (std::getline(lines, line)) {
            results.push_back(line);
        }
        ASSERT_FALSE(results.empty()) << "needs linux.uml";
        ASSERT_EQ(results.back(), "end");
    }
    static void TearDownTestSuite() {
        std::ostringstream text;
        text << "| volume | options | case | fault | states | broken as found | broken after a check |\n"
             << "|---|---|---|---|---:|---:|---:|\n";
        for (const auto& [name, row] : table) {
            text << "| " << name << " | " << row.states << " | " << row.brokenRaw << " | " << row.brokenChecked
                 << " |\n";
        }
        std::cout << text.str();
        if (!settings.table.empty()) {
            std::ofstream(settings.table) << text.str();
        }
        work.reset();
    }

    void check(const Case& one, const std::string& medium, int returned) const {
        Row& row = table[rowName(one)];
        ++row.states;
        Volume volume(*work);
        const bool isFat = one.fileSystem == "vfat";
        const Tree found = isFat ? Volume::raw(medium) : volume.checkedExt(medium);
        const Tree checked = isFat ? volume.checkedFat(medium) : found;
        const bool raw = isWhole(one, found, returned);
        const bool afterwards = isWhole(one, checked, returned);
        row.brokenRaw += raw ? 0 : 1;
        row.brokenChecked += afterwards ? 0 : 1;
        EXPECT_TRUE(raw && afterwards) << described(found) << "\nafter a check " << described(checked);
    }

    static std::unique_ptr<WorkFolder> work;
    static std::vector<std::string> results;
};

std::unique_ptr<WorkFolder> FatTest::work;
std::vector<std::string> FatTest::results;

}  // namespace

TEST_P(FatTest, LeavesWholeFiles) {
    const Case& one = GetParam();
    const Row before = table[rowName(one)];
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
    const Row& after = table[rowName(one)];
    EXPECT_GT(after.states, before.states);
    EXPECT_EQ(after.brokenRaw, before.brokenRaw);
    EXPECT_EQ(after.brokenChecked, before.brokenChecked);
}

INSTANTIATE_TEST_SUITE_P(Cases, FatTest, testing::ValuesIn(allCases()), [](const auto& one) {
    std::string name = one.param.name();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

int main(int argc, char** argv) {
    for (const std::string_view argument : std::vector<std::string_view>(argv + 1, argv + argc)) {
        if (argument == "--thorough") {
            settings.thorough = true;
        } else if (argument.starts_with("--recorder=")) {
            settings.recorder = argument.substr(argument.find('=') + 1);
        } else if (argument.starts_with("--table=")) {
            settings.table = argument.substr(argument.find('=') + 1);
        }
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
