#pragma once

#include <utility>

#include "store/odbc_api.h"

namespace varnhold::store::odbc {

/// The owner of one ODBC handle.
template <SQLSMALLINT kType>
class Handle {
 public:
  Handle() = default;
  /// Makes a handle below `parent`. An empty one when ODBC refuses: test with `operator bool`.
  explicit Handle(SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kType, parent, &handle_))) handle_ = nullptr;
  }
  ~Handle() { release(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  explicit operator bool() const { return handle_ != nullptr; }
  [[nodiscard]] SQLHANDLE get() const { return handle_; }

 private:
  void release() {
    if (handle_ != nullptr) SQLFreeHandle(kType, handle_);
  }

  SQLHANDLE handle_ = nullptr;
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

}  // namespace varnhold::store::odbc
