#pragma once

#include <string>

#include "diagnostics/Dumpable.h"
#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// Stands in for a second widget where a field has none: the host reads
// value from the second control it is handed and gets "Translator". It has
// no fields.
class TranslatorWrapper : public Object, public Dumpable {
 public:
  std::string TypeName() const override { return "TranslatorWrapper"; }
  // value is the default member.
  Variant DefaultValue() const override { return value(); }
  void vbwDump() const override;

  Variant value() const;
};

}  // namespace kelmora
