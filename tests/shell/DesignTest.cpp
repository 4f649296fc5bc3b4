#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

#include "fakes/Text.h"
#include "platform/PopupMenu.h"
#include "shell/Design.h"

namespace {

class FakeFolders : public ProgramFolders {
public:
    std::u16string ofExecutable() override { return u"/app/"; }
    bool canWrite(std::u16string_view folder) override { return folder == u"/app/" && writable; }
    std::u16string ofUser(std::u16string_view name) override {
        ++madeForUser;
        return hasUser ? u"/user/" + std::u16string(name) + u"/" : std::u16string();
    }

    bool writable = true;
    bool hasUser = true;
    int madeForUser = 0;
};

}  // namespace

TEST(DesignTest, ProgramFolderIsThatOfTheExecutable) {
    FakeFolders folders;
    EXPECT_EQ(narrow(programFolder(folders)), "/app/");
    EXPECT_EQ(folders.madeForUser, 0) << "a folder was made that nobody needs";
}

TEST(DesignTest, ProgramFolderIsTheUsersWhereThatCannotBeWritten) {
    FakeFolders folders;
    folders.writable = false;
    EXPECT_EQ(narrow(programFolder(folders)), "/user/Halcyon_K7/");
}

TEST(DesignTest, ProgramFolderStaysThatOfTheExecutableWhenTheUserHasNone) {
    FakeFolders folders;
    folders.writable = false;
    folders.hasUser = false;
    EXPECT_EQ(narrow(programFolder(folders)), "/app/");
}

TEST(DesignTest, HoldsTheTextsAndSizesOfTheWindow) {
    const WindowDesign design = mainWindowDesign();
    EXPECT_EQ(design.caption, u"Halcyon_K7");
    EXPECT_EQ(design.tabCaptions, (std::array<std::u16string, 4>{u"DRM List", u"AM List", u"FM List", u"Favourite"}));
    const std::array<std::pair<MenuItem, std::u16string>, kMenuItemCount> items = {
        {{MenuItem::Edt, u"Edit(&E)"},
         {MenuItem::Del, u"Delete(&D)"},
         {MenuItem::AddNew, u"Add New Record(&N)"},
         {MenuItem::AddTo, u"Add To Favourite(&A)"},
         {MenuItem::SyncInternet, u"Sync From Internet(&I)"},
         {MenuItem::LoadFromReceiver, u"Load From Receiver(&L)"},
         {MenuItem::SaveToReceiver, u"Save To Receiver(&S)"},
         {MenuItem::DeleteAll, u"Delete All Record"}}};
    for (std::size_t place = 0; place < items.size(); ++place) {
        EXPECT_EQ(static_cast<std::size_t>(items[place].first), place);
        EXPECT_EQ(design.menuCaptions[place], items[place].second);
    }
    EXPECT_EQ(design.gridTopInset, 145);
    EXPECT_GT(design.width, 0);
    EXPECT_GT(design.height, 0);
}
