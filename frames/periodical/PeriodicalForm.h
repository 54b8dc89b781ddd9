#pragma once

#include <array>

#include "surface/FormRow.h"

namespace kelmora {

// The Periodical form as it was drawn, one row per widget in the order of
// the frame's widget collection. The proxy numbers the registered widgets
// in this order and the catalogue's overall indices rest on it, so no row
// may move. Positions are twips within each row's container; the user
// control converts them to pixels for the widgets on its own surface.
//
// The three Deprecated widgets stand below the form's bottom edge, hidden:
// they carry the stored values of retired fields so that every later
// position of the record stays where it was.
struct PeriodicalForm {
  static constexpr float kWidth = 9255.0f;
  static constexpr float kHeight = 2760.0f;

  static constexpr int16_t kRight = 1;  // a label right-justified in its box
  static constexpr int16_t kListOnly = 2;

  static constexpr auto TB = WidgetClass::TextBox;
  static constexpr auto CB = WidgetClass::ComboBox;
  static constexpr auto OB = WidgetClass::OptionButton;
  static constexpr auto CK = WidgetClass::CheckBox;
  static constexpr auto LB = WidgetClass::Label;
  static constexpr auto FR = WidgetClass::Frame;

  // clang-format off
  static constexpr std::array<FormRow, 41> kRows = {{
      // name                          idx  container              class left   top   width  height tab  shown  enabled caption                              tag                                            style      value
      {"TextBox",                      0,  "",                    TB, 1200, 0,    3360, 315,  3,  true,  true,  "",                                  "PeriodicalAuthor,author",                     0,         0},
      {"AdvancedFieldsFrame",          -1, "",                    FR, 4695, 0,    4695, 2775, 20, false, true,  "AdvancedFieldsFrame",               "vIgnore_PeriodicalAdvancedFieldsFrame",       0,         0},
      {"JournalFrame",                 -1, "AdvancedFieldsFrame", FR, 120,  405,  4455, 375,  22, false, true,  "JournalFrame",                      "vIgnore_PeriodicalJournalFrame",              0,         0},
      {"ComboBox",                     0,  "JournalFrame",        CB, 1081, 0,    3340, 315,  23, true,  true,  "",                                  "vIgnore_JournalCombo",                        kListOnly, 0},
      {"JournalFrameLabel",            -1, "JournalFrame",        LB, 0,    60,   990,  195,  36, true,  true,  "Issue type",                        "",                                            kRight,    0},
      {"TextBox",                      14, "AdvancedFieldsFrame", TB, 1193, 2430, 3340, 315,  29, true,  true,  "",                                  "v4_keywords",                                 0,         0},
      {"TextBox",                      11, "AdvancedFieldsFrame", TB, 1193, 1215, 3340, 315,  26, false, true,  "",                                  "v579_PeriodicalIssue,issue",                  0,         0},
      {"TextBox",                      10, "AdvancedFieldsFrame", TB, 1193, 810,  3340, 315,  25, false, true,  "",                                  "v579_PeriodicalPublishDate,publishDate",      0,         0},
      {"TextBox",                      13, "AdvancedFieldsFrame", TB, 1193, 2025, 3340, 315,  28, true,  true,  "",                                  "PeriodicalNotes,notes",                       0,         0},
      {"TextBox",                      8,  "AdvancedFieldsFrame", TB, 1193, 0,    3340, 315,  21, true,  true,  "",                                  "PeriodicalOnline,online",                     0,         0},
      {"TextBox",                      9,  "AdvancedFieldsFrame", TB, 1193, 405,  3340, 315,  24, false, true,  "",                                  "PeriodicalAccessDate,accessDate",             0,         0},
      {"TextBox",                      12, "AdvancedFieldsFrame", TB, 1193, 1620, 3340, 315,  27, true,  true,  "",                                  "PeriodicalRefersTo,refersTo",                 0,         0},
      {"ComboLabel",                   1,  "AdvancedFieldsFrame", LB, 7,    1275, 1110, 195,  40, true,  true,  "Issue type",                        "v574_PeriodicalIssueTypeComboLabel",          kRight,    0},
      {"ComboLabel",                   2,  "AdvancedFieldsFrame", LB, 7,    1680, 1110, 195,  39, true,  true,  "Refers to",                         "v579_PeriodicalRefersToComboLabel",           kRight,    0},
      {"KeywordsLabel",                -1, "AdvancedFieldsFrame", LB, 7,    2490, 1110, 195,  35, true,  true,  "Keywords",                          "",                                            kRight,    0},
      {"PeriodicalAccessDateLabel",    -1, "AdvancedFieldsFrame", LB, 112,  465,  1005, 195,  34, false, true,  "Access date",                       "",                                            kRight,    0},
      {"NotesLabel",                   -1, "AdvancedFieldsFrame", LB, 7,    2085, 1110, 195,  33, true,  true,  "Notes",                             "",                                            kRight,    0},
      {"Label37",                      -1, "AdvancedFieldsFrame", LB, 97,   60,   1020, 195,  32, true,  true,  "Website / DOI",                     "",                                            kRight,    0},
      {"AccessDateHack",               -1, "AdvancedFieldsFrame", LB, 1208, 1320, 3300, 375,  31, true,  false, "",                                  "AccessDateHack",                              0,         0},
      {"PeriodicalPublishDateLabel",   -1, "AdvancedFieldsFrame", LB, 112,  870,  1005, 195,  30, false, true,  "Publish date",                      "",                                            kRight,    0},
      {"OptionButton",                 2,  "",                    OB, 3120, 2520, 1125, 195,  2,  false, true,  "Newspaper",                         "PeriodicalNewspaperOption",                   0,         0},
      {"TextBox",                      4,  "",                    TB, 1200, 1620, 1095, 315,  9,  true,  true,  "",                                  "PeriodicalPage,page",                         0,         0},
      {"DeprecatedCheckBox",           1,  "",                    CK, 8160, 3000, 1920, 270,  19, false, true,  "Include notes in footnotes",        "IncludeInFootnotesPeriodicalDeprecated",      0,         0},
      {"OptionButton",                 0,  "",                    OB, 825,  2520, 885,  195,  0,  false, true,  "Journal",                           "PeriodicalJournalOption",                     0,         1},
      {"TextBox",                      5,  "",                    TB, 3465, 1620, 1095, 315,  10, true,  true,  "",                                  "PeriodicalPageRange,page",                    0,         0},
      {"TextBox",                      2,  "",                    TB, 1200, 810,  3360, 315,  6,  true,  true,  "",                                  "PeriodicalTitle,headingTitleKey",             0,         0},
      {"TextBox",                      1,  "",                    TB, 1200, 405,  3360, 315,  4,  true,  true,  "",                                  "PeriodicalArticleTitle,articletitle",         0,         0},
      {"TextBox",                      6,  "",                    TB, 1200, 2025, 1095, 315,  11, true,  true,  "",                                  "PeriodicalVolume",                            0,         0},
      {"OptionButton",                 1,  "",                    OB, 1890, 2520, 1005, 195,  1,  false, true,  "Magazine",                          "PeriodicalMagazineOption",                    0,         0},
      {"TextBox",                      7,  "",                    TB, 3465, 2025, 1095, 315,  12, true,  true,  "",                                  "PeriodicalNumber",                            0,         0},
      {"TextBox",                      3,  "",                    TB, 1200, 1215, 3360, 315,  8,  true,  true,  "",                                  "PeriodicalDate,date",                         0,         0},
      {"DeprecatedOptionButton",       0,  "",                    OB, 7920, 3000, 1350, 360,  18, false, true,  "Online forum not used",             "v574_PeriodicalOnlineForumOptionDeprecated",  0,         0},
      {"DeprecatedCheckBox",           2,  "",                    CK, 7800, 3000, 1680, 270,  17, false, true,  "PeriodicalIsSupplemental not used", "PeriodicalSupplementalCheckBoxDeprecated",    0,         0},
      {"ComboLabel",                   0,  "",                    LB, 0,    465,  1110, 195,  38, true,  true,  "Article title",                     "v579_PeriodicalArticleComboLabel",            kRight,    0},
      {"Label16",                      -1, "",                    LB, 15,   60,   1110, 195,  37, true,  true,  "Author",                            "",                                            kRight,    0},
      {"PeriodicalNumberLabel",        -1, "",                    LB, 2595, 2085, 795,  195,  14, true,  true,  "Issue num",                         "",                                            kRight,    0},
      {"PeriodicalVolumeLabel",        -1, "",                    LB, 120,  2085, 1005, 195,  13, true,  true,  "Volume",                            "",                                            kRight,    0},
      {"PeriodicalTitleLabel",         -1, "",                    LB, 15,   870,  1110, 195,  5,  true,  true,  "Journal Title",                     "",                                            kRight,    0},
      {"Label22",                      -1, "",                    LB, 15,   1275, 1110, 195,  7,  true,  true,  "Date",                              "",                                            kRight,    0},
      {"PeriodicalPageLabel",          -1, "",                    LB, 45,   1680, 1080, 195,  15, true,  true,  "Page Number",                       "",                                            kRight,    0},
      {"PeriodicalPageRangeLabel",     -1, "",                    LB, 2520, 1680, 870,  195,  16, true,  true,  "Page Range",                        "",                                            kRight,    0},
  }};
  // clang-format on
  static_assert(kRows.size() == 41);
};

}  // namespace kelmora
