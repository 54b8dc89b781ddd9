#include "platform/Printer.h"

namespace kelmora {

const std::shared_ptr<Printer>& Printer::instance() {
  static const std::shared_ptr<Printer> printer = std::make_shared<Printer>();
  return printer;
}

}  // namespace kelmora
