#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

#include "platform/PopupMenu.h"
#include "shell/Design.h"

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
