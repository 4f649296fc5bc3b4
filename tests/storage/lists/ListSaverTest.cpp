#include <random>

#include "storage/StorageFixture.h"
#include "storage/ini/IniFile.h"
#include "storage/lists/ListSaver.h"
#include "storage/text/Numbers.h"
#include "storage/text/mTextUTF.h"

using namespace std::string_literals;

namespace {

const std::string kSeeded = utf16File(u" ");

class ListSaverTest : public StorageTest {
protected:
    void SetUp() override {
        listFile() = kSeeded;
        userFile() = kSeeded;
    }
    // The reference for a save: one profile call per key into a file with an initial blank, then three passes over the
    // file.
    void seed(const std::u16string& path) {
        TextFormat format = TextFormat::Utf16Le;
        text.WriteTextFile(path, u" ", false, format, format, true, false);
    }
    void reencode(const std::u16string& path) {
        TextFormat format = TextFormat::Utf16Le;
        std::u16string content = text.ReadTextFile(path, format);
        format = TextFormat::Utf8;
        text.WriteTextFile(path, content, false, format, format, false, true);
        content = text.ReadTextFile(path, format);
        content += u"\r\n[kvt update end]\r\n";
        text.WriteTextFile(path, content, false, format, format, false, false);
    }
    void put(const std::u16string& path, const std::u16string& section, std::u16string_view key,
             std::u16string_view value) {
        WriteIniValue(section, key, value, path, literal, codePages);
    }
    std::string literalListFile() {
        const std::u16string path = copies.ListFilePath;
        seed(path);
        put(path, u"Total", u"drmnumber", decimal(drm.rowCount()));
        for (int row = 1; row <= drm.rowCount(); ++row) {
            const std::u16string section = u"DRMSchedule" + decimal(row - 1);
            put(path, section, u"Frequency", drm.text(row, 2));
            put(path, section, u"Programme", drm.text(row, 1));
            put(path, section, u"StartStopTimeUTC", drm.text(row, 3));
            put(path, section, u"Target", drm.text(row, 4));
            put(path, section, u"UserDef", u"0");
        }
        put(path, u"Total", u"amnumber", decimal(am.rowCount()));
        for (int row = 1; row <= am.rowCount(); ++row) {
            const std::u16string section = u"AMSchedule" + decimal(row - 1);
            put(path, section, u"Frequency", am.text(row, 2));
            put(path, section, u"Programme", am.text(row, 1));
            put(path, section, u"UserDef", u"0");
        }
        put(path, u"Total", u"fmnumber", decimal(fm.rowCount()));
        for (int row = 1; row <= fm.rowCount(); ++row) {
            const std::u16string section = u"FMSchedule" + decimal(row - 1);
            put(path, section, u"Frequency", shortestDecimal(kilohertzOf(leadingNumber(fm.text(row, 2)))));
            put(path, section, u"Programme", fm.text(row, 1));
            put(path, section, u"UserDef", u"0");
        }
        reencode(path);
        return literal.files[path];
    }
    std::string literalUserFile() {
        const std::u16string path = copies.UserFilePath;
        seed(path);
        put(path, u"Version", u"major", settings.VersionMajor);
        put(path, u"LAST", u"TYPE", settings.LastType);
        put(path, u"LAST", u"Station", settings.LastStation);
        put(path, u"LAST", u"name", settings.LastName);
        put(path, u"LAST", u"Index", settings.LastIndex);
        put(path, u"Total", u"favnumber", decimal(favourites.rowCount()));
        for (int row = 1; row <= favourites.rowCount(); ++row) {
            const std::u16string section = u"FAVSchedule" + decimal(row - 1);
            const std::u16string_view cell = favourites.text(row, 2);
            const std::u16string_view frequency = cell.substr(0, cell.size() - 5);
            const bool isFm = favourites.text(row, 3).find(u"FM") != std::u16string_view::npos;
            put(path, section, u"Programme", favourites.text(row, 1));
            put(path, section, u"Frequency",
                isFm ? shortestDecimal(kilohertzOf(leadingNumber(frequency))) : std::u16string(frequency));
            put(path, section, u"TYPE", favourites.text(row, 3));
            put(path, section, u"UserDef", u"0");
        }
        reencode(path);
        return literal.files[path];
    }
    void expectLiteralBytes() {
        saver.SaveLists();
        EXPECT_EQ(listFile(), literalListFile());
        EXPECT_EQ(userFile(), literalUserFile());
    }

    FakeFiles literal;
    mTextUTF text{literal, codePages};
};

}  // namespace

