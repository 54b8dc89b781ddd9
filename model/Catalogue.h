#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace kelmora {

// The constants of one reference type's field catalogue, as Model loads
// them. Every other table of a Model is computed from these. The rows of
// each table carry their own index, so that a table can be held against its
// source line by line and a row out of place fails to compile.
struct Catalogue {
  // A field's key at its internal index, which is also the place of its
  // value in the host's record.
  struct FieldRow {
    int16_t internalIndex;
    std::string_view key;
  };
  // One slot of the settings table. A slot that holds the text of a number
  // keeps the number; the text is made when the model is built.
  struct SettingRow {
    int16_t index;
    std::string_view text;
    std::optional<int16_t> number = std::nullopt;
  };
  // A key and the overall index of the widget it names.
  struct KeyRow {
    int16_t overallIndex;
    std::string_view key;
  };
  // A synchronisable position and the overall index of its widget.
  struct PositionRow {
    int16_t position;
    int16_t overallIndex;
  };
  // A default tooltip by synchronisable position.
  struct TooltipRow {
    int16_t position;
    std::string_view text;
  };

  // The internal indices that every type shares and that the model fills in
  // itself: the keywords field and the two hidden fields.
  static constexpr int16_t kKeywordsIndex = 2;
  static constexpr int16_t kLocationHiddenIndex = 3;
  static constexpr int16_t kVotesHiddenIndex = 9;
  static constexpr size_t kSettingCount = 12;
  // The widget registry of a frame holds at most 51 widgets.
  static constexpr int16_t kMaxOverallIndex = 50;

  std::span<const FieldRow> synchronizableKeys;
  int16_t synchronizableKeysUpperBound;
  std::span<const SettingRow> settings;
  std::span<const int16_t, 4> referenceFormDisplayIndex;
  int16_t keyIndex;
  int16_t secondKeyIndex;
  std::span<const KeyRow> keyToOverallIndex;
  int16_t numAfterV4Keywords;
  std::span<const PositionRow> synchronizableControlIndices;
  std::span<const TooltipRow> tooltips;

  // The catalogue of a type's table of constants, which names its tables
  // and numbers alike in every type.
  template <typename Constants>
  static constexpr Catalogue of() {
    return Catalogue{
        .synchronizableKeys = Constants::kSynchronizableKeys,
        .synchronizableKeysUpperBound = Constants::kSynchronizableKeysUpperBound,
        .settings = Constants::kSettings,
        .referenceFormDisplayIndex = Constants::kReferenceFormDisplayIndex,
        .keyIndex = Constants::kKeyIndex,
        .secondKeyIndex = Constants::kSecondKeyIndex,
        .keyToOverallIndex = Constants::kKeyToOverallIndex,
        .numAfterV4Keywords = Constants::kNumAfterV4Keywords,
        .synchronizableControlIndices = Constants::kSynchronizableControlIndices,
        .tooltips = Constants::kTooltips,
    };
  }

  // The checks a catalogue must pass at compile time: every row in its
  // place, the shared indices left to the model, and the table sizes that
  // the model's index arithmetic relies on.
  static constexpr bool isWellFormed(const Catalogue& catalogue) {
    if (catalogue.settings.size() != kSettingCount)
      return false;
    for (size_t i = 0; i < catalogue.settings.size(); ++i) {
      if (catalogue.settings[i].index != static_cast<int16_t>(i))
        return false;
    }
    int16_t previous = -1;
    for (const auto& row : catalogue.synchronizableKeys) {
      if (row.internalIndex <= previous)
        return false;
      if (row.internalIndex > catalogue.synchronizableKeysUpperBound)
        return false;
      if (row.internalIndex == kKeywordsIndex || row.internalIndex == kLocationHiddenIndex ||
          row.internalIndex == kVotesHiddenIndex) {
        return false;
      }
      previous = row.internalIndex;
    }
    const size_t fieldCount = static_cast<size_t>(catalogue.synchronizableKeysUpperBound) + 1;
    if (catalogue.synchronizableKeys.size() != fieldCount - 3)
      return false;
    for (size_t i = 0; i < catalogue.keyToOverallIndex.size(); ++i) {
      if (catalogue.keyToOverallIndex[i].overallIndex != static_cast<int16_t>(i))
        return false;
      if (catalogue.keyToOverallIndex[i].overallIndex > kMaxOverallIndex)
        return false;
    }
    // Every field but the two hidden ones has a synchronisable position.
    if (catalogue.synchronizableControlIndices.size() != fieldCount - 2)
      return false;
    for (size_t i = 0; i < catalogue.synchronizableControlIndices.size(); ++i) {
      if (catalogue.synchronizableControlIndices[i].position != static_cast<int16_t>(i)) {
        return false;
      }
    }
    previous = -1;
    for (const auto& row : catalogue.tooltips) {
      if (row.position <= previous)
        return false;
      if (static_cast<size_t>(row.position) >= catalogue.synchronizableControlIndices.size()) {
        return false;
      }
      previous = row.position;
    }
    return true;
  }
};

}  // namespace kelmora
