#pragma once

#include <filesystem>

namespace varnhold::provision {

/// Makes `RemoteInstaller` with `remins` (what a remote installation is done with; `vhsetup.ins` is written
/// there for each target) and `Agent` (what is installed), and the manager's own `Agent`. Errors as in
/// home_files.h.
void makeInstallerMaterial(const std::filesystem::path& home);

}  // namespace varnhold::provision
