#include "storage/StorageFixture.h"
#include "storage/lists/ListLoader.h"
#include "storage/stations/ListColumns.h"
#include "storage/text/Numbers.h"

using namespace std::string_literals;

namespace {

class ListLoaderTest : public StorageTest {
protected:
    Rows loadDrm(std::u16string_view text) {
        listFile() = utf16File(text);
        drm.clear();
        loader.forgetFiles();
        loader.LoadDrmList(false);
        return rowsOf(drm, 4);
    }
    Rows loadAm(std::u16string_view frequency) {
        listFile() = utf16File(u"[Total]\r\namnumber=1\r\n[AMSchedule0]\r\nProgramme=P\r\nFrequency=" +
                               std::u16string(frequency) + u"\r\n");
        am.clear();
        loader.forgetFiles();
        loader.LoadAmList(false);
        return rowsOf(am, 3);
    }
    Rows loadFm(std::u16string_view frequency) {
        listFile() = utf16File(u"[Total]\r\nfmnumber=1\r\n[FMSchedule0]\r\nProgramme=P\r\nFrequency=" +
                               std::u16string(frequency) + u"\r\n");
        fm.clear();
        loader.forgetFiles();
        loader.LoadFmList(false);
        return rowsOf(fm, 3);
    }
    Rows loadFavourite(std::u16string_view frequency, std::u16string_view type) {
        userFile() = utf16File(u"[Total]\r\nfavnumber=1\r\n[FAVSchedule0]\r\nProgramme=P\r\nFrequency=" +
                               std::u16string(frequency) + u"\r\nTYPE=" + std::u16string(type) + u"\r\n");
        favourites.clear();
        loader.LoadFavList(false);
        return rowsOf(favourites, 3);
    }
    int countFor(std::u16string_view value) {
        return static_cast<int>(loadDrm(u"[Total]\r\ndrmnumber=" + std::u16string(value) + u"\r\n").size());
    }
};

const std::u16string kThreeLists =
    u" \r\n[Total]\r\ndrmnumber=1\r\namnumber=1\r\nfmnumber=1\r\n"
    u"[DRMSchedule0]\r\nFrequency=6095\r\nProgramme=Радио 中文 📻\r\nStartStopTimeUTC=06:00-07:30\r\nTarget=Europe\r\n"
    u"UserDef=0\r\n[AMSchedule0]\r\nFrequency=198\r\nProgramme=Longwave Example\r\nUserDef=0\r\n"
    u"[FMSchedule0]\r\nFrequency=98500\r\nProgramme=City FM\r\nUserDef=0\r\n\r\n[kvt update end]\r\n";

}  // namespace

TEST_F(ListLoaderTest, AddsTheColumnsOfEachListOnRequest) {
    loadAll(true);
    const auto captions = [](const RowStore& grid) {
        std::string text;
        for (const GridColumn& column : grid.columns()) {
            text += narrow(column.caption) + "/" + narrow(column.key) + " ";
        }
        return text;
    };
    EXPECT_EQ(captions(drm), "Programme/PROG Frequency(kHz)/FREQ Time(UTC)/TIME Target/TARG ");
    EXPECT_EQ(captions(am), "Programme/PROG Frequency(kHz)/FREQ Band/BAND ");
    EXPECT_EQ(captions(fm), "Programme/PROG Frequency(MHz)/FREQ Band/BAND ");
    EXPECT_EQ(captions(favourites), "Programme/PROG Frequency/FREQ System/SYST ");
    loadAll(false);
    EXPECT_EQ(drm.columns().size(), 4U);
}

TEST_F(ListLoaderTest, ColumnsGetTheirShareOfTheGridsWidth) {
    loadAll(true);
    for (const int column : {0, 1, 2}) {
        EXPECT_DOUBLE_EQ(drm.columns()[static_cast<std::size_t>(column)].width, 1200);
        EXPECT_DOUBLE_EQ(am.columns()[static_cast<std::size_t>(column)].width, 6000 / 3.1);
        EXPECT_DOUBLE_EQ(fm.columns()[static_cast<std::size_t>(column)].width, 6000 / 3.1);
        EXPECT_DOUBLE_EQ(favourites.columns()[static_cast<std::size_t>(column)].width, 6000 / 3.1);
    }
    EXPECT_DOUBLE_EQ(drm.columns()[3].width, 2000);
    drmView.shape.width = 3000;
    applyStandardWidths(lists[ListKind::Drm]);
    EXPECT_DOUBLE_EQ(drm.columns()[0].width, 600);
    EXPECT_DOUBLE_EQ(drm.columns()[3].width, 1000);
}

