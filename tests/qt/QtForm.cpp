#include "QtForm.h"

#include <QApplication>
#include <QTest>

#include "host/Kit.h"
#include "hosting/FrameContainer.h"
#include "scenario/WidgetLocator.h"

namespace kelmora::tools::testing {

QtForm::QtForm(int16_t whichType, int32_t family, bool window) : host(sink, {}) {
  FrameContainer& container = host.container();
  container.SetVisibleFrame(whichType);
  container.ToggleFormatDependentWidgets(whichType, FormatSettings::family(family));
  container.UpdateFrame(0, true);
  if (window) {
    view = std::make_unique<qt::FormView>(container);
    view->onFailure = [this](const std::string& message) { failures.push_back(message); };
    view->show();
    QApplication::setActiveWindow(view.get());
    if (!QTest::qWaitForWindowActive(view.get()))
      throw std::runtime_error("the form's window did not become active");
  }
  mReady = sink.events().size();
}

QtForm::~QtForm() {
  view.reset();
  host.end();
}

std::shared_ptr<Widget> QtForm::widget(const std::string& ref) const {
  return WidgetLocator::find(host.container(), ref);
}

QWidget* QtForm::qtWidget(const std::string& ref) const {
  return view ? view->counterpart(*widget(ref)) : nullptr;
}

std::vector<Json> QtForm::events() const {
  return {sink.events().begin() + static_cast<std::ptrdiff_t>(mReady), sink.events().end()};
}

}  // namespace kelmora::tools::testing
