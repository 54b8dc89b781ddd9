#include "host/ToolMessageBox.h"

#include "host/EventSink.h"

namespace kelmora::tools {

void ToolMessageBox::show(const std::string& prompt) {
  mSink.emit({{"messageBox", prompt}});
}

}  // namespace kelmora::tools
