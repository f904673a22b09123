#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What the result codes of jobs and agent service operations say to a person. There are two catalogues, one
/// per agent; both are pure functions of the code and cannot fail: a code that is not listed, successes
/// included, gives "Unknown error.".
namespace varnhold::deployment {

/// The codes that the program tests by number. All other codes only have a text.
enum ResultCode : std::int32_t {
  kResultInstalled = 150,
  kResultUninstalled = 152,
  kResultInstalledWithoutSecurity = 167,  ///< installed, but security was not configured
  kResultNoSuchService = 196,             ///< nothing to uninstall: the agent has no service there
  kResultInstalledNotStarted = 232,       ///< installed, but the service did not start
  kResultInstalledSnapshotsKept = 290,    ///< Tessmark agent installed, earlier snapshots kept
  kResultUpgraded = 700,                  ///< upgraded over the Windows domain
  kResultOverIPSucceeded = 3000,          ///< over-IP upgrade or version check succeeded

  // Made by this program, not by the library.
  kResultNotStarted = 710,       ///< no job could be started
  kResultNameNotResolved = 800,  ///< the address of a system cannot be resolved
  kResultNoConfiguration = 801,  ///< the configuration file cannot be written locally
};

enum class Product { Varnhold, Tessmark };

/// The text of a code in the Varnhold agent's catalogue. `systemName` stands in the texts that name the
/// system.
[[nodiscard]] std::string VarnholdResultText(std::int32_t code, std::string_view systemName);
/// The text of a code in the Tessmark agent's catalogue.
[[nodiscard]] std::string TessmarkResultText(std::int32_t code, std::string_view systemName);
/// The text of a code in the product's catalogue.
[[nodiscard]] std::string DescribeResult(std::int32_t code, std::string_view systemName, Product product);

}  // namespace varnhold::deployment
