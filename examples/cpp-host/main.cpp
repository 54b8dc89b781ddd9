// A host of the reference form: shows a stored book, lets the author type
// a website's address key by key, and prints every call the library makes
// on the host and the record it reads back.
#include <iostream>

#include "hostkit/Callback.h"
#include "hostkit/FormatSettings.h"
#include "hostkit/Host.h"
#include "hostkit/Tracing.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

using namespace kelmora;

// The host's callback: the kit's, which answers each change as a host must,
// printing what it hears.
struct Callback : host::Callback {
  void widgetChangeHandler(bool& isKeyField, int16_t& Index, std::string& value,
                           std::shared_ptr<Object>& theControl,
                           std::shared_ptr<Object>& theSecondControl, std::string& secondaryText,
                           bool suppress, int16_t& toggleSecondIndex) override {
    std::cout << "<- widgetChangeHandler(Index=" << Index << ", value=\"" << value << "\")\n";
    host::Callback::widgetChangeHandler(isKeyField, Index, value, theControl, theSecondControl,
                                        secondaryText, suppress, toggleSecondIndex);
  }
  void OptionButtonChanged(int16_t& whichType, int16_t& Index) override {
    std::cout << "<- OptionButtonChanged(" << whichType << ", " << Index << ")\n";
  }
};

int main() {
  auto tracing = std::make_shared<host::Tracing>();
  int failures = 0;
  tracing->onFailure = [&](const host::Failure& failure) {
    std::cerr << "failure " << failure.number << " in " << failure.procedure << "\n";
    ++failures;
  };
  host::Host host({.callback = std::make_shared<Callback>(), .tracing = tracing});

  host.show(0);  // 0 NonPeriodical, 1 Periodical, 4 Esource
  host.applyFormat(host::FormatSettings::family(2));
  auto website = host.newRecord();
  website.set("Author", "Okafor, N.");
  website.set("Title", "Tides and Their Keepers");
  website.set("v6_BookOption", "False");
  website.set("v6_WebsiteOption", "True");
  host.load(website);

  // The author types the address into the website field.
  auto online = host::Record::widgetOf(host.container(), 0, "Online");
  UserActions::typeInto(dynamic_cast<TextBox&>(*online), "https://tides.example.org");

  auto now = host.read();
  for (const auto& key : {"Author", "Title", "Online"})
    std::cout << key << " = " << now.get(key) << "\n";
  host.end();
  return failures == 0 ? 0 : 1;
}
