#pragma once

#include <filesystem>
#include <string_view>

namespace varnhold::provision {

/// Writes the file of the accounts that the program checks typed ones against, which its owner alone may
/// read: `accounts` are passwords too. The whole file or none of it; errors as in home_files.h. Does nothing
/// on a host that checks accounts itself. Each host has its own source.
void writeAccountFile(const std::filesystem::path& file, std::string_view accounts);

}  // namespace varnhold::provision
