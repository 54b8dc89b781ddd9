#pragma once

#include <string>

#include "surface/MessageBox.h"

namespace kelmora::tools {

class EventSink;

// The message box of the host: nobody can click a button here, so each
// text is told to the sink as an event instead of going to standard error.
class ToolMessageBox : public MessageBox {
 public:
  explicit ToolMessageBox(EventSink& sink) : mSink(sink) {}
  void show(const std::string& prompt) override;

 private:
  EventSink& mSink;
};

}  // namespace kelmora::tools
