#pragma once

#include "automation/ForeignAdapter.h"
#include "surface/DataObject.h"

namespace kelmora {

// Drag data of a host that answers only by name.
class ForeignDataObject : public DataObject, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

  bool GetFormat(int16_t format) override { return method("GetFormat", {format}).toBoolean(); }
  Variant GetData(int16_t format) override { return method("GetData", {format}); }
  void SetData(const Variant& data, int16_t format) override { method("SetData", {data, format}); }
  void Clear() override { method("Clear"); }
};

}  // namespace kelmora
