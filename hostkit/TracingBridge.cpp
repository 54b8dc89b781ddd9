#include "hostkit/TracingBridge.h"

namespace kelmora::host {

std::shared_ptr<Object> TracingBridge::ErrorParams() {
  return mErrorParams;
}

}  // namespace kelmora::host
