#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <string>

namespace varnhold {

/// The numbers of the run-time errors that this program's routines meet or test for.
/// The small ones are the classic numbers of the product's platform; the large ones are HRESULTs of its
/// database layer, kept signed because that is how they are shown.
enum ErrorNumber : std::int32_t {
  kInvalidProcedureCall = 5,        ///< an argument that makes no sense, such as a negative length
  kTypeMismatch = 13,               ///< text where a number is needed
  kLibraryFunctionMissing = 453,    ///< the library is there, the function is not
  kFileNotFound = 53,               ///< a file or library is not there
  kDiskFull = 61,                   ///< no room left to write
  kPermissionDenied = 70,           ///< the host refuses access
  kPathFileAccess = 75,             ///< a path cannot be opened for what was asked
  kInvalidUseOfNull = 94,           ///< NULL where a value is needed
  kItemNotFound = 3265,             ///< no column of that name (ADO adErrItemNotFound)
  kObjectClosed = 3704,             ///< the object is closed (ADO adErrObjectClosed)
  kNoCurrentRow = 3021,             ///< before the first or behind the last row (ADO adErrNoCurrentRecord)
  kStatementRefused = -2147217900,  ///< 0x80040E14: the engine refuses the statement
  kDatabaseFailed = -2147467259,    ///< 0x80004005: any other failure of the database
};

/// A run-time error: what the documented error policies speak of. The only exception thrown on purpose.
class RuntimeError : public std::exception {
 public:
  /// `description` is what a person is shown; it names what failed, where, and what to do where that helps,
  /// and never holds a password.
  RuntimeError(std::int32_t number, std::string description);

  [[nodiscard]] std::int32_t number() const noexcept { return number_; }
  [[nodiscard]] const std::string& description() const noexcept { return description_; }
  [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
};

/// The policy "clear the error and go on with the next statement": each step of a routine is guarded by
/// itself, so that a failing one costs that step and not the routine.
class ResumeNext {
 public:
  using Handler = std::function<void(const RuntimeError&)>;

  /// `handler` is told each error before it is cleared. An error that the handler raises itself is not
  /// caught here: it reaches the caller of the routine.
  explicit ResumeNext(Handler handler = {}) : handler_(std::move(handler)) {}

  /// Runs one statement; true when it ended without a run-time error.
  bool step(const std::function<void()>& statement) const;

 private:
  Handler handler_;
};

}  // namespace varnhold
