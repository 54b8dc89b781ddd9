#include "automation/TranslatorWrapperDispatch.h"

#include "diagnostics/TranslatorWrapper.h"
#include "platform/RuntimeError.h"

namespace kelmora {

Variant TranslatorWrapperDispatch::invoke(Object& target, const TypeLibrary::Member& member,
                                          std::vector<Variant>&) {
  auto& wrapper = dynamic_cast<TranslatorWrapper&>(target);
  if (member.dispid != 0x0)
    throw RuntimeError(kMemberNotSupported);
  return wrapper.value();
}

}  // namespace kelmora
