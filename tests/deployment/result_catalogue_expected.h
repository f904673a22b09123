#pragma once

#include <array>
#include <cstdint>

namespace varnhold::deployment {

/// A result code and what each catalogue says to it for the system HOST7.
struct ExpectedTexts {
  std::int32_t code;
  const char* varnhold;
  const char* tessmark;
};

// Every documented code, with both texts in full.
inline constexpr auto kExpectedTexts = std::to_array<ExpectedTexts>({
    {149,
     "Failed to create uninstall directory. This may be due to insufficient permission, remote drive not "
     "being shared or network problems.",
     "Unknown error."},
    {151,
     "Communication with the remote host timed out. If the install was successful before communication was "
     "lost events from the remote host will be received.",
     "Communication with the remote host timed out. If the install was successful before communication was "
     "lost snapshots from the remote host will be received."},
    {153, "Communication with the remote host timed out.", "Communication with the remote host timed out."},
    {154,
     "Failed to connect. This may be due to insufficient permission, remote drive not being shared or "
     "network problems.",
     "Unable to connect HOST7. This may be due to network problems. Please verify network connectivity."},
    {155,
     "Failed to create install directory. This may be due to insufficient permission, remote drive not being "
     "shared or network problems.",
     "Failed to create install directory on HOST7. This may be due to insufficient permissions, remote drive "
     "not being shared or network problems. If the problem persists, you may need to install agent "
     "manually."},
    {156, "Failed to change directory.", "Failed to change directory."},
    {158,
     "Failed to create registry settings. This may be due to insufficient permission or network problems.",
     "Failed to create registry settings. This may be due to insufficient permissions. If this problem "
     "persists, you may need to install agent manually."},
    {159,
     "Failed to connect to remote registry. This may be due to insufficient permission or network problems.",
     "Failed to create registry settings on HOST7. This may be due to insufficient permissions or network "
     "problems. If this problem persists, you may need to install agent manually."},
    {160, "Network connection failed because resource is not available.",
     "Unable to connect HOST7. This may be due to network problems. Please verify network connectivity."},
    {163, "Failed to start service.", "Failed to start service."},
    {167, "Failed to configure security. Please apply security settings.", "Unknown error."},
    {170, "Failed to create service. This may be due to insufficient permission or network problems.",
     "Access denied to open service control manager. This may be due to insufficient permissions or network "
     "problems.\rPlease check your network and whether you have sufficient permissions."},
    {171, "Failed to open database. This may be due to insufficient permission or network problems.",
     "Failed to open database."},
    {172, "Failed to open database due to an invalid parameter.",
     "Failed to open database due to an invalid parameter."},
    {180, "Failed to create service. This may be due to insufficient permission or network problems.",
     "Failed to create service. This may be due to insufficient premissions or network problems. Please "
     "verify network connectivity."},
    {181, "Failed to create service because of a circular dependency.",
     "Failed to create service because of a circular dependency."},
    {182, "Failed to create service because of an invalid parameter.",
     "Failed to create service because of an invalid parameter."},
    {183, "Failed to create service because of duplicate name.",
     "Failed to create service because of duplicate name."},
    {184, "Failed to create service because the handle was invalid.",
     "Failed to create service because the handle was invalid."},
    {185, "Failed to create service because of invalid name.",
     "Failed to create service because of invalid name."},
    {186, "Failed to create service because of an invalid service account.",
     "Failed to create service because of an invalid service account."},
    {187, "Failed to create service because it already exists.",
     "Failed to create service because it already exists."},
    {190, "Failed to stop the service because access was denied.",
     "Failed to stop the service because access was denied."},
    {191, "Failed to locate database. This may be due to insufficient permission or network problems.",
     "Failed to locate database."},
    {192, "Failed to stop the service because of an invalid parameter.",
     "Failed to stop the service because of an invalid parameter."},
    {193, "Failed to stop service because the service handle could not be opened.",
     "Failed to stop service because the service handle could not be opened."},
    {194, "Could not connect to the Service Control Manager on this machine.",
     "Could not connect to the Service Control Manager on this machine."},
    {195, "Service name is invalid.", "Service name is invalid."},
    {196, "Agent service does not exist.", "Agent service does not exist."},
    {200, "Access denied to Agent service. This may be due to insufficient permission or network problems.",
     "Access denied to agent service."},
    {201, "Failed to stop service because the service handle could not be opened.",
     "Failed to stop service because the service handle could not be opened."},
    {202, "Failed to stop service because dependent services are running.",
     "Failed to stop service because dependent services are running."},
    {203, "Failed to stop service because because of an invalid parameter.",
     "Failed to stop service because because of an invalid parameter."},
    {204, "Failed to stop service because of an invalid service controller.",
     "Failed to stop service because of an invalid service controller."},
    {205, "Failed to stop service because the service did not accept control.",
     "Failed to stop service because the service did not accept control."},
    {206, "Failed to stop service because the service is not active.",
     "Failed to stop service because the service is not active."},
    {207, "Failed to stop service because the request timed out.",
     "Failed to stop service because the request timed out."},
    {208, "Failed to stop service because system shutdown is in progress.",
     "Failed to stop service because system shutdown is in progress."},
    {210,
     "Failed to stop service because access was denied. This may be due to insufficient permission or "
     "network problems.",
     "Failed to stop service because access was denied."},
    {211, "Failed to stop service because of an invalid handle.",
     "Failed to stop service because of an invalid handle."},
    {212, "Failed to stop service because the service is marked for deletion.",
     "Failed to stop service because the service is marked for deletion."},
    {220,
     "Failed to stop service because access was denied. This may be due to insufficient permission or "
     "network problems.",
     "Failed to stop service because access was denied."},
    {221, "Failed to stop service because of an invalid handle.",
     "Failed to stop service because of an invalid handle."},
    {222, "Path was not found.", "Path was not found."},
    {223, "Failed to stop service.", "Failed to stop service."},
    {224, "Failed to stop service because the database is locked.",
     "Failed to stop service because the database is locked."},
    {225, "The service dependency is deleted.", "The service dependency is deleted."},
    {226, "The service dependency failed.", "The service dependency failed."},
    {227, "Service is disabled.", "Service is disabled."},
    {228, "Service logon failed.", "Service logon failed."},
    {229, "Service is already marked for delete.", "Service is already marked for delete."},
    {230, "Service thread error.", "Service thread error."},
    {231, "The service request timed out.", "The service request timed out."},
    {232, "Could not start the service automatically. Please try manually.",
     "Could not start the service automatically. Please try manually."},
    {253, "A higher version of Varnhold Agent is already running in the system.",
     "A more recent version of 'Tessmark for Windows' Agent is already running in the system."},
    {257, "Agent service is disabled, please restart HOST7.",
     "Agent service is disabled, please restart HOST7."},
    {258, "Varnhold version 1 is already existing in the system.",
     "'Tessmark for Windows' version 1 is already existing in the system."},
    {275, "Unknown error.",
     "Install service not responding. If the problem persists, you may need to install agent manually."},
    {281, "Unknown error.",
     "You do not have sufficient permissions to carry out this operation. You may have to install agent "
     "manually on this system."},
    {282, "Unknown error.",
     "You do not have sufficient permissions to carry out this operation. You may need to login as "
     "'Administrator' or as an admin power user."},
    {290, "Unknown error.",
     "Previous snapshots found and retained. If you do not want to retain the previous snapshots, please "
     "uninstall the existing agent along with it's snapshots and reinstall. You can also remove the "
     "snapshots when you install Agent manually on the system."},
    {303, "Invalid parameter for agent service.", "Invalid parameter for Agent service."},
    {306, "Agent service has not been started.", "Agent service has not been started."},
    {308, "Shutdown in progress for agent service.", "Shutdown in progress for Agent service."},
    {313, "Agent service is already running.", "Agent service is already running."},
    {316, "Agent service is paused.", "Agent service is paused."},
    {320, "Access denied to open Agent service.", "Access denied to open Agent service."},
    {321, "Invalid handle for Agent service.",
     "Invalid Agent service handle! Please check your permissions and network connectivity."},
    {322, "Invalid name for Agent service.", "Invalid Agent service name."},
    {323, "Service does not exist.", "Service does not exist."},
    {325, "Failed to open Agent service. This may be due to insufficient permission or network problems.",
     "Failed to open Agent service."},
    {326, "Failed to query information about Agent service.",
     "Failed to query information about Agent service."},
    {351, "Copying files to the remote system failed.",
     "Failed to Copy install files. This may be due to insufficient permissions, remote drive not being "
     "shared or network problems. If the problem persists you may need to install Agent manually."},
    {375, "Query Service failed.", "Query Service failed."},
    {376, "Could not copy the specified agent configuration file. Please confirm that the file is reachable.",
     "Unknown error."},
    {377, "Could not change the 'Varnhold Agent' service logon account. Please check your rights.",
     "Unknown error."},
    {454, "Access denied to start agent service.", "Access denied to start Agent service."},
    {455, "Invalid handle to start agent service.", "Invalid handle to start Agent service."},
    {456, "Agent service path not found.", "Agent service path not found."},
    {457, "Agent service is already running.", "Agent service is already running."},
    {458, "Agent service database is locked.", "Agent service database is locked."},
    {461, "Agent service is disabled.", "Agent service is disabled."},
    {462, "Agent service logon failed.", "Agent service logon failed."},
    {465, "Agent service start request timeout is over.", "Agent service start request timeout is over."},
    {466, "Agent service failed to start.", "Agent service failed to start."},
    {468, "Access denied to agent service.", "Access denied to Agent service."},
    {469, "Invalid handle to agent service.", "Invalid handle to Agent service."},
    {470, "Invalid name to agent service.", "Invalid name to Agent service."},
    {471, "Agent service does not exist.", "Agent service does not exist."},
    {472, "Failed to open agent service.", "Failed to open Agent service."},
    {500, "Varnhold Agent is already running.", "'Tessmark for  Windows' Agent is already running."},
    {600, "Varnhold agent up & running.", "Tessmark Agent up & running."},
    {601,
     "Varnhold agent down.\r\n\r\n'Varnhold Agent' service needs to be restarted.\r\n\r\nTo start this "
     "service either use the 'Start Agent Service' menu option.\r\n\r\n'OR'\r\n\r\nManually restart it on "
     "the respective computer. Services can be found in the Control Panel.\r\n\r\nFor Windows 2000 "
     ":\r\nControl Panel -> Administrative Tools -> Services\r\nFor Windows NT :\r\nControl Panel -> "
     "Services",
     "Tessmark Agent down.\r\n\r\n'TkwService' service needs to be restarted.\r\n\r\nTo start this service "
     "either use the 'Start Agent Service' menu option.\r\n\r\n'OR'\r\n\r\nManually restart it on the "
     "respective computer. Services can be found in the Control Panel.\r\n\r\nFor Windows 2000 :\r\nControl "
     "Panel -> Administrative Tools -> Services\r\nFor Windows NT :\r\nControl Panel -> Services"},
    {602,
     "Varnhold agent down.\r\n\r\n'Varnhold Agent' service needs to be restarted.\r\n\r\nTo start this "
     "service either use the 'Start Agent Service' menu option.\r\n\r\n'OR'\r\n\r\nManually restart it on "
     "the respective computer. Services can be found in the Control Panel.\r\n\r\nFor Windows 2000 "
     ":\r\nControl Panel -> Administrative Tools -> Services\r\nFor Windows NT :\r\nControl Panel -> "
     "Services",
     "Tessmark Agent down.\r\n\r\n'TkwService' service needs to be restarted.\r\n\r\nTo start this service "
     "either use the 'Start Agent Service' menu option.\r\n\r\n'OR'\r\n\r\nManually restart it on the "
     "respective computer. Services can be found in the Control Panel.\r\n\r\nFor Windows 2000 :\r\nControl "
     "Panel -> Administrative Tools -> Services\r\nFor Windows NT :\r\nControl Panel -> Services"},
    {603,
     "Varnhold Agent down.\r\n\r\n'Varnhold Agent' service needs to be restarted.\r\n\r\nTo start this "
     "service either use the 'Start Agent Service' menu option.\r\n\r\n'OR'\r\n\r\nManually restart it on "
     "the respective computer. Services can be found in the Control Panel.\r\n\r\nFor Windows 2000 "
     ":\r\nControl Panel -> Administrative Tools -> Services\r\nFor Windows NT :\r\nControl Panel -> "
     "Services",
     "Tessmark Agent down.\r\n\r\n'TkwService' service needs to be restarted.\r\n\r\nTo start this service "
     "either use the 'Start Agent Service' menu option.\r\n\r\n'OR'\r\n\r\nManually restart it on the "
     "respective computer. Services can be found in the Control Panel.\r\n\r\nFor Windows 2000 :\r\nControl "
     "Panel -> Administrative Tools -> Services\r\nFor Windows NT :\r\nControl Panel -> Services"},
    {604, "Varnhold Agent Status : Varnhold agent started successfully.",
     "TK Agent Status : Tessmark Agent started successfully."},
    {605,
     "Varnhold Agent Status : Failed to start Varnhold Agent service. Try manual restart of this service.",
     "TK Agent Status : Failed to start TkwService service. Try manual restart of this service."},
    {606,
     "Varnhold Agent Status : Failed to start Varnhold Agent service. Try manual restart of this service.",
     "TK Agent Status : Failed to start TkwService service. Try manual restart of this service."},
    {607,
     "Varnhold Agent Status : Failed to start Varnhold Agent service. Try manual restart of this service.",
     "TK Agent Status : Failed to start TkwService service. Try manual restart of this service."},
    {701, "Cannot upgrade from version 1.x. You must uninstall the old version completely then install.",
     "Cannot upgrade from version 1.x. You must uninstall the old version completely then install."},
    {702, "Cannot upgrade. Agent Manager found more latest version of agent on the target system.",
     "Cannot upgrade because the target system's version is higher."},
    {703, "Failed to stop the service.", "Failed to stop the service."},
    {704, "Upgradation / Reinstall completed the service on the remote machine could not be started.",
     "Upgradation / Reinstall completed the service on the remote machine could not be started."},
    {705, "Cannot Upgrade / Reinstall. The agent belongs to some other system.",
     "Cannot Upgrade / Reinstall. The agent belongs to some other system."},
    {706, "Could not read the local registry. Please check your rights and server installation.",
     "Could not read the local registry. Please check your rights and server installation."},
    {707, "Could not read the remote registry. Please check your rights.",
     "Could not read the remote registry. Please check your rights."},
    {708, "Could not copy files to the target machine. Please check your rights.",
     "Could not copy files to the target machine. Please check your rights."},
    {709, "Could not create remote registry values. Please check your rights.",
     "Could not create remote registry values. Please check your rights."},
    {710, "Unknown error. This may be due to insufficient permission or network problems.", "Unknown error."},
    {711, "Cannot upgrade. Agent Manager found current version of agent on the target system.",
     "Unknown error."},
    {712, "Upgrade failed because the agent service could not be configured to interact with the desktop.",
     "Unknown error."},
    {800, "Could not resolve the IP Address for the system.",
     "Could not resolve the IP Address for the system."},
    {801, "Could not create the configuration file on the local system.",
     "Could not create the configuration file on the local system."},
    {3001, "General error.", "Unknown error."},
    {3002, "Insufficient buffer.", "Unknown error."},
    {3007, "Insufficient memory.", "Unknown error."},
    {3011, "Failed to open Service Control Manager. Please check your rights.", "Unknown error."},
    {3012, "Service configuration or operation failed. Please check your rights.", "Unknown error."},
    {3013, "Registry operation failed.", "Unknown error."},
    {3017, "Host information not found.", "Unknown error."},
    {3018, "Invalid socket.", "Unknown error."},
    {3019, "Cannot set socket option.", "Unknown error."},
    {3020, "Failed to connect remote agent.", "Unknown error."},
    {3022, "Socket operation failed.", "Unknown error."},
    {3023, "File operation failed.", "Unknown error."},
    {3025, "Agent upgradation failed. This may be due to network problems.", "Unknown error."},
    {3026, "Failed to check agent version.", "Unknown error."},
    {3027, "Agent version mismatch.", "Unknown error."},
});

}  // namespace varnhold::deployment
