#pragma once

namespace varnhold::cli {

/// A function of the library behind the recorder, by name; each host has its own source. Ends the process
/// when it is not there.
void* forwardedFunction(const char* name);

}  // namespace varnhold::cli
