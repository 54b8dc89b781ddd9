#pragma once

#include <string>
#include <string_view>

#include "hostkit/Json.h"

namespace kelmora::host {

// CSL dates to and from the text of a form's date field, written as the
// forms' dates are: year first, then month and day.
//
//   {"date-parts": [[2021]]}                          2021
//   {"date-parts": [[2022, 3, 3]]}                    2022, March 3
//   {"date-parts": [[2019]], "season": 2}             2019, Summer
//   {"date-parts": [[2019, 5, 3], [2019, 5, 5]]}      2019, May 3 - 2019, May 5
//   {"raw": "Michaelmas term 1887"}                   Michaelmas term 1887
//   {"literal": "n.d."}                               n.d.
//
// A text that reads as none of the written forms comes back as "raw", which
// citation processors parse themselves.
class CslDates {
 public:
  // Fails with BadInput when `date` is no CSL date.
  static std::string toText(const Json& date, const std::string& where);
  static Json fromText(std::string_view text);
};

}  // namespace kelmora::host
