#include "platform/OpenForms.h"

#include <algorithm>

namespace kelmora {

std::vector<OpenForms::Entry>& OpenForms::entries() {
  thread_local std::vector<Entry> list;
  return list;
}

void OpenForms::Add(const std::string& name, const std::shared_ptr<Object>& form) {
  entries().push_back({name, form});
}

void OpenForms::Remove(const Object* form) {
  std::erase_if(entries(), [form](const Entry& entry) {
    auto alive = entry.form.lock();
    return !alive || alive.get() == form;
  });
}

std::vector<std::pair<std::string, std::shared_ptr<Object>>> OpenForms::List() {
  std::vector<std::pair<std::string, std::shared_ptr<Object>>> forms;
  for (const auto& entry : entries()) {
    if (auto alive = entry.form.lock())
      forms.emplace_back(entry.name, std::move(alive));
  }
  return forms;
}

}  // namespace kelmora