TEST_F(ListSaverTest, WritesListIniByteForByte) {
    drm.appendRow({u"Radio Example", u"6095", u"06:00-07:30", u"Europe"});
    am.appendRow({u"Longwave Example", u"198", u"LW"});
    fm.appendRow({u"City FM", u"98.5", u"VHF"});
    saver.SaveLists();
    EXPECT_EQ(listFile(),
              " \r\n[Total]\r\ndrmnumber=1\r\namnumber=1\r\nfmnumber=1\r\n"
              "[DRMSchedule0]\r\nFrequency=6095\r\nProgramme=Radio Example\r\nStartStopTimeUTC=06:00-07:30\r\n"
              "Target=Europe\r\nUserDef=0\r\n"
              "[AMSchedule0]\r\nFrequency=198\r\nProgramme=Longwave Example\r\nUserDef=0\r\n"
              "[FMSchedule0]\r\nFrequency=98500\r\nProgramme=City FM\r\nUserDef=0\r\n"
              "\0\r\n[kvt update end]\r\n"s);
    EXPECT_TRUE(saver.ListsSaved());
}

TEST_F(ListSaverTest, WritesUserIniByteForByte) {
    favourites.appendRow({u"Radio Example", u"6095  kHz", u"DRM"});
    favourites.appendRow({u"City FM", u"98.5  MHz", u"FM"});
    saver.SaveLists();
    EXPECT_EQ(userFile(),
              " \r\n[Version]\r\nmajor=1\r\n[LAST]\r\nTYPE=DRM\r\nStation=21000\r\nname=ZORPA TEST\r\nIndex=1\r\n"
              "[Total]\r\nfavnumber=2\r\n"
              "[FAVSchedule0]\r\nProgramme=Radio Example\r\nFrequency=6095\r\nTYPE=DRM\r\nUserDef=0\r\n"
              "[FAVSchedule1]\r\nProgramme=City FM\r\nFrequency=98500\r\nTYPE=FM\r\nUserDef=0\r\n"
              "\r\n[kvt update end]\r\n");
}

TEST_F(ListSaverTest, ANulPrecedesTheMarkerOnlyAfterAnOddLength) {
    saver.SaveLists();
    const std::string empty = " \r\n[Total]\r\ndrmnumber=0\r\namnumber=0\r\nfmnumber=0\r\n";
    ASSERT_EQ(empty.size() % 2, 1U);
    EXPECT_EQ(listFile(), empty + "\0\r\n[kvt update end]\r\n"s);
    fm.appendRow({u"ab", u"90"});
    saver.SaveLists();
    const std::string one =
        " \r\n[Total]\r\ndrmnumber=0\r\namnumber=0\r\nfmnumber=1\r\n"
        "[FMSchedule0]\r\nFrequency=90000\r\nProgramme=ab\r\nUserDef=0\r\n";
    ASSERT_EQ(one.size() % 2, 0U);
    EXPECT_EQ(listFile(), one + "\r\n[kvt update end]\r\n");
    fm.setText(1, 1, u"abc");
    saver.SaveLists();
    EXPECT_NE(listFile().find("UserDef=0\r\n\0\r\n[kvt update end]\r\n"s), std::string::npos);
}

TEST_F(ListSaverTest, ParityCountsUtf16UnitsAndNotBytes) {
    fm.appendRow({u"é中", u"90"});
    saver.SaveLists();
    EXPECT_EQ(listFile().find('\0'), std::string::npos);
    fm.setText(1, 1, u"📻");
    saver.SaveLists();
    EXPECT_EQ(listFile().find('\0'), std::string::npos) << "a pair counts two";
    fm.setText(1, 1, u"中");
    saver.SaveLists();
    EXPECT_NE(listFile().find('\0'), std::string::npos);
}

TEST_F(ListSaverTest, EmptyGridsGiveCountsOfZeroAndTheMarker) {
    saver.SaveLists();
    EXPECT_EQ(userFile(),
              " \r\n[Version]\r\nmajor=1\r\n[LAST]\r\nTYPE=DRM\r\nStation=21000\r\nname=ZORPA TEST\r\nIndex=1\r\n"
              "[Total]\r\nfavnumber=0\r\n\r\n[kvt update end]\r\n");
}

