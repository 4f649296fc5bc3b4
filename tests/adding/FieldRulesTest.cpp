#include <gtest/gtest.h>

#include <string>

#include "adding/FieldRules.h"
#include "fakes/Text.h"

namespace {

constexpr const char* kEmpty = "Input can't be empty";
constexpr const char* kBlank = "Input can't be all space";
constexpr const char* kCharacters = "Please input zero to nine";
constexpr const char* kDrmRange = "Out of range: (150--30000) kHz";
constexpr const char* kAmRange = "Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!";
constexpr const char* kFmRange = "Out of range: (87.0-108.0) MHz!";
constexpr const char* kValid = "";

struct RuleCase {
    const FieldRule* rule;
    const char16_t* text;
    const char* error;
};

class FieldRulesTest : public testing::TestWithParam<RuleCase> {};

TEST_P(FieldRulesTest, ReportTheFirstFailingCheck) {
    EXPECT_EQ(narrow(fieldError(*GetParam().rule, GetParam().text)), GetParam().error) << narrow(GetParam().text);
}

const FieldRule* const kProgramme = &kProgrammeRule;
const FieldRule* const kTarget = &kTargetRule;
const FieldRule* const kDrm = &kDrmFrequencyRule;
const FieldRule* const kAm = &kAmFrequencyRule;
const FieldRule* const kFm = &kFmFrequencyRule;

INSTANTIATE_TEST_SUITE_P(Programme, FieldRulesTest,
                         testing::Values(RuleCase{kProgramme, u"", kEmpty}, RuleCase{kProgramme, u" ", kBlank},
                                         RuleCase{kProgramme, u"   ", kBlank}, RuleCase{kProgramme, u"\t", kValid},
                                         RuleCase{kProgramme, u"\u00A0", kValid}, RuleCase{kProgramme, u" A ", kValid},
                                         RuleCase{kProgramme, u"X.Y.Z", kValid},
                                         RuleCase{kProgramme, u"Радио中国", kValid}));

INSTANTIATE_TEST_SUITE_P(Target, FieldRulesTest,
                         testing::Values(RuleCase{kTarget, u"", kEmpty}, RuleCase{kTarget, u"  ", kBlank},
                                         RuleCase{kTarget, u"West Europe, 7", kValid}));

INSTANTIATE_TEST_SUITE_P(DrmFrequency, FieldRulesTest,
                         testing::Values(RuleCase{kDrm, u"", kEmpty}, RuleCase{kDrm, u"  ", kBlank},
                                         RuleCase{kDrm, u" 9620", kCharacters}, RuleCase{kDrm, u"9620 ", kCharacters},
                                         RuleCase{kDrm, u"96.2", kCharacters}, RuleCase{kDrm, u"-100", kCharacters},
                                         RuleCase{kDrm, u"1e3", kCharacters}, RuleCase{kDrm, u"/", kCharacters},
                                         RuleCase{kDrm, u":", kCharacters}, RuleCase{kDrm, u"９６２０", kCharacters},
                                         RuleCase{kDrm, u"149", kDrmRange}, RuleCase{kDrm, u"150", kValid},
                                         RuleCase{kDrm, u"30000", kValid}, RuleCase{kDrm, u"30001", kDrmRange},
                                         RuleCase{kDrm, u"0", kDrmRange}, RuleCase{kDrm, u"0000150", kValid},
                                         RuleCase{kDrm, u"0149", kDrmRange}, RuleCase{kDrm, u"400", kValid},
                                         RuleCase{kDrm, u"99999999999999999999999999", kDrmRange}));

INSTANTIATE_TEST_SUITE_P(AmFrequency, FieldRulesTest,
                         testing::Values(RuleCase{kAm, u"", kEmpty}, RuleCase{kAm, u" ", kBlank},
                                         RuleCase{kAm, u"5.5", kCharacters}, RuleCase{kAm, u"MW", kCharacters},
                                         RuleCase{kAm, u"149", kAmRange}, RuleCase{kAm, u"150", kValid},
                                         RuleCase{kAm, u"288", kValid}, RuleCase{kAm, u"289", kAmRange},
                                         RuleCase{kAm, u"521", kAmRange}, RuleCase{kAm, u"522", kValid},
                                         RuleCase{kAm, u"1709", kValid}, RuleCase{kAm, u"1710", kValid},
                                         RuleCase{kAm, u"1711", kValid}, RuleCase{kAm, u"30000", kValid},
                                         RuleCase{kAm, u"30001", kAmRange}));

INSTANTIATE_TEST_SUITE_P(FmFrequency, FieldRulesTest,
                         testing::Values(RuleCase{kFm, u"", kEmpty}, RuleCase{kFm, u"    ", kBlank},
                                         RuleCase{kFm, u"87", kValid}, RuleCase{kFm, u"87.0", kValid},
                                         RuleCase{kFm, u"86.9", kFmRange}, RuleCase{kFm, u"86.9999999", kFmRange},
                                         RuleCase{kFm, u"108", kValid}, RuleCase{kFm, u"108.", kValid},
                                         RuleCase{kFm, u"108.0", kValid}, RuleCase{kFm, u"108.1", kFmRange},
                                         RuleCase{kFm, u"108.0000001", kFmRange}, RuleCase{kFm, u"87.5.1", kCharacters},
                                         RuleCase{kFm, u"..", kCharacters}, RuleCase{kFm, u"1,5", kCharacters},
                                         RuleCase{kFm, u"98,5", kCharacters}, RuleCase{kFm, u" 98.5", kCharacters},
                                         RuleCase{kFm, u".", kFmRange}, RuleCase{kFm, u".5", kFmRange},
                                         RuleCase{kFm, u"0098.50", kValid}));

TEST(FieldRulesTestPrefixes, PrecedeTheMessagesOfTheirField) {
    EXPECT_EQ(narrow(kProgrammeRule.prefix), "Programme: ");
    EXPECT_EQ(narrow(kTargetRule.prefix), "Target: ");
    for (const FieldRule* rule : {kDrm, kAm, kFm}) {
        EXPECT_EQ(narrow(rule->prefix), "Frequency: ");
    }
}

}  // namespace
