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
  // container; a shown one before a hidden one. A pick list may stand
  // there instead, naming the field by its choice ("Email to"). Nothing
  // when neither does, as for option buttons, check boxes and labels.
  static const Widget* labelOf(const Widget& field);
  // What an author calls the field: its label's caption (or the choice of
  // the list beside it), else its own caption (option buttons, check boxes,
  // labels), else its tooltip, else its field key in words ("Esource
  // degree"); empty for a widget without any of them.
  static std::string captionOf(const Widget& field);
};

}  // namespace kelmora
