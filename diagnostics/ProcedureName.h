#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

namespace kelmora {

// The names of one traced procedure, built once: the short module and
// procedure names for the dump, and the qualified name for the trace,
// "Kelmora.Module.Procedure".
class ProcedureName {
 public:
  explicit ProcedureName(const char* moduleDotProcedure);

  const std::string& module() const { return mModule; }
  const std::string& procedure() const { return mProcedure; }
  const std::string& qualified() const { return mQualified; }

 private:
  std::string mModule;
  std::string mProcedure;
  std::string mQualified;
};

template <size_t N>
struct FixedName {
  constexpr FixedName(const char (&text)[N]) { std::copy_n(text, N, data); }
  char data[N];
};

// The names of "Module.Procedure", made on first use and kept:
// procedureName<"FrameContainer.SetFocus">().
template <FixedName Name>
const ProcedureName& procedureName() {
  static const ProcedureName name(Name.data);
  return name;
}

}  // namespace kelmora
