#pragma once

#include <string>
#include <vector>

namespace kelmora::testing {

// A stored journal article, as a host hands it to SynchronizeFieldsWithModel,
// with the two labels that carry the list entry.
std::vector<std::string> storedJournal(const std::string& issueType = "Issue type",
                                       const std::string& refersTo = "Refers to");

}  // namespace kelmora::testing
