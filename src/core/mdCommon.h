#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/program.h"
#include "core/registry_values.h"

/// Small shared routines: the registry, system types, local services, tests of remote access. None shows a
/// message; callers decide what a False means. Main thread.
namespace varnhold::core {

/// Reads a value of at most 1024 bytes. Text comes up to its first NUL, a 32-bit number as decimal text (with
/// its sign, as all numbers of the program have one); any other type leaves `value` as it was. True in all
/// these cases. False, with `value` empty, when the key or the value cannot be read. Raises
/// kInvalidProcedureCall for a text that fills all 1024 bytes without a NUL.
bool RegReadValue(platform::Registry& registry, platform::RegistryHive hive, std::string_view key,
                  std::string_view valueName, std::string& value);

/// Writes a 32-bit number; false when the key is missing (it is not created) or the host refuses.
bool RegWriteDword(platform::Registry& registry, platform::RegistryHive hive, std::string_view key,
                   std::string_view valueName, std::int32_t value);

/// The name of a system type's code; "..." for a code that is not in the table.
[[nodiscard]] std::string GetSystemTypeName(std::int32_t code);
/// The code of a system type's name, compared exactly; 0 for a name that is not in its table.
[[nodiscard]] std::int32_t GetSystemTypeCode(std::string_view name);

/// Tells the product's services that the inventory changed. Silent when that fails.
void RequestManagerResync(platform::Registry& registry);

/// Stops and starts a service of this computer, five seconds apart whatever the stop brings: 0 done, 1 no
/// service manager, 2 no such service, 3 not started again. A service that turns out to run already counts as
/// started.
[[nodiscard]] std::int32_t RestartLocalService(Host& host, const std::string& serviceName);

/// Can the Security log of the computer be opened? It is closed again.
[[nodiscard]] bool CanAccessEventLog(platform::EventLog& eventLog, const std::string& computer);
/// The same; where it cannot, `error` is the host's number.
[[nodiscard]] bool CanAccessEventLog(platform::EventLog& eventLog, const std::string& computer,
                                     std::uint32_t& error);
/// Can a file be made and deleted on the administrative share that holds the computer's program files? The
/// file is named by the second, so that two tests of one computer within a second use the same name.
[[nodiscard]] bool CanWriteAdminShare(Host& host, const std::string& computer);
/// Both of the above, in the order share, log.
[[nodiscard]] bool CanReachComputer(Host& host, const std::string& computer);
/// The same; where the log is what fails, `error` is the host's number, and else stays.
[[nodiscard]] bool CanReachComputer(Host& host, const std::string& computer, std::uint32_t& error);

}  // namespace varnhold::core
