#include "automation/TypeLibrary.h"

#include <algorithm>
#include <cctype>

namespace kelmora {

namespace {

using Type = TypeLibrary::Type;
using Default = TypeLibrary::Default;
using Member = TypeLibrary::Member;
constexpr auto kMethod = TypeLibrary::kMethod;
constexpr auto kGet = TypeLibrary::kPropertyGet;
constexpr auto kPut = TypeLibrary::kPropertyPut;

// Read at compile time only, so that a malformed literal in a table stops
// the build rather than the host's process.
consteval Guid id(std::string_view text) {
  return Guid::parse(text);
}

// The interfaces in the order of their slots; the gaps in the frames' ids
// are kept.

// clang-format off
const Member kPeriodicalMembers[] = {
    {0x6003001b, "getControls", kMethod, {}, Type::Object},
    {0x6003001c, "GetActiveControl", kMethod, {}, Type::Object},
    {0x6003001d, "initialize", kMethod, {}, Type::None},
    {0x6003001e, "UpdateFrame", kMethod, {{{"Index", Type::Integer}, {"showAllFields", Type::Boolean}}}, Type::None},
    {0x6003001f, "setReferenceListColumnNames", kMethod, {{{"columnNames", Type::StringArray}}}, Type::None},
    {0x60030020, "initializeFormatDependentWidgetToggler", kMethod, {{{"formatterSettings", Type::Object}, {"dependentWidgetToggler", Type::Object}, {"keyToOverallIndex", Type::Dictionary}}}, Type::None},
    {0x6003002c, "ArrangeAllFields", kMethod, {}, Type::None},
    {0x6003002f, "ComboLabelCaption", kMethod, {{{"Index", Type::Integer}, {"value", Type::String}}}, Type::String},
    {0x60030031, "SelectItem", kMethod, {{{"str", Type::String}, {"Index", Type::Integer}}}, Type::None},
    {0x60030037, "Terminate", kMethod, {}, Type::None},
};
static_assert(std::size(kPeriodicalMembers) == 10);

const Member kTranslatorWrapperMembers[] = {
    {0x0, "value", kGet, {}, Type::Variant},
};
static_assert(std::size(kTranslatorWrapperMembers) == 1);

const Member kFrameContainerMembers[] = {
    {0x60030004, "initialize", kMethod, {{{"referenceFrameProxy", Type::Object}}}, Type::None},
    {0x60030005, "setReferenceListColumnNames", kMethod, {{{"whichType", Type::Integer}, {"columnNames", Type::StringArray}}}, Type::None},
    {0x60030006, "SetVisibleFrame", kMethod, {{{"theModelType", Type::Integer}}}, Type::None},
    {0x60030007, "UpdateFrame", kMethod, {{{"Index", Type::Integer}, {"showAllFields", Type::Boolean}}}, Type::None},
    {0x60030008, "initializeFormatDependentWidgetToggler", kMethod, {{{"whichType", Type::Integer}, {"formatterSettings", Type::Object}}}, Type::None},
    {0x60030009, "ToggleFormatDependentWidgets", kMethod, {{{"whichType", Type::Integer}, {"formatterSettings", Type::Object}}}, Type::None},
    {0x6003000a, "SynchronizeFieldsWithModel", kMethod, {{{"whichType", Type::Integer}, {"values", Type::StringArray}}}, Type::None},
    {0x6003000b, "HandleUnsupportedReferenceType", kMethod, {{{"whichType", Type::Integer}, {"supported", Type::Boolean}}}, Type::None},
    {0x6003000c, "ExecuteDependentWidgetToggler", kMethod, {{{"whichType", Type::Integer}, {"Index", Type::Integer}}}, Type::None},
    {0x6003000d, "Reset", kMethod, {{{"whichType", Type::Integer}, {"showAllFields", Type::Boolean}}}, Type::None},
    {0x6003000e, "SetFocus", kMethod, {}, Type::None},
    {0x6003000f, "getControls", kMethod, {}, Type::Object},
    {0x60030010, "widgetChangeHandler", kMethod, {{{"theControl", Type::Object}, {"theSecondControl", Type::Object, Default::Nothing}, {"suppressShowSubform", Type::Boolean, Default::False}, {"toggleSecondIndex", Type::Integer, Default::MinusOne}, {"value", Type::String, Default::EmptyText}, {"secondaryText", Type::String, Default::EmptyText}}}, Type::None},
    {0x60030011, "CaptionToTitleType", kMethod, {{{"whichType", Type::Integer}, {"text", Type::String}}}, Type::String},
    {0x60030012, "TitleTypeToCaption", kMethod, {{{"whichType", Type::Integer}, {"text", Type::String}}}, Type::String},
    {0x60030013, "OptionButtonChanged", kMethod, {{{"Index", Type::Integer}}}, Type::None},
    {0x60030014, "HandleMouseMove", kMethod, {{{"field", Type::Object, Default::Nothing}, {"isNewspaperSection", Type::Boolean, Default::False}}}, Type::None},
    {0x60030015, "HandleDragDrop", kMethod, {{{"Data", Type::DataObject}}}, Type::None},
    {0x60030016, "UserFormEnterFocus", kMethod, {{{"anyField", Type::Object}}}, Type::None},
    {0x60030017, "ProcessTextField", kMethod, {{{"field", Type::Object}, {"secondaryText", Type::String, Default::EmptyText}}}, Type::None},
};
static_assert(std::size(kFrameContainerMembers) == 20);

const Member kMain2Members[] = {
    {0x60030001, "ChangeFormatType", kMethod, {{{"whichType", Type::Integer}}}, Type::None},
    {0x60030002, "BuildFrameContainer", kMethod, {{{"footnoteForm", Type::Object}, {"name", Type::String}}}, Type::Object},
    {0x68030000, "Model", kGet, {{{"whichType", Type::Integer}}}, Type::Model},
};
static_assert(std::size(kMain2Members) == 3);

const Member kModelMembers[] = {
    {0x40030000, "initializedToFormat", kGet, {}, Type::Boolean},
    {0x40030000, "initializedToFormat", kPut, {{{"value", Type::Boolean}}}, Type::None},
    {0x68030005, "keyToInternalIndex", kGet, {}, Type::Dictionary},
    {0x68030004, "KeyIndex", kGet, {}, Type::Integer},
    {0x68030003, "SecondKeyIndex", kGet, {}, Type::Integer},
    {0x68030002, "setting", kGet, {{{"Index", Type::Integer}}}, Type::String},
    {0x68030001, "ReferenceFormDisplayIndex", kGet, {}, Type::IntegerArray},
    {0x68030000, "controlIndices", kGet, {}, Type::IntegerArray},
};
static_assert(std::size(kModelMembers) == 8);

const Member kEsourceMembers[] = {
    {0x6003000b, "getControls", kMethod, {}, Type::Object},
    {0x6003000c, "GetActiveControl", kMethod, {}, Type::Object},
    {0x6003000d, "UpdateFrame", kMethod, {{{"Index", Type::Integer}, {"showAllFields", Type::Boolean}}}, Type::None},
    {0x6003000e, "ArrangeAllFields", kMethod, {}, Type::None},
    {0x6003000f, "initialize", kMethod, {}, Type::None},
    {0x60030010, "setReferenceListColumnNames", kMethod, {{{"columnNames", Type::StringArray}}}, Type::None},
    {0x60030011, "initializeFormatDependentWidgetToggler", kMethod, {{{"formatterSettings", Type::Object}, {"dependentWidgetToggler", Type::Object}, {"keyToOverallIndex", Type::Dictionary}}}, Type::None},
    {0x60030014, "SelectItem", kMethod, {{{"str", Type::String}, {"Index", Type::Integer}}}, Type::None},
    {0x6003001c, "ComboLabelCaption", kMethod, {{{"Index", Type::Integer}, {"value", Type::String}}}, Type::String},
    {0x60030024, "Terminate", kMethod, {}, Type::None},
};
static_assert(std::size(kEsourceMembers) == 10);

const Member kNonPeriodicalMembers[] = {
    {0x60030013, "getControls", kMethod, {}, Type::Object},
    {0x60030014, "GetActiveControl", kMethod, {}, Type::Object},
    {0x60030015, "UpdateFrame", kMethod, {{{"Index", Type::Integer}, {"showAllFields", Type::Boolean}}}, Type::None},
    {0x60030017, "initialize", kMethod, {}, Type::None},
    {0x60030018, "setReferenceListColumnNames", kMethod, {{{"columnNames", Type::StringArray}}}, Type::None},
    {0x60030019, "initializeFormatDependentWidgetToggler", kMethod, {{{"formatterSettings", Type::Object}, {"dependentWidgetToggler", Type::Object}, {"keyToOverallIndex", Type::Dictionary}}}, Type::None},
    {0x6003001c, "SelectItem", kMethod, {{{"str", Type::String}, {"Index", Type::Integer}}}, Type::None},
    {0x60030022, "ComboLabelCaption", kMethod, {{{"Index", Type::Integer}, {"value", Type::String}}}, Type::String},
    {0x60030026, "ArrangeAllFields", kMethod, {}, Type::None},
    {0x60030040, "Terminate", kMethod, {}, Type::None},
};
static_assert(std::size(kNonPeriodicalMembers) == 10);

const TypeLibrary::Interface kInterfaces[] = {
    {"_Periodical", id("{E9AD6E34-44E7-4686-AEE0-94FE271844BE}"), kPeriodicalMembers},
    {"_TranslatorWrapper", id("{6CD014E5-6C4B-49A1-AE48-9ADD9422907C}"), kTranslatorWrapperMembers},
    {"_FrameContainer", id("{8D972F36-8075-44EC-8906-56E3D57FD10F}"), kFrameContainerMembers},
    {"_Main2", id("{66AA94C4-EEC8-428C-A18F-3E92EF0EDF24}"), kMain2Members},
    {"_Model", id("{BE66CDC6-8609-4598-8AD8-028AB7B684BD}"), kModelMembers},
    {"_Esource", id("{24F1D106-48AA-473C-8B5A-AD314E3C0E58}"), kEsourceMembers},
    {"_NonPeriodical", id("{0F8692F5-405B-47A7-BEC9-980E12975E1C}"), kNonPeriodicalMembers},
};
static_assert(std::size(kInterfaces) == 7);

using ClassKind = TypeLibrary::ClassKind;
const TypeLibrary::Class kClasses[] = {
    {"Main2", id("{A9128F7F-8856-44FF-B123-747A84F4E685}"), ClassKind::Creatable, "_Main2", nullptr, {}},
    {"FrameContainer", id("{D68709B7-0D11-4865-8E29-04A0C3628482}"), ClassKind::Control, "_FrameContainer", "__FrameContainer", id("{C0D2D033-A47A-4D14-8453-3650269B6DA4}")},
    {"Periodical", id("{17EA2174-5DA8-4076-89DD-2AA3427B8EDC}"), ClassKind::Control, "_Periodical", "__Periodical", id("{7C3C032B-9304-4FB4-A96B-61060C1891AC}")},
    {"NonPeriodical", id("{B8F3DA51-0A2C-464D-8C69-ACDB21B05143}"), ClassKind::Control, "_NonPeriodical", "__NonPeriodical", id("{A2BE2E0D-D71F-4389-A548-E911212FA6F4}")},
    {"Esource", id("{823618C1-BF34-48C9-A345-091F9521C21F}"), ClassKind::Control, "_Esource", "__Esource", id("{8365B663-2CC6-4CE6-92A3-62EF9564A7A0}")},
    {"Model", id("{30274DA4-86E5-46CC-8F89-E2BFA2D273C2}"), ClassKind::NotCreatable, "_Model", nullptr, {}},
    {"TranslatorWrapper", id("{050102D6-CD95-47D7-B107-1C2377DDB288}"), ClassKind::NotCreatable, "_TranslatorWrapper", nullptr, {}},
};
static_assert(std::size(kClasses) == 7);

// The names of the identifier records: "_IID_" with the default interfaces
// of the public classes, "_SRCIID_" with the event interfaces of the
// controls.
const char* const kIdentifierRecordNames[] = {
    "_IID_ESOURCE",
    "_IID_FRAMECONTAINER",
    "_IID_MAIN2",
    "_IID_MODEL",
    "_IID_NONPERIODICAL",
    "_IID_PERIODICAL",
    "_IID_TRANSLATORWRAPPER",
    "_SRCIID_ESOURCE",
    "_SRCIID_FRAMECONTAINER",
    "_SRCIID_NONPERIODICAL",
    "_SRCIID_PERIODICAL",
};
// clang-format on
static_assert(std::size(kIdentifierRecordNames) == 11);

bool sameText(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) ==
           std::tolower(static_cast<unsigned char>(y));
  });
}

