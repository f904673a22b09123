#pragma once

#include <cstdint>

namespace varnhold::companion {

/// A Win32 error number (winerror.h), 0 for success: the language in which every transport reports, so that
/// one table turns it into a result code.
using Win32Error = std::uint32_t;

inline constexpr Win32Error kDone = 0;
inline constexpr Win32Error kFileMissing = 2;                ///< ERROR_FILE_NOT_FOUND
inline constexpr Win32Error kPathMissing = 3;                ///< ERROR_PATH_NOT_FOUND
inline constexpr Win32Error kAccessDenied = 5;               ///< ERROR_ACCESS_DENIED
inline constexpr Win32Error kInvalidHandle = 6;              ///< ERROR_INVALID_HANDLE
inline constexpr Win32Error kMemoryGone = 8;                 ///< ERROR_NOT_ENOUGH_MEMORY
inline constexpr Win32Error kNetworkPathMissing = 53;        ///< ERROR_BAD_NETPATH
inline constexpr Win32Error kNetworkResourceGone = 55;       ///< ERROR_DEV_NOT_EXIST
inline constexpr Win32Error kShareMissing = 67;              ///< ERROR_BAD_NET_NAME
inline constexpr Win32Error kInvalidParameter = 87;          ///< ERROR_INVALID_PARAMETER
inline constexpr Win32Error kBufferTooSmall = 111;           ///< ERROR_BUFFER_OVERFLOW
inline constexpr Win32Error kDiskIsFull = 112;               ///< ERROR_DISK_FULL
inline constexpr Win32Error kNetworkTimeout = 121;           ///< ERROR_SEM_TIMEOUT
inline constexpr Win32Error kBufferInsufficient = 122;       ///< ERROR_INSUFFICIENT_BUFFER
inline constexpr Win32Error kInvalidName = 123;              ///< ERROR_INVALID_NAME
inline constexpr Win32Error kFolderNotEmpty = 145;           ///< ERROR_DIR_NOT_EMPTY
inline constexpr Win32Error kBadPathName = 161;              ///< ERROR_BAD_PATHNAME
inline constexpr Win32Error kAlreadyExists = 183;            ///< ERROR_ALREADY_EXISTS
inline constexpr Win32Error kRegistryDamaged = 1009;         ///< ERROR_BADDB
inline constexpr Win32Error kDependentsRunning = 1051;       ///< ERROR_DEPENDENT_SERVICES_RUNNING
inline constexpr Win32Error kInvalidControl = 1052;          ///< ERROR_INVALID_SERVICE_CONTROL
inline constexpr Win32Error kServiceTimeout = 1053;          ///< ERROR_SERVICE_REQUEST_TIMEOUT
inline constexpr Win32Error kServiceThread = 1054;           ///< ERROR_SERVICE_NO_THREAD
inline constexpr Win32Error kServiceDatabaseLocked = 1055;   ///< ERROR_SERVICE_DATABASE_LOCKED
inline constexpr Win32Error kServiceRunning = 1056;          ///< ERROR_SERVICE_ALREADY_RUNNING
inline constexpr Win32Error kInvalidAccount = 1057;          ///< ERROR_INVALID_SERVICE_ACCOUNT
inline constexpr Win32Error kServiceDisabled = 1058;         ///< ERROR_SERVICE_DISABLED
inline constexpr Win32Error kCircularDependency = 1059;      ///< ERROR_CIRCULAR_DEPENDENCY
inline constexpr Win32Error kServiceMissing = 1060;          ///< ERROR_SERVICE_DOES_NOT_EXIST
inline constexpr Win32Error kControlNotAccepted = 1061;      ///< ERROR_SERVICE_CANNOT_ACCEPT_CTRL
inline constexpr Win32Error kServiceNotActive = 1062;        ///< ERROR_SERVICE_NOT_ACTIVE
inline constexpr Win32Error kNoController = 1063;            ///< ERROR_FAILED_SERVICE_CONTROLLER_CONNECT
inline constexpr Win32Error kServiceDatabaseMissing = 1065;  ///< ERROR_DATABASE_DOES_NOT_EXIST
inline constexpr Win32Error kDependencyFailed = 1068;        ///< ERROR_SERVICE_DEPENDENCY_FAIL
inline constexpr Win32Error kLogonFailed = 1069;             ///< ERROR_SERVICE_LOGON_FAILED
inline constexpr Win32Error kMarkedForDelete = 1072;         ///< ERROR_SERVICE_MARKED_FOR_DELETE
inline constexpr Win32Error kServiceExists = 1073;           ///< ERROR_SERVICE_EXISTS
inline constexpr Win32Error kDependencyDeleted = 1075;       ///< ERROR_SERVICE_DEPENDENCY_DELETED
inline constexpr Win32Error kDuplicateServiceName = 1078;    ///< ERROR_DUPLICATE_SERVICE_NAME
inline constexpr Win32Error kShuttingDown = 1115;            ///< ERROR_SHUTDOWN_IN_PROGRESS
inline constexpr Win32Error kOldVersion = 1150;              ///< ERROR_OLD_WIN_VERSION
inline constexpr Win32Error kPrivilegeMissing = 1314;        ///< ERROR_PRIVILEGE_NOT_HELD
inline constexpr Win32Error kLogonRefused = 1326;            ///< ERROR_LOGON_FAILURE
inline constexpr Win32Error kAccountUnknown = 1332;          ///< ERROR_NONE_MAPPED
inline constexpr Win32Error kInvalidSid = 1337;              ///< ERROR_INVALID_SID
inline constexpr Win32Error kTimeout = 1460;                 ///< ERROR_TIMEOUT
inline constexpr Win32Error kOtherVersion = 1638;            ///< ERROR_PRODUCT_VERSION
inline constexpr Win32Error kServerUnavailable = 1722;       ///< RPC_S_SERVER_UNAVAILABLE
inline constexpr Win32Error kNotConnected = 2250;            ///< ERROR_NOT_CONNECTED
inline constexpr Win32Error kNoSocket = 10038;               ///< WSAENOTSOCK
inline constexpr Win32Error kNoSocketOption = 10042;         ///< WSAENOPROTOOPT
inline constexpr Win32Error kConnectionAborted = 10053;      ///< WSAECONNABORTED
inline constexpr Win32Error kConnectionReset = 10054;        ///< WSAECONNRESET
inline constexpr Win32Error kConnectionTimeout = 10060;      ///< WSAETIMEDOUT
inline constexpr Win32Error kConnectionRefused = 10061;      ///< WSAECONNREFUSED
inline constexpr Win32Error kHostUnknown = 11001;            ///< WSAHOST_NOT_FOUND

}  // namespace varnhold::companion
