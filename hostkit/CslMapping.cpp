#include "hostkit/CslMapping.h"

#include <iterator>

namespace kelmora::host {

namespace {

constexpr int16_t kNonPeriodical = 0;
constexpr int16_t kPeriodical = 1;
constexpr int16_t kEsource = 4;

using C = CslMapping::Conversion;

// clang-format off
constexpr CslMapping::Kind kKinds[] = {
    // Articles: the Periodical form, its option the kind of periodical.
    {"article-journal",        kPeriodical,    0},
    {"article-magazine",       kPeriodical,    1},
    {"article-newspaper",      kPeriodical,    2},
    // Books and what stands alone like one: the NonPeriodical book.
    {"book",                   kNonPeriodical, 0},
    // A chapter is cited with its book: the book's form, the chapter as its
    // sub-work.
    {"chapter",                kNonPeriodical, 0},
    // A report and a thesis are published works with an issuing body and a
    // place: the book form holds all they need, the institution as
    // publisher. Calling them articles or web pages would be wrong.
    {"report",                 kNonPeriodical, 0},
    {"thesis",                 kNonPeriodical, 0},
    {"webpage",                kNonPeriodical, 1},
    // Informal e-sources: the list on the form tells them apart, from the
    // item's genre and medium (see Csl::esourceType).
    {"post-weblog",            kEsource,      -1},
    {"post",                   kEsource,      -1},
    {"personal_communication", kEsource,      -1},
};

constexpr CslMapping::Row kRows[] = {
    // --- Periodical ---------------------------------------------------------
    {"article-journal article-magazine article-newspaper", "title",           kPeriodical, "PeriodicalArticleTitle", C::Text},
    {"article-journal article-magazine article-newspaper", "author",          kPeriodical, "PeriodicalAuthor",       C::Names},
    {"article-journal article-magazine article-newspaper", "container-title", kPeriodical, "PeriodicalTitle",        C::Text},
    {"article-journal article-magazine article-newspaper", "issued",          kPeriodical, "PeriodicalDate",         C::Date},
    {"article-journal article-magazine article-newspaper", "volume",          kPeriodical, "PeriodicalVolume",       C::Text},
    {"article-journal article-magazine article-newspaper", "issue",           kPeriodical, "PeriodicalNumber",       C::Text},
    // A journal's or magazine's pages are a range ("112-130"); the form's
    // page number field takes one page, so the range goes to the range.
    {"article-journal article-magazine",                   "page",            kPeriodical, "PeriodicalPageRange",    C::Text},
    // A newspaper's range field is captioned "Section" where the format
    // numbers periodical pages: the page goes to the page number, the
    // section to that field.
    {"article-newspaper",                                  "page",            kPeriodical, "PeriodicalPage",         C::Text},
    {"article-newspaper",                                  "section",         kPeriodical, "PeriodicalPageRange",    C::Text},
    // "Website / DOI": a DOI names the article for good, a URL may move; the
    // DOI comes first, and a URL beside it stays with the record.
    {"article-journal article-magazine article-newspaper", "DOI",             kPeriodical, "PeriodicalOnline",       C::Doi},
    {"article-journal article-magazine article-newspaper", "URL",             kPeriodical, "PeriodicalOnline",       C::Text},
    {"article-journal article-magazine article-newspaper", "accessed",        kPeriodical, "PeriodicalAccessDate",   C::Date},
    {"article-journal article-magazine article-newspaper", "note",            kPeriodical, "PeriodicalNotes",        C::Text},
    {"article-journal article-magazine article-newspaper", "keyword",         kPeriodical, "v4_keywords",            C::Text},

    // --- NonPeriodical ------------------------------------------------------
    {"book report thesis webpage",                         "title",           kNonPeriodical, "Title",               C::Text},
    // The form's title is the book's; a chapter is the book's sub-work.
    {"chapter",                                            "container-title", kNonPeriodical, "Title",               C::Text},
    {"chapter",                                            "title",           kNonPeriodical, "Subwork",             C::Text},
    {"book chapter report thesis webpage",                 "author",          kNonPeriodical, "Author",              C::Names},
    // A book's date is its year of publication, and the field says "Year";
    // a web page's is the date it was published, which the website form has
    // a field of its own for.
    {"book chapter report thesis",                         "issued",          kNonPeriodical, "Year",                C::Year},
    {"webpage",                                            "issued",          kNonPeriodical, "v579_BookPublishDate", C::Date},
    {"book chapter report thesis webpage",                 "publisher",       kNonPeriodical, "Publisher",           C::Text},
    {"book chapter report thesis webpage",                 "publisher-place", kNonPeriodical, "Place",               C::Text},
    {"book chapter report thesis",                         "edition",         kNonPeriodical, "Edition",             C::Text},
    {"book chapter report thesis webpage",                 "editor",          kNonPeriodical, "CompilerOrEditor",    C::Names},
    {"book chapter report thesis",                         "translator",      kNonPeriodical, "Translator",          C::Names},
    // The volume of a work in several volumes: "Multi-vol." on the form.
    {"book chapter report thesis",                         "volume",          kNonPeriodical, "MultiPartWork",       C::Text},
    {"book chapter report thesis",                         "page",            kNonPeriodical, "Page",                C::Text},
    {"book chapter report thesis webpage",                 "DOI",             kNonPeriodical, "Online",              C::Doi},
    {"book chapter report thesis webpage",                 "URL",             kNonPeriodical, "Online",              C::Text},
    {"book chapter report thesis webpage",                 "accessed",        kNonPeriodical, "AccessDate",          C::Date},
    {"book chapter report thesis webpage",                 "medium",          kNonPeriodical, "v8_PublicationMedium", C::Text},
    {"book chapter report thesis webpage",                 "note",            kNonPeriodical, "Notes",               C::Text},
    {"book chapter report thesis webpage",                 "keyword",         kNonPeriodical, "v4_keywords",         C::Text},

    // --- Esource -------------------------------------------------------------
    {"post-weblog post",                                   "title",           kEsource, "EsourceTitle",              C::Text},
    // An e-mail's title field holds whom it went to ("Email to"), and the
    // field beside the subject label holds its subject.
    {"personal_communication",                             "recipient",       kEsource, "EsourceTitle",              C::Names},
    {"personal_communication",                             "title",           kEsource, "EsourceWebsiteTitle",       C::Text},
    // The blog's, forum's or site's name.
    {"post-weblog post",                                   "container-title", kEsource, "EsourceWebsiteTitle",       C::Text},
    {"post-weblog post personal_communication",            "author",          kEsource, "EsourceAuthor",             C::Names},
    {"post-weblog post personal_communication",            "issued",          kEsource, "EsourceDate",               C::Date},
    {"post-weblog post personal_communication",            "URL",             kEsource, "EsourceURL",                C::Text},
    {"post-weblog post personal_communication",            "accessed",        kEsource, "EsourceAccessDate",         C::Date},
    {"post-weblog post personal_communication",            "note",            kEsource, "EsourceNotes",              C::Text},
    {"post-weblog post personal_communication",            "keyword",         kEsource, "v4_keywords",               C::Text},
};
// clang-format on

}  // namespace

std::span<const CslMapping::Kind> CslMapping::kinds() {
  return kKinds;
}

std::span<const CslMapping::Row> CslMapping::rows() {
  return kRows;
}

const CslMapping::Kind* CslMapping::kindOf(std::string_view type) {
  for (const Kind& kind : kKinds)
    if (kind.type == type)
      return &kind;
  return nullptr;
}

bool CslMapping::covers(const Row& row, std::string_view type) {
  std::string_view types = row.types;
  while (!types.empty()) {
    const auto blank = types.find(' ');
    if (types.substr(0, blank) == type)
      return true;
    if (blank == std::string_view::npos)
      break;
    types.remove_prefix(blank + 1);
  }
  return false;
}

}  // namespace kelmora::host
