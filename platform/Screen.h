#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"

namespace kelmora {

// The display's scale: form tables count twips, user-control surfaces count
// pixels, and this fixes how many twips make a pixel.
class Screen : public Object {
 public:
  static constexpr float kTwipsPerPixel = 15.0f;

  static const std::shared_ptr<Screen>& instance();

  std::string TypeName() const override { return "Screen"; }
  float TwipsPerPixelX() const { return kTwipsPerPixel; }
  float TwipsPerPixelY() const { return kTwipsPerPixel; }
};

}  // namespace kelmora
