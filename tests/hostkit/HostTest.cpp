#include "hostkit/Host.h"

#include <gtest/gtest.h>

#include "hosting/FrameContainer.h"
#include "hostkit/BadInput.h"
#include "hostkit/Callback.h"
#include "hostkit/FormatSettings.h"
#include "hostkit/Tracing.h"
#include "platform/RuntimeError.h"
#include "proxy/FrameProxy.h"
#include "support/FreshThread.h"
#include "surface/Label.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora::host {
namespace {

using kelmora::testing::onFreshThread;

std::vector<std::string> emptyComboLabels(FrameContainer& container, int16_t whichType) {
  std::vector<std::string> empty;
  auto frame = std::dynamic_pointer_cast<UserControl>(container.existingProxy(whichType)->frame());
  for (const auto& widget : frame->Controls()) {
    if (widget->Name() == "ComboLabel" && dynamic_cast<Label&>(*widget).Caption().empty())
      empty.push_back(Record::fieldKey(*widget));
  }
  return empty;
}

// What a host developer writes first: a book, then a website typed by the
// author, read back by key.
TEST(HostTest, AFirstHostLoadsABookTypesAUrlAndReadsItBack) {
  onFreshThread([] {
    struct Heard : Callback {
      int changes = 0;
      void widgetChangeHandler(bool& isKeyField, int16_t& Index, std::string& value,
                               std::shared_ptr<Object>& theControl,
                               std::shared_ptr<Object>& theSecondControl,
                               std::string& secondaryText, bool suppress,
                               int16_t& toggleSecondIndex) override {
        ++changes;
        Callback::widgetChangeHandler(isKeyField, Index, value, theControl, theSecondControl,
                                      secondaryText, suppress, toggleSecondIndex);
      }
    };
    auto heard = std::make_shared<Heard>();
    std::vector<std::string> failures;
    auto tracing = std::make_shared<Tracing>();
    tracing->onFailure = [&](const Failure& failure) { failures.push_back(failure.procedure); };
    Host host({.callback = heard, .tracing = tracing});
    host.show(0);
    host.applyFormat(FormatSettings::family(2));
    auto book = host.newRecord();
    book.set("Title", "Tides and Their Keepers");
    book.set("v6_BookOption", "False");
    book.set("v6_WebsiteOption", "True");
    host.load(book);
    const int loaded = heard->changes;
    auto online =
        std::dynamic_pointer_cast<TextBox>(Record::widgetOf(host.container(), 0, "Online"));
    ASSERT_NE(online, nullptr);
    EXPECT_TRUE(online->isShowing());
    UserActions::typeInto(*online, "https://tides.example.org");
    EXPECT_EQ(heard->changes - loaded, 25) << "one change a character";
    auto now = host.read();
    EXPECT_EQ(now.get("Online"), "https://tides.example.org");
    EXPECT_EQ(now.get("Title"), "Tides and Their Keepers");
    EXPECT_EQ(now.get("v6_WebsiteOption"), "True");
    host.end();
    EXPECT_EQ(failures, std::vector<std::string>{});
    try {
      host.show(1);
      ADD_FAILURE() << "an ended host shows nothing";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), kObjectNotSet);
    }
  });
}

// A new reference starts from the type's defaults, so that the combo
// labels keep their captions; a record of blanks would empty them.
TEST(HostTest, ANewRecordKeepsTheComboLabelsCaptioned) {
  onFreshThread([] {
    Host host;
    for (int16_t whichType : {int16_t{0}, int16_t{1}, int16_t{4}}) {
      host.show(whichType);
      host.applyFormat(FormatSettings::family(2));
      auto blank = Record::fromValues(host.main(), whichType, {});
      host.load(blank);
      // The Esource form has no combo label.
      EXPECT_EQ(emptyComboLabels(host.container(), whichType).empty(), whichType == 4) << whichType;
      auto fresh = host.newRecord();
      host.load(fresh);
      EXPECT_EQ(emptyComboLabels(host.container(), whichType), std::vector<std::string>{})
          << whichType;
    }
  });
}

TEST(HostTest, ARecordRefusesWhatItsTypeDoesNotHave) {
  onFreshThread([] {
    Host host;
    auto record = host.newRecord(1);
    EXPECT_THROW(record.set("Publisher", "x"), BadInput);  // a book's field
    EXPECT_THROW(record.get(""), BadInput);
    EXPECT_THROW(Record::fromValues(host.main(), 1, std::vector<std::string>(200)), BadInput);
    for (int16_t whichType : {int16_t{2}, int16_t{3}, int16_t{5}})
      EXPECT_THROW(host.newRecord(whichType), BadInput) << whichType;
    EXPECT_EQ(record.keys().size(), record.values().size());
    EXPECT_EQ(Record::fromValues(host.main(), 1, record.values()).values(), record.values());
  });
}

}  // namespace
}  // namespace kelmora::host
