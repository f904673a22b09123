// A service that does nothing until it is told to stop.
#include <windows.h>

namespace {

SERVICE_STATUS_HANDLE statusHandle = nullptr;
HANDLE stopAsked = nullptr;

void report(DWORD state) {
  SERVICE_STATUS status{};
  status.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
  status.dwCurrentState = state;
  status.dwControlsAccepted = SERVICE_ACCEPT_STOP;
  SetServiceStatus(statusHandle, &status);
}

void WINAPI handleControl(DWORD control) {
  if (control != SERVICE_CONTROL_STOP) return;
  report(SERVICE_STOP_PENDING);
  SetEvent(stopAsked);
}

void WINAPI serviceMain(DWORD, wchar_t** arguments) {
  statusHandle = RegisterServiceCtrlHandlerW(arguments[0], handleControl);
  stopAsked = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  report(SERVICE_RUNNING);
  WaitForSingleObject(stopAsked, INFINITE);
  report(SERVICE_STOPPED);
}

}  // namespace

int main() {
  wchar_t name[] = L"";
  const SERVICE_TABLE_ENTRYW table[] = {{name, serviceMain}, {nullptr, nullptr}};
  return StartServiceCtrlDispatcherW(table) ? 0 : 1;
}
