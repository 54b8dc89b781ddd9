// The editing session that the C and Python hosts play through the shared
// library, played here by a C++ host on the library's own interfaces. All
// three must hear the same host calls in the same order, listed once in
// PeriodicalSession.txt.

#include <gtest/gtest.h>

#include <fstream>

#include "support/ContainerHost.h"
#include "support/FreshThread.h"
#include "support/SettingsBuilder.h"
#include "support/StoredReferences.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora {
namespace {

std::vector<std::string> expectedCalls() {
  std::ifstream file(KELMORA_AUTOMATION_TESTS_DIR "/PeriodicalSession.txt");
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

TEST(PeriodicalSessionTest, TheCppHostHearsTheListedCalls) {
  testing::onFreshThread([] {
    testing::ContainerHost host;
    auto& container = *host.container;
    container.SetVisibleFrame(1);
    container.ToggleFormatDependentWidgets(1, testing::SettingsBuilder()
                                                  .Format(2)
                                                  .hasPeriodicalPageNumbers(true)
                                                  .accessDateFormat("d mmmm yyyy")
                                                  .build());
    auto values = testing::storedJournal();
    container.SynchronizeFieldsWithModel(1, values);
    container.UpdateFrame(-1, true);
    auto box = [&](int16_t index) {
      return std::dynamic_pointer_cast<TextBox>(container.getControls()->find("TextBox", index));
    };
    UserActions::focus(*box(8));
    UserActions::typeInto(*box(8), "10.1/x");
    container.ExecuteDependentWidgetToggler(1, 5);
    container.UpdateFrame(2, true);
    UserActions::focus(*box(13));
    UserActions::focusAway();
    EXPECT_EQ(host.callback->calls, expectedCalls());
    EXPECT_EQ(host.failures(), std::vector<std::string>{});
  });
}

}  // namespace
}  // namespace kelmora
