#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hostkit/Json.h"
#include "hostkit/Record.h"

namespace kelmora {
class Main2;
}

namespace kelmora::host {

// CSL-JSON, the exchange format of reference managers and citation
// processors, to and from the kit's Record, by the tables of CslMapping.
//
// An item becomes the record of the form its type goes to (articles the
// Periodical with the option of their kind; books, chapters, reports,
// theses and web pages the NonPeriodical, book or website; blog, forum and
// social-media posts and e-mails the Esource with the list entry of their
// kind). What the form has no field for stays in the record's extras and
// comes back out, and so does a value whose exact form the field's text
// would not give back (a number written as a number, a date written out),
// as long as the field is not changed.
//
//   Record article = Csl::read(main, item);
//   host.load(article, Csl::optionOf(article));
//   ...
//   Json back = Csl::write(Record::fromWidgets(container, 1, article));
class Csl {
 public:
  // The record of one CSL item. An item that is no object, has no type, is
  // of a type no form takes, or holds a variable the mapping cannot read is
  // refused with BadInput naming the item and the variable.
  static Record read(Main2& main, const Json& item);
  // The CSL item of a record: read from one, or made on the form.
  static Json write(const Record& record);
  // The option that UpdateFrame selects for the record: 0 to 2 for journal,
  // magazine and newspaper, 0 or 1 for book or website, -1 for an e-source.
  static int16_t optionOf(const Record& record);

  // The items of a CSL-JSON document: an array of items, or one item.
  // `name` says where it came from, for errors.
  static std::vector<Json> items(const Json& document, const std::string& name);
  // The item of a document with the id `id`; BadInput when there is none.
  static const Json& find(const std::vector<Json>& items, const std::string& id,
                          const std::string& name);
  // An item's id as text, "(no id)" without one.
  static std::string idOf(const Json& item);
};

}  // namespace kelmora::host
