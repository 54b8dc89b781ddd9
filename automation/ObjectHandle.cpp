#include "automation/ObjectHandle.h"

#include "platform/ReleasePool.h"

std::atomic<int64_t> kelmora_object::sLive{0};

kelmora_object::kelmora_object(std::shared_ptr<kelmora::Object> value) : object(std::move(value)) {
  ++sLive;
}

kelmora_object::~kelmora_object() {
  --sLive;
  // A host may release its last handle from inside a member the object's
  // own code called: the object goes once that code has returned.
  kelmora::ReleasePool::release(object);
}

uint32_t kelmora_object::release() {
  uint32_t left = --mReferences;
  if (left == 0)
    delete this;
  return left;
}

extern "C" {

uint32_t kelmora_add_ref(kelmora_object* object) {
  return object != nullptr ? object->addRef() : 0;
}

uint32_t kelmora_release(kelmora_object* object) {
  return object != nullptr ? object->release() : 0;
}

}  // extern "C"
