#include "tools/provision/installer_material.h"

#include <array>
#include <string_view>

#include "tools/provision/home.h"
#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

struct MaterialFile {
  std::string_view name, content;
};

/// What a remote installation is done with. `vhsetup.ins` comes beside these, written anew for each target.
constexpr std::array<MaterialFile, 2> kLibraryFiles{{
    {"readme.txt",
     "Installation material. It goes to each target beside the agent's own files.\n"
     "vhsetup.ins is written here before each installation.\n"},
    {"vhremote.ini",
     "; How the agent's service is set up on a target.\n"
     "[service]\n"
     "name = Varnhold Agent\n"
     "start = automatic\n"},
}};

/// The agent as it goes to a target. The two programs are stand-ins: a lab's computers run nothing.
constexpr std::array<MaterialFile, 4> kAgentFiles{{
    {"vhagent", "Stand-in for the agent's library.\n"},
    {"vhagent.exe", "Stand-in for the agent's program.\n"},
    {"vhagent.txt",
     "Varnhold Agent: collects the events of this computer and reports them to its manager.\n"},
    {"vhaconfig.ini",
     "; Settings of the Varnhold agent. An installation sets the mode before the file goes to a target.\n"
     "[Performance]\n"
     "HighPerformance = 0\n"
     "\n"
     "[Logs]\n"
     "Application = yes\n"
     "Security = yes\n"
     "System = yes\n"},
}};

template <typename Files>
void writeFiles(const std::filesystem::path& folder, const Files& files) {
  for (const auto& file : files) writeWhole(folder / file.name, file.content);
}

}  // namespace

void makeInstallerMaterial(const std::filesystem::path& home) {
  writeFiles(home / kInstallerFolder / "remins", kLibraryFiles);
  writeFiles(home / kInstallerFolder / kAgentFolder, kAgentFiles);
  writeFiles(home / kAgentFolder, kAgentFiles);
}

}  // namespace varnhold::provision
