#pragma once

#include <vector>

#include "automation/TypeLibrary.h"
#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// The toolkit's own members that a host needs to drive a form: a
// widget's Name, Index, Visible, Enabled, Text, Caption, Tag and SetFocus,
// a widget collection's Item and Count, a control wrapper's Object, and
// the reading members of a dictionary (a model's key map). They
// come before a control's own interface and are no part of the type
// library.
class ToolkitDispatch {
 public:
  static Variant invoke(Object& target, const TypeLibrary::Member& member,
                        std::vector<Variant>& arguments);

  static const TypeLibrary::Interface& widgetInterface();
  static const TypeLibrary::Interface& collectionInterface();
  static const TypeLibrary::Interface& wrapperInterface();
  static const TypeLibrary::Interface& dictionaryInterface();
};

}  // namespace kelmora
