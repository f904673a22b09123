#pragma once

#include <string>

#include "core/program.h"

/// What both run modes find out about the computer that they start on.
namespace varnhold::startup {

/// Reads a text under HKEY_LOCAL_MACHINE; false, with `value` empty, where it can't be read.
bool readMachineValue(core::Program& program, const char* key, const char* name, std::string& value);

/// Opens `gConn` on the inventory. Errors reach the caller.
void openInventory(core::Program& program);

/// Sets what lies in the Manager's install folder. False where the Manager is not installed: nothing is set.
bool readInstallPath(core::Program& program);

/// Sets `gLocalName`.
void readLocalName(core::Program& program);

}  // namespace varnhold::startup
