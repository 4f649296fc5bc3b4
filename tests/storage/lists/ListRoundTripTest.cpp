#include <random>

#include "storage/StorageFixture.h"
#include "storage/text/Numbers.h"

namespace {

// A user's lists: any texts without surrounding blanks, quotes and line ends.
class RandomLists {
public:
    std::u16string text(std::size_t longest) {
        static const std::u16string_view kUnits = u"abzAZ019 .;=[]#éЖ中\u00A0\uFFFD";
        std::u16string result;
        const std::size_t length = random_() % (longest + 1);
        while (result.size() < length) {
            if (random_() % 11 == 0) {
                result += u"📻";
            } else {
                result += kUnits[random_() % kUnits.size()];
            }
        }
        const std::size_t first = result.find_first_not_of(u' ');
        return first == result.npos ? u"" : result.substr(first, result.find_last_not_of(u' ') - first + 1);
    }
    int number(int low, int high) { return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1)); }

private:
    std::mt19937 random_{20};
};

class ListRoundTripTest : public StorageTest {
protected:
    void fill() {
        for (int row = random.number(0, 20); row > 0; --row) {
            drm.appendRow({random.text(60), decimal(random.number(1, 30000)), random.text(11), random.text(30)});
        }
        for (int row = random.number(0, 20); row > 0; --row) {
            am.appendRow({random.text(25), decimal(random.number(522, 1709)), u"MW"});
        }
        for (int row = random.number(0, 20); row > 0; --row) {
            fm.appendRow({random.text(25), shortestDecimal(random.number(64000, 108000) / 1000.0), u"VHF"});
        }
        for (int row = random.number(0, 20); row > 0; --row) {
            const bool isFm = random.number(0, 1) == 1;
            favourites.appendRow({random.text(25),
                                  isFm ? shortestDecimal(random.number(64000, 108000) / 1000.0) + u"  MHz"
                                       : decimal(random.number(1, 30000)) + u"  kHz",
                                  isFm ? u"FM" : u"DRM"});
        }
    }
    std::vector<Rows> rows() const { return {rowsOf(drm, 4), rowsOf(am, 3), rowsOf(fm, 3), rowsOf(favourites, 3)}; }
    void reload() {
        convertWorkingCopy(copies.ListFilePath, files);
        convertWorkingCopy(copies.UserFilePath, files);
        clearAll();
        loadAll(false);
    }

    RandomLists random;
};

}  // namespace

TEST_F(ListRoundTripTest, SavedListsLoadAsTheSameRowsAndSaveAsTheSameBytes) {
    createWorkingCopy(copies.ListFilePath, files, codePages);
    createWorkingCopy(copies.UserFilePath, files, codePages);
    for (int round = 0; round < 100; ++round) {
        clearAll();
        fill();
        const auto before = rows();
        saver.SaveLists();
        const auto saved = files.files;
        reload();
        ASSERT_EQ(rows(), before);
        saver.SaveLists();
        ASSERT_EQ(files.files, saved);
    }
}

TEST_F(ListRoundTripTest, CellsAreStableAfterTheFirstLoad) {
    createWorkingCopy(copies.ListFilePath, files, codePages);
    createWorkingCopy(copies.UserFilePath, files, codePages);
    drm.appendRow({u"  blanks ", u"'quoted'", u"two\r\nlines", std::u16string(400, u'x')});
    drm.appendRow({std::u16string{u'a', 0xD800}, std::u16string{u'b', u'\0', u'c'}, u"\t", u"[section]"});
    am.appendRow({std::u16string(253, u'y') + u"📻", u"\u00A0", u""});
    saver.SaveLists();
    reload();
    EXPECT_EQ(rowsOf(drm, 4), (Rows{{u"blanks", u"quoted", u"two  lines", std::u16string(254, u'x')},
                                    {u"a\uFFFD", u"b", u"", u"[section]"}}));
    saver.SaveLists();
    const auto saved = files.files;
    reload();
    saver.SaveLists();
    EXPECT_EQ(files.files, saved);
}

TEST_F(ListRoundTripTest, AListOf32767RecordsIsKept) {
    createWorkingCopy(copies.ListFilePath, files, codePages);
    for (int row = 0; row < 32767; ++row) {
        drm.appendRow({decimal(row)});
    }
    saver.SaveLists();
    reload();
    ASSERT_EQ(drm.rowCount(), 32767);
    EXPECT_EQ(drm.text(32767, 1), u"32766");
}
