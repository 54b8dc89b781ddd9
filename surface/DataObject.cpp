#include "surface/DataObject.h"

#include "platform/RuntimeError.h"

namespace kelmora {

bool DataObject::GetFormat(int16_t) {
  throw RuntimeError(kMemberNotSupported);
}
Variant DataObject::GetData(int16_t) {
  throw RuntimeError(kMemberNotSupported);
}
void DataObject::SetData(const Variant&, int16_t) {
  throw RuntimeError(kMemberNotSupported);
}
void DataObject::Clear() {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
