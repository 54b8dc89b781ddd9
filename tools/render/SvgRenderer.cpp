#include "render/SvgRenderer.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <sstream>
#include <unordered_map>

#include "hosting/FrameContainer.h"
#include "hosting/RuleExplainer.h"
#include "proxy/FrameProxy.h"
#include "render/FormFontMetrics.h"
#include "surface/CaptionLayout.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/SystemColors.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"

namespace kelmora::tools {

namespace {

constexpr const char* kFace = "#f0f0f0";
constexpr const char* kGreyText = "#6d6d6d";
constexpr float kFontSize = FormFontMetrics::kPixels;

std::string px(float value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", static_cast<double>(value));
  std::string result(text);
  while (result.back() == '0') result.pop_back();
  if (result.back() == '.')
    result.pop_back();
  return result == "-0" ? "0" : result;
}

std::string escape(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string colour(Color value) {
  const uint32_t rgb = screenRgb(value);
  char text[8];
  std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(rgb));
  return text;
}

std::string widgetName(const Widget& widget) {
  if (!widget.IsArrayMember())
    return widget.Name();
  return widget.Name() + "(" + std::to_string(widget.Index()) + ")";
}

std::string fieldKey(const Widget& widget) {
  const std::string& tag = widget.Tag();
  return tag.substr(0, tag.find(','));
}

struct Box {
  float x, y, w, h;
};

class Painter {
 public:
  Painter(std::ostringstream& out, const SvgRenderer::Options& options)
      : mOut(out), mOutlineHidden(options.outlineHidden), mExplain(options.explain) {}

  // The widgets of `control` standing in `container`: labels first, since
  // windowed widgets lie above them, then the rest in form order, each
  // Frame with its own contents clipped to it.
  void paintContainer(const UserControl& control, const Widget* container, float dx, float dy) {
    for (bool windowless : {true, false}) {
      for (const auto& widget : control.Controls()) {
        if (widget->Container() != container || widget->isWindowless() != windowless)
          continue;
        if (!widget->isShowing()) {
          noteHidden(control, *widget, dx, dy);
          continue;
        }
        paintWidget(control, *widget, dx, dy);
      }
    }
  }

  void paintOutlines() {
    for (const auto& outline : mOutlines) mOut << outline;
  }

 private:
  void noteHidden(const UserControl& control, const Widget& widget, float dx, float dy) {
    if (!mOutlineHidden)
      return;
    const Box box = boxOf(widget, dx, dy);
    std::ostringstream line;
    line << "<rect class=\"hidden\" data-name=\"" << escape(widgetName(widget)) << "\" x=\""
         << px(box.x) << "\" y=\"" << px(box.y) << "\" width=\"" << px(box.w) << "\" height=\""
         << px(box.h)
         << "\" fill=\"none\" stroke=\"#d03030\" stroke-width=\"1\" stroke-dasharray=\"3,2\">"
         << "<title>" << escape(widgetName(widget)) << " (hidden)</title></rect>\n";
    mOutlines.push_back(line.str());
    // What stands inside a hidden Frame is hidden too. A hidden user
    // control (another type's frame) gets its own outline only: its
    // widgets would bury the form that is shown.
    if (dynamic_cast<const Frame*>(&widget) != nullptr) {
      for (const auto& inner : control.Controls())
        if (inner->Container() == &widget)
          noteHidden(control, *inner, dx, dy);
    }
  }

  static Box boxOf(const Widget& widget, float dx, float dy) {
    const SurfaceRect rect = widget.surfaceRect();
    return {dx + rect.left, dy + rect.top, rect.width, rect.height};
  }

  // Text with each character placed at the forms' own advances, so that a
  // viewer draws it as wide as it was laid out, whatever its font measures.
  // A tspan each: viewers keep a list of x positions less well.
  void text(const std::string& value, float x, float y, const char* fill) {
    mOut << "<text y=\"" << px(y) << "\" fill=\"" << fill << "\">";
    float at = x;
    for (size_t i = 0; i < value.size();) {
      const size_t start = i;
      const float advance = FormFontMetrics::advance(FormFontMetrics::next(value, i));
      mOut << "<tspan x=\"" << px(at) << "\">" << escape(value.substr(start, i - start))
           << "</tspan>";
      at += advance;
    }
    mOut << "</text>";
  }

