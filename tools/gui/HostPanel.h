#pragma once

#include <QWidget>

#include <cstdint>
#include <functional>
#include <span>
#include <string>

class QCheckBox;
class QComboBox;
class QPushButton;
class QSpinBox;

namespace kelmora::tools {

// The host's side of the window: what a host decides and the library
// follows. The reference type, its kind (journal, magazine or newspaper for
// a Periodical; book or website for a NonPeriodical, both as UpdateFrame's
// option), the format family, whether all fields show, and the reference
// itself: an example, a new one, one from a file, saved to a file, or
// reset. The panel only asks; the window makes the calls.
class HostPanel : public QWidget {
 public:
  struct ReferenceType {
    const char* caption;
    int16_t whichType;
    // The demo's part whose first loaded reference serves as the example.
    const char* example;
  };
  static std::span<const ReferenceType> types();
  static const char* captionOf(int16_t whichType);

  HostPanel();

  int16_t whichType() const;
  // UpdateFrame's option for the chosen type and kind; 0 for an Esource,
  // which has none.
  int16_t option() const;
  // The kind the option stands for, "Newspaper" or "Book"; empty for an
  // Esource.
  std::string kind() const;
  int32_t family() const;
  bool showAll() const;
  const ReferenceType& chosen() const;

  // Shows what the window did of its own accord, asking nothing.
  void selectType(int16_t whichType);
  // The frame of a type selected an option: the panel shows that kind.
  void follow(int16_t whichType, int16_t option);
  // A format family or show all set by a host call the panel did not make
  // (a scenario played into the window): the panel shows it.
  void followFamily(int32_t family);
  void followShowAll(bool showAll);
  void exampleAvailable(bool available);

  // What the person asks for.
  std::function<void()> onChoice;
  std::function<void()> onExample;
  std::function<void()> onNew;
  std::function<void()> onReset;
  std::function<void()> onOpen;
  std::function<void()> onSave;

 private:
  void enableKinds();

  QComboBox* mType = nullptr;
  QComboBox* mSubtype = nullptr;
  QComboBox* mBookOrWebsite = nullptr;
  QSpinBox* mFamily = nullptr;
  QCheckBox* mShowAll = nullptr;
  QPushButton* mExample = nullptr;
};

}  // namespace kelmora::tools
