#include "automation/ModelDispatch.h"

#include "automation/VariantArray.h"
#include "model/Model.h"
#include "platform/RuntimeError.h"

namespace kelmora {

Variant ModelDispatch::invoke(Object& target, const TypeLibrary::Member& member,
                              std::vector<Variant>& arguments) {
  auto& model = dynamic_cast<Model&>(target);
  switch (member.dispid) {
    case 0x40030000:
      if (member.kind == TypeLibrary::kPropertyPut) {
        model.initializedToFormat = arguments[0].toBoolean();
        return {};
      }
      return Variant(model.initializedToFormat);
    case 0x68030005:
      return Variant(std::shared_ptr<Object>(model.keyToInternalIndex()));
    case 0x68030004:
      return Variant(model.KeyIndex());
    case 0x68030003:
      return Variant(model.SecondKeyIndex());
    case 0x68030002:
      return Variant(model.setting(arguments[0].toInteger()));
    case 0x68030001:
      return Variant(std::shared_ptr<Object>(VariantArray::of(model.ReferenceFormDisplayIndex())));
    case 0x68030000:
      return Variant(std::shared_ptr<Object>(VariantArray::of(model.controlIndices())));
    default:
      throw RuntimeError(kMemberNotSupported);
  }
}

}  // namespace kelmora
