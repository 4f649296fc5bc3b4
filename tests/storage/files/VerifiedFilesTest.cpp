#include <gtest/gtest.h>

#include "fakes/FakeFiles.h"
#include "storage/files/VerifiedFiles.h"

namespace {

constexpr const char16_t* kList = u"/disk/List.ini";
constexpr const char16_t* kListTemporary = u"/disk/LIST.K7N";
constexpr const char16_t* kUser = u"/disk/User.ini";
constexpr const char16_t* kUserTemporary = u"/disk/USER.K7N";

}  // namespace

TEST(VerifiedFilesTest, ADamagedNewFileIsOverwrittenIfNoTemporaryFileCanBeWritten) {
    class Damaging : public FakeFiles {
    public:
        bool rename(std::u16string_view from, std::u16string_view to, Flush flush) override {
            const bool renamed = FakeFiles::rename(from, to, flush);
            files[std::u16string(to)] = "damaged";
            failing = {kListTemporary};
            return renamed;
        }
    };
    Damaging disk;
    disk.files[kList] = "old";
    EXPECT_FALSE(replaceVerified(disk, {{kList, "new"}}));
    EXPECT_EQ(disk.files[kList], "old");
}

TEST(VerifiedFilesTest, AFileOverwrittenInPlaceIsRestoredIfTheOtherOneFails) {
    FakeFiles disk;
    disk.files = {{kList, "old list"}, {kUser, "old user"}};
    disk.failing = {kListTemporary, kUserTemporary};
    disk.free = 0;
    disk.readOnly = {kUser};
    EXPECT_FALSE(replaceVerified(disk, {{kList, "list"}, {kUser, "user"}}));
    EXPECT_EQ(disk.files[kList], "old list");
    EXPECT_EQ(disk.files[kUser], "old user");
}
