#include <gtest/gtest.h>

#include "ctl/CsvReader.h"
#include "fakes/Text.h"

namespace {

// Rows as "line:cell|cell", faults as "line!".
std::string read(std::u16string_view text) {
    CsvReader csv(text);
    CsvRow row;
    std::string rows;
    while (csv.next(row)) {
        rows += std::to_string(row.line) + (row.fault.empty() ? ":" : "!");
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            rows += (i == 0 ? "" : "|") + narrow(row.cells[i]);
        }
        rows += "\n";
    }
    return rows;
}

}  // namespace

TEST(CsvReaderTest, LinesEndInAnyWay) {
    EXPECT_EQ(read(u"a,b\r\nc,d\ne,f\rg,h"), "1:a|b\n2:c|d\n3:e|f\n4:g|h\n");
    EXPECT_EQ(read(u"a\n\n\r\nb\n"), "1:a\n4:b\n");
    EXPECT_EQ(read(u""), "");
    EXPECT_EQ(read(u"a,\n,b\n"), "1:a|\n2:|b\n");
}

TEST(CsvReaderTest, TheFirstLineDeterminesTheSeparator) {
    EXPECT_EQ(read(u"a;b,c;d\n1;2;3\n"), "1:a|b,c|d\n2:1|2|3\n");
    EXPECT_EQ(read(u"a\tb\n1,2\t3\n"), "1:a|b\n2:1,2|3\n");
    EXPECT_EQ(read(u"\"a;b;c\",d\n"), "1:a;b;c|d\n");
}

TEST(CsvReaderTest, QuotedCellsHoldSeparatorsQuotesAndLineBreaks) {
    EXPECT_EQ(read(u"\"a,\"\"b\"\"\",\"\"\n\"c\r\nd\",e\nf,g\n"), "1:a,\"b\"|\n2:c\r\nd|e\n4:f|g\n");
}

TEST(CsvReaderTest, MisplacedQuotesAreFaults) {
    EXPECT_EQ(read(u"a\"b,c\n"), "1!a\"b|c\n");
    EXPECT_EQ(read(u"\"a\"b,c\n"), "1!ab|c\n");
    EXPECT_EQ(read(u"\"\"b,c\n"), "1!b|c\n");
    EXPECT_EQ(read(u"a,\"b\nc"), "1!a|b\nc\n");
}
