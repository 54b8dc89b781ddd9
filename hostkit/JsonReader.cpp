#include "hostkit/JsonReader.h"

#include <fstream>
#include <iterator>

#include "hostkit/BadInput.h"

namespace kelmora::host {

namespace {

// Reads a document without keeping it, only to see whether it is JSON and
// how deep it nests.
struct DepthCheck : nlohmann::json_sax<Json> {
  int depth = 0;
  bool tooDeep = false;

  bool enter() {
    tooDeep = ++depth > JsonReader::kMaxDepth;
    return !tooDeep;
  }
  bool leave() {
    --depth;
    return true;
  }

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return enter(); }
  bool key(string_t&) override { return true; }
  bool end_object() override { return leave(); }
  bool start_array(std::size_t) override { return enter(); }
  bool end_array() override { return leave(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
    return false;
  }
};

}  // namespace

Json JsonReader::parse(std::string_view text, const std::string& what) {
  if (text.find('\0') != std::string_view::npos)
    throw BadInput(what + " contains a NUL byte");
  // The depth is checked in a pass of its own that builds nothing and
  // stops at the first level too deep. A parser callback could drop deep
  // values as they are read, but the parser then searches the enclosing
  // array for what it dropped after every object, which takes time in the
  // square of the input's length.
  DepthCheck check;
  if (!Json::sax_parse(text.begin(), text.end(), &check)) {
    if (check.tooDeep)
      throw BadInput(what + " is nested more than " + std::to_string(kMaxDepth) + " levels deep");
    throw BadInput(what + " is not valid JSON");
  }
  Json document = Json::parse(text.begin(), text.end(), nullptr, false);
  if (document.is_discarded())
    throw BadInput(what + " is not valid JSON");
  return document;
}

Json JsonReader::read(const std::filesystem::path& path, const std::string& what) {
  std::error_code error;
  std::ifstream in(path, std::ios::binary);
  if (!std::filesystem::is_regular_file(path, error) || !in)
    throw BadInput("cannot read " + what);
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad())
    throw BadInput("cannot read " + what);
  return parse(text, what);
}

}  // namespace kelmora::host
