#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "editing/CellEditing.h"
#include "editing/ColumnFinder.h"
#include "editing/SortListview.h"
#include "fakes/FakeCodePages.h"
#include "fakes/FakeControls.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/FourLists.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/RowStore.h"

using enum ListKind;

TEST(ListColumnsTest, AListWithoutAWindowHasItsColumns) {
    RowStore rows;
    StationList list(ListKind::Drm, rows);
    addListColumns(list);
    ASSERT_EQ(rows.columns().size(), 4U);
    EXPECT_EQ(rows.columns()[3].caption, u"Target");
}

TEST(ListColumnsTest, AListInAWindowHasItsStandardWidths) {
    FakeGridView view;
    view.shape.width = 3000;
    RowStore rows(view);
    StationList list(ListKind::Drm, rows, view);
    addListColumns(list);
    ASSERT_EQ(rows.columns().size(), 4U);
    EXPECT_EQ(rows.columns()[0].width, 600);
    EXPECT_EQ(rows.columns()[3].width, 1000);
}

TEST(ListColumnsTest, HeaderKeysAreUniqueAndStoredPlacesHaveNoGaps) {
    for (const ListKind kind : kAllLists) {
        int places = 0;
        for (const ListColumn& column : columnsOf(kind)) {
            const auto hasKey = [&](const ListColumn& other) { return other.headerKey == column.headerKey; };
            EXPECT_EQ(std::count_if(columnsOf(kind).begin(), columnsOf(kind).end(), hasKey), 1);
            EXPECT_EQ(column.headerKey.size(), 4U);
            EXPECT_EQ(column.storedKey.empty(), column.storedPlace == 0);
            places += column.storedPlace != 0 ? 1 : 0;
        }
        for (int place = 1; place <= places; ++place) {
            const auto hasPlace = [&](const ListColumn& column) { return column.storedPlace == place; };
            EXPECT_EQ(std::count_if(columnsOf(kind).begin(), columnsOf(kind).end(), hasPlace), 1);
        }
    }
}

TEST(ListColumnsTest, AColumnOutsideTheTableDoesNotExist) {
    EXPECT_EQ(columnAt(columnsOf(Drm), 0), nullptr);
    EXPECT_EQ(columnAt(columnsOf(Drm), -1), nullptr);
    EXPECT_EQ(columnAt(columnsOf(Drm), 5), nullptr);
    EXPECT_EQ(columnAt(columnsOf(Drm), kTargetColumn)->headerKey, u"TARG");
}

// A list with one more column, added by nothing but a row of the table.
class ListColumnsTestFifth : public testing::Test, protected FourLists {
protected:
    ListColumnsTestFifth() {
        std::copy_n(columnsOf(Drm).begin(), 4, columns.begin());
        columns[4] = {u"Language", u"LANG", u"Lang", 5, CellContent::StoredText, 20, SortKeyType::Text, 3, true};
        lists[Drm].columns = columns;
    }
    void load(std::string_view ini) {
        files.files[copies.ListFilePath] = ini;
        ListLoader(lists, copies, settings, files, codePages).LoadDrmList(true);
    }
    std::string languages() {
        std::string joined;
        for (int row = 1; row <= grid(Drm).rowCount(); ++row) {
            joined += narrow(grid(Drm).text(row, 5)) + " ";
        }
        return joined;
    }

    std::array<ListColumn, 5> columns{};
    FakeFiles files;
    FakeCodePages codePages;
    WorkingCopies copies{u"/k7/List.ini", u"/k7/User.ini"};
    ReceiverSettings settings;
};

constexpr std::string_view kTwoRecords =
    "[Total]\r\ndrmnumber=2\r\n"
    "[DRMSchedule0]\r\nFrequency=6095\r\nProgramme=A\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=T\r\nLang=en\r\n"
    "[DRMSchedule1]\r\nFrequency=7000\r\nProgramme=B\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=T\r\nLang=fr\r\n";

TEST_F(ListColumnsTestFifth, IsAddedAndLoaded) {
    load(kTwoRecords);
    ASSERT_EQ(grid(Drm).columns().size(), 5U);
    EXPECT_EQ(narrow(grid(Drm).columns()[4].caption), "Language");
    EXPECT_EQ(grid(Drm).columns()[4].width, 300);
    EXPECT_EQ(languages(), "en fr ");
}

TEST_F(ListColumnsTestFifth, IsSavedInItsPlace) {
    load(kTwoRecords);
    ListSaver(lists, copies, settings, files, codePages).SaveLists();
    const std::string& saved = files.files[copies.ListFilePath];
    EXPECT_NE(saved.find("Target=T\r\nLang=en\r\nUserDef=0\r\n"), std::string::npos) << saved;
    EXPECT_NE(saved.find("Target=T\r\nLang=fr\r\nUserDef=0\r\n"), std::string::npos) << saved;
}

TEST_F(ListColumnsTestFifth, SurvivesASortAndSortsByItsHeader) {
    load(kTwoRecords);
    FakeTextCompare compare;
    SortListview sort(compare);
    sort.headerClicked(lists[Drm], u"FREQ");
    EXPECT_EQ(languages(), "fr en ");
    sort.headerClicked(lists[Drm], u"LANG");
    EXPECT_EQ(languages(), "en fr ");
}

TEST_F(ListColumnsTestFifth, IsEditedWithItsLimit) {
    load(kTwoRecords);
    FakeTabControl tabs;
    FakeStatusBar statusBar;
    FakeEditBox box;
    FakeMessageBox messageBox;
    FakeWindowHook hook;
    mMsgBox messages(messageBox, hook);
    EditState edit;
    FieldValidation validation(lists, tabs, edit, messages);
    CellEditing editing(lists, {tabs, box, statusBar}, validation, edit);
    grid(Drm).setSelected(2, true);
    editing.setLastMouseX(5700, 0);  // the columns before it end at 5,600
    editing.startEdit(Drm);
    EXPECT_EQ(narrow(box.content), "fr");
    EXPECT_EQ(box.limit, 3);
    box.content = u"de";
    editing.commit();
    EXPECT_EQ(languages(), "en de ");
}

TEST_F(ListColumnsTestFifth, IsReachedByTheArrowKeys) {
    load(kTwoRecords);
    const auto spans = columnSpans(grid(Drm));
    EXPECT_EQ(neighbourOf(spans, columns, 4000, 1)->column, 5);
}
