#include <gtest/gtest.h>

#include "docs/Page.h"
#include "fakes/FakePlatform.h"
#include "fakes/Text.h"
#include "shell/MainForm.h"

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr std::array kLists{"DRM", "AM", "FM", "Favourite"};
constexpr const char16_t* kListFile = u"/app/List.ini";
constexpr const char16_t* kUserFile = u"/app/User.ini";
constexpr std::string_view kBlankLine = " \r\n";

// Loads, saves and syncs the examples of docs/formats.md.
class FormatsTest : public ::testing::Test {
protected:
    void start() { ASSERT_TRUE(form.Form_Load()); }

    // Every row of every list: the list, then its cells.
    Rows shown() {
        Rows rows;
        for (std::size_t list = 0; list < kLists.size(); ++list) {
            const Grid& grid = platform.rows(static_cast<int>(list));
            for (int row = 1; row <= grid.rowCount(); ++row) {
                std::vector<std::string> cells{kLists[list]};
                for (int column = 1; column <= static_cast<int>(grid.columns().size()); ++column) {
                    cells.push_back(narrow(grid.text(row, column)));
                }
                rows.push_back(cells);
            }
        }
        return rows;
    }

    // A saved file without the NUL byte that it may contain.
    std::string saved(const char16_t* path) {
        std::string bytes = platform.files.files[path];
        if (const std::size_t zero = bytes.find('\0'); zero != bytes.npos) {
            EXPECT_TRUE(bytes.substr(zero + 1).starts_with("\r\n[kvt update end]"));
            bytes.erase(zero, 1);
        }
        return bytes;
    }

    const Page page{"formats.md"};
    FakePlatform platform;
    MainForm form{platform.bundle};
};

TEST_F(FormatsTest, TheListFileIsShownAsDescribedAndSavedBackUnchanged) {
    const std::string file = std::string(kBlankLine) + page.block("List.ini", "\r\n");
    platform.files.files[kListFile] = file;
    start();
    EXPECT_EQ(page.cells("List.ini").size(), 6U);
    EXPECT_EQ(shown(), page.cells("List.ini"));
    platform.mainWindow.close();
    EXPECT_EQ(saved(kListFile), file);
}

TEST_F(FormatsTest, TheUserFileIsShownAsDescribedAndSavedBackUnchanged) {
    const std::string file = std::string(kBlankLine) + page.block("User.ini", "\r\n");
    platform.files.files[kUserFile] = file;
    start();
    EXPECT_EQ(page.cells("User.ini").size(), 3U);
    EXPECT_EQ(shown(), page.cells("User.ini"));
    platform.mainWindow.close();
    EXPECT_EQ(saved(kUserFile), file);
}

TEST_F(FormatsTest, TheScheduleGivesTheRowsDescribed) {
    start();
    for (const char* lineEnd : {"\n", "\r\n"}) {
        platform.httpClient.answer.body = page.block("Broadcast schedule", lineEnd);
        platform.messageBox.expect({u"The number of new station is: 2"});
        platform.popupMenu.listener->menuChosen(MenuItem::SyncInternet);
        EXPECT_EQ(page.cells("Broadcast schedule").size(), 2U);
        EXPECT_EQ(shown(), page.cells("Broadcast schedule"));
    }
}

}  // namespace
