#include "platform/formats/system_messages.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace varnhold::platform {
namespace {

struct Message {
  std::uint32_t number;
  std::string_view text;
};

constexpr std::array kMessages = {
    Message{1, "Incorrect function."},
    Message{2, "The system cannot find the file specified."},
    Message{3, "The system cannot find the path specified."},
    Message{5, "Access is denied."},
    Message{6, "The handle is invalid."},
    Message{8, "Not enough memory resources are available to process this command."},
    Message{19, "The media is write protected."},
    Message{32, "The process cannot access the file because it is being used by another process."},
    Message{50, "The request is not supported."},
    Message{53, "The network path was not found."},
    Message{64, "The specified network name is no longer available."},
    Message{65, "Network access is denied."},
    Message{67, "The network name cannot be found."},
    Message{80, "The file exists."},
    Message{85, "The local device name is already in use."},
    Message{86, "The specified network password is not correct."},
    Message{87, "The parameter is incorrect."},
    Message{112, "There is not enough space on the disk."},
    Message{123, "The filename, directory name, or volume label syntax is incorrect."},
    Message{183, "Cannot create a file when that file already exists."},
    Message{1051, "A stop control has been sent to a service that other running services are dependent on."},
    Message{1052, "The requested control is not valid for this service."},
    Message{1053, "The service did not respond to the start or control request in a timely fashion."},
    Message{1055, "The service database is locked."},
    Message{1056, "An instance of the service is already running."},
    Message{1057,
            "The account name is invalid or does not exist, or the password is invalid for the account "
            "name specified."},
    Message{1058,
            "The service cannot be started, either because it is disabled or because it has no enabled "
            "devices associated with it."},
    Message{1060, "The specified service does not exist as an installed service."},
    Message{1061, "The service cannot accept control messages at this time."},
    Message{1062, "The service has not been started."},
    Message{1066, "The service has returned a service-specific error code."},
    Message{1067, "The process terminated unexpectedly."},
    Message{1068, "The dependency service or group failed to start."},
    Message{1069, "The service did not start due to a logon failure."},
    Message{1072, "The specified service has been marked for deletion."},
    Message{1073, "The specified service already exists."},
    Message{1203,
            "The network path was either typed incorrectly, does not exist, or the network provider is not "
            "currently available. Please try retyping the path or contact your network administrator."},
    Message{1311, "There are currently no logon servers available to service the logon request."},
    Message{1314, "A required privilege is not held by the client."},
    Message{1326, "The user name or password is incorrect."},
    Message{1385, "Logon failure: the user has not been granted the requested logon type at this computer."},
    Message{1500, "The event log file is corrupted."},
    Message{1717, "The interface is unknown."},
    Message{1722, "The RPC server is unavailable."},
    Message{1726, "The remote procedure call failed."},
    Message{2250, "This network connection does not exist."},
};

}  // namespace

std::optional<std::string> systemMessage(std::uint32_t number) {
  const auto* found = std::find_if(kMessages.begin(), kMessages.end(),
                                   [&](const Message& message) { return message.number == number; });
  if (found == kMessages.end()) return std::nullopt;
  return std::string(found->text) + "\r\n";
}

}  // namespace varnhold::platform
