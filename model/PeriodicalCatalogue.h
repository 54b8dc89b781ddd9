#pragma once

#include <cstdint>
#include <iterator>

#include "model/Catalogue.h"

namespace kelmora {

// The field catalogue of journal, magazine and newspaper articles, whichType
// 1. These indices are the contract with the host's stored records and with
// the widget order of the Periodical form: none of them may move. Retired
// fields keep their places under keys ending in "Deprecated", and version
// prefixes keep every newer key sorting after the older ones.
struct PeriodicalCatalogue {
  // The key of each internal index. Indices 2, 3 and 9 are the keywords and
  // hidden fields that every type shares; the model fills them in.
  // clang-format off
  static constexpr Catalogue::FieldRow kSynchronizableKeys[] = {
      {0, "PeriodicalArticleTitle"},
      {1, "PeriodicalAuthor"},
      {4, "PeriodicalNotes"},
      {5, "PeriodicalOnline"},
      {6, "PeriodicalAccessDate"},
      {7, "IncludeInFootnotesPeriodicalDeprecated"},
      {8, "PeriodicalDate"},
      {10, "PeriodicalPage"},
      {11, "PeriodicalPageRange"},
      {12, "PeriodicalTitle"},
      {13, "PeriodicalSupplementalCheckBoxDeprecated"},
      {14, "PeriodicalJournalOption"},
      {15, "PeriodicalMagazineOption"},
      {16, "PeriodicalNewspaperOption"},
      {17, "PeriodicalNumber"},
      {18, "PeriodicalRefersTo"},
      {19, "PeriodicalVolume"},
      {20, "v574_PeriodicalOnlineForumOptionDeprecated"},
      {21, "v574_PeriodicalIssueTypeComboLabel"},
      {22, "v579_PeriodicalIssue"},
      {23, "v579_PeriodicalArticleComboLabel"},
      {24, "v579_PeriodicalRefersToComboLabel"},
      {25, "v579_PeriodicalPublishDate"},
  };
  // clang-format on
  static constexpr int16_t kSynchronizableKeysUpperBound = 25;

  // clang-format off
  static constexpr Catalogue::SettingRow kSettings[] = {
      {0, "Periodical"},
      {1, "14,True,15,False,16,False,20,False,13,False,21,Issue type,23,Article title,24,Refers to,7,False"},
      {2, "-1"},
      {3, "True"},
      {4, "True"},
      {5, {}, -2},  // the text of the number
      {6, "False"},
      {7, "yyyy, mmmm d"},
      {8, "yyyy, mmmm d"},
      {9, "True"},
      {10, "False"},
      {11, "True"},
  };
  // clang-format on

  // Columns of the host's reference list: title, author, date, location.
  static constexpr int16_t kReferenceFormDisplayIndex[] = {0, 1, 8, 3};
  static constexpr int16_t kKeyIndex = 12;       // PeriodicalTitle
  static constexpr int16_t kSecondKeyIndex = 0;  // PeriodicalArticleTitle

