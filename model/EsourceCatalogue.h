#pragma once

#include <cstdint>
#include <iterator>

#include "model/Catalogue.h"

namespace kelmora {

// The field catalogue of informal electronic sources (e-mail, forum and
// social-media messages, blog comments and the like), whichType 4. These
// indices are the contract with the host's stored records and with the widget
// order of the Esource form: none of them may move. Retired fields keep their
// places under keys ending in "Deprecated", and version prefixes keep every
// newer key sorting after the older ones.
struct EsourceCatalogue {
  // The key of each internal index. Indices 2, 3 and 9 are the keywords and
  // hidden fields that every type shares; the model fills them in.
  // clang-format off
  static constexpr Catalogue::FieldRow kSynchronizableKeys[] = {
      {0, "EsourceTitle"},
      {1, "EsourceAuthor"},
      {4, "EsourceNotes"},
      {5, "EsourceURL"},
      {6, "EsourceAccessDate"},
      {7, "IncludeInFootnotesEsourceDeprecated"},
      {8, "EsourceDate"},
      {10, "EsourceDegree"},
      {11, "EsourceType"},
      {12, "EsourceWebsiteTitle"},
      {13, "v8_CommentDate"},
  };
  // clang-format on
  static constexpr int16_t kSynchronizableKeysUpperBound = 13;

  // clang-format off
  static constexpr Catalogue::SettingRow kSettings[] = {
      {0, "Esource"},
      {1, "10, ,11,Email to,7,False"},
      {2, "-1"},
      {3, "True"},
      {4, "True"},
      {5, {}, -1},  // the text of the number
      {6, "False"},
      {7, "yyyy, mmmm d"},
      {8, ""},
      {9, "False"},
      {10, "False"},
      {11, "False"},
  };
  // clang-format on

  // Columns of the host's reference list: title, author, date, location.
  static constexpr int16_t kReferenceFormDisplayIndex[] = {0, 1, 8, 3};
  static constexpr int16_t kKeyIndex = 1;        // EsourceAuthor
  static constexpr int16_t kSecondKeyIndex = 0;  // EsourceTitle

  // Key to overall index, in rising order of the index: the widgets of the
  // form that the proxy registers, each under its tag key. Keys without an
  // internal index name captions and layout widgets that store nothing.
  // clang-format off
  static constexpr Catalogue::KeyRow kKeyToOverallIndex[] = {
      {0, "EsourceNotes"},                         // TextBox(7)
      {1, "v8_CommentDate"},                       // TextBox(6)
      {2, "EsourceWebsiteTitle"},                  // TextBox(3)
      {3, "IncludeInFootnotesEsourceDeprecated"},  // DeprecatedCheckBox(0)
      {4, "EsourceURL"},                           // TextBox(4)
      {5, "EsourceAccessDate"},                    // TextBox(5)
      {6, "EsourceType"},                          // ComboBox(1)
      {7, "EsourceDegree"},                        // ComboBox(0)
      {8, "EsourceAuthor"},                        // TextBox(0)
      {9, "EsourceTitle"},                         // TextBox(2)
      {10, "EsourceDate"},                         // TextBox(1)
      {11, "v4_keywords"},                         // TextBox(14)
      {12, "NotesLabel"},                          // NotesLabel
      {13, "CommentDateLabel"},                    // CommentDateLabel
      {14, "WebsiteTitleLabel"},                   // WebsiteTitleLabel
      {15, "EsourceURLLabel"},                     // EsourceURLLabel
      {16, "AccessDateLabel"},                     // AccessDateLabel
      {17, "Label1"},                              // Label1
      {18, "Label2"},                              // Label2
      {19, "Label3"},                              // Label3
  };
  // clang-format on

  // Synchronisable keys that sort after the two hidden keys.
  static constexpr int16_t kNumAfterV4Keywords = 1;

  // Synchronisable position to overall index. Positions follow the binary
  // order of the keys, without the two hidden keys.
  // clang-format off
  static constexpr Catalogue::PositionRow kSynchronizableControlIndices[] = {
      {0, 5},
      {1, 8},
      {2, 10},
      {3, 7},
      {4, 0},
      {5, 9},
      {6, 6},
      {7, 4},
      {8, 2},
      {9, 3},
      {10, 11},
      {11, 1},
  };
  // clang-format on

  // Default tooltips by synchronisable position; the other positions have
  // none.
  // clang-format off
  static constexpr Catalogue::TooltipRow kTooltips[] = {
      {0, "Date that you accessed the website (e.g. January 3, 2010)"},
      {2, "The date of when the message was sent or posted"},
      {4, "Store notes with this reference entry"},
      {11, "Date that the comment was posted, which is later than the Publish date of the blog post"},
  };
  // clang-format on

  static const Catalogue kCatalogue;
};

static_assert(std::size(EsourceCatalogue::kSynchronizableKeys) == 11);
static_assert(std::size(EsourceCatalogue::kSettings) == 12);
static_assert(std::size(EsourceCatalogue::kKeyToOverallIndex) == 20);
static_assert(std::size(EsourceCatalogue::kSynchronizableControlIndices) == 12);
static_assert(std::size(EsourceCatalogue::kTooltips) == 4);
inline constexpr Catalogue EsourceCatalogue::kCatalogue = Catalogue::of<EsourceCatalogue>();
static_assert(Catalogue::isWellFormed(EsourceCatalogue::kCatalogue));

}  // namespace kelmora