TEST_F(ListLoaderTest, FillsEveryList) {
    listFile() = utf16File(kThreeLists);
    userFile() = utf16File(
        u"[Total]\r\nfavnumber=2\r\n[FAVSchedule0]\r\nProgramme=A\r\nFrequency=6095\r\nTYPE=DRM\r\n"
        u"[FAVSchedule1]\r\nProgramme=B\r\nFrequency=98500\r\nTYPE=FM\r\n");
    loadAll();
    EXPECT_EQ(rowsOf(drm, 4), (Rows{{u"Радио 中文 📻", u"6095", u"06:00-07:30", u"Europe"}}));
    EXPECT_EQ(rowsOf(am, 3), (Rows{{u"Longwave Example", u"198", u"LW"}}));
    EXPECT_EQ(rowsOf(fm, 3), (Rows{{u"City FM", u"98.5", u"VHF"}}));
    EXPECT_EQ(rowsOf(favourites, 3), (Rows{{u"A", u"6095  kHz", u"DRM"}, {u"B", u"98.5  MHz", u"FM"}}));
}

TEST_F(ListLoaderTest, AMissingWorkingCopyKeepsTheGrid) {
    drm.appendRow({u"kept"});
    loadAll();
    EXPECT_EQ(drm.rowCount(), 1);
    EXPECT_EQ(favourites.rowCount(), 0);
    EXPECT_TRUE(files.accesses.empty());
}

TEST_F(ListLoaderTest, CountsAreLeadingNumbersRoundedToSixteenBits) {
    EXPECT_EQ(countFor(u"3"), 3);
    EXPECT_EQ(countFor(u"3abc"), 3);
    EXPECT_EQ(countFor(u"2.5"), 2);
    EXPECT_EQ(countFor(u"3.5"), 4);
    EXPECT_EQ(countFor(u"0.5"), 0);
    EXPECT_EQ(countFor(u"-1"), 0);
    EXPECT_EQ(countFor(u"abc"), 0);
    EXPECT_EQ(countFor(u""), 0);
    EXPECT_EQ(countFor(u"0"), 0);
    EXPECT_EQ(countFor(u"40000"), 0);
    EXPECT_EQ(countFor(u"32767.5"), 0);
    EXPECT_EQ(countFor(u"32767"), 32767);
}

TEST_F(ListLoaderTest, AMissingTotalSectionOrCountEmptiesThatListOnly) {
    EXPECT_TRUE(loadDrm(u"[DRMSchedule0]\r\nProgramme=P\r\n").empty());
    listFile() = utf16File(
        u"[Total]\r\ndrmnumber=0\r\namnumber=1\r\nfmnumber=1\r\n[AMSchedule0]\r\nFrequency=999\r\n"
        u"[FMSchedule0]\r\nFrequency=87500\r\n");
    loadAll();
    EXPECT_EQ(drm.rowCount(), 0);
    EXPECT_EQ(rowsOf(am, 3), (Rows{{u"", u"999", u"MW"}}));
    EXPECT_EQ(rowsOf(fm, 3), (Rows{{u"", u"87.5", u"VHF"}}));
}

TEST_F(ListLoaderTest, AMissingSectionIsAnEmptyRecordAndSectionsBeyondTheCountAreIgnored) {
    const Rows rows = loadDrm(
        u"[Total]\r\ndrmnumber=3\r\n[DRMSchedule0]\r\nProgramme=first\r\n[DRMSchedule2]\r\nProgramme=third\r\n"
        u"[DRMSchedule3]\r\nProgramme=fourth\r\n");
    EXPECT_EQ(rows, (Rows{{u"first", u"", u"", u""}, {u"", u"", u"", u""}, {u"third", u"", u"", u""}}));
}

TEST_F(ListLoaderTest, ThreeHundredRecordsLoadThreeHundredRowsInOneUpdate) {
    std::u16string text = u"[Total]\r\ndrmnumber=300\r\n";
    for (int i = 0; i < 300; ++i) {
        text += u"[DRMSchedule" + decimal(i) + u"]\r\nProgramme=P" + decimal(i) + u"\r\n";
    }
    const Rows rows = loadDrm(text);
    ASSERT_EQ(rows.size(), 300U);
    EXPECT_EQ(rows[299][0], u"P299");
    drmView.calls.clear();
    loader.LoadDrmList(false);
    EXPECT_EQ(drmView.calls, (std::vector<std::string>{"beforeReset", "afterReset"}));
}

TEST_F(ListLoaderTest, LoadingTwiceAppendsTheRowsTwice) {
    listFile() = utf16File(kThreeLists);
    loadAll(true);
    loadAll(false);
    EXPECT_EQ(drm.rowCount(), 2);
    EXPECT_EQ(am.rowCount(), 2);
    EXPECT_EQ(fm.rowCount(), 2);
}

