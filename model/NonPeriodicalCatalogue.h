#pragma once

#include <cstdint>
#include <iterator>

#include "model/Catalogue.h"

namespace kelmora {

// The field catalogue of books and websites, whichType 0. These indices are
// the contract with the host's stored records and with the widget order of the
// NonPeriodical form: none of them may move. Retired fields keep their places
// under keys ending in "Deprecated", and version prefixes keep every newer key
// sorting after the older ones.
struct NonPeriodicalCatalogue {
  // The key of each internal index. Indices 2, 3 and 9 are the keywords and
  // hidden fields that every type shares; the model fills them in.
  // clang-format off
  static constexpr Catalogue::FieldRow kSynchronizableKeys[] = {
      {0, "Title"},
      {1, "Author"},
      {4, "Notes"},
      {5, "Online"},
      {6, "AccessDate"},
      {7, "IncludeInFootnotesBookDeprecated"},
      {8, "Year"},
      {10, "Page"},
      {11, "CompilerOrEditor"},
      {12, "CompilerOrEditorComboLabel"},
      {13, "Edition"},
      {14, "Subwork"},
      {15, "SubworkComboLabel"},
      {16, "MultiPartComboLabel"},
      {17, "MultiPartWork"},
      {18, "Place"},
      {19, "Publisher"},
      {20, "Translator"},
      {21, "v579_BookPublishDate"},
      {22, "v579_PageRange"},
      {23, "v6_BookOption"},
      {24, "v6_WebsiteOption"},
      {25, "v8_PublicationMediumComboLabel"},
      {26, "v8_PublicationMedium"},
      {27, "v8_PublicationDateTypeComboBox"},
  };
  // clang-format on
  static constexpr int16_t kSynchronizableKeysUpperBound = 27;

  // clang-format off
  static constexpr Catalogue::SettingRow kSettings[] = {
      {0, "NonPeriodical"},
      {1, "15,Chapter title,16,Multi-vol.,12,Editor,7,False,23,True,24,False,25,Medium,27,Publish date"},
      {2, "-1"},
      {3, "True"},
      {4, "True"},
      {5, {}, -2},  // the text of the number
      {6, "True"},
      {7, "yyyy"},
      {8, ""},
      {9, "False"},
      {10, "True"},
      {11, "True"},
  };
  // clang-format on

  // Columns of the host's reference list: title, author, date, location.
  static constexpr int16_t kReferenceFormDisplayIndex[] = {0, 1, 8, 3};
  static constexpr int16_t kKeyIndex = 0;         // Title
  static constexpr int16_t kSecondKeyIndex = -1;  // no second key field

