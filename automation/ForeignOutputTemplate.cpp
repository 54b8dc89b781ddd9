#include "automation/ForeignOutputTemplate.h"

namespace kelmora {

bool ForeignOutputTemplate::isURL(std::string& text) {
  std::vector<Variant> arguments{text};
  bool result = method("isURL", arguments).toBoolean();
  text = arguments[0].toString();
  return result;
}

}  // namespace kelmora