std::string upper(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

}  // namespace

const Guid TypeLibrary::kIdentifier = id("{9870D87C-ADEB-431D-AD2B-74946F0C55CF}");

size_t TypeLibrary::Member::argumentCount() const {
  return static_cast<size_t>(
      std::ranges::count_if(arguments, [](const Argument& a) { return a.name != nullptr; }));
}

size_t TypeLibrary::Member::requiredCount() const {
  return static_cast<size_t>(std::ranges::count_if(arguments, [](const Argument& a) {
    return a.name != nullptr && a.fallback == Default::Required;
  }));
}

std::span<const TypeLibrary::Class> TypeLibrary::classes() {
  return kClasses;
}

std::span<const TypeLibrary::Interface> TypeLibrary::interfaces() {
  return kInterfaces;
}

const TypeLibrary::Class* TypeLibrary::classNamed(std::string_view name) {
  for (const auto& c : kClasses) {
    if (name == c.name)
      return &c;
  }
  return nullptr;
}

const TypeLibrary::Class* TypeLibrary::classWithId(const Guid& clsid) {
  for (const auto& c : kClasses) {
    if (c.clsid == clsid)
      return &c;
  }
  return nullptr;
}

const TypeLibrary::Interface* TypeLibrary::interfaceNamed(std::string_view name) {
  for (const auto& i : kInterfaces) {
    if (name == i.name)
      return &i;
  }
  return nullptr;
}

