#include "proxy/FrameParent.h"

#include "platform/Late.h"
#include "surface/UserControl.h"

namespace kelmora {

FrameParent& FrameParent::of(const Widget& frame) {
  return Late::as<FrameParent>(frame.Parent());
}

}  // namespace kelmora
