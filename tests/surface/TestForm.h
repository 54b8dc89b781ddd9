#pragma once

#include <array>

#include "surface/ComboBox.h"
#include "surface/FormRow.h"
#include "surface/Frame.h"
#include "surface/Label.h"

namespace kelmora::testing {

// A small form in the manner of the frames' tables: a surface column in
// pixels and a borderless Frame whose inside counts twips, an access-date
// catcher label under a text box, option groups in two containers.
inline constexpr auto W = WidgetClass::TextBox;
inline constexpr std::array<FormRow, 12> kTestForm = {{
    {"TextBox", 0, "", W, 1200, 0, 3360, 315, 1, true, true, "", "PeriodicalAuthor,author", 0, 0},
    {"TextBox", 4, "", W, 1200, 1620, 1095, 315, 2, true, true, "", "PeriodicalPage,page", 0, 0},
    {"AdvancedFieldsFrame", -1, "", WidgetClass::Frame, 4695, 0, 4695, 2775, 20, true, true,
     "AdvancedFieldsFrame", "vIgnore_Advanced", Frame::kNoBorder, 0},
    {"TextBox", 8, "AdvancedFieldsFrame", W, 1193, 0, 3340, 315, 21, true, true, "",
     "PeriodicalOnline,online", 0, 0},
    {"ComboBox", 0, "AdvancedFieldsFrame", WidgetClass::ComboBox, 1081, 405, 3340, 315, 23, true,
     true, "", "vIgnore_JournalCombo", ComboBox::kDropdownList, 0},
    {"AccessDateHack", -1, "AdvancedFieldsFrame", WidgetClass::Label, 1208, 1320, 3300, 375, 31,
     true, true, "", "AccessDateHack", Label::kLeftJustify, 0},
    {"TextBox", 9, "AdvancedFieldsFrame", W, 1193, 1320, 3340, 315, 24, true, false, "",
     "PeriodicalAccessDate,accessDate", 0, 0},
    {"OptionButton", 2, "AdvancedFieldsFrame", WidgetClass::OptionButton, 120, 2400, 1125, 195, 25,
     true, true, "Newspaper", "PeriodicalNewspaperOption", 0, 1},
    {"OptionButton", 0, "", WidgetClass::OptionButton, 825, 2520, 885, 195, 0, true, true,
     "Journal", "PeriodicalJournalOption", 0, 1},
    {"OptionButton", 1, "", WidgetClass::OptionButton, 1890, 2520, 1005, 195, 3, true, true,
     "Magazine", "PeriodicalMagazineOption", 0, 0},
    {"ComboLabel", 0, "", WidgetClass::Label, 0, 465, 1110, 195, 38, true, true, "Article title",
     "v579_PeriodicalArticleComboLabel", Label::kRightJustify, 0},
    {"DeprecatedCheckBox", 1, "", WidgetClass::CheckBox, 8160, 3000, 1920, 270, 19, false, true,
     "Include notes in footnotes", "IncludeInFootnotesPeriodicalDeprecated", 0, 0},
}};

}  // namespace kelmora::testing
