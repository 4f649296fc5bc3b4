#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <tuple>

#include "editing/EditingFixture.h"
#include "editing/SortListview.h"
#include "storage/text/Numbers.h"

namespace {

using enum ListKind;

using Texts = std::vector<std::string>;

class SortListviewTest : public EditingFixture {
protected:
    void click(ListKind kind, std::u16string_view key) { sort.headerClicked(lists[kind], key); }

    void addColumnOf(ListKind kind, int columnToFill, const std::vector<std::u16string>& texts) {
        for (const std::u16string& text : texts) {
            addRow(kind, {});
            grid(kind).setText(grid(kind).rowCount(), columnToFill, text);
        }
    }

    FakeTextCompare compare;
    SortListview sort{compare};
};

TEST_F(SortListviewTest, SortsFrequenciesByNumberDescendingFirst) {
    for (const ListKind kind : {Drm, Am, Fm}) {
        addColumnOf(kind, 2, {u"9500", u"15000", u"600"});
        click(kind, u"FREQ");
        EXPECT_EQ((Texts{"15000", "9500", "600"}), column(kind, 2));
        click(kind, u"FREQ");
        EXPECT_EQ((Texts{"600", "9500", "15000"}), column(kind, 2));
    }
}

TEST_F(SortListviewTest, SortsFavouriteFrequenciesAsTexts) {
    addColumnOf(Favourite, 2, {u"900  kHz", u"98.5  MHz", u"1000  kHz"});
    click(Favourite, u"FREQ");
    EXPECT_EQ((Texts{"98.5  MHz", "900  kHz", "1000  kHz"}), column(Favourite, 2));
    click(Favourite, u"FREQ");
    EXPECT_EQ((Texts{"1000  kHz", "900  kHz", "98.5  MHz"}), column(Favourite, 2));
}

TEST_F(SortListviewTest, KnowsTheTextColumnsOfEachList) {
    const std::vector<std::tuple<ListKind, std::u16string, int>> table = {
        {Drm, u"PROG", 1},       {Drm, u"TIME", 3},      {Drm, u"TARG", 4}, {Am, u"PROG", 1},
        {Am, u"BAND", 3},        {Fm, u"PROG", 1},       {Fm, u"BAND", 3},  {Favourite, u"PROG", 1},
        {Favourite, u"SYST", 3}, {Favourite, u"FREQ", 2}};
    for (const auto& [kind, key, number] : table) {
        SCOPED_TRACE(narrow(key) + " of list " + std::to_string(static_cast<int>(kind)));
        grid(kind).clear();
        addColumnOf(kind, number, {u"9", u"b", u"10", u"a"});
        SortListview fresh(compare);
        fresh.headerClicked(lists[kind], key);
        EXPECT_EQ((Texts{"b", "a", "9", "10"}), column(kind, number));
        fresh.headerClicked(lists[kind], key);
        EXPECT_EQ((Texts{"10", "9", "a", "b"}), column(kind, number));
    }
}

TEST_F(SortListviewTest, KeysOfOtherListsAndUnknownKeysSortNothing) {
    const std::vector<std::pair<ListKind, std::u16string>> table = {
        {Drm, u"BAND"}, {Drm, u"SYST"},       {Am, u"TIME"},        {Am, u"TARG"},
        {Am, u"SYST"},  {Fm, u"TIME"},        {Fm, u"TARG"},        {Fm, u"SYST"},
        {Drm, u""},     {Favourite, u"BAND"}, {Favourite, u"TIME"}, {Favourite, u"prog"}};
    for (const auto& [kind, key] : table) {
        grid(kind).clear();
        addRow(kind, {u"b", u"2", u"b", u"b"});
        addRow(kind, {u"c", u"3", u"c", u"c"});
        addRow(kind, {u"a", u"1", u"a", u"a"});
        click(kind, key);
        EXPECT_EQ((Texts{"b", "c", "a"}), column(kind, 1)) << narrow(key);
    }
}

TEST_F(SortListviewTest, AnUnknownKeyReversesTheDirection) {
    addColumnOf(Am, 1, {u"b", u"c", u"a"});
    click(Am, u"NONE");
    click(Am, u"PROG");
    EXPECT_EQ((Texts{"a", "b", "c"}), column(Am, 1));
}

TEST_F(SortListviewTest, AnEmptyListReversesTheDirection) {
    view(Am).calls.clear();
    click(Am, u"PROG");
    EXPECT_TRUE(view(Am).calls.empty());
    addColumnOf(Am, 1, {u"b", u"c", u"a"});
    click(Am, u"PROG");
    EXPECT_EQ((Texts{"a", "b", "c"}), column(Am, 1));
}

TEST_F(SortListviewTest, TheDirectionBelongsToTheListNotToTheColumn) {
    addRow(Drm, {u"b", u"1", u"0200-0300", u""});
    addRow(Drm, {u"c", u"2", u"0000-0100", u""});
    addRow(Drm, {u"a", u"3", u"0100-0200", u""});
    click(Drm, u"PROG");
    EXPECT_EQ((Texts{"c", "b", "a"}), column(Drm, 1));
    click(Drm, u"TIME");
    EXPECT_EQ((Texts{"0000-0100", "0100-0200", "0200-0300"}), column(Drm, 3));
}

TEST_F(SortListviewTest, TheDirectionsOfTheListsAreIndependent) {
    for (const ListKind kind : kAllLists) {
        addColumnOf(kind, 1, {u"b", u"c", u"a"});
    }
    click(Drm, u"PROG");
    for (const ListKind kind : {Am, Fm, Favourite}) {
        click(kind, u"PROG");
        EXPECT_EQ((Texts{"c", "b", "a"}), column(kind, 1));
    }
    click(Drm, u"PROG");
    EXPECT_EQ((Texts{"a", "b", "c"}), column(Drm, 1));
}

TEST_F(SortListviewTest, TheDirectionSurvivesAReload) {
    addColumnOf(Fm, 1, {u"b", u"a"});
    click(Fm, u"PROG");
    grid(Fm).clear();
    addColumnOf(Fm, 1, {u"b", u"c", u"a"});
    click(Fm, u"PROG");
    EXPECT_EQ((Texts{"a", "b", "c"}), column(Fm, 1));
}

TEST_F(SortListviewTest, IgnoresLetterCase) {
    addColumnOf(Drm, 1, {u"abd", u"ABC", u"abc", u"ABB"});
    click(Drm, u"PROG");
    const Texts sorted = column(Drm, 1);
    EXPECT_EQ("abd", sorted[0]);
    EXPECT_EQ("ABB", sorted[3]);
    EXPECT_EQ((std::set<std::string>{"ABC", "abc"}), (std::set<std::string>{sorted[1], sorted[2]}));
}

TEST_F(SortListviewTest, KeepsASingleRow) {
    addRow(Fm, {u"Music", u"98.5", u"VHF"});
    click(Fm, u"FREQ");
    EXPECT_EQ("Music|98.5|VHF", rowText(Fm, 1));
}

TEST_F(SortListviewTest, MovesWholeRows) {
    addRow(Drm, {u"One", u"1000", u"0000-0100", u"Asia"});
    addRow(Drm, {u"Three", u"3000", u"0200-0300", u"Europe"});
    addRow(Drm, {u"Two", u"2000", u"0100-0200", u"Africa"});
    click(Drm, u"FREQ");
    EXPECT_EQ("Three|3000|0200-0300|Europe", rowText(Drm, 1));
    EXPECT_EQ("Two|2000|0100-0200|Africa", rowText(Drm, 2));
    EXPECT_EQ("One|1000|0000-0100|Asia", rowText(Drm, 3));
}

TEST_F(SortListviewTest, RewritesTheFrequencyOfAPivotAsAWholeNumber) {
    addRow(Fm, {u"A", u"98.9", u"VHF"});
    addRow(Fm, {u"B", u"98.9", u"VHF"});
    click(Fm, u"FREQ");
    Texts frequencies = column(Fm, 2);
    std::sort(frequencies.begin(), frequencies.end());
    EXPECT_EQ((Texts{"98", "98.9"}), frequencies);
    EXPECT_EQ((Texts{"VHF", "VHF"}), column(Fm, 3));
}

TEST_F(SortListviewTest, WritesThePivotsNumberNotItsText) {
    const std::vector<std::pair<std::u16string, std::string>> table = {
        {u"0990", "990"},        {u" 12x", "12"},
        {u"none", "0"},          {u"", "0"},
        {u"-3.7", "-3"},         {u"-0.5", "0"},
        {u"1234567", "1234567"}, {u"100000000000000000000", "100000000000000000000"}};
    for (const auto& [text, rewritten] : table) {
        grid(Drm).clear();
        addColumnOf(Drm, 2, {text, text});
        click(Drm, u"FREQ");
        const Texts after = column(Drm, 2);
        EXPECT_EQ(1, std::count(after.begin(), after.end(), rewritten) - (narrow(text) == rewritten ? 1 : 0))
            << narrow(text);
        EXPECT_EQ(1, std::count(after.begin(), after.end(), narrow(text)) - (narrow(text) == rewritten ? 1 : 0))
            << narrow(text);
    }
}

TEST_F(SortListviewTest, ATextSortRewritesNothing) {
    addColumnOf(Favourite, 2, {u"98.9  MHz", u"98.9  MHz", u"0990  kHz", u"87.5  MHz"});
    click(Favourite, u"FREQ");
    EXPECT_EQ((Texts{"98.9  MHz", "98.9  MHz", "87.5  MHz", "0990  kHz"}), column(Favourite, 2));
}

TEST_F(SortListviewTest, RandomListsKeepTheirRowsAndEndInOrder) {
    std::mt19937 random(3);
    for (int round = 0; round < 60; ++round) {
        grid(Fm).clear();
        std::map<std::string, std::string> frequencyOf;
        const auto size = random() % 90;
        for (std::size_t i = 0; i < size; ++i) {
            const std::u16string name = u"P" + decimal(static_cast<int>(i));
            const std::u16string frequency =
                decimal(87 + static_cast<int>(random() % 20)) + u"." + decimal(static_cast<int>(random() % 10));
            frequencyOf[narrow(name)] = narrow(frequency);
            addRow(Fm, {name, frequency, u"VHF"});
        }
        click(Fm, u"FREQ");
        ASSERT_EQ(size, frequencyOf.size());
        double last = round % 2 == 0 ? 1e9 : 0;
        for (int number = 1; number <= grid(Fm).rowCount(); ++number) {
            const auto original = frequencyOf.extract(narrow(grid(Fm).text(number, 1)));
            ASSERT_FALSE(original.empty());
            const double value = std::stod(original.mapped());
            const std::string cell = narrow(grid(Fm).text(number, 2));
            EXPECT_TRUE(cell == original.mapped() || cell == std::to_string(static_cast<int>(value))) << cell;
            EXPECT_TRUE(round % 2 == 0 ? value <= last : value >= last);
            last = value;
        }
        EXPECT_TRUE(frequencyOf.empty());
    }
}

TEST_F(SortListviewTest, SortsTheLargestListOfEqualKeys) {
    for (int i = 0; i < 32767; ++i) {
        addRow(Fm, {decimal(i), u"98.5", u"VHF"});
    }
    click(Fm, u"BAND");
    click(Fm, u"FREQ");
    EXPECT_EQ(32767, grid(Fm).rowCount());
    const Texts frequencies = column(Fm, 2);
    EXPECT_EQ(32766, std::count(frequencies.begin(), frequencies.end(), "98"));
    EXPECT_EQ(1, std::count(frequencies.begin(), frequencies.end(), "98.5"));
    const Texts names = column(Fm, 1);
    EXPECT_EQ(32767U, std::set<std::string>(names.begin(), names.end()).size());
}

TEST_F(SortListviewTest, NotifiesTheViewOnce) {
    addColumnOf(Drm, 2, {u"9500", u"15000", u"600"});
    view(Drm).calls.clear();
    click(Drm, u"FREQ");
    EXPECT_EQ((Texts{"beforeReset", "afterReset"}), view(Drm).calls);
}

TEST_F(SortListviewTest, KeepsTheSelectedPositions) {
    addColumnOf(Drm, 1, {u"b", u"c", u"a"});
    select(Drm, 2);
    click(Drm, u"PROG");
    EXPECT_EQ(2, grid(Drm).firstSelected());
    EXPECT_TRUE(grid(Drm).isSelected(2));
    EXPECT_FALSE(grid(Drm).isSelected(1));
}

}  // namespace
