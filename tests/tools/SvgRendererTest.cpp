#include "render/SvgRenderer.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>

#include "host/RecordingSink.h"
#include "host/ToolHost.h"
#include "render/FormFontMetrics.h"
#include "surface/CaptionLayout.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"
#include "tools/FormStates.h"
#include "tools/KelmoraRun.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools {
namespace {

// The group the picture has for a widget, or empty when it has none.
std::string groupOf(const std::string& svg, const std::string& name) {
  const std::string start = "<g class=\"widget\" data-name=\"" + name + "\"";
  const auto at = svg.find(start);
  if (at == std::string::npos)
    return {};
  return svg.substr(at, svg.find("</g>\n", at) - at);
}

std::vector<float> boxOf(const std::string& group) {
  std::smatch match;
  static const std::regex box(
      R"re(class="box" x="([-\d.]+)" y="([-\d.]+)" width="([-\d.]+)" height="([-\d.]+)")re");
  if (!std::regex_search(group, match, box))
    return {};
  return {std::stof(match[1]), std::stof(match[2]), std::stof(match[3]), std::stof(match[4])};
}

// The lines of text a group draws, each with the x of its first character.
struct DrawnLine {
  std::string text;
  float x;
  bool operator==(const DrawnLine&) const = default;
};
void PrintTo(const DrawnLine& line, std::ostream* out) {
  *out << '"' << line.text << "\" at " << line.x;
}
std::vector<DrawnLine> drawnLines(const std::string& group) {
  static const std::regex line(
      R"re(<text y="[-\d.]+" fill="[^"]*">((?:<tspan x="[-\d.]+">[^<]*</tspan>)*)</text>)re");
  static const std::regex character(R"re(<tspan x="([-\d.]+)">([^<]*)</tspan>)re");
  std::vector<DrawnLine> lines;
  for (auto it = std::sregex_iterator(group.begin(), group.end(), line);
       it != std::sregex_iterator(); ++it) {
    const std::string spans = (*it)[1];
    DrawnLine drawn{"", 0};
    for (auto c = std::sregex_iterator(spans.begin(), spans.end(), character);
         c != std::sregex_iterator(); ++c) {
      if (drawn.text.empty())
        drawn.x = std::stof((*c)[1]);
      drawn.text += (*c)[2];
    }
    lines.push_back(drawn);
  }
  return lines;
}

// A small form: fields on the surface (pixels) and inside a Frame that
// stands at 100,10 (twips inside).
struct SmallForm {
  std::shared_ptr<UserControl> form = UserControl::create("Small");
  std::shared_ptr<TextBox> title = form->add<TextBox>("TextBox", 0);
  std::shared_ptr<TextBox> hidden = form->add<TextBox>("TextBox", 1);
  std::shared_ptr<Frame> frame = form->add<Frame>("Advanced");
  std::shared_ptr<TextBox> inside = form->add<TextBox>("TextBox", 2, frame.get());
  std::shared_ptr<Label> label = form->add<Label>("TitleLabel");
  std::shared_ptr<ComboBox> combo = form->add<ComboBox>("ComboBox", 0);
  std::shared_ptr<OptionButton> option = form->add<OptionButton>("OptionButton", 0);
  std::shared_ptr<CheckBox> check = form->add<CheckBox>("CheckBox", 0);

  SmallForm() {
    form->Width(400);
    form->Height(120);
    place(*title, 80, 0, 200, 21);
    title->Text("Tides & <currents>");
    title->Tag("Title,title");
    title->ToolTipText("Title of the article");
    place(*hidden, 80, 30, 200, 21);
    hidden->Visible(false);
    place(*frame, 100, 10, 150, 60);
    place(*inside, 150, 300, 1500, 315);
    place(*label, 0, 3, 75, 13);
    label->Caption("Title");
    label->Alignment(Label::kRightJustify);
    place(*combo, 290, 0, 100, 21);
    combo->AddItem("Regular");
    combo->AddItem("Abstract");
    combo->ListIndex(1);
    combo->Enabled(false);
    place(*option, 0, 80, 80, 13);
    option->Caption("Journal");
    option->Value(true);
    place(*check, 100, 80, 80, 13);
    check->Caption("Notes");
    check->Value(CheckBox::kChecked);
  }
  static void place(Widget& widget, float left, float top, float width, float height) {
    widget.Left(left);
    widget.Top(top);
    widget.Width(width);
    widget.Height(height);
  }
};

TEST(SvgRendererTest, ShownWidgetsStandAtTheirPixelRectangles) {
  SmallForm small;
  const std::string svg = SvgRenderer::render(*small.form, {});
  struct Row {
    std::string name;
    std::vector<float> box;
  };
  for (const Row& row : std::vector<Row>{{"TextBox(0)", {80, 0, 200, 21}},
                                         {"Advanced", {100, 10, 150, 60}},
                                         // 150,300 twips inside the frame
                                         {"TextBox(2)", {110, 30, 100, 21}},
                                         {"ComboBox(0)", {290, 0, 100, 21}}}) {
    EXPECT_EQ(boxOf(groupOf(svg, row.name)), row.box) << row.name;
  }
  EXPECT_EQ(groupOf(svg, "TextBox(1)"), "") << "a hidden widget is not drawn";
}

TEST(SvgRendererTest, WidgetsShowTheirContentAndState) {
  SmallForm small;
  const std::string svg = SvgRenderer::render(*small.form, {});
  const std::string title = groupOf(svg, "TextBox(0)");
  EXPECT_EQ(drawnLines(title), (std::vector<DrawnLine>{{"Tides &amp; &lt;currents&gt;", 83}}));
  EXPECT_NE(title.find("<title>Title of the article</title>"), std::string::npos);
  EXPECT_NE(title.find("data-key=\"Title\""), std::string::npos);
  // Right-aligned: "Title" is 20 pixels wide in the forms' font.
  EXPECT_EQ(drawnLines(groupOf(svg, "TitleLabel")), (std::vector<DrawnLine>{{"Title", 55}}));
  const std::string combo = groupOf(svg, "ComboBox(0)");
  EXPECT_EQ(drawnLines(combo).at(0).text, "Abstract");
  EXPECT_NE(combo.find("class=\"arrow\""), std::string::npos);
  EXPECT_NE(combo.find("data-disabled=\"true\""), std::string::npos);
  EXPECT_NE(combo.find("fill=\"#d4d0c8\""), std::string::npos) << "greyed on the inactive colour";
  EXPECT_NE(groupOf(svg, "OptionButton(0)").find("class=\"selected\""), std::string::npos);
  EXPECT_NE(groupOf(svg, "CheckBox(0)").find("class=\"checked\""), std::string::npos);
}

TEST(SvgRendererTest, FramesClipAndHideWhatTheyHold) {
  SmallForm small;
  const std::string shown = SvgRenderer::render(*small.form, {});
  const auto frame = groupOf(shown, "Advanced");
  EXPECT_NE(frame.find("clip-path"), std::string::npos);

  small.frame->Visible(false);
  const std::string hidden = SvgRenderer::render(*small.form, {});
  EXPECT_EQ(groupOf(hidden, "TextBox(2)"), "") << "its own Visible is True, its frame's is not";
  EXPECT_EQ(hidden.find("class=\"hidden\""), std::string::npos);

  const std::string debug = SvgRenderer::render(*small.form, {.outlineHidden = true});
  for (const char* name : {"TextBox(1)", "Advanced", "TextBox(2)"})
    EXPECT_NE(debug.find(std::string("class=\"hidden\" data-name=\"") + name + "\""),
              std::string::npos)
        << name;
}

// The Periodical form of family 2 with all fields shown: the access date
// row follows the website field, and the rows below close up around it.
TEST(SvgRendererTest, PeriodicalFormRowsStandWhereTheFormPutsThem) {
  struct Row {
    std::string online;
    std::vector<float> accessDate;  // empty: not drawn
    std::vector<float> issue;
  };
  const std::vector<Row> rows = {
      {"", {}, {392.53f, 27, 222.67f, 21}},
      {"10.1/k14", {392.53f, 27, 222.67f, 21}, {392.53f, 54, 222.67f, 21}},
  };
  for (const auto& row : rows) {
    testing::ScratchDir dir;
    const std::string values = dir.write("values.json", R"({"PeriodicalOnline": ")" + row.online +
                                                            R"(", "PeriodicalVolume": "14"})");
    const std::string output = (dir.path() / "form.svg").string();
    const auto run =
        testing::KelmoraRun::of({"render", "--type", "periodical", "--family", "2", "--option", "0",
                                 "--show-all", "--values", values, "-o", output});
    ASSERT_EQ(run.status, 0) << run.err;
    std::ifstream in(output);
    const std::string svg((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(boxOf(groupOf(svg, "TextBox(9)")), row.accessDate) << "online: " << row.online;
    EXPECT_EQ(boxOf(groupOf(svg, "TextBox(11)")), row.issue) << "online: " << row.online;
    EXPECT_EQ(groupOf(svg, "TextBox(10)"), "") << "the publish date is family 0's";
    EXPECT_EQ(boxOf(groupOf(svg, "TextBox(6)")), (std::vector<float>{80, 135, 73, 21}));
    EXPECT_EQ(drawnLines(groupOf(svg, "TextBox(6)")).at(0).text, "14");
  }
}

TEST(SvgRendererTest, EsourceFormOfEachFamilyShowsItsOwnRows) {
  // An e-mail under each family: degree list, recipient (title), subject
  // (website title), comment date; then the author box's width.
  struct Row {
    int family;
    bool degree, recipient, subject, commentDate;
    float authorWidth;
  };
  const Row rows[] = {{0, false, false, false, false, 265},
                      {1, true, true, true, false, 191},
                      {2, false, false, false, true, 265},
                      {3, false, true, false, true, 265}};
  for (const auto& row : rows) {
    testing::ScratchDir dir;
    const std::string output = (dir.path() / "form.svg").string();
    const auto run = testing::KelmoraRun::of(
        {"render", "--type", "esource", "--family", std::to_string(row.family), "-o", output});
    ASSERT_EQ(run.status, 0) << run.err;
    std::ifstream in(output);
    const std::string svg((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    SCOPED_TRACE("family " + std::to_string(row.family));
    EXPECT_EQ(groupOf(svg, "ComboBox(0)").empty(), !row.degree);
    EXPECT_EQ(groupOf(svg, "TextBox(2)").empty(), !row.recipient);
    EXPECT_EQ(groupOf(svg, "TextBox(3)").empty(), !row.subject);
    EXPECT_EQ(groupOf(svg, "TextBox(6)").empty(), !row.commentDate);
    EXPECT_EQ(boxOf(groupOf(svg, "TextBox(0)")), (std::vector<float>{39, 0, row.authorWidth, 21}));
  }
}

// Captions break at spaces and are clipped below: a label narrower than its
// caption shows its first words whole, never the end of a word cut off.
TEST(SvgRendererTest, ALabelNarrowerThanItsCaptionShowsItsFirstWordsWhole) {
  SmallForm small;
  struct Row {
    float width, height;
    int16_t alignment;
    std::vector<DrawnLine> lines;
  };
  // "Chapter" is 39 pixels, "Chapter title" 60.
  const Row rows[] = {
      {49, 13, Label::kRightJustify, {{"Chapter", 10}}},
      {49, 26, Label::kRightJustify, {{"Chapter", 10}, {"title", 31}}},
      {49, 13, Label::kLeftJustify, {{"Chapter", 0}}},
      {70, 13, Label::kRightJustify, {{"Chapter title", 10}}},
      {30, 13, Label::kRightJustify, {{"Chapter", 0}}},
  };
  for (const Row& row : rows) {
    SmallForm::place(*small.label, 0, 0, row.width, row.height);
    small.label->Caption("Chapter title");
    small.label->Alignment(row.alignment);
    EXPECT_EQ(drawnLines(groupOf(SvgRenderer::render(*small.form, {}), "TitleLabel")), row.lines)
        << row.width << "x" << row.height << ", alignment " << row.alignment;
  }
}

// In every state a host can put the forms in, each shown label's caption
// reads whole, in the picture as laid out with the forms' font.
TEST(SvgRendererTest, NoShownCaptionLosesLettersInAnyStateOfAnyForm) {
  int labels = 0;
  for (const auto& state : testing::allFormStates()) {
    SCOPED_TRACE(state.describe());
    RecordingSink sink;
    ToolHost host(sink, {});
    const UserControl& frame = testing::show(host, state);
    EXPECT_EQ(testing::cutCaptions(frame, &FormFontMetrics::width), std::vector<std::string>{});
    // The picture draws the very lines the check laid out.
    const std::string svg = SvgRenderer::render(frame, {});
    for (const auto& widget : frame.Controls()) {
      const auto* label = dynamic_cast<const Label*>(widget.get());
      if (label == nullptr || !label->isShowing() || label->Caption().empty())
        continue;
      const std::string name = label->IsArrayMember()
                                   ? label->Name() + "(" + std::to_string(label->Index()) + ")"
                                   : label->Name();
      const auto drawn = drawnLines(groupOf(svg, name));
      ASSERT_FALSE(drawn.empty()) << name;
      const auto laid = CaptionLayout::lay(label->Caption(), label->surfaceRect().width,
                                           label->Alignment(), &FormFontMetrics::width);
      EXPECT_EQ(drawn.front().text, laid.front().text) << name;
      EXPECT_NEAR(drawn.front().x, label->surfaceRect().left + laid.front().x, 0.01) << name;
      ++labels;
    }
    host.end();
  }
  EXPECT_GT(labels, 200);
}

}  // namespace
}  // namespace kelmora::tools
