#pragma once

#include <array>

#include "surface/FormRow.h"

namespace kelmora {

// The NonPeriodical form as it was drawn, one row per widget in the order of
// the frame's widget collection. The proxy numbers the registered widgets in
// this order and the catalogue's overall indices rest on it, so no row may
// move; each sub-frame stands just before the widgets it holds. Positions
// are twips within each row's container; the user control converts them to
// pixels for the widgets on its own surface.
//
// Kept on purpose: DeprecatedCheckBox(0) below the bottom edge, hidden, for
// the catalogue position of its retired field; AccessDateHack below the last
// row of WebsiteFrame, which clips it; the hidden option pair that holds the
// book or website choice. SubworkFrame alone of the sub-frames has no tag
// and keeps its caption "Frame1", so it takes an overall index.
struct NonPeriodicalForm {
  static constexpr float kWidth = 9285.0f;
  static constexpr float kHeight = 2775.0f;

  static constexpr int16_t kRight = 1;  // a label right-justified in its box
  static constexpr int16_t kListOnly = 2;

  static constexpr auto TB = WidgetClass::TextBox;
  static constexpr auto CB = WidgetClass::ComboBox;
  static constexpr auto OB = WidgetClass::OptionButton;
  static constexpr auto CK = WidgetClass::CheckBox;
  static constexpr auto LB = WidgetClass::Label;
  static constexpr auto FR = WidgetClass::Frame;

