#pragma once

#include <string>
#include <string_view>

#include "hostkit/Json.h"

namespace kelmora::host {

// CSL name lists to and from the text of a form's name field, the way the
// forms take names: "Family, Given" one after the other, joined by "; ".
//
//   {"family": "Okafor", "given": "N."}                       Okafor, N.
//   {"non-dropping-particle": "van", "family": "Gogh", ...}   van Gogh, Vincent
//   {"dropping-particle": "von", "family": "Humboldt", ...}   Humboldt, Alexander von
//   {"family": "King", "given": "Martin Luther", "suffix": "Jr."}
//                                                             King, Martin Luther, Jr.
//   {"literal": "World Health Organization"}                  {World Health Organization}
//   {"family": "Plato"}                                       Plato
//
// An institution stays whole in braces, so that its commas and words are
// never taken for a family and a given name. Particles are the lower-case
// words before a family name or after a given name.
class CslNames {
 public:
  // Fails with BadInput when `names` is not a list of name objects.
  static std::string toText(const Json& names, const std::string& where);
  static Json fromText(std::string_view text);
};

}  // namespace kelmora::host
