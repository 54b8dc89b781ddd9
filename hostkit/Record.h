#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/Json.h"

namespace kelmora {
class FrameContainer;
class Main2;
class Widget;
}  // namespace kelmora

namespace kelmora::host {

// One reference as a host holds it, by field key. The keys and their order
// come from the type's catalogue (the model's key map), so that the record
// converts to and from the positional `values` the library takes. A new
// record holds the defaults of a new reference, among them the captions of
// the combo labels, which a blank value would empty on the form. A key the
// type does not have is refused with BadInput.
//
//   auto book = Record::newReference(main, 0);
//   book.set("Title", "On tides");
//   container.SynchronizeFieldsWithModel(0, book.values());
class Record {
 public:
  static Record newReference(Main2& main, int16_t whichType);
  // The positional values of a stored reference; a shorter list is padded
  // with empty fields, a longer one refused.
  static Record fromValues(Main2& main, int16_t whichType, std::vector<std::string> values);
  // What the widgets of the type's frame hold now, over `base` (the fields
  // without a widget keep its values).
  static Record fromWidgets(const FrameContainer& container, int16_t whichType, Record base);

  int16_t whichType() const { return mWhichType; }
  // The field keys in the order of `values`.
  const std::vector<std::string>& keys() const { return mKeys; }
  bool has(std::string_view key) const;
  const std::string& get(std::string_view key) const;
  void set(std::string_view key, std::string value);
  const std::vector<std::string>& values() const { return mValues; }
  // By reference, as the library takes it.
  std::vector<std::string>& values() { return mValues; }
  // What another format's reference holds that the type's fields have no
  // place for (the CSL variables of a reference read from CSL-JSON), kept
  // with the record so that it comes back out; an object, empty at first.
  const Json& extras() const { return mExtras; }
  Json& extras() { return mExtras; }

  // The record as JSON: {"whichType": 1, "values": {key: text, ...},
  // "extras": {...}}, the extras only when there are some.
  Json toJson() const;
  // A record from that JSON, over the defaults of a new reference, so that
  // fields may be left out. Anything else (another type, a key the type
  // lacks, a value that is no text) is refused with BadInput naming `what`.
  static Record fromJson(Main2& main, const Json& json, const std::string& what);

  // The value a widget shows as a field: a text box's or combo box's text,
  // a label's caption, an option's or check box's state.
  static std::string shownValue(const Widget& widget);
  // The field key of a widget's tag, or empty for a widget that is no field.
  static std::string fieldKey(const Widget& widget);
  // The widget that holds a field on the frame of a type, where the frame
  // has been made: a text box, list, option, check box or combo label, not
  // the caption beside it.
  static std::shared_ptr<Widget> widgetOf(const FrameContainer& container, int16_t whichType,
                                          std::string_view key);

 private:
  Record(Main2& main, int16_t whichType);
  size_t position(std::string_view key) const;

  int16_t mWhichType;
  std::vector<std::string> mKeys;
  std::vector<std::string> mValues;
  Json mExtras = Json::object();
};

}  // namespace kelmora::host
