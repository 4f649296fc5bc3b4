#include <gtest/gtest.h>

#include "contract/Backend.h"

namespace {

class CodePagesContract : public testing::Test {
protected:
    std::unique_ptr<Backend> backend = makeBackend();
    std::unique_ptr<CodePages> pages = backend->codePages();
};

TEST_F(CodePagesContract, EveryAnsiByteConvertsBothWays) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    const std::u16string text = pages->decode(all);
    ASSERT_EQ(text.size(), 256U);
    EXPECT_TRUE(pages->encode(text) == all);
    EXPECT_TRUE(text.starts_with(std::u16string(u"\0\u0001\u0002", 3)));
}

TEST_F(CodePagesContract, CharactersOutsideTheCodePageBecomeAQuestionMark) {
    EXPECT_EQ(pages->encode(u"a\u4E2Db"), "a?b");
    EXPECT_EQ(pages->encode(u"\u2603"), "?");
}

TEST_F(CodePagesContract, AnEmptyTextStaysEmpty) {
    EXPECT_TRUE(pages->decode("").empty());
    EXPECT_TRUE(pages->encode(u"").empty());
}

}  // namespace
