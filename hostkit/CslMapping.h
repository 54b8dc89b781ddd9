#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kelmora::host {

// Which CSL item goes to which form, and which CSL variable to which field:
// two literal tables, in hostkit/CslMapping.cpp, meant to be read by eye.
struct CslMapping {
  enum class Conversion {
    Text,   // a text, or a number written as text
    Names,  // a CSL name list, see CslNames
    Date,   // a CSL date, see CslDates
    Year,   // a CSL date of which the field takes the year
    Doi,    // a DOI; on the way out only a text that reads as one
  };

  // A CSL item type and the form it goes to: the reference type and the
  // option UpdateFrame selects (-1 for the e-source, whose kind is a list).
  struct Kind {
    std::string_view type;
    int16_t whichType;
    int16_t option;
  };

  // One CSL variable of some item types and the field that holds it.
  // `types` lists CSL item types separated by blanks; a row for several
  // types reads alike for each. Where two rows name one field, the first
  // that has a value takes it, and the other's value stays with the record.
  struct Row {
    std::string_view types;
    std::string_view variable;
    int16_t whichType;
    std::string_view key;
    Conversion conversion;
  };

  static std::span<const Kind> kinds();
  static std::span<const Row> rows();
  // The kind of a CSL type, or nullptr for a type no form takes.
  static const Kind* kindOf(std::string_view type);
  static bool covers(const Row& row, std::string_view type);
};

}  // namespace kelmora::host
