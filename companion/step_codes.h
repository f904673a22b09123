#pragma once

#include "companion/job.h"

/// What the errors of one call mean as result codes: the catalogue's texts, by the error lists of the Win32
/// calls (winsvc.h). An error that is in no list has the step's own code.
namespace varnhold::companion {

inline constexpr ErrorCode kConnectCodes[] = {
    {kNetworkTimeout, 153}, {kTimeout, 153}, {kNetworkResourceGone, 160}, {kShareMissing, 160}};

inline constexpr ErrorCode kTessmarkConnectCodes[] = {{kNetworkTimeout, 153},      {kTimeout, 153},
                                                      {kNetworkResourceGone, 160}, {kShareMissing, 160},
                                                      {kPrivilegeMissing, 281},    {kLogonRefused, 282}};

inline constexpr ErrorCode kVersionCodes[] = {{kOtherVersion, 253}, {kOldVersion, 258}};

inline constexpr ErrorCode kInstallManagerCodes[] = {{kServiceDatabaseMissing, 171},
                                                     {kInvalidParameter, 172}};

inline constexpr ErrorCode kTessmarkManagerCodes[] = {
    {kServiceDatabaseMissing, 171}, {kInvalidParameter, 172}, {kServerUnavailable, 275}};

inline constexpr ErrorCode kSnapshotCodes[] = {{kAlreadyExists, kSnapshotsKept}};

inline constexpr ErrorCode kCreateServiceCodes[] = {{kCircularDependency, 181},   {kInvalidParameter, 182},
                                                    {kDuplicateServiceName, 183}, {kInvalidHandle, 184},
                                                    {kInvalidName, 185},          {kInvalidAccount, 186},
                                                    {kServiceExists, 187},        {kMarkedForDelete, 229}};

inline constexpr ErrorCode kStartCodes[] = {
    {kPathMissing, 222},       {kFileMissing, 222},      {kServiceDatabaseLocked, 224},
    {kDependencyDeleted, 225}, {kDependencyFailed, 226}, {kServiceDisabled, 227},
    {kLogonFailed, 228},       {kMarkedForDelete, 229},  {kServiceThread, 230},
    {kServiceTimeout, 231},    {kNoController, 163},     {kServerUnavailable, 163}};

inline constexpr ErrorCode kUninstallManagerCodes[] = {
    {kAccessDenied, 190}, {kServiceDatabaseMissing, 191}, {kInvalidParameter, 192}};

inline constexpr ErrorCode kFindCodes[] = {
    {kAccessDenied, 200}, {kInvalidHandle, 193}, {kInvalidName, 195}, {kServiceMissing, 196}};

inline constexpr ErrorCode kStopCodes[] = {
    {kAccessDenied, 210},     {kInvalidHandle, 201},  {kDependentsRunning, 202},
    {kInvalidParameter, 203}, {kInvalidControl, 204}, {kControlNotAccepted, 205},
    {kServiceNotActive, 206}, {kServiceTimeout, 207}, {kShuttingDown, 208}};

inline constexpr ErrorCode kDeleteCodes[] = {
    {kAccessDenied, 220}, {kInvalidHandle, 221}, {kMarkedForDelete, 212}};

inline constexpr ErrorCode kUpgradeVersionCodes[] = {
    {kOldVersion, 701}, {kOtherVersion, 702}, {kAlreadyExists, 711}};

/// Of every step over IP that goes through the socket.
inline constexpr ErrorCode kSocketCodes[] = {{kBufferInsufficient, 3002}, {kMemoryGone, 3007},
                                             {kNoSocket, 3018},           {kNoSocketOption, 3019},
                                             {kConnectionAborted, 3022},  {kConnectionReset, 3022}};

inline constexpr ErrorCode kOverIpVersionCodes[] = {{kOldVersion, 3027}, {kOtherVersion, 3027}};

}  // namespace varnhold::companion
