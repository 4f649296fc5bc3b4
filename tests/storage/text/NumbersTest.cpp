#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "fakes/Text.h"
#include "storage/text/Numbers.h"

TEST(NumbersTest, LeadingNumberReadsDigitsWithOnePoint) {
    EXPECT_EQ(leadingNumber(u"6095"), 6095);
    EXPECT_EQ(leadingNumber(u"98.5"), 98.5);
    EXPECT_EQ(leadingNumber(u".5"), 0.5);
    EXPECT_EQ(leadingNumber(u"5."), 5);
    EXPECT_EQ(leadingNumber(u"007"), 7);
}

TEST(NumbersTest, LeadingNumberSkipsBlanksAndTakesOneSign) {
    EXPECT_EQ(leadingNumber(u"  \t12"), 12);
    EXPECT_EQ(leadingNumber(u" -3.25"), -3.25);
    EXPECT_EQ(leadingNumber(u"+4"), 4);
    EXPECT_EQ(leadingNumber(u"--4"), 0);
    EXPECT_EQ(leadingNumber(u"- 4"), 0);
}

TEST(NumbersTest, LeadingNumberIgnoresWhatFollows) {
    EXPECT_EQ(leadingNumber(u"3abc"), 3);
    EXPECT_EQ(leadingNumber(u"1.2.3"), 1.2);
    EXPECT_EQ(leadingNumber(u"1e5"), 1);
    EXPECT_EQ(leadingNumber(u"0x10"), 0);
    EXPECT_EQ(leadingNumber(u"6095  kHz"), 6095);
    EXPECT_EQ(leadingNumber(u"1 2"), 1);
}

TEST(NumbersTest, LeadingNumberWithoutDigitsIsZero) {
    EXPECT_EQ(leadingNumber(u""), 0);
    EXPECT_EQ(leadingNumber(u"   "), 0);
    EXPECT_EQ(leadingNumber(u"abc"), 0);
    EXPECT_EQ(leadingNumber(u"."), 0);
    EXPECT_EQ(leadingNumber(u"-"), 0);
    EXPECT_EQ(leadingNumber(u"-."), 0);
    EXPECT_EQ(leadingNumber(u"inf"), 0);
    EXPECT_EQ(leadingNumber(u"nan"), 0);
    EXPECT_EQ(leadingNumber(u"\uFF11"), 0) << "a full-width digit is not a digit";
}

TEST(NumbersTest, LeadingNumberIsFiniteForAnyText) {
    const std::u16string nines(400, u'9');
    EXPECT_EQ(leadingNumber(nines), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber(u"-" + nines), -std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber(u"0." + std::u16string(400, u'0') + u"1"), 0);
}

TEST(NumbersTest, ShortestDecimalHasNoExponentAndNoSpareDigits) {
    EXPECT_EQ(narrow(shortestDecimal(100)), "100");
    EXPECT_EQ(narrow(shortestDecimal(98.5)), "98.5");
    EXPECT_EQ(narrow(shortestDecimal(87.55)), "87.55");
    EXPECT_EQ(narrow(shortestDecimal(-0.25)), "-0.25");
    EXPECT_EQ(narrow(shortestDecimal(1e20)), "100000000000000000000");
    EXPECT_EQ(narrow(shortestDecimal(1e-7)), "0.0000001");
    EXPECT_EQ(narrow(shortestDecimal(-0.0)), "0");
}

TEST(NumbersTest, ShortestDecimalReadsBackToTheSameDouble) {
    for (const double value : {0.1, 1.0 / 3, 64000.99999999999, 1e300, std::numeric_limits<double>::denorm_min(),
                               std::numeric_limits<double>::max()}) {
        EXPECT_EQ(leadingNumber(shortestDecimal(value)), value);
    }
}

TEST(NumbersTest, ShortestDecimalOfNanAndInfinityIsANumber) {
    EXPECT_EQ(narrow(shortestDecimal(std::nan(""))), "0");
    EXPECT_EQ(leadingNumber(shortestDecimal(std::numeric_limits<double>::infinity())),
              std::numeric_limits<double>::max());
}

TEST(NumbersTest, RoundToInt16TiesGoToEven) {
    EXPECT_EQ(roundToInt16(2.5), 2);
    EXPECT_EQ(roundToInt16(3.5), 4);
    EXPECT_EQ(roundToInt16(-2.5), -2);
    EXPECT_EQ(roundToInt16(0.5), 0);
    EXPECT_EQ(roundToInt16(2.51), 3);
}

TEST(NumbersTest, RoundToInt16OutsideTheRangeIsNullopt) {
    EXPECT_EQ(roundToInt16(32767.4), 32767);
    EXPECT_EQ(roundToInt16(32767.5), std::nullopt);
    EXPECT_EQ(roundToInt16(-32768.5), -32768);
    EXPECT_EQ(roundToInt16(-32769), std::nullopt);
    EXPECT_EQ(roundToInt16(std::nan("")), std::nullopt);
}

TEST(NumbersTest, SaturateToInt16ClampsToTheRange) {
    EXPECT_EQ(saturateToInt16(2.5), 2);
    EXPECT_EQ(saturateToInt16(1e9), 32767);
    EXPECT_EQ(saturateToInt16(-1e9), -32768);
    EXPECT_EQ(saturateToInt16(std::nan("")), 0);
}

TEST(NumbersTest, DecimalWritesIntegers) {
    EXPECT_EQ(narrow(decimal(0)), "0");
    EXPECT_EQ(narrow(decimal(-2147483647 - 1)), "-2147483648");
}

TEST(NumbersTest, KilohertzOfIsTheInverseOfTheDivisionOnLoading) {
    int differing = 0;
    for (int kHz = 0; kHz <= 200000; ++kHz) {
        differing += kilohertzOf(kHz / 1000.0) == kHz ? 0 : 1;
    }
    EXPECT_EQ(differing, 0);
    EXPECT_EQ(narrow(shortestDecimal(kilohertzOf(64.4))), "64400");
    EXPECT_EQ(narrow(shortestDecimal(kilohertzOf(64.001))), "64001");
    EXPECT_EQ(narrow(shortestDecimal(kilohertzOf(0.0041))), "4.1");
}
