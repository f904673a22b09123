// The part of the recorder that a Unix host needs beside: thread handles, handed on without a record, since
// they are this host's stand-in for calls that no library sees elsewhere.
#include "companion/include/qrvhost.h"
#include "tests/cli/recorder.h"

namespace {

template <typename Function>
Function* real(const char* name) {
  return reinterpret_cast<Function*>(varnhold::cli::forwardedFunction(name));
}

}  // namespace

int32_t qrvHostGetExitCodeThread(QrvThread thread, uint32_t* exitCode) {
  return real<decltype(qrvHostGetExitCodeThread)>("qrvHostGetExitCodeThread")(thread, exitCode);
}

void qrvHostCloseHandle(QrvThread thread) {
  real<decltype(qrvHostCloseHandle)>("qrvHostCloseHandle")(thread);
}
