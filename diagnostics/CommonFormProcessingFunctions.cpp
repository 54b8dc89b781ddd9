#include "diagnostics/CommonFormProcessingFunctions.h"

#include "diagnostics/Procedure.h"
#include "diagnostics/TextHelper.h"
#include "platform/RuntimeError.h"
#include "surface/Widget.h"

namespace kelmora {

std::string_view CommonFormProcessingFunctions::GetTag(const Object* ctrl, bool tagType) {
  Procedure proc{procedureName<"CommonFormProcessingFunctions.GetTag">(),
                 {arg("ctrl", ctrl), arg("tagType", tagType)}};
  return proc.run<std::string_view>([&](std::string_view& result) {
    if (!ctrl)
      return;
    proc.step([&] {
      const auto* widget = dynamic_cast<const Widget*>(ctrl);
      if (widget == nullptr)
        throw RuntimeError(kMemberNotSupported);
      result = widget->Tag();
    });
    proc.step([&] {
      constexpr std::string_view comma = ",";
      if (tagType) {
        TextHelper::instance()->KeepAfterSeparator(result, comma);
      } else {
        TextHelper::instance()->KeepBeforeSeparator(result, comma, true);
      }
    });
  });
}

std::shared_ptr<Object> CommonFormProcessingFunctions::getWidgetWithTag(
    const std::shared_ptr<Object>& obj, std::string_view verifyTag) {
  Procedure proc{procedureName<"CommonFormProcessingFunctions.getWidgetWithTag">(),
                 {arg("obj", obj), arg("verifyTag", verifyTag)}};
  return proc.run<std::shared_ptr<Object>>([&](std::shared_ptr<Object>& result) {
    proc.step([&] { result = obj; });
    proc.step([&] { GetTag(obj, false); });
  });
}

}  // namespace kelmora
