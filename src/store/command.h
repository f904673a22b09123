#pragma once

#include <string>

#include "store/connection.h"

namespace varnhold::store {

inline constexpr int kCommandText = 1;  ///< adCmdText

/// A statement built as text, executed without arguments and without result rows. Errors as for `Connection`.
class Command {
 public:
  Connection* ActiveConnection = nullptr;
  int CommandType = kCommandText;
  std::string CommandText;

  void Execute();
};

}  // namespace varnhold::store
