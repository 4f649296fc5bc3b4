#include <gtest/gtest.h>

#include <random>

#include "contract/Backend.h"
#include "fakes/Text.h"

namespace {

class TextCompareContract : public testing::Test {
protected:
    // Short texts of few letters, so that many pairs are equal or almost equal.
    static std::vector<std::u16string> randomTexts(std::size_t count) {
        static constexpr std::u16string_view kLetters = u"aAbBéÉzZ09 -.ßÖö中电\u0001\uFFFD";
        std::mt19937 random(7);
        std::vector<std::u16string> texts{u""};
        while (texts.size() < count) {
            std::u16string text;
            for (unsigned length = 1 + random() % 4; length > 0; --length) {
                text.push_back(kLetters[random() % kLetters.size()]);
            }
            texts.push_back(text);
        }
        return texts;
    }

    std::unique_ptr<Backend> backend = makeBackend();
    std::vector<std::unique_ptr<TextCompare>> compares = backend->textCompares();
};

TEST_F(TextCompareContract, LetterCaseMakesNoDifference) {
    ASSERT_FALSE(compares.empty());
    for (const auto& order : compares) {
        EXPECT_EQ(order->compare(u"abc", u"ABC"), 0);
        EXPECT_EQ(order->compare(u"", u""), 0);
        EXPECT_EQ(order->compare(u"abc", u"abd"), -1);
        EXPECT_EQ(order->compare(u"ABD", u"abc"), 1);
        EXPECT_EQ(order->compare(u"", u"a"), -1);
        EXPECT_EQ(order->compare(u"ab", u"a"), 1);
    }
}

TEST_F(TextCompareContract, IsAStrictWeakOrder) {
    const std::vector<std::u16string> texts = randomTexts(90);
    for (const auto& order : compares) {
        std::vector<std::vector<int>> result(texts.size(), std::vector<int>(texts.size()));
        for (std::size_t a = 0; a < texts.size(); ++a) {
            for (std::size_t b = 0; b < texts.size(); ++b) {
                result[a][b] = order->compare(texts[a], texts[b]);
            }
        }
        for (std::size_t a = 0; a < texts.size(); ++a) {
            ASSERT_EQ(result[a][a], 0) << narrow(texts[a]);
            for (std::size_t b = 0; b < texts.size(); ++b) {
                ASSERT_EQ(result[a][b], -result[b][a]) << narrow(texts[a]) << " " << narrow(texts[b]);
                for (std::size_t c = 0; c < texts.size(); ++c) {
                    const bool chained = result[a][b] <= 0 && result[b][c] <= 0;
                    ASSERT_TRUE(!chained || result[a][c] <= 0)
                        << narrow(texts[a]) << " " << narrow(texts[b]) << " " << narrow(texts[c]);
                }
            }
        }
    }
}

}  // namespace
