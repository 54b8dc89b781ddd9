#include "diagnostics/TranslatorWrapper.h"

#include "diagnostics/Procedure.h"

namespace kelmora {

void TranslatorWrapper::vbwDump() const {
  vbwProtector::dumpModule({});
}

Variant TranslatorWrapper::value() const {
  Procedure proc{this, procedureName<"TranslatorWrapper.value[Get]">()};
  return proc.run<Variant>(
      [&](Variant& result) { proc.step([&] { result = Variant("Translator"); }); });
}

}  // namespace kelmora
