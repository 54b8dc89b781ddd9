#pragma once

#include <cstdint>
#include <string>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// The drag-and-drop data object of a drop. The library never reads it: it
// hands it to the host, which may read it or put another in its place. A
// member the object does not offer fails with 438.
class DataObject : public Object {
 public:
  static constexpr int16_t kText = 1;

  std::string TypeName() const override { return "DataObject"; }

  virtual bool GetFormat(int16_t format);
  virtual Variant GetData(int16_t format);
  virtual void SetData(const Variant& data, int16_t format);
  virtual void Clear();
};

}  // namespace kelmora
