#include "editing/EditingFixture.h"
#include "editing/FieldValidation.h"

namespace {

using enum ListKind;

constexpr std::u16string_view kEmpty = u"Input can't be empty";
constexpr std::u16string_view kAllSpace = u"Input can't be all space";
constexpr std::u16string_view kNotANumber = u"Please input (0-9)";
constexpr std::u16string_view kDrmRange = u"Out of range: (150--30000) kHz";
constexpr std::u16string_view kAmRange = u"Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!";
constexpr std::u16string_view kFmRange = u"Out of range: (87.0-108.0) MHz!";

// One validator: a plain list, or one system of the favourites.
struct Validator {
    ListKind kind;
    std::u16string system;  // favourites only
};

const std::vector<Validator> kValidators = {{Drm, u""},          {Am, u""},          {Fm, u""},
                                            {Favourite, u"DRM"}, {Favourite, u"AM"}, {Favourite, u"FM"}};

class FieldValidationTest : public EditingFixture {
protected:
    // Puts one selected row into the validator's list and opens an edit of the column.
    void open(const Validator& validator, int columnToEdit) {
        grid(validator.kind).clear();
        const bool favourite = validator.kind == Favourite;
        addRow(validator.kind, {u"Old", u"old", favourite ? validator.system : u"Third", u"Fourth"});
        select(validator.kind, 1);
        showTab(validator.kind);
        edit.editRow = 1;
        edit.editColumn = columnToEdit;
        before = rowText(validator.kind, 1);
    }

    void expectRefused(const Validator& validator, int columnToEdit, std::u16string_view text,
                       std::u16string_view message) {
        SCOPED_TRACE(narrow(validator.system) + " list " + std::to_string(static_cast<int>(validator.kind)) + " <" +
                     narrow(text) + ">");
        open(validator, columnToEdit);
        const int focused = view(validator.kind).focusCount;
        messageBox.expect({std::u16string(message)});
        validation.commitEdit(text);
        EXPECT_TRUE(messageBox.allShown());
        EXPECT_EQ(before, rowText(validator.kind, 1));
        EXPECT_EQ(focused + 1, view(validator.kind).focusCount);
    }

    void expectStored(const Validator& validator, int columnToEdit, std::u16string_view text,
                      const std::string& rowAfter) {
        SCOPED_TRACE(narrow(validator.system) + " list " + std::to_string(static_cast<int>(validator.kind)) + " <" +
                     narrow(text) + ">");
        open(validator, columnToEdit);
        const int focused = view(validator.kind).focusCount;
        const std::size_t boxes = messageBox.shown.size();
        validation.commitEdit(text);
        EXPECT_EQ(boxes, messageBox.shown.size());
        EXPECT_EQ(rowAfter, rowText(validator.kind, 1));
        EXPECT_EQ(focused + 1, view(validator.kind).focusCount);
    }

