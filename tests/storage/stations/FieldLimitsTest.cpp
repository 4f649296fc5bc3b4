#include <gtest/gtest.h>

#include <vector>

#include "fakes/Text.h"
#include "storage/stations/FieldLimits.h"

namespace {

std::string range(ListKind kind, double frequency) { return narrow(rangeFault(kind, frequency)); }

TEST(FieldLimitsTest, BlankFaultDistinguishesEmptyAndBlankTexts) {
    EXPECT_EQ(narrow(blankFault(u"")), "Input can't be empty");
    EXPECT_EQ(narrow(blankFault(u" ")), "Input can't be all space");
    EXPECT_EQ(narrow(blankFault(u"   ")), "Input can't be all space");
    for (const char16_t* text : {u"a", u" a ", u"\t", u"\u00A0", u"."}) {
        EXPECT_EQ(narrow(blankFault(text)), "") << narrow(text);
    }
}

struct Limits {
    ListKind kind;
    std::string fault;
    std::vector<double> inside;
    std::vector<double> outside;
};

TEST(FieldLimitsTest, RangeFaultIncludesTheBounds) {
    const std::vector<Limits> all = {
        {ListKind::Drm, "Out of range: (150--30000) kHz", {150, 289, 30000}, {0, 149.9, 30000.1, 1e300}},
        {ListKind::Am,
         "Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!",
         {150, 288, 522, 1710, 1711, 30000},
         {0, 149, 288.1, 289, 521, 521.9, 30001}},
        {ListKind::Fm, "Out of range: (87.0-108.0) MHz!", {87.0, 98.5, 108.0}, {0, 86.99, 108.01, 87000}}};
    for (const Limits& limits : all) {
        for (const double frequency : limits.inside) {
            EXPECT_EQ(range(limits.kind, frequency), "") << frequency;
        }
        for (const double frequency : limits.outside) {
            EXPECT_EQ(range(limits.kind, frequency), limits.fault) << frequency;
        }
    }
}

TEST(FieldLimitsTest, RangeFaultHasNoRangeForFavourites) {
    for (const double frequency : {0.0, 98.5, 1e300}) {
        EXPECT_EQ(range(ListKind::Favourite, frequency), "");
    }
}

}  // namespace
