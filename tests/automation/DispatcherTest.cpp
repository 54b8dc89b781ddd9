#include "automation/Dispatcher.h"

#include <gtest/gtest.h>

#include <cctype>

#include "automation/VariantArray.h"
#include "diagnostics/TranslatorWrapper.h"
#include "frames/esource/Esource.h"
#include "frames/nonperiodical/NonPeriodical.h"
#include "frames/periodical/Periodical.h"
#include "platform/Dictionary.h"
#include "support/ContainerHost.h"
#include "support/ErrorOf.h"
#include "support/FreshThread.h"
#include "surface/DataObject.h"
#include "surface/TextBox.h"

namespace kelmora {
namespace {

using testing::errorOf;
using testing::onFreshThread;
using Arguments = Dispatcher::Arguments;

std::string mixedCase(std::string name) {
  for (size_t i = 0; i < name.size(); i += 2)
    name[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[i])));
  for (size_t i = 1; i < name.size(); i += 2)
    name[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
  return name;
}

// One live object of each public class, as a host reaches them.
struct Objects : testing::ContainerHost {
  std::map<std::string, std::shared_ptr<Object>> byInterface{
      {"_Main2", main},
      {"_FrameContainer", container},
      {"_Model", main->Model(1)},
      {"_TranslatorWrapper", std::make_shared<TranslatorWrapper>()},
      {"_Periodical", UserControl::create<Periodical>("Periodical")},
      {"_NonPeriodical", UserControl::create<NonPeriodical>("NonPeriodical")},
      {"_Esource", UserControl::create<Esource>("Esource")},
  };
};

// A value of the declared type, as a host would pass it.
Variant fitting(TypeLibrary::Type type) {
  using Type = TypeLibrary::Type;
  switch (type) {
    case Type::Integer:
      return Variant(int16_t{1});
    case Type::Long:
      return Variant(int32_t{1});
    case Type::Boolean:
      return Variant(false);
    case Type::String:
      return Variant("Article title");
    case Type::StringArray:
    case Type::IntegerArray:
      return Variant(std::shared_ptr<Object>(std::make_shared<VariantArray>()));
    case Type::Dictionary:
      return Variant(std::shared_ptr<Object>(std::make_shared<Dictionary>()));
    case Type::DataObject:
      return Variant(std::shared_ptr<Object>(std::make_shared<DataObject>()));
    case Type::Object:
    case Type::Model:
      return Variant(std::shared_ptr<Object>{});
    case Type::Variant:
    case Type::None:
      break;
  }
  return {};
}

TEST(DispatcherTest, EveryMemberAnswersByNameAndById) {
  onFreshThread([] {
    Objects objects;
    for (const auto& interface : TypeLibrary::interfaces()) {
      const auto& object = objects.byInterface.at(interface.name);
      EXPECT_EQ(Dispatcher::interfacesOf(*object).front(), &interface);
      // In slot order, so that a frame's Terminate comes last.
      for (const auto& member : interface.members) {
        SCOPED_TRACE(std::string(interface.name) + "." + member.name);
        // Late binding ignores case.
        EXPECT_EQ(Dispatcher::idOfName(*object, mixedCase(member.name)), member.dispid);
        // Bound by id, a member with required arguments refuses a call
        // without them before it runs...
        if (member.requiredCount() > 0) {
          Arguments none;
          EXPECT_EQ(errorOf([&] { Dispatcher::invoke(object, member.dispid, member.kind, none); }),
                    kArgumentNotOptional);
        }
        // ...and runs with arguments of the declared types. What the member
        // then does with them is its own affair and goes down its failure
        // path; nothing leaves it.
        Arguments given;
        for (size_t i = 0; i < member.argumentCount(); ++i)
          given.emplace_back(fitting(member.arguments[i].type));
        EXPECT_EQ(errorOf([&] { Dispatcher::invoke(object, member.dispid, member.kind, given); }),
                  0);
      }
    }
  });
}

TEST(DispatcherTest, SetVisibleFrameBoundBothWaysShowsTheSameFrame) {
  // What a host sees after showing the Periodical frame, bound one way.
  auto show = [](auto bind) {
    std::vector<std::string> shown;
    onFreshThread([&] {
      testing::ContainerHost host;
      Arguments periodical{Variant(int16_t{1})};
      bind(host.container, periodical);
      for (const auto& widget : host.container->Controls()) {
        if (widget->Visible())
          shown.push_back(widget->Name());
      }
      shown.push_back(std::to_string(host.container->currentFrame()));
      EXPECT_EQ(host.failures(), std::vector<std::string>{});
    });
    return shown;
  };
  auto byName = show([](const std::shared_ptr<FrameContainer>& container, Arguments& arguments) {
    Dispatcher::invoke(container, "setvisibleframe", TypeLibrary::kMethod, arguments);
  });
  auto byId = show([](const std::shared_ptr<FrameContainer>& container, Arguments& arguments) {
    Dispatcher::invoke(container, 0x60030006, TypeLibrary::kMethod, arguments);
  });
  EXPECT_EQ(byName, byId);
  EXPECT_EQ(byId, (std::vector<std::string>{"PeriodicalFrame", "1"}));
}

TEST(DispatcherTest, CallsThatDoNotFitTheirRowFailWithTheRunTimesNumbers) {
  onFreshThread([] {
    testing::ContainerHost host;
    struct Row {
      const char* what;
      std::variant<const char*, int32_t> member;
      int32_t kinds;
      Arguments arguments;
      int32_t error;
    };
    const Row rows[] = {
        {"unknown name", "Show", TypeLibrary::kMethod, {}, kMemberNotSupported},
        {"unknown id", 0x60030003, TypeLibrary::kMethod, {}, kMemberNotSupported},
        {"method read as property",
         0x60030006,
         TypeLibrary::kPropertyPut,
         {Variant(int16_t{1})},
         kMemberNotSupported},
        {"missing required", "SetVisibleFrame", TypeLibrary::kMethod, {}, kArgumentNotOptional},
        {"text for an integer",
         "SetVisibleFrame",
         TypeLibrary::kMethod,
         {Variant("one")},
         kTypeMismatch},
        {"nothing for an integer",
         "SetVisibleFrame",
         TypeLibrary::kMethod,
         {Variant(std::shared_ptr<Object>{})},
         kTypeMismatch},
        {"a control for a truth value",
         "HandleUnsupportedReferenceType",
         TypeLibrary::kMethod,
         {Variant(int16_t{1}), Variant(std::shared_ptr<Object>(host.container))},
         kTypeMismatch},
        {"number for an object",
         "initialize",
         TypeLibrary::kMethod,
         {Variant(int16_t{1})},
         kTypeMismatch},
        {"text for an array",
         "SynchronizeFieldsWithModel",
         TypeLibrary::kMethod,
         {Variant(int16_t{1}), Variant("a")},
         kTypeMismatch},
        {"one argument too many",
         "SetFocus",
         TypeLibrary::kMethod,
         {Variant(int16_t{1})},
         kInvalidProcedureCall},
        {"integer out of range",
         "SetVisibleFrame",
         TypeLibrary::kMethod,
         {Variant(int32_t{70000})},
         kOverflow},
    };
    for (const auto& row : rows) {
      SCOPED_TRACE(row.what);
      Arguments arguments = row.arguments;
      EXPECT_EQ(errorOf([&] {
                  if (const auto* name = std::get_if<const char*>(&row.member))
                    Dispatcher::invoke(host.container, *name, row.kinds, arguments);
                  else
                    Dispatcher::invoke(host.container, std::get<int32_t>(row.member), row.kinds,
                                       arguments);
                }),
                row.error);
    }
    EXPECT_EQ(host.callback->calls, std::vector<std::string>{});
  });
}

TEST(DispatcherTest, ModelIsAPropertyReadThatTakesTheType) {
  onFreshThread([] {
    testing::ContainerHost host;
    Arguments periodical{Variant(int16_t{1})};
    auto model = Dispatcher::invoke(host.main, 0x68030000, TypeLibrary::kPropertyGet, periodical);
    Arguments first{Variant(int16_t{0})};
    EXPECT_EQ(Dispatcher::invoke(model.toObject(), "setting", TypeLibrary::kPropertyGet, first)
                  .toString(),
              "Periodical");
    Arguments truth{Variant(true)};
    Dispatcher::invoke(model.toObject(), 0x40030000, TypeLibrary::kPropertyPut, truth);
    EXPECT_TRUE(host.main->Model(1)->initializedToFormat);
    Arguments none;
    auto indices =
        Dispatcher::invoke(model.toObject(), "controlIndices", TypeLibrary::kPropertyGet, none);
    EXPECT_EQ(Dispatcher::array(indices)->items.size(),
              host.main->Model(1)->controlIndices().size());

    // The key map is read as the host reads it: every key leads to the
    // model's own index, and reading a key that is not there changes nothing.
    auto map =
        Dispatcher::invoke(model.toObject(), "keyToInternalIndex", TypeLibrary::kPropertyGet, none)
            .toObject();
    const auto& own = *host.main->Model(1)->keyToInternalIndex();
    auto keys = Dispatcher::array(Dispatcher::invoke(map, "keys", TypeLibrary::kMethod, none));
    ASSERT_EQ(keys->items.size(), static_cast<size_t>(own.Count()));
    for (size_t i = 0; i < keys->items.size(); ++i) {
      Arguments key{keys->items[i]};
      EXPECT_EQ(Dispatcher::invoke(map, 0x0, TypeLibrary::kPropertyGet, key).toLong(),
                own.ItemAt(static_cast<int32_t>(i)).toLong());
    }
    Arguments missing{Variant("NoSuchKey")};
    EXPECT_FALSE(Dispatcher::invoke(map, "Exists", TypeLibrary::kMethod, missing).toBoolean());
    EXPECT_EQ(errorOf([&] { Dispatcher::invoke(map, "Item", TypeLibrary::kPropertyGet, missing); }),
              kInvalidProcedureCall);
    EXPECT_EQ(Dispatcher::invoke(map, "Count", TypeLibrary::kPropertyGet, none).toLong(),
              own.Count());
  });
}

TEST(DispatcherTest, OmittedOptionalArgumentsTakeTheirDefaults) {
  onFreshThread([] {
    testing::ContainerHost host;
    Arguments periodical{Variant(int16_t{1})};
    Dispatcher::invoke(host.container, "SetVisibleFrame", TypeLibrary::kMethod, periodical);
    Arguments field{
        Variant(std::shared_ptr<Object>(host.container->getControls()->Item("TextBox", 8)))};
    Dispatcher::invoke(host.container, "widgetChangeHandler", TypeLibrary::kMethod, field);
    Arguments none;
    Dispatcher::invoke(host.container, "HandleMouseMove", TypeLibrary::kMethod, none);
    const std::vector<std::string> expected{
        "widgetChangeHandler(False, 5, , TextBox(8), Nothing, , False, -1)",
        "HandleMouseMove(Nothing, False)"};
    EXPECT_EQ(host.callback->calls, expected);
  });
}

TEST(DispatcherTest, ByReferenceArgumentsComeBackChanged) {
  onFreshThread([] {
    testing::ContainerHost host;
    auto replacement = std::make_shared<DataObject>();
    host.callback->replacementData = replacement;
    Arguments data{Variant(std::shared_ptr<Object>(std::make_shared<DataObject>()))};
    Dispatcher::invoke(host.container, "HandleDragDrop", TypeLibrary::kMethod, data);
    EXPECT_EQ(data[0]->toObject(), replacement);

    auto names = std::make_shared<VariantArray>();
    Arguments columns{Variant(int16_t{1}), Variant(std::shared_ptr<Object>(names))};
    Dispatcher::invoke(host.container, "setReferenceListColumnNames", TypeLibrary::kMethod,
                       columns);
    EXPECT_FALSE(names->items.empty());
  });
}

TEST(DispatcherTest, AFailureLeavingTheOutermostMemberReachesTheCaller) {
  onFreshThread([] {
    auto main = std::make_shared<Main2>();
    // No tracing bridge runs: the first traced statement fails, and so does
    // its failure path.
    Arguments periodical{Variant(int16_t{1})};
    try {
      Dispatcher::invoke(main, "ChangeFormatType", TypeLibrary::kMethod, periodical);
      FAIL() << "no failure";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), kCannotCreateObject);
      EXPECT_TRUE(
          error.Description().starts_with(RuntimeError::standardDescription(kCannotCreateObject)));
    }
  });
}

}  // namespace
}  // namespace kelmora
