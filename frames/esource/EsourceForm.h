#pragma once

#include <array>

#include "surface/FormRow.h"

namespace kelmora {

// The Esource form as it was drawn, one row per widget in the order of the
// frame's widget collection. The proxy numbers the registered widgets in
// this order and the catalogue's overall indices rest on it, so no row may
// move. Every widget stands on the user control's own surface, which
// converts the twips to pixels as it builds them.
//
// The form is one fixed grid: author and publish date; type list, title
// and website title; URL and access date; comment date; notes; the note of
// Label3 across the bottom. DeprecatedCheckBox(0) and TextBox(14) stand
// hidden for a retired and an invisible field, so that every position of
// the stored record keeps its widget. TextBox has no members 8 to 13: the
// keywords box keeps the index it has on the Periodical form.
struct EsourceForm {
  static constexpr float kWidth = 9270.0f;
  static constexpr float kHeight = 2340.0f;

  static constexpr int16_t kRight = 1;  // a label right-justified in its box
  static constexpr int16_t kListOnly = 2;

  static constexpr auto TB = WidgetClass::TextBox;
  static constexpr auto CB = WidgetClass::ComboBox;
  static constexpr auto CK = WidgetClass::CheckBox;
  static constexpr auto LB = WidgetClass::Label;

  // The double blank in Label3's caption stands so in the form.
  // clang-format off
  static constexpr std::array<FormRow, 20> kRows = {{
      // name                 idx container class left  top   width height tab shown  enabled caption          tag                                    style      value
      {"TextBox",             7,  "",       TB,   585,  1635, 8655, 315,   16, true,  true,  "",              "EsourceNotes,notes",                  0,         0},
      {"TextBox",             6,  "",       TB,   5670, 1230, 3570, 315,   14, true,  true,  "",              "v8_CommentDate",                      0,         0},
      {"TextBox",             3,  "",       TB,   5670, 420,  3570, 315,   8,  true,  true,  "",              "EsourceWebsiteTitle",                 0,         0},
      {"DeprecatedCheckBox",  0,  "",       CK,   9000, 2160, 255,  255,   19, false, true,  "Check1",        "IncludeInFootnotesEsourceDeprecated", 0,         0},
      {"TextBox",             4,  "",       TB,   585,  825,  3975, 315,   10, true,  true,  "",              "EsourceURL,online",                   0,         0},
      {"TextBox",             5,  "",       TB,   5670, 825,  3570, 315,   12, true,  true,  "",              "EsourceAccessDate,accessDate",        0,         0},
      {"ComboBox",            1,  "",       CB,   0,    420,  1680, 315,   5,  true,  true,  "",              "EsourceType",                         kListOnly, 0},
      {"ComboBox",            0,  "",       CB,   3495, 0,    1080, 315,   2,  true,  true,  "",              "EsourceDegree",                       kListOnly, 0},
      {"TextBox",             0,  "",       TB,   585,  0,    2850, 315,   1,  true,  true,  "",              "EsourceAuthor,esourceAuthor",         0,         0},
      {"TextBox",             2,  "",       TB,   1740, 420,  2820, 315,   6,  true,  true,  "",              "EsourceTitle",                        0,         0},
      {"TextBox",             1,  "",       TB,   5670, 0,    3570, 315,   4,  true,  true,  "",              "EsourceDate,esourceDate",             0,         0},
      {"TextBox",             14, "",       TB,   9000, 2040, 255,  315,   17, false, true,  "",              "v4_keywords",                         0,         0},
      {"NotesLabel",          -1, "",       LB,   75,   1695, 420,  195,   15, true,  true,  "Notes",         "",                                    0,         0},
      {"CommentDateLabel",    -1, "",       LB,   4515, 1290, 1065, 195,   13, true,  true,  "Comment date",  "",                                    0,         0},
      {"WebsiteTitleLabel",   -1, "",       LB,   4695, 480,  885,  195,   7,  true,  true,  "Forum name",    "",                                    kRight,    0},
      {"EsourceURLLabel",     -1, "",       LB,   210,  885,  285,  195,   9,  true,  true,  "URL",           "",                                    0,         0},
      {"AccessDateLabel",     -1, "",       LB,   4695, 885,  885,  195,   11, true,  true,  "Access date",   "",                                    0,         0},
      {"Label1",              -1, "",       LB,   0,    60,   495,  195,   0,  true,  true,  "Author",        "",                                    0,         0},
      {"Label2",              -1, "",       LB,   4710, 60,   870,  195,   3,  true,  true,  "Publish date",  "",                                    0,         0},
      {"Label3",              -1, "",       LB,   0,    2040, 9015, 255,   18, true,  true,
       "Informal E-sources are not stored in My Ostrander or Ostrander by design.  They remain private to this document.",
       "", 0, 0},
  }};
  // clang-format on
  static_assert(kRows.size() == 20);
};

}  // namespace kelmora