    EditState edit;
    FieldValidation validation{lists, tabs, edit, messages};
    std::string before;
};

TEST_F(FieldValidationTest, RejectsAnEmptyTextInEveryColumnOfEveryList) {
    for (const Validator& validator : kValidators) {
        for (const int columnToEdit : {1, 2, 4}) {
            expectRefused(validator, columnToEdit, u"", kEmpty);
        }
    }
}

TEST_F(FieldValidationTest, RejectsABlankTextInEveryColumnOfEveryList) {
    for (const Validator& validator : kValidators) {
        for (const int columnToEdit : {1, 2, 4}) {
            expectRefused(validator, columnToEdit, u" ", kAllSpace);
            expectRefused(validator, columnToEdit, u"   ", kAllSpace);
        }
    }
}

TEST_F(FieldValidationTest, AcceptsATabInAText) {
    expectStored({Drm, u""}, 1, u"\t", "\t|old|Third|Fourth");
    expectRefused({Drm, u""}, 2, u"\t", kNotANumber);
}

TEST_F(FieldValidationTest, RejectsABlankBeforeAFrequency) {
    for (const Validator& validator : kValidators) {
        expectRefused(validator, 2, u" 9620", kNotANumber);
    }
}

TEST_F(FieldValidationTest, RejectsSignsExponentsAndNonAsciiDigits) {
    for (const Validator& validator : kValidators) {
        for (const std::u16string_view text : {u"-100", u"1e3", u"+100", u"100,5", u"１００", u"100/", u"100:"}) {
            expectRefused(validator, 2, text, kNotANumber);
        }
    }
}

TEST_F(FieldValidationTest, RejectsAPointOutsideFm) {
    for (const Validator& validator : kValidators) {
        const bool fm = validator.kind == Fm || validator.system == u"FM";
        if (!fm) {
            expectRefused(validator, 2, u"999.5", kNotANumber);
        }
    }
}

TEST_F(FieldValidationTest, StoresAProgrammeAsTyped) {
    expectStored({Drm, u""}, 1, u" A.B.C ", " A.B.C |old|Third|Fourth");
    expectStored({Am, u""}, 1, u"A.B.C", "A.B.C|old|Third");
    expectStored({Fm, u""}, 1, u"A.B", "A.B|old|Third");
    expectStored({Favourite, u"DRM"}, 1, u"A.B.C", "A.B.C|old|DRM");
    expectStored({Favourite, u"AM"}, 1, u"A.B.C", "A.B.C|old|AM");
    expectStored({Favourite, u"FM"}, 1, u"电台", "电台|old|FM");
}

TEST_F(FieldValidationTest, RejectsASecondPointInEveryColumnOfAnFmRow) {
    for (const Validator& validator : {Validator{Fm, u""}, Validator{Favourite, u"FM"}}) {
        for (const int columnToEdit : {1, 2, 4}) {
            expectRefused(validator, columnToEdit, u"X.Y.Z", kNotANumber);
            expectRefused(validator, columnToEdit, u"87.5.1", kNotANumber);
            expectRefused(validator, columnToEdit, u"..", kNotANumber);
        }
    }
}

TEST_F(FieldValidationTest, StoresTheDrmTargetAsTyped) {
    expectStored({Drm, u""}, 4, u"W.Eu. -1e3 ", "Old|old|Third|W.Eu. -1e3 ");
}

TEST_F(FieldValidationTest, EnforcesTheRangeOfDrmFrequencies) {
    for (const std::u16string_view text : {u"150", u"30000", u"0150", u"9620"}) {
        expectStored({Drm, u""}, 2, text, "Old|" + narrow(text) + "|Third|Fourth");
        expectStored({Favourite, u"DRM"}, 2, text, "Old|" + narrow(text) + "  kHz|DRM");
    }
    for (const std::u16string_view text : {u"149", u"30001", u"0", u"99999999999999999999"}) {
        expectRefused({Drm, u""}, 2, text, kDrmRange);
        expectRefused({Favourite, u"DRM"}, 2, text, kDrmRange);
    }
}

TEST_F(FieldValidationTest, DerivesTheBandOfAnAmFrequency) {
    const std::vector<std::pair<std::u16string, std::string>> table = {
        {u"150", "LW"}, {u"288", "LW"},  {u"0288", "LW"}, {u"522", "MW"},  {u"0990", "MW"},
        {u"999", "MW"}, {u"1710", "MW"}, {u"1711", "SW"}, {u"30000", "SW"}};
    for (const auto& [text, band] : table) {
        expectStored({Am, u""}, 2, text, "Old|" + narrow(text) + "|" + band);
    }
}

TEST_F(FieldValidationTest, WritesNoBandForAnAmFavourite) {
    for (const std::u16string_view text : {u"150", u"288", u"522", u"1710", u"1711", u"30000"}) {
        expectStored({Favourite, u"AM"}, 2, text, "Old|" + narrow(text) + "  kHz|AM");
    }
}

TEST_F(FieldValidationTest, RejectsAmFrequenciesOutsideTheBands) {
    for (const std::u16string_view text : {u"0", u"149", u"289", u"521", u"30001"}) {
        expectRefused({Am, u""}, 2, text, kAmRange);
        expectRefused({Favourite, u"AM"}, 2, text, kAmRange);
    }
}

TEST_F(FieldValidationTest, EnforcesTheRangeOfFmFrequencies) {
    for (const std::u16string_view text : {u"87", u"87.0", u"87.5", u"098.1", u"108", u"108.0", u"108."}) {
        expectStored({Fm, u""}, 2, text, "Old|" + narrow(text) + "|Third");
        expectStored({Favourite, u"FM"}, 2, text, "Old|" + narrow(text) + "  MHz|FM");
    }
    for (const std::u16string_view text : {u"86.9", u"86.99", u"108.1", u"108.01", u".", u".5"}) {
        expectRefused({Fm, u""}, 2, text, kFmRange);
        expectRefused({Favourite, u"FM"}, 2, text, kFmRange);
    }
}

TEST_F(FieldValidationTest, IgnoresAFavouriteOfAnUnknownSystem) {
    for (const std::u16string_view system : {u"", u"drm", u"DAB", u"D R M"}) {
        for (const std::u16string_view text : {u"", u"  ", u"9620"}) {
            expectStored({Favourite, std::u16string(system)}, 2, text, "Old|old|" + narrow(system));
        }
    }
}

TEST_F(FieldValidationTest, FindsTheSystemAnywhereInItsCellDrmFirst) {
    expectStored({Favourite, u"FM AM DRM"}, 2, u"200", "Old|200  kHz|FM AM DRM");
    expectRefused({Favourite, u"FM/AM"}, 2, u"400", kAmRange);
    expectStored({Favourite, u"(FM)"}, 2, u"90", "Old|90  MHz|(FM)");
}

TEST_F(FieldValidationTest, ChecksAFavouriteByTheFirstSelectedRow) {
    open({Favourite, u"FM"}, 2);
    addRow(Favourite, {u"Other", u"9000  kHz", u"DRM"});
    select(Favourite, 2);
    validation.commitEdit(u"98.1");
    EXPECT_EQ("Old|98.1  MHz|FM", rowText(Favourite, 1));
    EXPECT_EQ("Other|9000  kHz|DRM", rowText(Favourite, 2));
}

TEST_F(FieldValidationTest, IgnoresFavouritesWithoutASelection) {
    open({Favourite, u"FM"}, 2);
    grid(Favourite).setSelected(1, false);
    validation.commitEdit(u"98.1");
    EXPECT_EQ(before, rowText(Favourite, 1));
    EXPECT_EQ(1, view(Favourite).focusCount);
}

TEST_F(FieldValidationTest, WritesTheRowOfTheEditNotTheSelectedOne) {
    open({Am, u""}, 2);
    addRow(Am, {u"Second", u"700", u"MW"});
    edit.editRow = 2;
    validation.commitEdit(u"6000");
    EXPECT_EQ("Old|old|Third", rowText(Am, 1));
    EXPECT_EQ("Second|6000|SW", rowText(Am, 2));
}

TEST_F(FieldValidationTest, DoesNothingOnATabOutsideTheFourLists) {
    open({Drm, u""}, 1);
    for (const int tab : {-1, 4}) {
        tabs.tab = tab;
        validation.commitEdit(u"");
        validation.commitEdit(u"New");
    }
    EXPECT_EQ(before, rowText(Drm, 1));
    EXPECT_EQ(0, view(Drm).focusCount);
    EXPECT_TRUE(messageBox.shown.empty());
}

TEST_F(FieldValidationTest, HooksEachMessageBoxAndRemovesTheHook) {
    expectRefused({Drm, u""}, 2, u"149", kDrmRange);
    expectRefused({Fm, u""}, 2, u"", kEmpty);
    EXPECT_EQ(2U, hook.issued);
    EXPECT_EQ(0U, hook.live);
}

}  // namespace
