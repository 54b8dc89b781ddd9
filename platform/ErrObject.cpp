#include "platform/ErrObject.h"

#include "platform/RuntimeError.h"

namespace kelmora {

const std::shared_ptr<ErrObject>& ErrObject::current() {
  thread_local const std::shared_ptr<ErrObject> err = std::make_shared<ErrObject>();
  return err;
}

void ErrObject::Raise(const RuntimeError& error) {
  mNumber = error.Number();
  mDescription = error.Description();
  mLastDllError = error.LastDllError();
}

void ErrObject::Clear() {
  mNumber = 0;
  mDescription.clear();
  mLastDllError = 0;
}

}  // namespace kelmora