TEST_F(ListSaverTest, HasTheBytesOfTheThreePassesForEitherParity) {
    for (const std::u16string_view name : {u"ab", u"abc"}) {
        clearAll();
        drm.appendRow({std::u16string(name), u"6095", u"06:00-07:30", u"Europe"});
        am.appendRow({u"Радио 📻", u"198", u"LW"});
        fm.appendRow({u"中文", u"87.5", u"VHF"});
        favourites.appendRow({std::u16string(name), u"87.5  MHz", u"FM"});
        expectLiteralBytes();
    }
}

TEST_F(ListSaverTest, HasTheBytesOfTheThreePassesForAnyUnits) {
    drm.appendRow({std::u16string{u'a', 0xD83D, u'b', 0xDC00}, std::u16string{u'1', 0xD800}, u"x\0y"s, u"\0"s});
    drm.appendRow({u"", u"", u"", u""});
    am.appendRow({u" 'blanks' ", u"no number", u"?"});
    fm.appendRow({u"a=[b];c", u"text", u"VHF"});
    favourites.appendRow({u"nul\0l"s, u"6095  kHz", u"A\0FM"s});
    favourites.appendRow({u"five", u"  kHz", u"xFMx"});
    settings.LastName = std::u16string{0xDC00, u'\0', u'z'};
    expectLiteralBytes();
}

TEST_F(ListSaverTest, HasTheBytesOfTheThreePassesForRandomLists) {
    std::mt19937 random(7);
    const auto randomText = [&random] {
        std::u16string result(random() % 9, u' ');
        for (char16_t& unit : result) {
            // Printable characters and surrogates, single or paired by chance.
            unit = random() % 3 == 0 ? static_cast<char16_t>(0xD800 + random() % 0x800)
                                     : static_cast<char16_t>(u' ' + random() % 0x2000);
        }
        return result;
    };
    for (int round = 0; round < 20; ++round) {
        clearAll();
        for (auto row = random() % 12; row > 0; --row) {
            drm.appendRow({randomText(), randomText(), randomText(), randomText()});
            am.appendRow({randomText(), randomText(), u"MW"});
            fm.appendRow({randomText(), shortestDecimal(static_cast<double>(random() % 4000) / 20), u"VHF"});
            favourites.appendRow({randomText(), randomText() + u"  kHz", u"AM"});
        }
        expectLiteralBytes();
    }
}

TEST_F(ListSaverTest, RowsAreStoredInTheOrderOfTheGrid) {
    for (const std::u16string_view name : {u"c", u"a", u"b"}) {
        drm.appendRow({std::u16string(name)});
    }
    saver.SaveLists();
    const auto at = [this](const std::string& part) { return listFile().find(part); };
    EXPECT_LT(at("[DRMSchedule0]\r\nFrequency=\r\nProgramme=c\r\n"),
              at("[DRMSchedule1]\r\nFrequency=\r\nProgramme=a\r\n"));
    EXPECT_LT(at("[DRMSchedule1]"), at("[DRMSchedule2]\r\nFrequency=\r\nProgramme=b\r\n"));
    EXPECT_NE(at("Programme=b"), std::string::npos);
}

TEST_F(ListSaverTest, MegahertzAreStoredAsKilohertz) {
    fm.appendRow({u"a", u"87.5"});
    fm.appendRow({u"b", u"64.4"});
    favourites.appendRow({u"c", u"98.5  MHz", u"FM"});
    favourites.appendRow({u"d", u"6095  kHz", u"DRM"});
    saver.SaveLists();
    EXPECT_NE(listFile().find("Frequency=87500\r\n"), std::string::npos);
    EXPECT_NE(listFile().find("Frequency=64400\r\n"), std::string::npos);
    EXPECT_NE(userFile().find("Frequency=98500\r\n"), std::string::npos);
    EXPECT_NE(userFile().find("Frequency=6095\r\n"), std::string::npos);
}

TEST_F(ListSaverTest, SavingTwiceGivesIdenticalFiles) {
    drm.appendRow({u"Радио", u"6095", u"06:00-07:30", u"Europe"});
    favourites.appendRow({u"中", u"98.5  MHz", u"FM"});
    saver.SaveLists();
    const auto first = files.files;
    saver.SaveLists();
    EXPECT_EQ(files.files, first);
}

TEST_F(ListSaverTest, AMissingWorkingCopyGetsNoSeedLineButIsUtf8Too) {
    files.files.clear();
    am.appendRow({u"中", u"198", u"LW"});
    saver.SaveLists();
    EXPECT_EQ(listFile(),
              "[Total]\r\ndrmnumber=0\r\namnumber=1\r\nfmnumber=0\r\n"
              "[AMSchedule0]\r\nFrequency=198\r\nProgramme=\xE4\xB8\xAD\r\nUserDef=0\r\n"
              "\r\n[kvt update end]\r\n");
    EXPECT_TRUE(userFile().starts_with("[Version]\r\n"));
}