  // Key to overall index, in rising order of the index: the widgets of the
  // form that the proxy registers, each under its tag key. Keys without an
  // internal index name captions and layout widgets that store nothing.
  // clang-format off
  static constexpr Catalogue::KeyRow kKeyToOverallIndex[] = {
      {0, "PeriodicalAuthor"},                             // TextBox(0)
      {1, "JournalFrameLabel"},                            // JournalFrameLabel
      {2, "v4_keywords"},                                  // TextBox(14)
      {3, "v579_PeriodicalIssue"},                         // TextBox(11)
      {4, "v579_PeriodicalPublishDate"},                   // TextBox(10)
      {5, "PeriodicalNotes"},                              // TextBox(13)
      {6, "PeriodicalOnline"},                             // TextBox(8)
      {7, "PeriodicalAccessDate"},                         // TextBox(9)
      {8, "PeriodicalRefersTo"},                           // TextBox(12)
      {9, "v574_PeriodicalIssueTypeComboLabel"},           // ComboLabel(1)
      {10, "v579_PeriodicalRefersToComboLabel"},           // ComboLabel(2)
      {11, "KeywordsLabel"},                               // KeywordsLabel
      {12, "PeriodicalAccessDateLabel"},                   // PeriodicalAccessDateLabel
      {13, "NotesLabel"},                                  // NotesLabel
      {14, "Label37"},                                     // Label37
      {15, "AccessDateHack"},                              // AccessDateHack
      {16, "PeriodicalPublishDateLabel"},                  // PeriodicalPublishDateLabel
      {17, "PeriodicalNewspaperOption"},                   // OptionButton(2)
      {18, "PeriodicalPage"},                              // TextBox(4)
      {19, "IncludeInFootnotesPeriodicalDeprecated"},      // DeprecatedCheckBox(1)
      {20, "PeriodicalJournalOption"},                     // OptionButton(0)
      {21, "PeriodicalPageRange"},                         // TextBox(5)
      {22, "PeriodicalTitle"},                             // TextBox(2)
      {23, "PeriodicalArticleTitle"},                      // TextBox(1)
      {24, "PeriodicalVolume"},                            // TextBox(6)
      {25, "PeriodicalMagazineOption"},                    // OptionButton(1)
      {26, "PeriodicalNumber"},                            // TextBox(7)
      {27, "PeriodicalDate"},                              // TextBox(3)
      {28, "v574_PeriodicalOnlineForumOptionDeprecated"},  // DeprecatedOptionButton(0)
      {29, "PeriodicalSupplementalCheckBoxDeprecated"},    // DeprecatedCheckBox(2)
      {30, "v579_PeriodicalArticleComboLabel"},            // ComboLabel(0)
      {31, "Label16"},                                     // Label16
      {32, "PeriodicalNumberLabel"},                       // PeriodicalNumberLabel
      {33, "PeriodicalVolumeLabel"},                       // PeriodicalVolumeLabel
      {34, "PeriodicalTitleLabel"},                        // PeriodicalTitleLabel
      {35, "Label22"},                                     // Label22
      {36, "PeriodicalPageLabel"},                         // PeriodicalPageLabel
      {37, "PeriodicalPageRangeLabel"},                    // PeriodicalPageRangeLabel
  };
  // clang-format on

  // Synchronisable keys that sort after the two hidden keys.
  static constexpr int16_t kNumAfterV4Keywords = 6;

  // Synchronisable position to overall index. Positions follow the binary
  // order of the keys, without the two hidden keys.
  // clang-format off
  static constexpr Catalogue::PositionRow kSynchronizableControlIndices[] = {
      {0, 19},
      {1, 7},
      {2, 23},
      {3, 0},
      {4, 27},
      {5, 20},
      {6, 25},
      {7, 17},
      {8, 5},
      {9, 26},
      {10, 6},
      {11, 18},
      {12, 21},
      {13, 8},
      {14, 29},
      {15, 22},
      {16, 24},
      {17, 2},
      {18, 9},
      {19, 28},
      {20, 30},
      {21, 3},
      {22, 4},
      {23, 10},
  };
  // clang-format on

  // Default tooltips by synchronisable position; the other positions have
  // none.
  // clang-format off
  static constexpr Catalogue::TooltipRow kTooltips[] = {
      {1, "Date that you accessed the website (e.g. 3 January 2004)"},
      {2, "Title of the article"},
      {3, "Author(s)"},
      {4, "Format: June 1944, summer 1944, or 1944"},
      {8, "Store notes with this reference entry"},
      {10, "Website or DOI"},
      {15, "Title of the periodical that contains the article"},
      {16, "Volume number"},
      {17, "Enter search keywords to find this entry, separated by commas.  The author and title will automatically be added for you."},
  };
  // clang-format on

  static const Catalogue kCatalogue;
};

static_assert(std::size(PeriodicalCatalogue::kSynchronizableKeys) == 23);
static_assert(std::size(PeriodicalCatalogue::kSettings) == 12);
static_assert(std::size(PeriodicalCatalogue::kKeyToOverallIndex) == 38);
static_assert(std::size(PeriodicalCatalogue::kSynchronizableControlIndices) == 24);
static_assert(std::size(PeriodicalCatalogue::kTooltips) == 9);
inline constexpr Catalogue PeriodicalCatalogue::kCatalogue = Catalogue::of<PeriodicalCatalogue>();
static_assert(Catalogue::isWellFormed(PeriodicalCatalogue::kCatalogue));

}  // namespace kelmora
