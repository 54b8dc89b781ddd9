#include "surface/MessageBox.h"

#include <iostream>

namespace kelmora {

std::shared_ptr<MessageBox>& MessageBox::slot() {
  thread_local std::shared_ptr<MessageBox> service = std::make_shared<MessageBox>();
  return service;
}

void MessageBox::MsgBox(const std::string& prompt) {
  // The service stays alive while it shows, even if it replaces itself.
  auto service = slot();
  service->show(prompt);
}

std::shared_ptr<MessageBox> MessageBox::install(std::shared_ptr<MessageBox> service) {
  auto previous = std::move(slot());
  slot() = service ? std::move(service) : std::make_shared<MessageBox>();
  return previous;
}

MessageBox& MessageBox::current() {
  return *slot();
}

void MessageBox::show(const std::string& prompt) {
  mShown.push_back(prompt);
  std::cerr << prompt << '\n';
}

}  // namespace kelmora
