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

TEST_F(CommandLineTest, AWrongWordIsNamedWithWhatIsExpected) {
    const std::string commands = "show, find, check, diff, export, import, schedule, backup and receiver\n";
    struct Case {
        std::vector<std::string> words;
        std::string message;
    };
    for (const Case& c : std::vector<Case>{
             {{}, "a command is missing; the commands are " + commands},
             {{"sing"}, "\"sing\" is no command; the commands are " + commands},
             {{"--wrong"}, "\"--wrong\" is no option\n"},
             {{"-x", "show"}, "\"-x\" is no option of \"show\"\n"},
             {{"show", "--wrong"}, "\"--wrong\" is no option of \"show\"\n"},
             {{"show", "am", "lists", "more"}, "\"more\" is one word too many for \"show\"\n"},
             {{"backup", "list", "more"}, "\"more\" is one word too many for \"backup list\"\n"},
             {{"receiver"}, "a command is missing of \"receiver\"; the commands are status, load and save\n"},
             {{"schedule", "shwo", "x"},
              "\"shwo\" is no command of \"schedule\"; the commands are show, merge and replace\n"},
             {{"import"}, "\"import\" needs FILE\n"},
             {{"diff", "a"}, "\"diff\" needs NEW\n"},
             {{"backup", "show"}, "\"backup show\" needs STAMP\n"},
             {{"export", "--format"}, "--format needs a value\n"},
             {{"--folder", "a", "show", "--folder", "b"}, "--folder may be given only once\n"},
             {{"import", "a", "--list", "sw"}, "--list: \"sw\" is none of drm, am, fm and fav\n"},
             {{"show", "sw", "lists"}, "LIST: \"sw\" is none of drm, am, fm and fav\n"},
             {{"export", "--format", "xml"}, "--format: \"xml\" is none of csv, json, ini, html and gqrx\n"},
             {{"schedule", "show", "a", "--format", "x"}, "--format: \"x\" is none of auto, nine, eibi and hfcc\n"},
             {{"schedule", "show", "a", "--day", "xx"}, "--day: \"xx\" is none of mo, tu, we, th, fr, sa and su\n"},
             {{"schedule", "show", "a", "--first", "257"}, "--first: \"257\" is no number from 1 to 256\n"},
             {{"schedule", "show", "a", "--first", "9x"}, "--first: \"9x\" is no number from 1 to 256\n"},
             {{"find", "--khz", "."}, "--khz: \".\" is no frequency in kHz, such as 7325 or 7325+-5\n"},
             {{"find", "--at", "2400"}, "--at: \"2400\" is no time of day, such as 0630\n"}}) {
        EXPECT_EQ(run(c.words), 2);
        EXPECT_EQ(errors, "halcyon_k7ctl: " + c.message + "Run with --help for more information.\n");
        EXPECT_EQ(out, "");
    }
}

TEST_F(CommandLineTest, AWordThatIsNeitherListNorFileIsNamed) {
    EXPECT_EQ(run({"show", "drn"}), 3);
    EXPECT_EQ(errors, "halcyon_k7ctl: drn: is none of drm, am, fm and fav, and there is no such file or folder\n");
}

TEST_F(CommandLineTest, GlobalOptionsMayPrecedeOrFollowTheCommand) {
    EXPECT_EQ(run({"--json", "check"}), 0);
    EXPECT_EQ(out, "[]\n");
    EXPECT_EQ(run({"check", "--json"}), 0);
    EXPECT_EQ(out, "[]\n");
}
