#include "deployment/result_catalogue.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace varnhold::deployment {
namespace {

constexpr std::string_view kUnlisted = "Unknown error.";
constexpr std::string_view kSystemHole = "<system>";

/// One column of a row.
struct Words {
  enum class Kind {
    Own,      ///< `text`, with the system's name in its hole
    Same,     ///< the Tessmark text is the Varnhold text
    Default,  ///< not in this catalogue
    Down,     ///< `text` is the first line of the advice on an agent that is down
  };
  Kind kind;
  std::string_view text;
};

constexpr Words own(std::string_view text) {
  return {Words::Kind::Own, text};
}
constexpr Words down(std::string_view firstLine) {
  return {Words::Kind::Down, firstLine};
}
constexpr Words kSame{Words::Kind::Same, {}};
constexpr Words kDefault{Words::Kind::Default, {}};

struct Row {
  std::int32_t code;
  Words varnhold;
  Words tessmark;
};

// The texts are fixed, mistakes and doubled blanks included; rows with equal texts are not merged.
constexpr auto kCatalogue = std::to_array<Row>({
    {149,
     own("Failed to create uninstall directory. This may be due to insufficient permission, remote drive not "
         "being shared or network problems."),
     kDefault},
    {151,
     own("Communication with the remote host timed out. If the install was successful before communication "
         "was lost events from the remote host will be received."),
     own("Communication with the remote host timed out. If the install was successful before communication "
         "was lost snapshots from the remote host will be received.")},
    {153, own("Communication with the remote host timed out."), kSame},
    {154,
     own("Failed to connect. This may be due to insufficient permission, remote drive not being shared or "
         "network problems."),
     own("Unable to connect <system>. This may be due to network problems. Please verify network "
         "connectivity.")},
    {155,
     own("Failed to create install directory. This may be due to insufficient permission, remote drive not "
         "being shared or network problems."),
     own("Failed to create install directory on <system>. This may be due to insufficient permissions, "
         "remote drive not being shared or network problems. If the problem persists, you may need to "
         "install agent manually.")},
    {156, own("Failed to change directory."), kSame},
    {158,
     own("Failed to create registry settings. This may be due to insufficient permission or network "
         "problems."),
     own("Failed to create registry settings. This may be due to insufficient permissions. If this problem "
         "persists, you may need to install agent manually.")},
    {159,
     own("Failed to connect to remote registry. This may be due to insufficient permission or network "
         "problems."),
     own("Failed to create registry settings on <system>. This may be due to insufficient permissions or "
         "network problems. If this problem persists, you may need to install agent manually.")},
    {160, own("Network connection failed because resource is not available."),
     own("Unable to connect <system>. This may be due to network problems. Please verify network "
         "connectivity.")},
    {163, own("Failed to start service."), kSame},
    {167, own("Failed to configure security. Please apply security settings."), kDefault},
    {170, own("Failed to create service. This may be due to insufficient permission or network problems."),
     own("Access denied to open service control manager. This may be due to insufficient permissions or "
         "network problems.\rPlease check your network and whether you have sufficient permissions.")},
    {171, own("Failed to open database. This may be due to insufficient permission or network problems."),
     own("Failed to open database.")},
    {172, own("Failed to open database due to an invalid parameter."), kSame},
    {180, own("Failed to create service. This may be due to insufficient permission or network problems."),
     own("Failed to create service. This may be due to insufficient premissions or network problems. Please "
         "verify network connectivity.")},
    {181, own("Failed to create service because of a circular dependency."), kSame},
    {182, own("Failed to create service because of an invalid parameter."), kSame},
    {183, own("Failed to create service because of duplicate name."), kSame},
    {184, own("Failed to create service because the handle was invalid."), kSame},
    {185, own("Failed to create service because of invalid name."), kSame},
    {186, own("Failed to create service because of an invalid service account."), kSame},
    {187, own("Failed to create service because it already exists."), kSame},
    {190, own("Failed to stop the service because access was denied."), kSame},
    {191, own("Failed to locate database. This may be due to insufficient permission or network problems."),
     own("Failed to locate database.")},
    {192, own("Failed to stop the service because of an invalid parameter."), kSame},
    {193, own("Failed to stop service because the service handle could not be opened."), kSame},
    {194, own("Could not connect to the Service Control Manager on this machine."), kSame},
    {195, own("Service name is invalid."), kSame},
    {196, own("Agent service does not exist."), kSame},
    {200,
     own("Access denied to Agent service. This may be due to insufficient permission or network problems."),
     own("Access denied to agent service.")},
    {201, own("Failed to stop service because the service handle could not be opened."), kSame},
    {202, own("Failed to stop service because dependent services are running."), kSame},
    {203, own("Failed to stop service because because of an invalid parameter."), kSame},
    {204, own("Failed to stop service because of an invalid service controller."), kSame},
    {205, own("Failed to stop service because the service did not accept control."), kSame},
    {206, own("Failed to stop service because the service is not active."), kSame},
    {207, own("Failed to stop service because the request timed out."), kSame},
    {208, own("Failed to stop service because system shutdown is in progress."), kSame},
    {210,
     own("Failed to stop service because access was denied. This may be due to insufficient permission or "
         "network problems."),
     own("Failed to stop service because access was denied.")},
    {211, own("Failed to stop service because of an invalid handle."), kSame},
    {212, own("Failed to stop service because the service is marked for deletion."), kSame},
    {220,
     own("Failed to stop service because access was denied. This may be due to insufficient permission or "
         "network problems."),
     own("Failed to stop service because access was denied.")},
    {221, own("Failed to stop service because of an invalid handle."), kSame},
    {222, own("Path was not found."), kSame},
    {223, own("Failed to stop service."), kSame},
    {224, own("Failed to stop service because the database is locked."), kSame},
    {225, own("The service dependency is deleted."), kSame},
    {226, own("The service dependency failed."), kSame},
    {227, own("Service is disabled."), kSame},
    {228, own("Service logon failed."), kSame},
    {229, own("Service is already marked for delete."), kSame},
    {230, own("Service thread error."), kSame},
    {231, own("The service request timed out."), kSame},
    {232, own("Could not start the service automatically. Please try manually."), kSame},
    {253, own("A higher version of Varnhold Agent is already running in the system."),
     own("A more recent version of 'Tessmark for Windows' Agent is already running in the system.")},
    {257, own("Agent service is disabled, please restart <system>."), kSame},
    {258, own("Varnhold version 1 is already existing in the system."),
     own("'Tessmark for Windows' version 1 is already existing in the system.")},
    {275, kDefault,
     own("Install service not responding. If the problem persists, you may need to install agent manually.")},
    {281, kDefault,
     own("You do not have sufficient permissions to carry out this operation. You may have to install agent "
         "manually on this system.")},
    {282, kDefault,
     own("You do not have sufficient permissions to carry out this operation. You may need to login as "
         "'Administrator' or as an admin power user.")},
    {290, kDefault,
     own("Previous snapshots found and retained. If you do not want to retain the previous snapshots, please "
         "uninstall the existing agent along with it's snapshots and reinstall. You can also remove the "
         "snapshots when you install Agent manually on the system.")},
    {303, own("Invalid parameter for agent service."), own("Invalid parameter for Agent service.")},
    {306, own("Agent service has not been started."), kSame},
    {308, own("Shutdown in progress for agent service."), own("Shutdown in progress for Agent service.")},
    {313, own("Agent service is already running."), kSame},
    {316, own("Agent service is paused."), kSame},
    {320, own("Access denied to open Agent service."), kSame},
    {321, own("Invalid handle for Agent service."),
     own("Invalid Agent service handle! Please check your permissions and network connectivity.")},
    {322, own("Invalid name for Agent service."), own("Invalid Agent service name.")},
    {323, own("Service does not exist."), kSame},
    {325,
     own("Failed to open Agent service. This may be due to insufficient permission or network problems."),
     own("Failed to open Agent service.")},
    {326, own("Failed to query information about Agent service."), kSame},
    {351, own("Copying files to the remote system failed."),
     own("Failed to Copy install files. This may be due to insufficient permissions, remote drive not being "
         "shared or network problems. If the problem persists you may need to install Agent manually.")},
    {375, own("Query Service failed."), kSame},
    {376,
     own("Could not copy the specified agent configuration file. Please confirm that the file is reachable."),
     kDefault},
    {377, own("Could not change the 'Varnhold Agent' service logon account. Please check your rights."),
     kDefault},
    {454, own("Access denied to start agent service."), own("Access denied to start Agent service.")},
    {455, own("Invalid handle to start agent service."), own("Invalid handle to start Agent service.")},
    {456, own("Agent service path not found."), kSame},
    {457, own("Agent service is already running."), kSame},
    {458, own("Agent service database is locked."), kSame},
    {461, own("Agent service is disabled."), kSame},
    {462, own("Agent service logon failed."), kSame},
    {465, own("Agent service start request timeout is over."), kSame},
    {466, own("Agent service failed to start."), kSame},
    {468, own("Access denied to agent service."), own("Access denied to Agent service.")},
    {469, own("Invalid handle to agent service."), own("Invalid handle to Agent service.")},
    {470, own("Invalid name to agent service."), own("Invalid name to Agent service.")},
    {471, own("Agent service does not exist."), kSame},
    {472, own("Failed to open agent service."), own("Failed to open Agent service.")},
    {500, own("Varnhold Agent is already running."),
     own("'Tessmark for  Windows' Agent is already running.")},
    {600, own("Varnhold agent up & running."), own("Tessmark Agent up & running.")},
    {601, down("Varnhold agent down."), down("Tessmark Agent down.")},
    {602, down("Varnhold agent down."), down("Tessmark Agent down.")},
    {603, down("Varnhold Agent down."), down("Tessmark Agent down.")},
    {604, own("Varnhold Agent Status : Varnhold agent started successfully."),
     own("TK Agent Status : Tessmark Agent started successfully.")},
    {605,
     own("Varnhold Agent Status : Failed to start Varnhold Agent service. Try manual restart of this "
         "service."),
     own("TK Agent Status : Failed to start TkwService service. Try manual restart of this service.")},
    {606,
     own("Varnhold Agent Status : Failed to start Varnhold Agent service. Try manual restart of this "
         "service."),
     own("TK Agent Status : Failed to start TkwService service. Try manual restart of this service.")},
    {607,
     own("Varnhold Agent Status : Failed to start Varnhold Agent service. Try manual restart of this "
         "service."),
     own("TK Agent Status : Failed to start TkwService service. Try manual restart of this service.")},
    {701, own("Cannot upgrade from version 1.x. You must uninstall the old version completely then install."),
     kSame},
    {702, own("Cannot upgrade. Agent Manager found more latest version of agent on the target system."),
     own("Cannot upgrade because the target system's version is higher.")},
    {703, own("Failed to stop the service."), kSame},
    {704, own("Upgradation / Reinstall completed the service on the remote machine could not be started."),
     kSame},
    {705, own("Cannot Upgrade / Reinstall. The agent belongs to some other system."), kSame},
    {706, own("Could not read the local registry. Please check your rights and server installation."), kSame},
    {707, own("Could not read the remote registry. Please check your rights."), kSame},
    {708, own("Could not copy files to the target machine. Please check your rights."), kSame},
    {709, own("Could not create remote registry values. Please check your rights."), kSame},
    {710, own("Unknown error. This may be due to insufficient permission or network problems."), kDefault},
    {711, own("Cannot upgrade. Agent Manager found current version of agent on the target system."),
     kDefault},
    {712,
     own("Upgrade failed because the agent service could not be configured to interact with the desktop."),
     kDefault},
    {800, own("Could not resolve the IP Address for the system."), kSame},
    {801, own("Could not create the configuration file on the local system."), kSame},
    {3001, own("General error."), kDefault},
    {3002, own("Insufficient buffer."), kDefault},
    {3007, own("Insufficient memory."), kDefault},
    {3011, own("Failed to open Service Control Manager. Please check your rights."), kDefault},
    {3012, own("Service configuration or operation failed. Please check your rights."), kDefault},
    {3013, own("Registry operation failed."), kDefault},
    {3017, own("Host information not found."), kDefault},
    {3018, own("Invalid socket."), kDefault},
    {3019, own("Cannot set socket option."), kDefault},
    {3020, own("Failed to connect remote agent."), kDefault},
    {3022, own("Socket operation failed."), kDefault},
    {3023, own("File operation failed."), kDefault},
    {3025, own("Agent upgradation failed. This may be due to network problems."), kDefault},
    {3026, own("Failed to check agent version."), kDefault},
    {3027, own("Agent version mismatch."), kDefault},
});

constexpr bool codeIsLess(const Row& left, const Row& right) {
  return left.code < right.code;
}
static_assert(std::is_sorted(kCatalogue.begin(), kCatalogue.end(), codeIsLess));

const Row* findRow(std::int32_t code) {
  const auto* row =
      std::lower_bound(kCatalogue.begin(), kCatalogue.end(), Row{code, kDefault, kDefault}, codeIsLess);
  return row != kCatalogue.end() && row->code == code ? row : nullptr;
}

std::string downText(std::string_view firstLine, std::string_view service) {
  return std::string(firstLine) + "\r\n\r\n'" + std::string(service) +
         "' service needs to be restarted.\r\n\r\n"
         "To start this service either use the 'Start Agent Service' menu option.\r\n\r\n"
         "'OR'\r\n\r\n"
         "Manually restart it on the respective computer. Services can be found in the Control Panel.\r\n\r\n"
         "For Windows 2000 :\r\n"
         "Control Panel -> Administrative Tools -> Services\r\n"
         "For Windows NT :\r\n"
         "Control Panel -> Services";
}

std::string wordsToText(const Words& words, std::string_view systemName, std::string_view service) {
  switch (words.kind) {
    case Words::Kind::Own:
      return replaceAll(words.text, kSystemHole, systemName);
    case Words::Kind::Down:
      return downText(words.text, service);
    default:
      return std::string(kUnlisted);
  }
}

}  // namespace

std::string VarnholdResultText(std::int32_t code, std::string_view systemName) {
  const auto* row = findRow(code);
  return wordsToText(row ? row->varnhold : kDefault, systemName, "Varnhold Agent");
}

std::string TessmarkResultText(std::int32_t code, std::string_view systemName) {
  const auto* row = findRow(code);
  if (row && row->tessmark.kind == Words::Kind::Same) return VarnholdResultText(code, systemName);
  return wordsToText(row ? row->tessmark : kDefault, systemName, "TkwService");
}

std::string DescribeResult(std::int32_t code, std::string_view systemName, Product product) {
  return product == Product::Varnhold ? VarnholdResultText(code, systemName)
                                      : TessmarkResultText(code, systemName);
}

}  // namespace varnhold::deployment