TEST_F(ListSaverTest, OneSaveWritesEachFileOnceAndReadsNone) {
    drm.appendRow({u"a"});
    saver.SaveLists();
    EXPECT_EQ(files.accesses,
              (std::vector<std::string>{"clearAttributes /k7/List.ini", "clearAttributes /k7/User.ini",
                                        "write /k7/LIST.K7N", "write /k7/USER.K7N", "rename /k7/LIST.K7N",
                                        "onto /k7/List.ini", "rename /k7/USER.K7N", "onto /k7/User.ini"}));
}

TEST_F(ListSaverTest, AReadOnlyWorkingCopyIsMadeWritable) {
    files.readOnly = {copies.ListFilePath, copies.UserFilePath};
    saver.SaveLists();
    EXPECT_TRUE(saver.ListsSaved());
    EXPECT_TRUE(listFile().starts_with(" \r\n[Total]"));
}

TEST_F(ListSaverTest, AFailureKeepsTheOldFilesAndLeavesNoTemporaryFile) {
    saver.SaveLists();
    const auto old = files.files;
    for (const std::u16string_view fault : {u"/k7/LIST.K7N", u"/k7/USER.K7N", u"/k7/List.ini", u"/k7/User.ini"}) {
        files.failing = {std::u16string(fault)};
        drm.appendRow({u"new"});
        favourites.appendRow({u"new", u"1  kHz", u"AM"});
        saver.SaveLists();
        EXPECT_FALSE(saver.ListsSaved()) << narrow(fault);
        EXPECT_TRUE(onlyWorkingCopiesExist()) << narrow(fault);
        const bool isList = fault.starts_with(u"/k7/L");
        const std::u16string& path = isList ? copies.ListFilePath : copies.UserFilePath;
        EXPECT_EQ(files.files[path], old.at(path)) << narrow(fault);
        files.files = old;
    }
    files.failing.clear();
    saver.SaveLists();
    EXPECT_TRUE(saver.ListsSaved());
}

TEST_F(ListSaverTest, AFavouriteWithoutUnitKeepsUserIniUnchanged) {
    drm.appendRow({u"saved all the same"});
    favourites.appendRow({u"a", u"6095  kHz", u"AM"});
    favourites.appendRow({u"b", u"9kHz", u"AM"});
    saver.SaveLists();
    EXPECT_NE(listFile().find("saved all the same"), std::string::npos);
    EXPECT_EQ(userFile(), kSeeded);
    EXPECT_FALSE(saver.ListsSaved());
    favourites.setText(2, 2, u"  kHz");
    saver.SaveLists();
    EXPECT_NE(userFile().find("Programme=b\r\nFrequency=\r\n"), std::string::npos) << "just the unit is enough";
    EXPECT_TRUE(saver.ListsSaved());
}

TEST_F(ListSaverTest, ResetRemovesTheRecordsAndTheMarkerButNotTheCounts) {
    listFile() = utf16File(
        u" \r\n[Total]\r\ndrmnumber=2\r\namnumber=1\r\nfmnumber=0\r\n[DRMSchedule0]\r\nx=1\r\n[DRMSchedule1]\r\nx=2\r\n"
        u"[DRMSchedule2]\r\nx=3\r\n[AMSchedule0]\r\nx=4\r\n[FMSchedule0]\r\nx=5\r\n\r\n[kvt update end]\r\n");
    saver.ResetContentOfINI();
    EXPECT_EQ(listFile(),
              utf16File(u" \r\n[Total]\r\ndrmnumber=2\r\namnumber=1\r\nfmnumber=0\r\n[DRMSchedule2]\r\nx=3\r\n"
                        u"[FMSchedule0]\r\nx=5\r\n\r\n"));
    EXPECT_EQ(userFile(), kSeeded);
}

TEST_F(ListSaverTest, ResetOfUserIniRemovesTheFavourites) {
    userFile() = "[LAST]\r\nTYPE=AM\r\n[Total]\r\nfavnumber=1x\r\n[FAVSchedule0]\r\nx=1";
    saver.ResetContentOfUserINI();
    EXPECT_EQ(userFile(), "[LAST]\r\nTYPE=AM\r\n[Total]\r\nfavnumber=1x\r\n");
    EXPECT_EQ(countOf("write /k7/USER.K7N"), 1);
}
