#include "tools/FormStates.h"

#include <algorithm>

#include "host/Kit.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"
#include "scenario/WidgetLocator.h"
#include "surface/Label.h"
#include "surface/UserControl.h"

namespace kelmora::tools::testing {

std::string FormState::describe() const {
  return "type " + std::to_string(whichType) + ", family " + std::to_string(family) + ", option " +
         std::to_string(option) + (showAll ? ", all fields" : "");
}

std::vector<FormState> allFormStates() {
  struct Type {
    int16_t whichType;
    std::vector<int16_t> options;
  };
  // Journal, magazine, newspaper; book, website; the e-source has none.
  const Type types[] = {{1, {0, 1, 2}}, {0, {0, 1}}, {4, {-1}}};
  std::vector<FormState> states;
  for (const Type& type : types)
    for (int32_t family = 0; family <= 3; ++family)
      for (int16_t option : type.options)
        for (bool showAll : {false, true})
          states.push_back({type.whichType, family, option, showAll});
  return states;
}

UserControl& show(ToolHost& host, const FormState& state) {
  host.host().show(state.whichType);
  host.host().applyFormat(host::FormatSettings::family(state.family));
  host.container().UpdateFrame(state.option, state.showAll);
  return *WidgetLocator::frame(host.container(), state.whichType);
}

std::vector<std::string> cutCaptions(const UserControl& frame,
                                     const CaptionLayout::Measure& measure) {
  std::vector<std::string> problems;
  for (const auto& widget : frame.Controls()) {
    const auto* label = dynamic_cast<const Label*>(widget.get());
    if (label == nullptr || !label->isShowing() || label->Caption().empty())
      continue;
    const SurfaceRect box = label->surfaceRect();
    // What shows of the label: its box within every frame around it.
    float left = box.left;
    float right = box.left + box.width;
    float bottom = box.top + box.height;
    for (const Widget* around = label->Container(); around != &frame && around != nullptr;
         around = around->Container()) {
      const SurfaceRect outer = around->surfaceRect();
      left = std::max(left, outer.left);
      right = std::min(right, outer.left + outer.width);
      bottom = std::min(bottom, outer.top + outer.height);
    }
    const std::string name = label->Name() + " \"" + label->Caption() + "\"";
    const auto lines = CaptionLayout::lay(label->Caption(), box.width, label->Alignment(), measure);
    const size_t shown = std::min(
        lines.size(), CaptionLayout::shownLines(bottom - box.top, CaptionLayout::kFormLineHeight));
    if (shown == 0 || lines.front().text.empty())
      problems.push_back(name + ": nothing of it shows");
    // A pixel's tenth for the rounding of positions.
    constexpr float kSlack = 0.1f;
    for (size_t i = 0; i < shown; ++i) {
      const float start = box.left + lines[i].x;
      const float end = start + lines[i].width;
      if (start < left - kSlack)
        problems.push_back(name + ": \"" + lines[i].text + "\" loses its start");
      if (end > right + kSlack)
        problems.push_back(name + ": \"" + lines[i].text + "\" loses its end, " +
                           std::to_string(end - right) + " px");
    }
  }
  return problems;
}

}  // namespace kelmora::tools::testing
