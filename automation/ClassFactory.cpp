#include "automation/ClassFactory.h"

#include "hosting/LibraryControls.h"
#include "hosting/Main2.h"
#include "hosting/Startup.h"
#include "surface/ControlRegistry.h"
#include "surface/UserControl.h"

namespace kelmora {

std::shared_ptr<ClassFactory> ClassFactory::of(const Guid& clsid) {
  const auto* c = TypeLibrary::classWithId(clsid);
  if (c == nullptr || c->kind == TypeLibrary::ClassKind::NotCreatable)
    return nullptr;
  return std::make_shared<ClassFactory>(*c);
}

std::shared_ptr<Object> ClassFactory::CreateInstance() const {
  // The component run time's part: the thread's start-up before its first
  // object, whichever class a host creates first.
  Startup::ensureForThisThread();
  if (mClass->kind == TypeLibrary::ClassKind::Creatable)
    return std::make_shared<Main2>();
  // Controls are made as the toolkit makes them, by registered identifier.
  LibraryControls::Register();
  return ControlRegistry::Create(std::string(TypeLibrary::kName) + "." + mClass->name);
}

}  // namespace kelmora
