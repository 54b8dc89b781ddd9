#include "hostkit/Record.h"

#include <algorithm>

#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "hostkit/BadInput.h"
#include "model/Model.h"
#include "platform/Dictionary.h"
#include "platform/Strings.h"
#include "platform/Variant.h"
#include "proxy/FrameProxy.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"

namespace kelmora::host {

Record::Record(Main2& main, int16_t whichType) : mWhichType(whichType) {
  auto model = main.Model(whichType);
  auto keys = model ? model->keyToInternalIndex() : nullptr;
  if (!keys || keys->Count() == 0)
    throw BadInput("reference type " + std::to_string(whichType) + " has no field catalogue");
  int32_t size = 0;
  for (int32_t i = 0; i < keys->Count(); ++i)
    size = std::max<int32_t>(size, keys->ItemAt(i).toLong() + 1);
  mKeys.assign(static_cast<size_t>(size), "");
  mValues.assign(static_cast<size_t>(size), "");
  for (int32_t i = 0; i < keys->Count(); ++i)
    mKeys[static_cast<size_t>(keys->ItemAt(i).toLong())] = keys->KeyAt(i);
}

Record Record::newReference(Main2& main, int16_t whichType) {
  Record record(main, whichType);
  // The defaults: pairs of internal index and value in the model's second
  // setting.
  const std::vector<std::string> defaults = Strings::Split(main.Model(whichType)->setting(1), ",");
  for (size_t i = 0; i + 1 < defaults.size(); i += 2) {
    double index = -1;
    if (Variant::parseNumber(defaults[i], index) && index >= 0 &&
        index < static_cast<double>(record.mValues.size()))
      record.mValues[static_cast<size_t>(index)] = defaults[i + 1];
  }
  return record;
}

Record Record::fromValues(Main2& main, int16_t whichType, std::vector<std::string> values) {
  Record record(main, whichType);
  if (values.size() > record.mValues.size()) {
    throw BadInput("reference type " + std::to_string(whichType) + " has " +
                   std::to_string(record.mValues.size()) + " fields, not " +
                   std::to_string(values.size()));
  }
  values.resize(record.mValues.size());
  record.mValues = std::move(values);
  return record;
}

Json Record::toJson() const {
  Json values = Json::object();
  for (size_t i = 0; i < mKeys.size(); ++i) {
    // Positions without a key hold nothing a host stores.
    if (!mKeys[i].empty())
      values[mKeys[i]] = mValues[i];
  }
  Json json = {{"whichType", mWhichType}, {"values", std::move(values)}};
  if (!mExtras.empty())
    json["extras"] = mExtras;
  return json;
}

Record Record::fromJson(Main2& main, const Json& json, const std::string& what) {
  const Json type = json.is_object() ? json.value("whichType", Json()) : Json();
  if (!json.is_object() || !json.contains("values") || !json["values"].is_object())
    throw BadInput(what + " must be an object with \"whichType\" and \"values\" by field key");
  if (!type.is_number_integer() ||
      (type.get<int>() != 0 && type.get<int>() != 1 && type.get<int>() != 4))
    throw BadInput(what +
                   ": \"whichType\" must be 0 (NonPeriodical), 1 (Periodical) or 4 (Esource)");
  Record record = newReference(main, static_cast<int16_t>(type.get<int>()));
  for (const auto& [key, value] : json["values"].items()) {
    // Field values are texts as the host holds them: "12", "True".
    if (!value.is_string())
      throw BadInput(what + ": the value of '" + key + "' must be a text");
    try {
      record.set(key, value.get<std::string>());
    } catch (const BadInput& refused) {
      throw BadInput(what + ": " + refused.what());
    }
  }
  if (json.contains("extras")) {
    if (!json["extras"].is_object())
      throw BadInput(what + ": \"extras\" must be an object");
    record.mExtras = json["extras"];
  }
  return record;
}

namespace {

const UserControl* frameOf(const FrameContainer& container, int16_t whichType) {
  auto proxy = container.existingProxy(whichType);
  return proxy ? dynamic_cast<const UserControl*>(proxy->frame().get()) : nullptr;
}

}  // namespace

std::shared_ptr<Widget> Record::widgetOf(const FrameContainer& container, int16_t whichType,
                                         std::string_view key) {
  const auto* frame = frameOf(container, whichType);
  if (frame == nullptr)
    return nullptr;
  for (const auto& widget : frame->Controls()) {
    const bool caption = widget->ClassName() == "Label" && !widget->Name().ends_with("ComboLabel");
    if (!caption && fieldKey(*widget) == key)
      return widget;
  }
  return nullptr;
}

Record Record::fromWidgets(const FrameContainer& container, int16_t whichType, Record base) {
  const auto* frame = frameOf(container, whichType);
  if (frame == nullptr)
    return base;
  for (const auto& widget : frame->Controls()) {
    const std::string key = fieldKey(*widget);
    // Captions and layout widgets carry keys too, but only fields count.
    if (!key.empty() && base.has(key))
      base.set(key, shownValue(*widget));
  }
  return base;
}

size_t Record::position(std::string_view key) const {
  auto found = std::find(mKeys.begin(), mKeys.end(), key);
  if (key.empty() || found == mKeys.end()) {
    throw BadInput("'" + std::string(key) + "' is no field key of reference type " +
                   std::to_string(mWhichType));
  }
  return static_cast<size_t>(found - mKeys.begin());
}

bool Record::has(std::string_view key) const {
  return !key.empty() && std::find(mKeys.begin(), mKeys.end(), key) != mKeys.end();
}

const std::string& Record::get(std::string_view key) const {
  return mValues[position(key)];
}

void Record::set(std::string_view key, std::string value) {
  mValues[position(key)] = std::move(value);
}

std::string Record::shownValue(const Widget& widget) {
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

std::string Record::fieldKey(const Widget& widget) {
  const std::string& tag = widget.Tag();
  if (tag.empty() || tag.starts_with("vIgnore_"))
    return {};
  return tag.substr(0, tag.find(','));
}

}  // namespace kelmora::host
