#include <algorithm>
#include <array>

#include "core/mdCommon.h"

namespace varnhold::core {
namespace {

struct SystemType {
  std::int32_t code;
  std::string_view name;
};

// Two tables, deliberately: "Windows Vista" is shown but only "Windows VISTA" turns into its code, and 11 is
// never the code of a name.
constexpr std::array kNamesByCode = {
    SystemType{2, "Windows 95"},
    SystemType{3, "Windows 98"},
    SystemType{4, "Windows NT - Workstation"},
    SystemType{5, "Windows NT - Server"},
    SystemType{6, "Windows 2000 - Professional"},
    SystemType{7, "Windows 2000 - Server"},
    SystemType{8, "Windows 2000 - Advanced Server"},
    SystemType{9, "Windows NT - Cluster"},
    SystemType{10, "Windows XP"},
    SystemType{11, "Windows XP"},
    SystemType{13, "Windows Me"},
    SystemType{14, "Windows 2003 - Server"},
    SystemType{15, "Windows Vista"},
    SystemType{16, "Windows Server 2008"},
    SystemType{101, "Sun Solaris (BSM)"},
    SystemType{301, "SysLog System"},
};

constexpr std::array kCodesByName = {
    SystemType{2, "Windows 95"},
    SystemType{3, "Windows 98"},
    SystemType{13, "Windows Me"},
    SystemType{4, "Windows NT - Workstation"},
    SystemType{6, "Windows 2000 - Professional"},
    SystemType{5, "Windows NT - Server"},
    SystemType{7, "Windows 2000 - Server"},
    SystemType{8, "Windows 2000 - Advanced Server"},
    SystemType{9, "Windows NT - Cluster"},
    SystemType{10, "Windows XP"},
    SystemType{14, "Windows 2003 - Server"},
    SystemType{15, "Windows VISTA"},
    SystemType{16, "Windows Server 2008"},
    SystemType{101, "Sun Solaris (BSM)"},
    SystemType{301, "SysLog System"},
};

}  // namespace

std::string GetSystemTypeName(std::int32_t code) {
  const auto* found = std::find_if(kNamesByCode.begin(), kNamesByCode.end(),
                                   [&](const SystemType& type) { return type.code == code; });
  return found == kNamesByCode.end() ? "..." : std::string(found->name);
}

std::int32_t GetSystemTypeCode(std::string_view name) {
  const auto* found = std::find_if(kCodesByName.begin(), kCodesByName.end(),
                                   [&](const SystemType& type) { return type.name == name; });
  return found == kCodesByName.end() ? 0 : found->code;
}

}  // namespace varnhold::core
