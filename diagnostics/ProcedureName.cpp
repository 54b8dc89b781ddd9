#include "diagnostics/ProcedureName.h"

#include <cstring>

namespace kelmora {

ProcedureName::ProcedureName(const char* moduleDotProcedure) {
  const char* dot = std::strchr(moduleDotProcedure, '.');
  if (dot == nullptr) {
    mProcedure = moduleDotProcedure;
  } else {
    mModule.assign(moduleDotProcedure, dot);
    mProcedure = dot + 1;
  }
  mQualified = std::string("Kelmora.") + moduleDotProcedure;
}

}  // namespace kelmora
