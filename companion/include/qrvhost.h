/* What a Unix host lacks and the companion library gives it beside qrvutil.h: thread handles, and the view of
 * a computer's services, event logs and administrative shares. Windows hosts call Win32 instead. Results are
 * Win32 error numbers, 0 for success. */
#ifndef VARNHOLD_QRVHOST_H
#define VARNHOLD_QRVHOST_H

#include "qrvutil.h"

#ifdef __cplusplus
extern "C" {
#endif

/* GetExitCodeThread: 259 while the thread runs. Non-zero on success. */
QRV_EXPORT int32_t qrvHostGetExitCodeThread(QrvThread thread, uint32_t* exitCode);
/* TerminateThread: the exit code stands at once, and the thread ends itself at its next safe place. One that
 * has ended keeps its code. Non-zero on success. */
QRV_EXPORT int32_t qrvHostTerminateThread(QrvThread thread, uint32_t exitCode);
/* CloseHandle; a running thread goes on. */
QRV_EXPORT void qrvHostCloseHandle(QrvThread thread);

/* Is the service manager of the computer ("\\NAME") reachable? */
QRV_EXPORT uint32_t qrvHostOpenServiceManager(const char* machine);
/* Does the service exist there? */
QRV_EXPORT uint32_t qrvHostOpenService(const char* machine, const char* service);
/* ControlService; control 1 stops the service. */
QRV_EXPORT uint32_t qrvHostControlService(const char* machine, const char* service, uint32_t control);
/* StartService; 1056 when it runs already. */
QRV_EXPORT uint32_t qrvHostStartService(const char* machine, const char* service);
/* Can the event log be opened? */
QRV_EXPORT uint32_t qrvHostOpenEventLog(const char* machine, const char* log);
/* "net use \\HOST\C$ password /USER:account": what the host's network would be asked. */
QRV_EXPORT uint32_t qrvHostConnectShare(const char* share, const char* account, const char* password);
/* "net use \\HOST\C$ /DELETE" */
QRV_EXPORT uint32_t qrvHostDisconnectShare(const char* share);
/* The local path behind "\\HOST\C$\folder\file"; path has kQrvFolderSize bytes. 0 when the share can be
 * reached. */
QRV_EXPORT uint32_t qrvHostSharePath(const char* uncPath, char* path);

#ifdef __cplusplus
}
#endif

#endif
