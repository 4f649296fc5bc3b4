#include <gtest/gtest.h>

#include "fakes/Text.h"
#include "storage/stations/ReceptionSystem.h"

TEST(ReceptionSystemTest, TheTypeOfAFavouriteDecidesItsUnit) {
    EXPECT_EQ(narrow(ReceptionSystem::unitOf(ReceptionSystem::typeOf(ListKind::Drm))), "  kHz");
    EXPECT_EQ(narrow(ReceptionSystem::unitOf(ReceptionSystem::typeOf(ListKind::Am))), "  kHz");
    EXPECT_EQ(narrow(ReceptionSystem::unitOf(ReceptionSystem::typeOf(ListKind::Fm))), "  MHz");
    EXPECT_TRUE(ReceptionSystem::isFm(u"my FM list"));
    EXPECT_FALSE(ReceptionSystem::isFm(u"fm"));
    EXPECT_FALSE(ReceptionSystem::isFm(u""));
    EXPECT_TRUE(ReceptionSystem::typeOf(ListKind::Favourite).empty());
}
