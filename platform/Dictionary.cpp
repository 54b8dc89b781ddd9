#include "platform/Dictionary.h"

#include "platform/RuntimeError.h"

namespace kelmora {

void Dictionary::Add(const std::string& key, Variant item) {
  if (!mItems.try_emplace(key, std::move(item)).second)
    throw RuntimeError(kKeyAlreadyExists);
}

bool Dictionary::Exists(std::string_view key) const {
  return mItems.find(key) != mItems.end();
}

Variant& Dictionary::Item(std::string_view key) {
  auto found = mItems.find(key);
  if (found != mItems.end())
    return found.value();
  return mItems.try_emplace(std::string(key)).first.value();
}

void Dictionary::Remove(const std::string& key) {
  if (mItems.erase(key) == 0)
    throw RuntimeError(kInvalidProcedureCall);
}

const std::string& Dictionary::KeyAt(int32_t position) const {
  if (position < 0 || position >= Count())
    throw RuntimeError(kSubscriptOutOfRange);
  return mItems.nth(static_cast<size_t>(position))->first;
}

const Variant& Dictionary::ItemAt(int32_t position) const {
  if (position < 0 || position >= Count())
    throw RuntimeError(kSubscriptOutOfRange);
  return mItems.nth(static_cast<size_t>(position))->second;
}

std::vector<std::string> Dictionary::Keys() const {
  std::vector<std::string> keys;
  keys.reserve(mItems.size());
  for (const auto& [key, item] : mItems) keys.push_back(key);
  return keys;
}

std::vector<Variant> Dictionary::Items() const {
  std::vector<Variant> items;
  items.reserve(mItems.size());
  for (const auto& [key, item] : mItems) items.push_back(item);
  return items;
}

}  // namespace kelmora