  // Key to overall index, in rising order of the index: the widgets of the
  // form that the proxy registers, each under its tag key. Keys without an
  // internal index name captions and layout widgets that store nothing.
  // clang-format off
  static constexpr Catalogue::KeyRow kKeyToOverallIndex[] = {
      {0, "CompilerOrEditor"},                   // TextBox(13)
      {1, "CompilerOrEditorComboLabel"},         // ComboLabel(2)
      {2, "AccessDate"},                         // TextBox(11)
      {3, "Online"},                             // TextBox(10)
      {4, "v579_BookPublishDate"},               // TextBox(12)
      {5, "v8_PublicationDateTypeComboBox"},     // ComboBox(0)
      {6, "AccessDateHack"},                     // AccessDateHack
      {7, "PublishDateLabel"},                   // PublishDateLabel
      {8, "WebsiteLabel"},                       // WebsiteLabel
      {9, "AccessDateLabel"},                    // AccessDateLabel
      {10, "MultiPartWork"},                     // TextBox(15)
      {11, "Translator"},                        // TextBox(14)
      {12, "MultiPartComboLabel"},               // ComboLabel(3)
      {13, "TranslatorLabel"},                   // TranslatorLabel
      {14, "v4_keywords"},                       // TextBox(17)
      {15, "Notes"},                             // TextBox(16)
      {16, "KeywordsLabel"},                     // KeywordsLabel
      {17, "NotesLabel"},                        // NotesLabel
      {18, "v8_PublicationMedium"},              // TextBox(9)
      {19, "v8_PublicationMediumComboLabel"},    // ComboLabel(1)
      {20, "SubworkFrame"},                      // SubworkFrame
      {21, "Subwork"},                           // TextBox(8)
      {22, "SubworkComboLabel"},                 // ComboLabel(0)
      {23, "Publisher"},                         // TextBox(2)
      {24, "Label3"},                            // Label3
      {25, "Page"},                              // TextBox(5)
      {26, "v579_PageRange"},                    // TextBox(6)
      {27, "PageLabel"},                         // PageLabel
      {28, "PageRangeLabel"},                    // PageRangeLabel
      {29, "Edition"},                           // TextBox(7)
      {30, "EditionLabel"},                      // EditionLabel
      {31, "Year"},                              // TextBox(4)
      {32, "Place"},                             // TextBox(3)
      {33, "PlaceLabel"},                        // PlaceLabel
      {34, "YearLabel"},                         // YearLabel
      {35, "Author"},                            // TextBox(0)
      {36, "IncludeInFootnotesBookDeprecated"},  // DeprecatedCheckBox(0)
      {37, "v6_WebsiteOption"},                  // OptionButton(1)
      {38, "v6_BookOption"},                     // OptionButton(0)
      {39, "Title"},                             // TextBox(1)
      {40, "Label2"},                            // Label2
      {41, "AuthorLabel"},                       // AuthorLabel
  };
  // clang-format on

  // Synchronisable keys that sort after the two hidden keys.
  static constexpr int16_t kNumAfterV4Keywords = 7;

  // Synchronisable position to overall index. Positions follow the binary
  // order of the keys, without the two hidden keys.
  // clang-format off
  static constexpr Catalogue::PositionRow kSynchronizableControlIndices[] = {
      {0, 2},
      {1, 35},
      {2, 0},
      {3, 1},
      {4, 29},
      {5, 36},
      {6, 12},
      {7, 10},
      {8, 15},
      {9, 3},
      {10, 25},
      {11, 32},
      {12, 23},
      {13, 21},
      {14, 22},
      {15, 39},
      {16, 11},
      {17, 31},
      {18, 14},
      {19, 4},
      {20, 26},
      {21, 38},
      {22, 37},
      {23, 5},
      {24, 18},
      {25, 19},
  };
  // clang-format on

  // Default tooltips by synchronisable position; the other positions have
  // none.
  // clang-format off
  static constexpr Catalogue::TooltipRow kTooltips[] = {
      {0, "Date that you accessed the website (e.g. 3 January 2004)"},
      {1, "Author of the work"},
      {2, "Editor or compiler"},
      {4, "Edition information given on title or copyright page"},
      {7, "Volume or series"},
      {8, "Store notes with this reference entry"},
      {9, "Publication medium"},
      {10, "Page number"},
      {11, "Place where book was published (City, State)"},
      {12, "Publisher name"},
      {14, "If the reference is to an entire work within a book, use Subwork title.  Otherwise, use Chapter title."},
      {15, "Title of the work"},
      {16, "Translator"},
      {18, "Enter search keywords to find this entry, separated by commas.  The author and title will automatically be added for you."},
  };
  // clang-format on

  static const Catalogue kCatalogue;
};

static_assert(std::size(NonPeriodicalCatalogue::kSynchronizableKeys) == 25);
static_assert(std::size(NonPeriodicalCatalogue::kSettings) == 12);
static_assert(std::size(NonPeriodicalCatalogue::kKeyToOverallIndex) == 42);
static_assert(std::size(NonPeriodicalCatalogue::kSynchronizableControlIndices) == 26);
static_assert(std::size(NonPeriodicalCatalogue::kTooltips) == 14);
inline constexpr Catalogue NonPeriodicalCatalogue::kCatalogue =
    Catalogue::of<NonPeriodicalCatalogue>();
static_assert(Catalogue::isWellFormed(NonPeriodicalCatalogue::kCatalogue));

}  // namespace kelmora