  void paintWidget(const UserControl& control, const Widget& widget, float dx, float dy) {
    const Box box = boxOf(widget, dx, dy);
    const bool enabled = widget.isEnabledInTree();
    const char* ink = enabled ? "#000000" : kGreyText;
    const std::string name = widgetName(widget);
    mOut << "<g class=\"widget\" data-name=\"" << escape(name) << "\" data-class=\""
         << escape(widget.ClassName()) << "\"";
    const std::string key = fieldKey(widget);
    if (!key.empty())
      mOut << " data-key=\"" << escape(key) << "\"";
    if (!enabled)
      mOut << " data-disabled=\"true\"";
    mOut << ">";
    std::string title = widget.ToolTipText();
    if (mExplain) {
      const std::string reason = mExplain(widget);
      if (!reason.empty())
        title += (title.empty() ? "" : "\n") + reason;
    }
    if (!title.empty())
      mOut << "<title>" << escape(title) << "</title>";

    // Input widgets greyed when disabled: the rule layer may already have
    // given them the inactive colour, and a widget disabled otherwise gets
    // it here.
    std::string back = colour(widget.BackColor());
    if (!enabled && widget.BackColor() == kColorWindowBackground)
      back = colour(kColorInactiveBorder);
    auto rect = [&](const std::string& fill, const char* stroke) {
      mOut << "<rect class=\"box\" x=\"" << px(box.x) << "\" y=\"" << px(box.y) << "\" width=\""
           << px(box.w) << "\" height=\"" << px(box.h) << "\" fill=\"" << fill << "\" stroke=\""
           << stroke << "\"/>";
    };
    // One line of text, centred in the widget's height.
    const float baseline =
        box.y + (box.h - CaptionLayout::kFormLineHeight) / 2 + CaptionLayout::kFormAscent;

    if (auto* box_ = dynamic_cast<const TextBox*>(&widget)) {
      rect(back, "#7a7a7a");
      clipped(box, [&] { text(box_->Text(), box.x + 3, baseline, ink); });
    } else if (auto* combo = dynamic_cast<const ComboBox*>(&widget)) {
      rect(back, "#7a7a7a");
      const float arrow = std::min(box.h, 17.0f);
      clipped({box.x, box.y, box.w - arrow, box.h},
              [&] { text(combo->Text(), box.x + 3, baseline, ink); });
      mOut << "<rect class=\"arrow\" x=\"" << px(box.x + box.w - arrow) << "\" y=\"" << px(box.y)
           << "\" width=\"" << px(arrow) << "\" height=\"" << px(box.h) << "\" fill=\"" << kFace
           << "\" stroke=\"#7a7a7a\"/>";
      const float cx = box.x + box.w - arrow / 2;
      const float cy = box.y + box.h / 2;
      mOut << "<path d=\"M" << px(cx - 4) << ' ' << px(cy - 2) << " L" << px(cx + 4) << ' '
           << px(cy - 2) << " L" << px(cx) << ' ' << px(cy + 3) << " Z\" fill=\"" << ink << "\"/>";
    } else if (auto* label = dynamic_cast<const Label*>(&widget)) {
      rect("none", "none");
      // Laid out as the window lays it out: broken at spaces, clipped below
      // and on the right, never cut at its start.
      clipped(box, [&] {
        const auto lines = CaptionLayout::lay(label->Caption(), box.w, label->Alignment(),
                                              &FormFontMetrics::width);
        const size_t shown = std::min(
            lines.size(), CaptionLayout::shownLines(box.h, CaptionLayout::kFormLineHeight));
        for (size_t i = 0; i < shown; ++i)
          text(lines[i].text, box.x + lines[i].x,
               box.y + CaptionLayout::kFormLineHeight * static_cast<float>(i) +
                   CaptionLayout::kFormAscent,
               ink);
      });
    } else if (auto* option = dynamic_cast<const OptionButton*>(&widget)) {
      rect("none", "none");
      const float cy = box.y + box.h / 2;
      mOut << "<circle class=\"state\" cx=\"" << px(box.x + 6) << "\" cy=\"" << px(cy)
           << "\" r=\"5.5\" fill=\"" << (enabled ? "#ffffff" : colour(kColorInactiveBorder))
           << "\" stroke=\"#7a7a7a\"/>";
      if (option->Value())
        mOut << "<circle class=\"selected\" cx=\"" << px(box.x + 6) << "\" cy=\"" << px(cy)
             << "\" r=\"2.5\" fill=\"" << ink << "\"/>";
      clipped(box, [&] { text(option->Caption(), box.x + 16, baseline, ink); });
    } else if (auto* check = dynamic_cast<const CheckBox*>(&widget)) {
      rect("none", "none");
      const float top = box.y + box.h / 2 - 6;
      const bool greyed = check->Value() == CheckBox::kGrayed;
      mOut << "<rect class=\"state\" x=\"" << px(box.x + 1) << "\" y=\"" << px(top)
           << "\" width=\"12\" height=\"12\" fill=\""
           << (greyed || !enabled ? colour(kColorInactiveBorder) : "#ffffff")
           << "\" stroke=\"#7a7a7a\"/>";
      if (check->Value() != CheckBox::kUnchecked)
        mOut << "<path class=\"checked\" d=\"M" << px(box.x + 3) << ' ' << px(top + 6) << " L"
             << px(box.x + 6) << ' ' << px(top + 9) << " L" << px(box.x + 11) << ' ' << px(top + 3)
             << "\" fill=\"none\" stroke=\"" << (greyed ? kGreyText : ink)
             << "\" stroke-width=\"1.6\"/>";
      clipped(box, [&] { text(check->Caption(), box.x + 18, baseline, ink); });
    } else if (auto* frame = dynamic_cast<const Frame*>(&widget)) {
      rect("none", "none");
      if (frame->BorderStyle() == Frame::kFixedSingle) {
        mOut << "<rect class=\"border\" x=\"" << px(box.x + 0.5f) << "\" y=\""
             << px(box.y + kFontSize / 2) << "\" width=\"" << px(box.w - 1) << "\" height=\""
             << px(box.h - kFontSize / 2 - 0.5f) << "\" fill=\"none\" stroke=\"#a0a0a0\"/>";
        text(frame->Caption(), box.x + 8, box.y + kFontSize - 1, ink);
      }
      clipped(box, [&] { paintContainer(control, &widget, dx, dy); });
    } else if (auto* nested = dynamic_cast<const UserControl*>(&widget)) {
      rect("none", "none");
      clipped(box, [&] { paintContainer(*nested, nested, box.x, box.y); });
    } else {
      rect("none", "#a0a0a0");
    }
    mOut << "</g>\n";
  }

