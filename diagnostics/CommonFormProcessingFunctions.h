#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/Object.h"

namespace kelmora {

class Widget;

// Reading the Tag of a widget. A tag is empty, a field key, or a key, a
// comma and a role; "vIgnore_" in front keeps a widget out of the registry.
// The key is the text before the first comma, the role the text after it; a
// tag without a comma is its own key and its own role.
class CommonFormProcessingFunctions {
 public:
  // The key part (tagType false) or the role part (tagType true) of the
  // widget's tag; the empty string for nothing. An object without a tag
  // fails inside and takes the failure path. The result views the widget's
  // tag: use it before the tag changes, or copy it.
  static std::string_view GetTag(const Object* ctrl, bool tagType);
  // A widget needs no search for its tag: the frames' common case.
  static std::string_view GetTag(const Widget* ctrl, bool tagType);
  template <typename T>
  requires std::is_base_of_v<Object, T>
  static std::string_view GetTag(const std::shared_ptr<T>& ctrl, bool tagType) {
    return GetTag(ctrl.get(), tagType);
  }

  // Returns obj. It reads the tag but compares it with nothing: verifyTag
  // only documents at the call which key the caller expects.
  static std::shared_ptr<Object> getWidgetWithTag(const std::shared_ptr<Object>& obj,
                                                  std::string_view verifyTag);
  template <typename T>
  requires std::is_base_of_v<Widget, T>
  static std::shared_ptr<T> getWidgetWithTag(std::shared_ptr<T> obj, std::string_view verifyTag) {
    readTagOf(obj.get(), obj.get(), verifyTag);
    return obj;
  }

 private:
  // The traced procedures; `widget` is `ctrl` seen as a widget, nothing
  // when it is none.
  static std::string_view tagOf(const Object* ctrl, const Widget* widget, bool tagType);
  static void readTagOf(const Object* obj, const Widget* widget, std::string_view verifyTag);
};

}  // namespace kelmora
