#include "ctl/CtlFixture.h"

namespace {

class CommandLineTest : public CtlTest {};

}  // namespace

TEST_F(CommandLineTest, HelpAndVersionGoToStandardOutput) {
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_NE(out.find("receiver"), out.npos);
    EXPECT_EQ(run({"import", "--help"}), 0);
    EXPECT_NE(out.find("--replace"), out.npos);
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_TRUE(out.starts_with("halcyon_k7ctl "));
    EXPECT_EQ(errors, "");
}

TEST_F(CommandLineTest, WrongArgumentsExitWithTwo) {
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{},
                                               {"sing"},
                                               {"show", "a", "b", "c"},
                                               {"--wrong"},
                                               {"receiver"},
                                               {"import"},
                                               {"diff", "a"},
                                               {"import", "a", "--append", "--replace"},
                                               {"import", "a", "--list", "sw"}}) {
        EXPECT_EQ(run(words), 2);
        EXPECT_TRUE(errors.starts_with("halcyon_k7ctl: ")) << errors;
        EXPECT_EQ(out, "");
    }
}

TEST_F(CommandLineTest, GlobalOptionsMayPrecedeOrFollowTheCommand) {
    EXPECT_EQ(run({"--json", "check"}), 0);
    EXPECT_EQ(out, "[]\n");
    EXPECT_EQ(run({"check", "--json"}), 0);
    EXPECT_EQ(out, "[]\n");
}