TEST_F(ListLoaderTest, TheBandFollowsTheFrequency) {
    const auto band = [this](std::u16string_view frequency) { return narrow(loadAm(frequency)[0][2]); };
    EXPECT_EQ(band(u"148"), "LW");
    EXPECT_EQ(band(u"288"), "LW");
    EXPECT_EQ(band(u"288.5"), "");
    EXPECT_EQ(band(u"289"), "");
    EXPECT_EQ(band(u"400"), "");
    EXPECT_EQ(band(u"521"), "");
    EXPECT_EQ(band(u"522"), "MW");
    EXPECT_EQ(band(u"1709.9"), "MW");
    EXPECT_EQ(band(u"1710"), "SW");
    EXPECT_EQ(band(u"30000"), "SW");
    EXPECT_EQ(band(u"abc"), "LW");
}

TEST_F(ListLoaderTest, FmFrequenciesAreMegahertzInShortestDecimal) {
    const auto cell = [this](std::u16string_view frequency) { return narrow(loadFm(frequency)[0][1]); };
    EXPECT_EQ(cell(u"98500"), "98.5");
    EXPECT_EQ(cell(u"87500"), "87.5");
    EXPECT_EQ(cell(u"87550"), "87.55");
    EXPECT_EQ(cell(u"100000"), "100");
    EXPECT_EQ(cell(u"abc"), "0");
    EXPECT_EQ(cell(u""), "0");
}

TEST_F(ListLoaderTest, AWrongFrequencyIsKeptAsTextInTheAmAndDrmLists) {
    EXPECT_EQ(loadAm(u"9x9")[0][1], u"9x9");
    EXPECT_EQ(loadDrm(u"[Total]\ndrmnumber=1\n[DRMSchedule0]\nFrequency=none\n")[0][1], u"none");
}

TEST_F(ListLoaderTest, FavouritesShowTheirUnit) {
    EXPECT_EQ(loadFavourite(u"100000", u"FM"), (Rows{{u"P", u"100  MHz", u"FM"}}));
    EXPECT_EQ(loadFavourite(u"999", u"AM"), (Rows{{u"P", u"999  kHz", u"AM"}}));
    EXPECT_EQ(loadFavourite(u"6095 kHz", u"DRM"), (Rows{{u"P", u"6095  kHz", u"DRM"}}));
    EXPECT_EQ(loadFavourite(u"98500", u"my FM list"), (Rows{{u"P", u"98.5  MHz", u"my FM list"}}));
    EXPECT_EQ(loadFavourite(u"98500", u"fm"), (Rows{{u"P", u"98500  kHz", u"fm"}}));
    EXPECT_EQ(loadFavourite(u"", u""), (Rows{{u"P", u"0  kHz", u""}}));
}

TEST_F(ListLoaderTest, SettingsAreReadExceptTheIndex) {
    userFile() = utf16File(u"[version]\r\nMAJOR=2\r\n[Last]\r\ntype=AM\r\nStation=5\r\nNAME= Some one \r\nIndex=7\r\n");
    loader.LoadFavList(false);
    EXPECT_EQ(settings.VersionMajor, u"2");
    EXPECT_EQ(settings.LastType, u"AM");
    EXPECT_EQ(settings.LastStation, u"5");
    EXPECT_EQ(settings.LastName, u"Some one");
    EXPECT_EQ(settings.LastIndex, u"1");
}

TEST_F(ListLoaderTest, AMissingOrEmptySettingKeepsTheRememberedOne) {
    settings.LastName = u"earlier";
    userFile() = utf16File(u"[Version]\r\nmajor=\r\n[LAST]\r\nStation= \r\nname=\"\"\r\n");
    loader.LoadFavList(false);
    EXPECT_EQ(settings.VersionMajor, u"1");
    EXPECT_EQ(settings.LastType, u"DRM");
    EXPECT_EQ(settings.LastStation, u"21000");
    EXPECT_EQ(settings.LastName, u"earlier");
}

TEST_F(ListLoaderTest, ValuesEndAtTheirFirstNulAndAfter254Units) {
    const Rows rows = loadDrm(u"[Total]\r\ndrmnumber=1\r\n[DRMSchedule0]\r\nProgramme=ab\0cd\r\nTarget="s +
                              std::u16string(400, u't') + u"\r\n");
    EXPECT_EQ(rows[0][0], u"ab");
    EXPECT_EQ(rows[0][3], std::u16string(254, u't'));
}

