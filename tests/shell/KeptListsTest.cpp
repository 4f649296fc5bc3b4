#include "shell/KeptLists.h"
#include "storage/StorageFixture.h"

namespace {

class KeptListsTest : public StorageTest {
protected:
    // The programme of the first DRM record in the newest snapshot; empty without a snapshot.
    std::string keptProgramme() {
        const auto snapshot = Recovery(u"/k7/", files).find();
        if (!snapshot || !snapshot->bytes.list) {
            return "";
        }
        const std::string& list = *snapshot->bytes.list;
        const std::size_t start = list.find("Programme=") + std::string_view("Programme=").size();
        return list.substr(start, list.find('\r', start) - start);
    }
    auto snapshots() const {
        return std::count_if(files.files.begin(), files.files.end(),
                             [](const auto& file) { return file.first.starts_with(u"/k7/Recovery/"); });
    }

    Recovery recovery{u"/k7/", files};
    KeptLists kept{{&drm, &am, &fm, &favourites}, saver, recovery};
};

TEST_F(KeptListsTest, AChangeIsKeptOnce) {
    drm.appendRow({u"A"});
    kept.keep();
    EXPECT_EQ(keptProgramme(), "A");
    files.accesses.clear();
    kept.keep();
    EXPECT_TRUE(files.accesses.empty());
}

TEST_F(KeptListsTest, LoadedListsNeedNoSnapshot) {
    drm.appendRow({u"A"});
    kept.startFromHere();
    kept.keep();
    EXPECT_EQ(snapshots(), 0);
    favourites.appendRow({u"F", u"98.5  MHz", u"FM"});
    kept.keep();
    EXPECT_EQ(keptProgramme(), "A");
}

TEST_F(KeptListsTest, TheGuardKeepsTheChangesOfACommandAtItsEnd) {
    {
        const KeptLists::AtEnd guard(kept);
        drm.appendRow({u"A"});
        EXPECT_EQ(snapshots(), 0);
    }
    EXPECT_EQ(keptProgramme(), "A");
}

TEST_F(KeptListsTest, AFailedSnapshotIsWrittenByTheNextCommand) {
    drm.appendRow({u"A"});
    files.failing = {u"/k7/Recovery"};
    kept.keep();
    EXPECT_EQ(keptProgramme(), "");
    files.failing.clear();
    kept.keep();
    EXPECT_EQ(keptProgramme(), "A");
}

TEST_F(KeptListsTest, AfterASaveTheEndKeepsOneSnapshot) {
    drm.appendRow({u"A"});
    kept.keep();
    kept.save();
    kept.end();
    EXPECT_EQ(snapshots(), 1);
    EXPECT_EQ(keptProgramme(), "A");
}

TEST_F(KeptListsTest, AfterAFailedSaveTheEndKeepsTheLists) {
    files.readOnly = {u"/k7/List.ini"};
    kept.save();
    drm.appendRow({u"A"});
    kept.end();
    EXPECT_EQ(keptProgramme(), "A");
}

}  // namespace