const TypeLibrary::Member* TypeLibrary::memberNamed(const Interface& interface,
                                                    std::string_view name) {
  for (const auto& m : interface.members) {
    if (sameText(m.name, name))
      return &m;
  }
  return nullptr;
}

const TypeLibrary::Member* TypeLibrary::memberWithId(const Interface& interface, int32_t dispid,
                                                     int32_t kinds) {
  for (const auto& m : interface.members) {
    if (m.dispid == dispid && (m.kind & kinds) != 0)
      return &m;
  }
  return nullptr;
}

std::vector<TypeLibrary::IdentifierRecord> TypeLibrary::identifierRecords() {
  std::vector<IdentifierRecord> records;
  for (const char* name : kIdentifierRecordNames) {
    std::string_view recordName = name;
    bool source = recordName.starts_with("_SRCIID_");
    std::string className(recordName.substr(source ? 8 : 5));
    for (const auto& c : kClasses) {
      if (upper(c.name) != className)
        continue;
      Guid iid = source ? c.eventIid : interfaceNamed(c.defaultInterface)->iid;
      IdentifierRecord record{name, {}};
      record.bytes[0] = 16;
      auto bytes = iid.bytes();
      std::ranges::copy(bytes, record.bytes.begin() + 4);
      records.push_back(std::move(record));
    }
  }
  return records;
}

}  // namespace kelmora
