#include "host/FieldValues.h"

#include <algorithm>

#include "host/BadInput.h"
#include "host/ToolCallback.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "model/Model.h"
#include "platform/Strings.h"
#include "platform/Variant.h"
#include "proxy/FrameProxy.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"

namespace kelmora::tools {

namespace {

std::string asText(const Json& value, const std::string& origin, const std::string& key) {
  // Field values are texts as the host holds them: "12", "True".
  if (value.is_string())
    return value.get<std::string>();
  throw BadInput(origin + ": the value of '" + key + "' must be a text");
}

}  // namespace

std::vector<std::string> FieldValues::record(Main2& main, int16_t whichType, const Json& values,
                                             const std::string& origin) {
  std::vector<std::string> record;
  if (values.is_array()) {
    for (size_t i = 0; i < values.size(); ++i)
      record.push_back(asText(values[i], origin, "[" + std::to_string(i) + "]"));
    return record;
  }
  if (!values.is_object())
    throw BadInput(origin + ": values must be an object of field keys or an array of texts");
  auto model = main.Model(whichType);
  if (!model)
    throw BadInput(origin + ": reference type " + std::to_string(whichType) +
                   " has no field catalogue");
  auto keys = model->keyToInternalIndex();
  int32_t size = 0;
  for (int32_t i = 0; i < keys->Count(); ++i)
    size = std::max<int32_t>(size, keys->ItemAt(i).toLong() + 1);
  record.assign(static_cast<size_t>(size), "");
  // A new reference starts from the type's defaults: pairs of internal
  // index and value in the model's second setting.
  const std::vector<std::string> defaults = Strings::Split(model->setting(1), ",");
  for (size_t i = 0; i + 1 < defaults.size(); i += 2) {
    double index = -1;
    if (Variant::parseNumber(defaults[i], index) && index >= 0 && index < size)
      record[static_cast<size_t>(index)] = defaults[i + 1];
  }
  for (const auto& [key, value] : values.items()) {
    if (!keys->Exists(key))
      throw BadInput(origin + ": '" + key + "' is no field key of reference type " +
                     std::to_string(whichType));
    record[static_cast<size_t>(keys->Item(key).toLong())] = asText(value, origin, key);
  }
  return record;
}

std::string FieldValues::shownValue(const Widget& widget) {
  if (auto* box = dynamic_cast<const TextBox*>(&widget))
    return box->Text();
  if (auto* combo = dynamic_cast<const ComboBox*>(&widget))
    return combo->Text();
  if (auto* label = dynamic_cast<const Label*>(&widget))
    return label->Caption();
  if (auto* option = dynamic_cast<const OptionButton*>(&widget))
    return option->Value() ? "True" : "False";
  if (auto* check = dynamic_cast<const CheckBox*>(&widget))
    return std::to_string(check->Value());
  return {};
}

std::string FieldValues::fieldKey(const Widget& widget) {
  const std::string& tag = widget.Tag();
  if (tag.empty() || tag.starts_with("vIgnore_"))
    return {};
  return tag.substr(0, tag.find(','));
}

Json FieldValues::visibleFields(Main2& main, const FrameContainer& container) {
  Json fields = Json::array();
  auto proxy = container.existingProxy(container.currentFrame());
  auto* frame = proxy ? dynamic_cast<const UserControl*>(proxy->frame().get()) : nullptr;
  auto model = frame != nullptr ? main.Model(container.currentFrame()) : nullptr;
  if (!model)
    return fields;
  auto keys = model->keyToInternalIndex();
  std::vector<std::shared_ptr<Widget>> shown;
  for (const auto& widget : frame->Controls()) {
    const std::string key = fieldKey(*widget);
    // Captions and layout widgets carry keys too, but store nothing.
    if (!key.empty() && keys->Exists(key) && widget->isShowing())
      shown.push_back(widget);
  }
  // In reading order, as the author sees them.
  std::stable_sort(shown.begin(), shown.end(), [](const auto& a, const auto& b) {
    const SurfaceRect ra = a->surfaceRect();
    const SurfaceRect rb = b->surfaceRect();
    return ra.top != rb.top ? ra.top < rb.top : ra.left < rb.left;
  });
  for (const auto& widget : shown) {
    fields.push_back({{"widget", ToolCallback::describe(widget)},
                      {"key", fieldKey(*widget)},
                      {"value", shownValue(*widget)}});
  }
  return fields;
}

}  // namespace kelmora::tools
