#include "ctl/CtlFixture.h"

namespace {

class HtmlPageTest : public CtlTest {
protected:
    std::string page() {
        EXPECT_EQ(run({"export", "--format", "html"}), 0);
        return out;
    }
};

}  // namespace

TEST_F(HtmlPageTest, ThePageContainsTheFourListsAndNeedsNoOtherFile) {
    const std::string html = page();
    for (const std::string part :
         {"<h2>DRM List</h2>", "<h2>AM List</h2>", "<h2>FM List</h2>", "<h2>Favourite</h2>",
          "<td dir=\"auto\">青空</td><td class=\"number\">11955</td>", "2026-11-20 22:45 UTC"}) {
        EXPECT_NE(html.find(part), html.npos) << part;
    }
    for (const std::string outside : {"http:", "https:", "src=", "href=", "@import", "url("}) {
        EXPECT_EQ(html.find(outside), html.npos) << outside;
    }
}

TEST_F(HtmlPageTest, TextsAreEscaped) {
    files.files[u"/k7/List.ini"] =
        "[Total]\ndrmnumber=1\n[DRMSchedule0]\nProgramme=<b>&\"x\nFrequency=\"><script>\n"
        "StartStopTimeUTC=07:00-08:00\nTarget=</td>\x01\n";
    const std::string html = page();
    EXPECT_NE(html.find("&lt;b&gt;&amp;&quot;x"), html.npos);
    EXPECT_NE(html.find("&quot;&gt;&lt;script&gt;"), html.npos);
    EXPECT_NE(html.find("&lt;/td&gt;\xEF\xBF\xBD"), html.npos);
    EXPECT_EQ(html.find("<b>"), html.npos);
}

TEST_F(HtmlPageTest, TheTimelineHasALineForEachFrequencyAndMarksTheHour) {
    const std::string html = page();
    EXPECT_NE(html.find("<rect id=\"now\" x=\"960\""), html.npos) << "22 hours of 40 units behind the left edge of 80";
    const std::size_t low = html.find(">6095</text>");
    const std::size_t high = html.find(">11955</text>");
    EXPECT_LT(low, high);
    EXPECT_NE(high, html.npos);
    EXPECT_NE(html.find("<rect class=\"bar\" x=\"360\" y=\"27\" width=\"360\""), html.npos);
    EXPECT_NE(html.find("<title>Aurora, 6095 kHz, 07:00-16:00 UTC, Europe</title>"), html.npos);
    EXPECT_NE(html.find("<text class=\"in\" x=\"364\" y=\"39\">Aurora</text>"), html.npos);
}

TEST_F(HtmlPageTest, OverlappingBroadcastsArePlacedBelowEachOther) {
    files.files[u"/k7/List.ini"] =
        "[Total]\ndrmnumber=3\n[DRMSchedule0]\nProgramme=A\nFrequency=6000\nStartStopTimeUTC=07:00-09:00\nTarget=E\n"
        "[DRMSchedule1]\nProgramme=B\nFrequency=6000\nStartStopTimeUTC=08:00-10:00\nTarget=E\n"
        "[DRMSchedule2]\nProgramme=C\nFrequency=6000\nStartStopTimeUTC=09:00-10:00\nTarget=E\n";
    const std::string html = page();
    EXPECT_NE(html.find("x=\"360\" y=\"27\""), html.npos);
    EXPECT_NE(html.find("x=\"400\" y=\"49\""), html.npos);
    EXPECT_NE(html.find("x=\"440\" y=\"27\""), html.npos);
}

TEST_F(HtmlPageTest, ALabelThatDoesNotFitIsPlacedNextToItsBar) {
    files.files[u"/k7/List.ini"] =
        "[Total]\ndrmnumber=2\n"
        "[DRMSchedule0]\nProgramme=Early\nFrequency=6000\nStartStopTimeUTC=01:00-01:30\nTarget=E\n"
        "[DRMSchedule1]\nProgramme=Late\nFrequency=6000\nStartStopTimeUTC=23:30-24:00\nTarget=E\n";
    const std::string html = page();
    EXPECT_NE(html.find("<text class=\"behind\" x=\"144\" y=\"39\">Early</text>"), html.npos);
    EXPECT_NE(html.find("<text class=\"before\" x=\"1016\" y=\"39\">Late</text>"), html.npos);
}

TEST_F(HtmlPageTest, WithoutATimeOfDayThereIsNoTimeline) {
    files.files[u"/k7/List.ini"] = "[Total]\ndrmnumber=1\n[DRMSchedule0]\nProgramme=A\nFrequency=6000\n";
    EXPECT_EQ(page().find("<svg"), std::string::npos);
}
