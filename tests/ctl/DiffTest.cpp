#include "ctl/CtlFixture.h"

namespace {

class DiffTest : public CtlTest {
protected:
    static std::string am(const std::vector<std::string>& programmes) {
        std::string text = "[Total]\namnumber=" + std::to_string(programmes.size()) + "\n";
        for (std::size_t i = 0; i < programmes.size(); ++i) {
            text += "[AMSchedule" + std::to_string(i) + "]\nProgramme=" + programmes[i] +
                    "\nFrequency=" + std::to_string(600 + static_cast<int>(programmes[i].front())) + "\n";
        }
        return text;
    }
    std::string diff(const std::string& before, const std::string& after, const std::vector<std::string>& more = {}) {
        files.files[u"/home/List-a.ini"] = before;
        files.files[u"/home/List-b.ini"] = after;
        std::vector<std::string> words = {"diff", "List-a.ini", "List-b.ini"};
        words.insert(words.end(), more.begin(), more.end());
        const int code = run(words);
        EXPECT_EQ(code, out.empty() ? 0 : 1);
        return out;
    }
};

}  // namespace

TEST_F(DiffTest, EqualListsInDifferentFormsHaveNoDifferences) {
    EXPECT_EQ(diff(am({"a", "b"}), "\xEF\xBB\xBF;comment\n" + am({"a", "b"})), "");
}

TEST_F(DiffTest, RecordsAreAddedRemovedAndChanged) {
    EXPECT_EQ(diff(am({"a", "b", "c"}), am({"c", "d", "a"})), "- AM 2: b | 698\n+ AM 2: d | 700\n");
    std::string changed = kCtlList;
    changed.replace(changed.find("6095"), 4, "6100");
    changed.replace(changed.find("Europe"), 6, "Asia");
    EXPECT_EQ(diff(kCtlList, changed),
              "~ DRM 1: Aurora: Frequency(kHz) \"6095\" -> \"6100\", Target \"Europe\" -> \"Asia\"\n");
    changed = kCtlList;
    changed.replace(changed.find("Short"), 5, "Other");
    EXPECT_EQ(diff(kCtlList, changed), "~ AM 2: Short: Programme \"Short\" -> \"Other\"\n");
}

TEST_F(DiffTest, EqualRecordsAreCounted) { EXPECT_EQ(diff(am({"a", "a"}), am({"a", "a", "a"})), "+ AM 3: a | 697\n"); }

TEST_F(DiffTest, EqualRecordsArePairedInTheOrderOfTheirRows) {
    EXPECT_EQ(diff(am({"a", "b", "a", "b"}), am({"b", "a", "a"})), "- AM 4: b | 698\n");
    EXPECT_EQ(diff(am({"b", "a", "a"}), am({"a", "b", "a", "b"}), {"--ordered"}),
              "~ AM 1: b: row \"1\" -> \"2\"\n+ AM 4: b | 698\n");
}

TEST_F(DiffTest, TheOrderCountsOnlyOnRequest) {
    EXPECT_EQ(diff(am({"a", "b", "c"}), am({"c", "a", "b"})), "");
    EXPECT_EQ(diff(am({"a", "b", "c"}), am({"c", "a", "b"}), {"--ordered"}), "~ AM 3: c: row \"3\" -> \"1\"\n");
}

TEST_F(DiffTest, AFileMissingOnOneSideIsNotCompared) {
    EXPECT_EQ(run({"diff", "/k7/List.ini", "/k7/User.ini"}), 0);
    files.folders.insert(u"/k7");
    EXPECT_EQ(run({"diff", "/k7", "/k7/User.ini"}), 0);
}

TEST_F(DiffTest, JsonHasAnObjectForEachChange) {
    EXPECT_EQ(diff(am({"a"}), am({"b"}), {"--json"}),
              "[\n  {\n    \"change\": \"removed\",\n    \"list\": \"am\",\n    \"old_row\": 1,\n    \"record\": [\n"
              "      \"a\",\n      \"697\"\n    ]\n  },\n  {\n    \"change\": \"added\",\n    \"list\": \"am\",\n"
              "    \"new_row\": 1,\n    \"record\": [\n      \"b\",\n      \"698\"\n    ]\n  }\n]\n");
}

TEST_F(DiffTest, ColoursAreForTerminals) {
    console.isTerminal = true;
    EXPECT_EQ(diff(am({"a"}), am({})), "\x1B[31m- AM 1: a | 697\x1B[0m\n");
}

TEST_F(DiffTest, BothSourcesAreNeeded) {
    EXPECT_EQ(run({"diff", "List.ini"}), 2);
    EXPECT_EQ(run({"diff", "/k7/List.ini", "nowhere"}), 3);
}
