#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Object.h"

namespace kelmora {

// The forms open on this thread, in the order they were opened. The forms
// toolkit adds and removes them; the global dump of the failure path reports
// each under its name. Forms are held weakly: the list never keeps one alive.
class OpenForms {
 public:
  struct Entry {
    std::string name;
    std::weak_ptr<Object> form;
  };

  static void Add(const std::string& name, const std::shared_ptr<Object>& form);
  static void Remove(const Object* form);
  // The forms still alive, in opening order.
  static std::vector<std::pair<std::string, std::shared_ptr<Object>>> List();

 private:
  static std::vector<Entry>& entries();
};

}  // namespace kelmora
