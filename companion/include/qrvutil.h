/* The C ABI of the companion library qrvUtil: what the console requires of any library in its place.
 *
 * Strings are 8-bit (on Windows the ANSI code page, elsewhere UTF-8), closed by a NUL. A string parameter
 * stays writable for its own length; buffers have the sizes stated. On 32-bit Windows the calling convention
 * is stdcall and the system record has 36 bytes.
 *
 * A function that starts a worker takes its own copy of all it needs before it returns, and gives a thread
 * handle that the caller owns: on Windows a Win32 thread handle for GetExitCodeThread and CloseHandle,
 * elsewhere one for the functions of qrvhost.h. 0: no thread was started. Every job thread ends with 1000
 * plus a result code.
 *
 * All functions are called from one thread of the console. */
#ifndef VARNHOLD_QRVUTIL_H
#define VARNHOLD_QRVUTIL_H

#include <stdint.h>

#if defined(_WIN32)
#define QRV_CALL __stdcall
#define QRV_EXPORT __declspec(dllexport)
#else
#define QRV_CALL
#define QRV_EXPORT __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef void* QrvThread;

/* Sizes of buffers, in bytes. */
enum {
  kQrvSystemNameSize = 256, /* a system's name that the library may write back */
  kQrvResolvedNameSize = 512,
  kQrvText1Size = 256,
  kQrvText2Size = 64,
  kQrvAddressSize = 256,
  kQrvFolderSize = 1024
};

typedef struct QrvDeploymentJob {
  char* Spare0;
  char* SystemName;
  char* Spare2;
  char* Spare3;
  char* Spare4;
  char* InstallDirectory;
  char* Spare6;
  char* Spare7;
  char* KeepSnapshots;
  char* Spare9;
  char* ServiceUser;
  char* ServicePassword;
  char* ConfigFile;
  int32_t OSFlag;
  uint8_t AgentKind;
  int32_t AgentMode;
  uint8_t RemedialFlag;
  uint8_t UseDefaultConfig;
} QrvDeploymentJob;

typedef struct QrvSystemDetails {
  char* SystemName; /* kQrvSystemNameSize */
  int32_t DetailLevel;
  int32_t DetailsReserved1;
  char* ResolvedName; /* kQrvResolvedNameSize */
  int32_t OSMajorVersion;
  int32_t DetailsReserved2;
  int32_t SystemType;
  char* DetailsText1; /* kQrvText1Size */
  char* DetailsText2; /* kQrvText2Size */
} QrvSystemDetails;

QRV_EXPORT QrvThread QRV_CALL qrvCInstall(QrvDeploymentJob* job, char* libraryPath);
QRV_EXPORT QrvThread QRV_CALL qrvCUninstall(QrvDeploymentJob* job, char* libraryPath);
/* Replaces the agent over the computer's administrative share; 700 is success. */
QRV_EXPORT QrvThread QRV_CALL qrvCUpgradeAgent(QrvDeploymentJob* job, char* libraryPath);
/* Replaces the agent through the running agent itself; 3000 is success. agentLibraryPath is the manager's
 * "...\vhagent", without an ending. */
QRV_EXPORT QrvThread QRV_CALL qrvCUpgradeAgentOverIP(char* agentLibraryPath, char* systemName,
                                                     int32_t agentMode, int32_t osFlag, char* configFile,
                                                     uint8_t remedialFlag, uint8_t useDefaultConfig);
/* Asks the running agent for its version; 3000 when it is the manager's. */
QRV_EXPORT QrvThread QRV_CALL qrvCVHCheckVersion(char* agentLibraryPath, char* systemName);

/* 1 on success; writes vhsetup.ins into the library's folder. */
QRV_EXPORT int32_t QRV_CALL qrvCCreateConfigurationFile(char* libraryPath, char* systemName,
                                                        char* installDirectory, int32_t agentMode);
/* Non-zero on success; edits the ini file for a mode: 0 and 1 standard, 5 high performance. */
QRV_EXPORT int32_t QRV_CALL qrvCReadNWriteVhaConfigINI4Turbo(char* agentLibraryPath, char* agentFolder,
                                                             char* iniPath, int32_t mode);
/* Non-zero when the name resolves; systemName has kQrvSystemNameSize bytes, address kQrvAddressSize. */
QRV_EXPORT int32_t QRV_CALL qrvGetSystemIPAddress(char* systemName, char* address);
/* Non-zero when the system was found and answered. */
QRV_EXPORT int32_t QRV_CALL qrvFindSystemAndReturnDetails(QrvSystemDetails* details);
/* Non-zero on success; writes the row of System_Table. */
QRV_EXPORT int32_t QRV_CALL qrvUpdateSystemDetailsInDB(QrvSystemDetails* details);
/* Looks the system up on the network again and stores what it finds; systemName has kQrvSystemNameSize
 * bytes. Whether it succeeded is not told. */
QRV_EXPORT void QRV_CALL qrvNetOpGetSystem(char* systemName);
/* Stops the service when it runs, and starts it; 0 means failure. */
QRV_EXPORT int32_t QRV_CALL qrvRestartService(char* computer, char* service);
/* Non-zero on success; path has kQrvFolderSize bytes. */
QRV_EXPORT int16_t QRV_CALL qrvChkRmtRegNGetPrgFilePath(char* computer, char* path);

/* Opens the library's own connection to the inventory, and closes it; non-zero on success. */
QRV_EXPORT int32_t QRV_CALL qrvInitDbConnection(void);
QRV_EXPORT int32_t QRV_CALL qrvCloseDbConnection(void);
/* Starts the thread that walks the network and enters what it finds in System_Table. thread receives its
 * handle; the result is non-zero when it was started. The thread may be ended with TerminateThread, elsewhere
 * qrvHostTerminateThread. */
QRV_EXPORT int32_t QRV_CALL qrvNetworkEnum(QrvThread* thread);
/* The discovery mode, non-zero for automatic: non-zero, and mode set, when one was saved. */
QRV_EXPORT int16_t QRV_CALL qrvGetNetAccessMode(uint8_t* mode);
/* 0 when the mode could not be stored. */
QRV_EXPORT int16_t QRV_CALL qrvSetNetAccessMode(uint8_t mode);
/* Non-zero when the dotted address belongs to the subnet "a.b.c.0", whose trailing "0" parts stand for any
 * value. */
QRV_EXPORT int32_t QRV_CALL qrvCheckIfBelongsToSubnet(char* address, char* subnet);

#ifdef __cplusplus
}
#endif

#endif
