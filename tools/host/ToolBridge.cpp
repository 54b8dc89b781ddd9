#include "host/ToolBridge.h"

namespace kelmora::tools {

std::shared_ptr<Object> ToolBridge::ErrorParams() {
  return mErrorParams;
}

}  // namespace kelmora::tools
