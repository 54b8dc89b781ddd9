#include "hostkit/TitleTypeTable.h"

namespace kelmora::host {

std::string TitleTypeTable::CaptionToTitleType(int16_t category, const std::string& caption) {
  for (const auto& row : kRows) {
    if (row.category == category && row.caption == caption)
      return std::string(row.titleType);
  }
  return caption;
}

std::string TitleTypeTable::TitleTypeToCaption(int16_t category, const std::string& titleType) {
  for (const auto& row : kRows) {
    if (row.category == category && row.titleType == titleType)
      return std::string(row.caption);
  }
  return titleType;
}

}  // namespace kelmora::host
