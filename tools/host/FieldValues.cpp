#include "host/FieldValues.h"

#include <algorithm>

#include "host/ToolCallback.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "model/Model.h"
#include "proxy/FrameProxy.h"

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
  try {
    auto reference = Record::newReference(main, whichType);
    for (const auto& [key, value] : values.items()) reference.set(key, asText(value, origin, key));
    return reference.values();
  } catch (const BadInput& refused) {
    throw BadInput(origin + ": " + refused.what());
  }
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
    const std::string key = Record::fieldKey(*widget);
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
                      {"key", Record::fieldKey(*widget)},
                      {"value", Record::shownValue(*widget)}});
  }
  return fields;
}

}  // namespace kelmora::tools