TEST_F(ListLoaderTest, KeysMayHaveAnyCaseOrderAndLineEnd) {
    for (const std::u16string_view lineEnd : {u"\n", u"\r", u"\r\n"}) {
        std::u16string text;
        for (const std::u16string_view line :
             {u"[drmSCHEDULE0]", u"TARGET=T", u"startstoptimeutc=06:00-07:00", u"PROGRAMME=P", u"frequency=5",
              u"[unknown]", u"x=1", u"[TOTAL]", u"DRMNUMBER=1"}) {
            text += line;
            text += lineEnd;
        }
        EXPECT_EQ(loadDrm(text), (Rows{{u"P", u"5", u"06:00-07:00", u"T"}}));
    }
}

TEST_F(ListLoaderTest, AFileWithoutMarkIsReadInTheAnsiCodePage) {
    listFile() = "[Total]\r\namnumber=1\r\n[AMSchedule0]\r\nProgramme=Caf\xE9\r\nFrequency=600\r\n";
    loader.LoadAmList(false);
    EXPECT_EQ(rowsOf(am, 3), (Rows{{u"Café", u"600", u"MW"}}));
}

TEST_F(ListLoaderTest, OneLoadReadsEachFileOnce) {
    listFile() = utf16File(kThreeLists);
    userFile() = utf16File(u" ");
    loadAll();
    EXPECT_EQ(files.accesses, (std::vector<std::string>{"read /k7/List.ini", "read /k7/User.ini"}));
}

TEST_F(ListLoaderTest, ALaterLoadReadsTheFileAgain) {
    listFile() = utf16File(kThreeLists);
    loadAll();
    clearAll();
    listFile() = utf16File(u"[Total]\r\ndrmnumber=2\r\n");
    loadAll(false);
    EXPECT_EQ(drm.rowCount(), 2);
    EXPECT_EQ(am.rowCount(), 0);
    listFile() = utf16File(u"[Total]\r\ndrmnumber=3\r\n");
    drm.clear();
    loader.LoadDrmList(false);
    listFile() = utf16File(u"[Total]\r\ndrmnumber=4\r\n");
    drm.clear();
    loader.LoadDrmList(false);
    EXPECT_EQ(drm.rowCount(), 4) << "asked for the same list again";
}

TEST_F(ListLoaderTest, GivenBytesAreLoadedOnceInsteadOfTheFiles) {
    listFile() = utf16File(u"[Total]\r\ndrmnumber=2\r\n");
    userFile() = utf16File(u"[Total]\r\nfavnumber=2\r\n");
    loader.LoadDrmList(false);
    clearAll();
    files.accesses.clear();
    loader.loadFrom({utf16File(kThreeLists), utf16File(u"[Total]\r\nfavnumber=1\r\n")});
    loadAll(false);
    EXPECT_EQ(drm.rowCount(), 1);
    EXPECT_EQ(am.rowCount(), 1) << "the file that was half loaded is forgotten";
    EXPECT_EQ(fm.rowCount(), 1);
    EXPECT_EQ(favourites.rowCount(), 1);
    EXPECT_TRUE(files.accesses.empty());
    clearAll();
    loadAll(false);
    EXPECT_EQ(drm.rowCount(), 2);
    EXPECT_EQ(am.rowCount(), 0);
    EXPECT_EQ(favourites.rowCount(), 2);
}

TEST_F(ListLoaderTest, BytesMayBeGivenForOneFileOnly) {
    listFile() = utf16File(kThreeLists);
    loader.loadFrom({std::nullopt, utf16File(u"[Total]\r\nfavnumber=1\r\n")});
    loadAll(false);
    EXPECT_EQ(drm.rowCount(), 1);
    EXPECT_EQ(favourites.rowCount(), 1);
}

TEST_F(ListLoaderTest, ParsedFilesAreLoadedOnceInsteadOfTheFiles) {
    listFile() = utf16File(u"[Total]\r\ndrmnumber=2\r\n");
    loader.loadFrom({IniReader(kThreeLists), IniReader(u"[Total]\r\nfavnumber=1\r\n")});
    loadAll(false);
    EXPECT_EQ(drm.rowCount(), 1);
    EXPECT_EQ(am.rowCount(), 1);
    EXPECT_EQ(fm.rowCount(), 1);
    EXPECT_EQ(favourites.rowCount(), 1);
    EXPECT_TRUE(files.accesses.empty());
    clearAll();
    loadAll(false);
    EXPECT_EQ(drm.rowCount(), 2);
    EXPECT_EQ(am.rowCount(), 0);
}

TEST_F(ListLoaderTest, ForgottenFilesAreReadAgain) {
    listFile() = utf16File(kThreeLists);
    loader.LoadDrmList(false);
    listFile() = utf16File(u"[Total]\r\namnumber=2\r\n");
    loader.forgetFiles();
    loader.LoadAmList(false);
    EXPECT_EQ(am.rowCount(), 2);
}
