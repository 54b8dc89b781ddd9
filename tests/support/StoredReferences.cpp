#include "support/StoredReferences.h"

namespace kelmora::testing {

std::vector<std::string> storedJournal(const std::string& issueType, const std::string& refersTo) {
  std::vector<std::string> values(26);
  for (int i : {7, 13, 15, 16, 20}) values[i] = "False";
  values[0] = "On tides";
  values[1] = "Ada Lovelace";
  values[12] = "Nature";
  values[14] = "True";
  values[21] = issueType;
  values[23] = "Article title";
  values[24] = refersTo;
  return values;
}

}  // namespace kelmora::testing
