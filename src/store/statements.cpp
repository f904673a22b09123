#include "store/statements.h"

#include "base/runtime_error.h"

namespace varnhold::store::statements {
namespace {

const std::string& valueOf(std::string_view name, std::initializer_list<Hole> holes) {
  for (const Hole& hole : holes) {
    if (hole.name == name) return hole.value;
  }
  throw RuntimeError(kInvalidProcedureCall, "The statement needs a value for {" + std::string(name) + "}.");
}

}  // namespace

std::string fill(std::string_view text, std::initializer_list<Hole> holes) {
  std::string filled;
  std::size_t at = 0;
  for (std::size_t open; (open = text.find('{', at)) != std::string_view::npos;) {
    const std::size_t close = text.find('}', open);
    if (close == std::string_view::npos) break;
    filled.append(text.substr(at, open - at));
    filled.append(valueOf(text.substr(open + 1, close - open - 1), holes));
    at = close + 1;
  }
  filled.append(text.substr(at));
  return filled;
}

std::string quotedList(const std::vector<std::string>& names) {
  std::string list = "'";
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) list += "', '";
    list += names[i];
  }
  return list + "'";
}

}  // namespace varnhold::store::statements
