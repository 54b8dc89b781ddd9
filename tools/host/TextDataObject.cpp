#include "host/TextDataObject.h"

#include "platform/RuntimeError.h"

namespace kelmora::tools {

bool TextDataObject::GetFormat(int16_t format) {
  return format == kText;
}

Variant TextDataObject::GetData(int16_t format) {
  if (format != kText)
    throw RuntimeError(kInvalidProcedureCall);
  return Variant(mText);
}

void TextDataObject::SetData(const Variant& data, int16_t format) {
  if (format != kText)
    throw RuntimeError(kInvalidProcedureCall);
  mText = data.toString();
}

void TextDataObject::Clear() {
  mText.clear();
}

}  // namespace kelmora::tools
