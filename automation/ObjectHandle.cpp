#include "automation/ObjectHandle.h"

std::atomic<int64_t> kelmora_object::sLive{0};

kelmora_object::kelmora_object(std::shared_ptr<kelmora::Object> value) : object(std::move(value)) {
  ++sLive;
}

kelmora_object::~kelmora_object() {
  --sLive;
}

uint32_t kelmora_object::release() {
  uint32_t left = --mReferences;
  if (left == 0)
    delete this;
  return left;
}
