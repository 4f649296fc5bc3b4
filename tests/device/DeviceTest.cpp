// The receiver's files and the working copies on real volumes: full, read-only, or unplugged during a save.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>
#include <iterator>
#include <vector>

#include "device/Volume.h"
#include "fakes/ForwardingFiles.h"
#include "platform/posix/PosixFiles.h"
#include "storage/files/SafeFile.h"
#include "storage/files/VerifiedFiles.h"
#include "storage/recovery/Recovery.h"

namespace {

constexpr std::size_t kCluster = 1024;

// Calls back before each operation that reaches the device.
class WatchedFiles : public ForwardingFiles {
public:
    using ForwardingFiles::ForwardingFiles;

    FileRead read(std::u16string_view path) override { return step(), ForwardingFiles::read(path); }
    FileRead readBack(std::u16string_view path) override { return step(), ForwardingFiles::readBack(path); }
    bool write(std::u16string_view path, std::string_view bytes, Flush flush) override {
        return step(), ForwardingFiles::write(path, bytes, flush);
    }
    bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override {
        return step(), ForwardingFiles::rename(from, to, flush);
    }
    bool remove(std::u16string_view path) override { return step(), ForwardingFiles::remove(path); }

    std::function<void(int)> before = [](int) {};

private:
    void step() { before(++count_); }
    int count_ = 0;
};

std::string text(std::size_t size, char letter) { return std::string(size, letter) + "\r\n[kvt update end]\r\n"; }

class DeviceTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Volume::isPossible()) << "needs root, or sudo without a password, and loop devices";
    }
    void putOld(const Volume& volume) {
        ASSERT_TRUE(files.write(volume.at(u"List.ini"), oldList, Flush::Now));
        ASSERT_TRUE(files.write(volume.at(u"User.ini"), oldUser, Flush::Now));
    }
    bool save(Files& through, const Volume& volume) const {
        return replaceVerified(through, {{volume.at(u"List.ini"), newList}, {volume.at(u"User.ini"), newUser}});
    }
    void expectWhole(const Volume& volume) {
        const auto list = files.read(volume.at(u"List.ini")).bytes;
        const auto user = files.read(volume.at(u"User.ini")).bytes;
        EXPECT_TRUE(list == oldList || list == newList) << "List.ini: " << (list ? list->size() : 0);
        EXPECT_TRUE(user == oldUser || user == newUser) << "User.ini: " << (user ? user->size() : 0);
    }
    void expectBoth(const Volume& volume, bool isNew) {
        EXPECT_TRUE(files.read(volume.at(u"List.ini")).bytes == (isNew ? newList : oldList));
        EXPECT_TRUE(files.read(volume.at(u"User.ini")).bytes == (isNew ? newUser : oldUser));
    }
    static bool noTemporaryFile(const Volume& volume) {
        return !std::filesystem::exists(volume.folder() + "/LIST.K7N") &&
               !std::filesystem::exists(volume.folder() + "/USER.K7N");
    }

    PosixFiles files;
    const std::string oldList = text(20 * kCluster, 'o');
    const std::string oldUser = text(5 * kCluster, 'p');
    const std::string newList = text(24 * kCluster, 'n');
    const std::string newUser = text(6 * kCluster, 'm');
};

}  // namespace

TEST_F(DeviceTest, UnpluggedAtAnyOperationFilesStayWholeAndTheNextSaveCompletesThePair) {
    int pulled = 0;
    for (bool reached = true; reached; ++pulled) {
        reached = false;
        std::string medium;
        {
            Volume volume;
            putOld(volume);
            ::sync();
            WatchedFiles watched(files);
            watched.before = [&](int number) {
                if (number == pulled + 1) {
                    reached = true;
                    medium = volume.pull();
                }
            };
            const bool saved = save(watched, volume);
            EXPECT_EQ(saved, !reached);
        }
        if (reached) {
            const Volume volume(medium);
            std::filesystem::remove(medium);
            expectWhole(volume);
            EXPECT_TRUE(save(files, volume));
            expectBoth(volume, true);
            EXPECT_TRUE(noTemporaryFile(volume));
        }
        ASSERT_FALSE(HasFailure()) << "pulled at operation " << pulled + 1;
    }
    EXPECT_GT(pulled, 8);
    std::cout << "pulled out at each of " << pulled - 1 << " operations\n";
}

TEST_F(DeviceTest, AnyFreeSpaceGivesBothFilesOrNeither) {
    const Volume volume;
    int saved = 0;
    int refused = 0;
    for (std::size_t free = 0; free <= newList.size() + newUser.size() + kCluster; free += kCluster / 2) {
        putOld(volume);
        volume.leaveFree(free);
        const bool done = save(files, volume);
        (done ? saved : refused)++;
        expectBoth(volume, done);
        EXPECT_TRUE(noTemporaryFile(volume));
        volume.empty();
        ASSERT_FALSE(HasFailure()) << free << " bytes free";
    }
    EXPECT_GT(saved, 0);
    EXPECT_GT(refused, 0);
    std::cout << saved + refused << " steps: " << saved << " saved, " << refused << " refused\n";
}

