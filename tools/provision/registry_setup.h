#pragma once

#include <string>

#include "platform/registry.h"

/// The registry values that the product's set-up leaves. Raises kPermissionDenied, naming key and value, when
/// the host refuses.
namespace varnhold::provision {

/// The folder that the registry names as the Manager's, or empty.
[[nodiscard]] std::string installedFolder(platform::Registry& registry);

/// Writes every value but the Manager's folder. `home` is the home's full path in the host's form.
void writeRegistryValues(platform::Registry& registry, const std::string& home,
                         const std::string& driverName);

/// Writes the Manager's folder: from then on the home is in use.
void writeInstalledFolder(platform::Registry& registry, const std::string& home);

}  // namespace varnhold::provision
