#include <gtest/gtest.h>

#include "automation/Dispatcher.h"
#include "automation/ForeignCallback.h"
#include "automation/HostObjects.h"
#include "support/ContainerHost.h"
#include "support/FreshThread.h"
#include "surface/FormatterSettings.h"
#include "surface/TextBox.h"
#include "tests/automation/ScriptedForeignObject.h"

namespace kelmora {
namespace {

using testing::onFreshThread;
using testing::ScriptedForeignObject;
using Arguments = Dispatcher::Arguments;

Variant nothing(std::vector<Variant>&) {
  return {};
}

// A callback in another language that offers every member but the ones
// taken away.
std::shared_ptr<ScriptedForeignObject> foreignCallback(const std::set<std::string>& without) {
  auto callback = std::make_shared<ScriptedForeignObject>();
  for (const char* name :
       {"widgetChangeHandler", "CaptionToTitleType", "TitleTypeToCaption", "OptionButtonChanged",
        "HandleMouseMove", "HandleDragDrop", "HideSubform", "ProcessTextField", "HandleDateExit"}) {
    if (!without.contains(name))
      callback->members[name] = nothing;
  }
  return callback;
}

TEST(ForeignAdapterTest, ACallbackWithoutHandleDateExitFailsInProcessTextField) {
  onFreshThread([] {
    testing::ContainerHost host;
    auto foreign = foreignCallback({"HandleDateExit"});
    Arguments callback{Variant(std::shared_ptr<Object>(foreign))};
    Dispatcher::invoke(host.container, "initialize", TypeLibrary::kMethod, callback);
    auto date = std::make_shared<TextBox>();
    date->Tag("PeriodicalDate,date");
    host.container->ProcessTextField(date);
    EXPECT_EQ(foreign->calls, std::vector<std::string>{"ProcessTextField"});
    EXPECT_EQ(host.failures(), std::vector<std::string>{"FrameContainer.ProcessTextField 438"});
  });
}

TEST(ForeignAdapterTest, SettingsWithoutAMemberAFrameReadsFailInThatFrame) {
  onFreshThread([] {
    testing::ContainerHost host;
    auto settings = std::make_shared<ScriptedForeignObject>();
    for (const char* name : {"Format", "tooltipTextJournal", "tooltipTextPeriodical",
                             "accessDateFormat", "alwaysEnableAccessDate"})
      settings->members[name] = [](std::vector<Variant>&) { return Variant(int32_t{0}); };
    Arguments show{Variant(int16_t{1})};
    Dispatcher::invoke(host.container, "SetVisibleFrame", TypeLibrary::kMethod, show);
    Arguments format{Variant(int16_t{1}), Variant(std::shared_ptr<Object>(settings))};
    Dispatcher::invoke(host.container, "ToggleFormatDependentWidgets", TypeLibrary::kMethod,
                       format);
    EXPECT_EQ(host.failures(),
              std::vector<std::string>{"Periodical.initializeFormatDependentWidgetToggler 438"});
  });
}

TEST(ForeignAdapterTest, WhatTheHostWritesIntoAnArgumentReachesTheLibrary) {
  auto foreign = std::make_shared<ScriptedForeignObject>();
  foreign->members["CaptionToTitleType"] = [](std::vector<Variant>& arguments) {
    arguments[1] = Variant("rewritten");
    return Variant(int16_t{7});
  };
  auto callback = HostObjects::callback(foreign);
  int16_t whichType = 3;
  std::string text = "Article";
  EXPECT_EQ(callback->CaptionToTitleType(whichType, text), "7");
  EXPECT_EQ(text, "rewritten");
  // The host gets back its own object, not the adapter.
  EXPECT_EQ(HostObjects::unwrapped(callback), foreign);
  // An object that is neither the interface nor a by-name object is refused.
  EXPECT_THROW(HostObjects::callback(std::make_shared<TextBox>()), RuntimeError);
}

TEST(ForeignAdapterTest, SettingsHandOutTheirOutputTemplatesAsByNameObjects) {
  auto settings = std::make_shared<ScriptedForeignObject>();
  auto webTemplate = std::make_shared<ScriptedForeignObject>();
  webTemplate->members["isURL"] = [](std::vector<Variant>& arguments) {
    return Variant(arguments[0].toString().starts_with("http"));
  };
  settings->members["outputTemplates"] = [&](std::vector<Variant>& arguments) {
    EXPECT_EQ(arguments[0].toLong(), 13);
    return Variant(std::shared_ptr<Object>(webTemplate));
  };
  std::string url = "https://example.org";
  EXPECT_TRUE(HostObjects::settings(settings)->outputTemplates(13)->isURL(url));
}

}  // namespace
}  // namespace kelmora
