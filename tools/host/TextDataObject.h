#pragma once

#include <cstdint>
#include <string>

#include "surface/DataObject.h"

namespace kelmora::tools {

// Dragged data as the host's own drag source makes it: plain text only.
class TextDataObject : public DataObject {
 public:
  explicit TextDataObject(std::string text) : mText(std::move(text)) {}

  bool GetFormat(int16_t format) override;
  // Any format but text fails with 5.
  Variant GetData(int16_t format) override;
  void SetData(const Variant& data, int16_t format) override;
  void Clear() override;

  const std::string& text() const { return mText; }

 private:
  std::string mText;
};

}  // namespace kelmora::tools
