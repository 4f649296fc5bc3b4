#include "ctl/CtlFixture.h"

namespace {

class FindTest : public CtlTest {
protected:
    // The programmes of the rows found.
    std::string find(std::vector<std::string> words) {
        words.insert(words.begin(), "find");
        const int code = run(words);
        std::string found;
        found += out.find("Aurora") != out.npos ? "A" : "";
        found += out.find("青空") != out.npos ? "B" : "";
        EXPECT_EQ(code, found.empty() ? 1 : 0);
        return found;
    }
};

}  // namespace

TEST_F(FindTest, TextIsPartOfTheProgrammeOrTheTargetInAnyCase) {
    EXPECT_EQ(find({}), "AB");
    EXPECT_EQ(find({"auro"}), "A");
    EXPECT_EQ(find({"ASIA"}), "B");
    EXPECT_EQ(find({"空"}), "B");
    EXPECT_EQ(find({"none"}), "");
    EXPECT_EQ(errors, "halcyon_k7ctl: nothing found\n");
}

TEST_F(FindTest, FrequenciesMatchWithinTheGivenRange) {
    EXPECT_EQ(find({"--khz", "6095"}), "A");
    EXPECT_EQ(find({"--khz", "6096"}), "");
    EXPECT_EQ(find({"--khz", "6090+-5"}), "A");
    EXPECT_EQ(find({"--khz", "9000±2955"}), "AB");
    EXPECT_EQ(run({"find", "--khz", "6095+"}), 2);
    EXPECT_EQ(run({"find", "--khz", ""}), 2);
}

TEST_F(FindTest, ABroadcastIsOnAirFromItsStartToBeforeItsStop) {
    EXPECT_EQ(find({"--at", "0659"}), "");
    EXPECT_EQ(find({"--at", "0700"}), "A");
    EXPECT_EQ(find({"--at", "1559"}), "A");
    EXPECT_EQ(find({"--at", "1600"}), "");
    EXPECT_EQ(find({"--at", "2359"}), "B");
    clock.time.hour = 9;
    EXPECT_EQ(find({"--now"}), "A");
    EXPECT_EQ(run({"find", "--at", "2400"}), 2);
    EXPECT_EQ(run({"find", "--at", "0900", "--now"}), 2);
}

TEST_F(FindTest, JsonOfNothingIsAnEmptyArray) {
    EXPECT_EQ(run({"find", "none", "--json"}), 1);
    EXPECT_EQ(out, "[]\n");
}
