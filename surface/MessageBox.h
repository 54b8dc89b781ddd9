#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kelmora {

// The blocking message box: a text with the default buttons and no title.
// Without a GUI there is nobody to click, so the default service records
// each text and writes it to standard error, and returns at once. A host
// or a test installs its own service per thread.
class MessageBox {
 public:
  virtual ~MessageBox() = default;

  // Shows `prompt` through this thread's service.
  static void MsgBox(const std::string& prompt);
  // Installs a service for this thread and returns the one it replaces;
  // nothing puts the default back.
  static std::shared_ptr<MessageBox> install(std::shared_ptr<MessageBox> service);
  static MessageBox& current();

  virtual void show(const std::string& prompt);
  // The texts this service has shown, oldest first.
  const std::vector<std::string>& shown() const { return mShown; }

 private:
  static std::shared_ptr<MessageBox>& slot();

  std::vector<std::string> mShown;
};

}  // namespace kelmora
