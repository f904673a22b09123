#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/program.h"
#include "platform/clock.h"
#include "platform/files.h"

/// The run log in its two forms: quoted records of the wizard, plain lines of the command-line installer.
/// Each call opens the file, writes, and closes it. A file that cannot be written or deleted raises the
/// RuntimeError of `fileError`; what that costs is the caller's policy. Main thread.
namespace varnhold::deployment {

inline constexpr std::string_view kRunLogFile = "AILog.txt";

/// Deletes the log in `gAppPath`; a missing file is no fault.
void ResetDeploymentLog(core::Program& program);

/// Adds a record to the log in `gInstallerDir`: the text in double quotes. Quotes inside it are written as
/// they are. Deliberately not the folder of `ResetDeploymentLog`: where the two differ, old records stay.
void AppendDeploymentLog(core::Program& program, std::string_view text);

/// Adds plain lines to the log in `folder`, each ending in CR LF, in one opening.
void appendLogLines(platform::Files& files, const std::string& folder, const std::vector<std::string>& lines);

/// Date and time, " :: ", the message.
[[nodiscard]] std::string stampedLine(const platform::LocalTime& time, std::string_view message);

/// Date and time in the log's one form, whatever the host's regional settings: "1/31/2026 4:05:09 PM".
[[nodiscard]] std::string formatTimeStamp(const platform::LocalTime& time);

}  // namespace varnhold::deployment