TEST_F(DeviceTest, AnyFreeSpaceLeavesWholeWorkingCopiesAndSnapshots) {
    const Volume volume;
    const std::u16string programFolder = volume.at(u"");
    for (std::size_t free = 0; free <= newList.size() + newUser.size() + 2 * kCluster; free += kCluster / 2) {
        putOld(volume);
        Recovery recovery(programFolder, files);
        ASSERT_TRUE(recovery.keep({oldList, oldUser}));
        volume.leaveFree(free);
        const bool kept = recovery.keep({newList, newUser});
        const auto found = Recovery(programFolder, files).find();
        ASSERT_TRUE(found);
        EXPECT_TRUE(found->bytes == (kept ? WorkingCopyBytes{newList, newUser} : WorkingCopyBytes{oldList, oldUser}));
        const bool list = replaceFile(files, volume.at(u"List.ini"), newList);
        EXPECT_TRUE(files.read(volume.at(u"List.ini")).bytes == (list ? newList : oldList));
        const bool user = replaceFile(files, volume.at(u"User.ini"), newUser);
        EXPECT_TRUE(files.read(volume.at(u"User.ini")).bytes == (user ? newUser : oldUser));
        EXPECT_TRUE(noTemporaryFile(volume));
        std::filesystem::remove_all(volume.folder() + "/Recovery");
        volume.empty();
        ASSERT_FALSE(HasFailure()) << free << " bytes free";
    }
}

TEST_F(DeviceTest, AReadOnlyVolumeStaysUnchanged) {
    const Volume volume;
    putOld(volume);
    volume.makeReadOnly();
    EXPECT_FALSE(save(files, volume));
    EXPECT_FALSE(replaceFile(files, volume.at(u"List.ini"), newList));
    EXPECT_FALSE(Recovery(volume.at(u""), files).keep({newList, newUser}));
    expectBoth(volume, false);
    EXPECT_TRUE(noTemporaryFile(volume));
}

TEST(DeviceTestLinks, AreNotFollowedForWriting) {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("halcyon-links-" + std::to_string(::getpid()));
    std::filesystem::create_directory(folder);
    const auto at = [&](const char* name) { return (folder / name).u16string(); };
    const std::filesystem::path victim = folder / "victim";
    PosixFiles files;
    ASSERT_TRUE(files.write(at("victim"), "precious", Flush::Now));
    std::filesystem::permissions(victim, std::filesystem::perms::owner_read);
    std::filesystem::create_directory(folder / "elsewhere");
    std::filesystem::create_symlink("victim", folder / "link");
    std::filesystem::create_hard_link(victim, folder / "LIST.K7N");
    std::filesystem::create_symlink("victim", folder / "List.ini");
    std::filesystem::create_symlink("elsewhere", folder / "Recovery");

    EXPECT_FALSE(files.write(at("link"), "evil", Flush::Now));
    EXPECT_FALSE(files.append(at("link"), "evil"));
    EXPECT_FALSE(files.clearAttributes(at("link")));
    EXPECT_TRUE(replaceFile(files, at("List.ini"), "new")) << "the link itself is replaced";
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "List.ini"));
    EXPECT_FALSE(Recovery(folder.u16string() + u'/', files).keep({"list", "user"}));
    EXPECT_TRUE(std::filesystem::is_empty(folder / "elsewhere"));
    EXPECT_EQ(files.read(at("victim")).bytes, "precious");
    EXPECT_EQ(std::filesystem::status(victim).permissions(), std::filesystem::perms::owner_read);
    std::filesystem::remove_all(folder);
}

TEST_F(DeviceTest, FreeSpaceIsTheSpaceAvailableToFiles) {
    const Volume volume;
    volume.leaveFree(10 * kCluster);
    const auto free = files.freeSpace(volume.at(u"").substr(0, volume.folder().size()));
    ASSERT_TRUE(free);
    EXPECT_GE(*free, 10 * kCluster);
    EXPECT_LE(*free, 11 * kCluster);
    EXPECT_EQ(files.freeSpace(volume.at(u"none")), std::nullopt);
}

// Mounting needs root: for another user the program restarts itself as root, by sudo; without sudo the tests report
// what they need.
int main(int argc, char** argv) {
    if (::geteuid() != 0) {
        std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
        std::string sudo = "sudo";
        std::string neverAsk = "-n";
        std::vector<char*> arguments{sudo.data(), neverAsk.data(), self.data()};
        std::copy(argv + 1, argv + argc + 1, std::back_inserter(arguments));
        ::execvp(arguments.front(), arguments.data());
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
