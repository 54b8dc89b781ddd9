#include "diagnostics/CommonFormProcessingFunctions.h"

#include "diagnostics/Procedure.h"
#include "diagnostics/TextHelper.h"
#include "platform/RuntimeError.h"
#include "surface/Widget.h"

namespace kelmora {

std::string_view CommonFormProcessingFunctions::GetTag(const Object* ctrl, bool tagType) {
  return tagOf(ctrl, dynamic_cast<const Widget*>(ctrl), tagType);
}

std::string_view CommonFormProcessingFunctions::GetTag(const Widget* ctrl, bool tagType) {
  return tagOf(ctrl, ctrl, tagType);
}

std::string_view CommonFormProcessingFunctions::tagOf(const Object* ctrl, const Widget* widget,
                                                      bool tagType) {
  Procedure proc{procedureName<"CommonFormProcessingFunctions.GetTag">(),
                 {arg("ctrl", ctrl), arg("tagType", tagType)}};
  return proc.run<std::string_view>([&](std::string_view& result) {
    if (ctrl == nullptr)
      return;
    proc.step([&] {
      // An object that is no widget has no tag to read.
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
  readTagOf(obj.get(), dynamic_cast<const Widget*>(obj.get()), verifyTag);
  return obj;
}

void CommonFormProcessingFunctions::readTagOf(const Object* obj, const Widget* widget,
                                              std::string_view verifyTag) {
  Procedure proc{procedureName<"CommonFormProcessingFunctions.getWidgetWithTag">(),
                 {arg("obj", obj), arg("verifyTag", verifyTag)}};
  proc.run([&] { proc.step([&] { tagOf(obj, widget, false); }); });
}

}  // namespace kelmora