  // clang-format off
  static constexpr std::array<FormRow, 51> kRows = {{
      // name                     idx  container                 class left  top   width height tab shown  enabled caption                   tag                                 style      value
      {"EditorFrame",             -1, "",                       FR, 4695, 1620, 4605, 315,  35, false, true, "EditorFrame",            "vIgnore_EditorFrame",              0,         0},
      {"TextBox",                 13, "EditorFrame",            TB, 1155, 0,    3390, 315,  36, true,  true, "",                       "CompilerOrEditor,editor",          0,         0},
      {"ComboLabel",              2,  "EditorFrame",            LB, 0,    60,   1060, 195,  48, true,  true, "Editor",                 "CompilerOrEditorComboLabel",       kRight,    0},
      {"WebsiteFrame",            -1, "",                       FR, 4695, 405,  4605, 1155, 26, false, true, "WebsiteFrame",           "vIgnore_WebsiteFrame",             0,         0},
      {"TextBox",                 11, "WebsiteFrame",           TB, 1155, 405,  3390, 315,  28, false, true, "",                       "AccessDate,accessDate",            0,         0},
      {"TextBox",                 10, "WebsiteFrame",           TB, 1155, 0,    3390, 315,  27, true,  true, "",                       "Online,online",                    0,         0},
      {"TextBox",                 12, "WebsiteFrame",           TB, 1155, 810,  3390, 315,  30, true,  true, "",                       "v579_BookPublishDate,publishDate", 0,         0},
      {"ComboBox",                0,  "WebsiteFrame",           CB, 0,    810,  1080, 315,  29, true,  true, "",                       "v8_PublicationDateTypeComboBox",   kListOnly, 0},
      {"AccessDateHack",          -1, "WebsiteFrame",           LB, 1215, 1425, 3390, 375,  31, true,  true, "",                       "AccessDateHack",                   0,         0},
      {"PublishDateLabel",        -1, "WebsiteFrame",           LB, 70,   870,  990,  195,  34, true,  true, "Publish date",           "",                                 kRight,    0},
      {"WebsiteLabel",            -1, "WebsiteFrame",           LB, 45,   60,   1020, 195,  33, true,  true, "Website / DOI",          "",                                 kRight,    0},
      {"AccessDateLabel",         -1, "WebsiteFrame",           LB, 80,   465,  990,  195,  32, false, true, "Access date",            "",                                 kRight,    0},
      {"MultipartWorkFrame",      -1, "",                       FR, 4695, 2025, 4605, 720,  37, true,  true, "MultipartWorkFrame",     "vIgnore_MultipartWorkFrame",       0,         0},
      {"TextBox",                 15, "MultipartWorkFrame",     TB, 1155, 405,  3390, 315,  40, true,  true, "",                       "MultiPartWork,multivol",           0,         0},
      {"TextBox",                 14, "MultipartWorkFrame",     TB, 1155, 0,    3390, 315,  38, true,  true, "",                       "Translator,editor",                0,         0},
      {"ComboLabel",              3,  "MultipartWorkFrame",     LB, 10,   465,  1060, 195,  49, true,  true, "Multi-vol.",             "MultiPartComboLabel,multi-vol",    kRight,    0},
      {"TranslatorLabel",         -1, "MultipartWorkFrame",     LB, 335,  60,   735,  195,  39, true,  true, "Translator",             "",                                 kRight,    0},
      {"NotesFrame",              -1, "",                       FR, 4695, 2835, 4605, 330,  41, true,  true, "NotesFrame",             "vIgnore_NotesFrame",               0,         0},
      {"TextBox",                 17, "NotesFrame",             TB, 3345, 0,    1200, 315,  43, true,  true, "",                       "v4_keywords",                      0,         0},
      {"TextBox",                 16, "NotesFrame",             TB, 1150, 0,    1200, 315,  42, true,  true, "",                       "Notes,notes",                      0,         0},
      {"KeywordsLabel",           -1, "NotesFrame",             LB, 2395, 60,   825,  195,  45, true,  true, "Keywords",               "",                                 kRight,    0},
      {"NotesLabel",              -1, "NotesFrame",             LB, 585,  60,   480,  195,  44, true,  true, "Notes",                  "",                                 kRight,    0},
      {"PublicationMediumFrame",  -1, "",                       FR, 4695, 0,    4605, 315,  24, true,  true, "PublicationMediumFrame", "vIgnore_PublicationMediumFrame",   0,         0},
      {"TextBox",                 9,  "PublicationMediumFrame", TB, 1160, 0,    3390, 315,  25, true,  true, "",                       "v8_PublicationMedium",             0,         0},
      {"ComboLabel",              1,  "PublicationMediumFrame", LB, 0,    60,   1060, 195,  47, true,  true, "Medium",                 "v8_PublicationMediumComboLabel",   kRight,    0},
      {"SubworkFrame",            -1, "",                       FR, 60,   2430, 4605, 300,  22, true,  true, "Frame1",                 "",                                 0,         0},
      {"TextBox",                 8,  "SubworkFrame",           TB, 825,  0,    3675, 315,  23, true,  true, "",                       "Subwork,chaptertitle",             0,         0},
      {"ComboLabel",              0,  "SubworkFrame",           LB, 0,    60,   735,  195,  50, true,  true, "Chapter",                "SubworkComboLabel",                kRight,    0},
      {"PublisherFrame",          -1, "",                       FR, 60,   810,  4575, 315,  6,  true,  true, "PublisherFrame",         "vIgnore_PublisherFrame",           0,         0},
      {"TextBox",                 2,  "PublisherFrame",         TB, 820,  0,    3680, 315,  8,  true,  true, "",                       "Publisher,publisher",              0,         0},
      {"Label3",                  -1, "PublisherFrame",         LB, 90,   60,   645,  195,  7,  true,  true, "Publisher",              "",                                 kRight,    0},
      {"PageFrame",               -1, "",                       FR, 255,  1620, 4320, 375,  14, true,  true, "PageFrame",              "vIgnore_PageFrame",                0,         0},
      {"TextBox",                 5,  "PageFrame",              TB, 630,  0,    1770, 315,  16, true,  true, "",                       "Page,page",                        0,         0},
      {"TextBox",                 6,  "PageFrame",              TB, 3420, 0,    885,  315,  18, false, true, "",                       "v579_PageRange,page",              0,         0},
      {"PageLabel",               -1, "PageFrame",              LB, 90,   60,   450,  195,  15, true,  true, "Page",                   "PageLabel",                        kRight,    0},
      {"PageRangeLabel",          -1, "PageFrame",              LB, 2505, 60,   825,  195,  17, false, true, "Page range",             "",                                 kRight,    0},
      {"EditionFrame",            -1, "",                       FR, 60,   2025, 4590, 345,  19, false, true, "EditionFrame",           "vIgnore_EditionFrame",             0,         0},
      {"TextBox",                 7,  "EditionFrame",           TB, 825,  0,    3675, 315,  21, true,  true, "",                       "Edition,edition",                  0,         0},
      {"EditionLabel",            -1, "EditionFrame",           LB, 250,  60,   480,  195,  20, true,  true, "Edition",                "",                                 kRight,    0},
      {"PlaceFrame",              -1, "",                       FR, 255,  1215, 4320, 375,  9,  true,  true, "PlaceFrame",             "vIgnore_PlaceFrame",               0,         0},
      {"TextBox",                 4,  "PlaceFrame",             TB, 3420, 0,    885,  315,  13, true,  true, "",                       "Year,year",                        0,         0},
      {"TextBox",                 3,  "PlaceFrame",             TB, 630,  0,    1770, 315,  11, true,  true, "",                       "Place",                            0,         0},
      {"PlaceLabel",              -1, "PlaceFrame",             LB, 160,  60,   375,  195,  10, true,  true, "Place",                  "",                                 kRight,    0},
      {"YearLabel",               -1, "PlaceFrame",             LB, 3000, 60,   330,  195,  12, true,  true, "Year",                   "",                                 0,         0},
      {"TextBox",                 0,  "",                       TB, 885,  0,    3675, 315,  3,  true,  true, "",                       "Author,author",                    0,         0},
      {"DeprecatedCheckBox",      0,  "",                       CK, 8280, 3360, 1335, 435,  46, false, true, "Ignore",                 "IncludeInFootnotesBookDeprecated", 0,         0},
      {"OptionButton",            1,  "",                       OB, 5040, 0,    885,  195,  1,  false, true, "Website",                "v6_WebsiteOption",                 0,         0},
      {"OptionButton",            0,  "",                       OB, 4155, 0,    645,  195,  0,  false, true, "Book",                   "v6_BookOption",                    0,         1},
      {"TextBox",                 1,  "",                       TB, 885,  405,  3675, 315,  5,  true,  true, "",                       "Title,title",                      0,         0},
      {"Label2",                  -1, "",                       LB, 128,  465,  660,  195,  4,  true,  true, "Title",                  "",                                 kRight,    0},
      {"AuthorLabel",             -1, "",                       LB, 293,  60,   495,  195,  2,  true,  true, "Author",                 "",                                 kRight,    0},
  }};
  // clang-format on
  static_assert(kRows.size() == 51);
};

}  // namespace kelmora
