// A kernel that is killed during a save: only what it has written to the device remains.
#include "fat/KillTest.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include "fat/Contents.h"
#include "fat/Medium.h"

namespace {

// A kernel in its own process group that saves to an image until this object is destroyed.
class SavingKernel {
public:
    SavingKernel(const std::string& recorder, const WorkFolder& work, const std::string& image) {
        std::array<int, 2> console{-1, -1};
        if (::pipe(console.data()) != 0) {
            return;
        }
        std::vector<std::string> words{
            "linux.uml", "mem=256M",       "root=/dev/root",   "rootflags=/",   "rootfstype=hostfs",     "rw", "quiet",
            "con=null",  "con0=null,fd:1", "init=" + recorder, "ubda=" + image, "HALCYON_DISK=/dev/ubda"};
        std::vector<char*> arguments;
        std::transform(words.begin(), words.end(), std::back_inserter(arguments),
                       [](std::string& word) { return word.data(); });
        arguments.push_back(nullptr);
        process_ = ::fork();
        if (process_ == 0) {
            ::setsid();  // the kernel would call it later, but the destructor must know the group
            ::setenv("HOME", work.path().c_str(), 1);
            ::dup2(console[1], STDOUT_FILENO);
            ::close(console[0]);
            ::close(console[1]);
            ::execvp(arguments.front(), arguments.data());
            ::_exit(1);
        }
        ::close(console[1]);
        console_ = console[0];
    }
    ~SavingKernel() {
        ::kill(-process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        // The pipe ends when the last process of the kernel has exited.
        std::array<char, 64> rest{};
        while (::read(console_, rest.data(), rest.size()) > 0) {
        }
        ::close(console_);
    }
    SavingKernel(const SavingKernel&) = delete;
    SavingKernel& operator=(const SavingKernel&) = delete;

    // False: the kernel ended first.
    bool awaitOperations(int count) const {
        char next = 0;
        while (count > 0 && ::read(console_, &next, 1) == 1) {
            count -= next == kOperationMark ? 1 : 0;
        }
        return count == 0;
    }

private:
    pid_t process_ = -1;
    int console_ = -1;
};

void expectWhole(const Tree& tree, const std::string& when) {
    for (const auto& [name, oldBytes, newBytes] :
         {std::tuple(u"List.ini", kOldList, kNewList), std::tuple(u"User.ini", kOldUser, kNewUser)}) {
        const auto found = tree.find(name);
        ASSERT_NE(found, tree.end()) << when;
        EXPECT_TRUE(found->second.bytes == oldBytes || found->second.bytes == newBytes) << when;
    }
}

}  // namespace

void expectWholeFilesAfterKills(const std::string& recorder, int kills) {
    const WorkFolder work;
    ASSERT_TRUE(makeImages(work)) << "needs mkfs.fat and mke2fs";
    for (int kill = 1; kill <= kills; ++kill) {
        const std::string image = work.at("killed");
        ASSERT_TRUE(succeeds("cp " + work.at("fat1024") + " " + image));
        constexpr int kOperations = 9;  // of a save; a step that is prime to it reaches each in turn
        {
            const SavingKernel kernel(recorder, work, image);
            ASSERT_TRUE(kernel.awaitOperations(1 + kill * (kOperations + 2))) << "needs linux.uml";
        }
        const std::string bytes = contentOf(image);
        expectWhole(Medium::rawFat(bytes), "as found after kill " + std::to_string(kill));
        expectWhole(Medium(work).checkedFat(bytes), "checked after kill " + std::to_string(kill));
    }
}