  template <typename Body>
  void clipped(const Box& box, Body&& body) {
    const std::string id = "clip" + std::to_string(++mClips);
    mOut << "<clipPath id=\"" << id << "\"><rect x=\"" << px(box.x) << "\" y=\"" << px(box.y)
         << "\" width=\"" << px(std::max(box.w, 0.0f)) << "\" height=\""
         << px(std::max(box.h, 0.0f)) << "\"/></clipPath><g clip-path=\"url(#" << id << ")\">";
    body();
    mOut << "</g>";
  }

  std::ostringstream& mOut;
  bool mOutlineHidden;
  const std::function<std::string(const Widget&)>& mExplain;
  int mClips = 0;
  std::vector<std::string> mOutlines;
};

}  // namespace

std::function<std::string(const Widget&)> SvgRenderer::explanationsOf(
    const FrameContainer& container) {
  auto reasons = std::make_shared<std::unordered_map<const Widget*, std::string>>();
  if (const auto proxy = container.existingProxy(container.currentFrame())) {
    for (const auto& e : RuleExplainer::explain(container))
      (*reasons)[proxy->controls()[static_cast<size_t>(e.overallIndex)].get()] = e.because;
  }
  return [reasons](const Widget& widget) {
    const auto found = reasons->find(&widget);
    return found == reasons->end() ? std::string() : "Why: " + found->second;
  };
}

std::string SvgRenderer::render(const UserControl& root, Options options) {
  const float width = root.Width();
  const float height = root.Height();
  std::ostringstream body;
  Painter painter(body, options);
  painter.paintContainer(root, &root, 0, 0);
  painter.paintOutlines();

  std::ostringstream out;
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << px(width) << "\" height=\""
      << px(height) << "\" viewBox=\"0 0 " << px(width) << ' ' << px(height)
      << "\" font-family=\"Tahoma, sans-serif\" font-size=\"" << px(kFontSize)
      << "px\" style=\"font-kerning: none\" data-name=\"" << escape(widgetName(root)) << "\">\n"
      << "<rect class=\"surface\" x=\"0\" y=\"0\" width=\"" << px(width) << "\" height=\""
      << px(height) << "\" fill=\"" << kFace << "\"/>\n"
      << body.str() << "</svg>\n";
  return out.str();
}

}  // namespace kelmora::tools
