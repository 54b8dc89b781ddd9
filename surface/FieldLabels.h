#pragma once

#include <string>

namespace kelmora {

class Label;
class Widget;

// The label an author reads a field by. The forms tie no label to its field:
// an author goes by the label standing level with the field, just left of
// it, in the same container. The layout code moves label and field
// together, so this holds in every arrangement.
class FieldLabels {
 public:
  // The nearest label level with `field` that ends left of it, in the same
  // container; a shown one before a hidden one. Nothing when none stands
  // there, as for option buttons, check boxes and labels themselves.
  static const Label* labelOf(const Widget& field);
  // What an author calls the field: its label's caption, else its own
  // caption (option buttons, check boxes, labels), else its tooltip; empty
  // when it has none of them.
  static std::string captionOf(const Widget& field);
};

}  // namespace kelmora
