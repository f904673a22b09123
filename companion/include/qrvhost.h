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
/* QueryServiceConfig, of which the account that the service logs on with is told: account has size bytes, and
 * needed comes back as the bytes that it takes with its NUL. 122 when size is too small, with nothing
 * written. */
QRV_EXPORT uint32_t qrvHostQueryServiceAccount(const char* machine, const char* service, char* account,
                                               uint32_t size, uint32_t* needed);
/* ChangeServiceConfig, of which the account and its password are changed; 1057 when that is no account of the
 * computer, or the password is not its own. */
QRV_EXPORT uint32_t qrvHostChangeServiceAccount(const char* machine, const char* service, const char* account,
                                                const char* password);
/* LookupAccountName on the computer ("NAME" or "\\NAME", empty for this one): the account's binary SID and
 * its domain, NUL included. The sizes come in as room and go out as what was used; where either is too small,
 * 122 with nothing written and the sizes as needed. 1332 when there is no such account. */
QRV_EXPORT uint32_t qrvHostLookupAccountName(const char* machine, const char* account, uint8_t* sid,
                                             uint32_t* sidSize, char* domain, uint32_t* domainSize);
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
