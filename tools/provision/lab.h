#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The lab: a folder per computer that the companion library treats as a computer of the network.
namespace varnhold::provision {

enum class LabRole { Deploys, DoesNotResolve, DoesNotAnswer, RefusesService, Warns, IsSlow };

/// One computer of the mixture.
struct LabModel {
  std::string_view
      name;        ///< at most 9 letters: a lab of many adds "-" and up to five digits, and 15 are allowed
  int systemType;  ///< a code of System_Type
  int osMajor;
  std::string_view domain, programFiles;
  LabRole role;
  std::string_view account = {}, password = {};  ///< that it demands; empty: none
};

/// The mixture. A larger lab repeats it from the top; a smaller one takes its beginning.
inline constexpr std::array<LabModel, 12> kLabMixture{{
    {"ATLAS", 7, 5, "CORP", R"(C:\Program Files)", LabRole::Deploys},
    {"BIRCH", 6, 5, "CORP", R"(C:\Program Files)", LabRole::Deploys},
    {"CEDAR", 10, 5, "SALES", R"(C:\Program Files)", LabRole::Deploys},
    {"DELTA", 14, 5, "CORP", R"(D:\Program Files)", LabRole::Deploys},
    {"EMBER", 16, 6, "CORP", R"(C:\Program Files)", LabRole::Deploys},
    {"FJORD", 15, 6, "SALES", R"(C:\Programme)", LabRole::Deploys},
    {"GROVE", 10, 5, "SALES", R"(C:\Program Files)", LabRole::DoesNotResolve},
    {"HAVEN", 7, 5, "CORP", R"(C:\Program Files)", LabRole::DoesNotAnswer},
    {"INLET", 14, 5, "CORP", R"(C:\Program Files)", LabRole::RefusesService},
    {"JUNIPER", 6, 5, "SALES", R"(C:\Program Files)", LabRole::Warns},
    {"KESTREL", 8, 5, "CORP", R"(C:\Program Files)", LabRole::IsSlow},
    {"LINDEN", 5, 4, "PLANT", R"(C:\Apps)", LabRole::Deploys, R"(PLANT\admin)", "plant"},
}};

/// An account that the program knows of where it checks accounts itself.
struct LabAccount {
  std::string_view domain, user, password;
};

/// Those of the lab: an administrator for each domain, among them whoever a computer demands, and one for
/// services.
inline constexpr std::array<LabAccount, 4> kLabAccounts{{
    {"CORP", "admin", "corp"},
    {"SALES", "admin", "sales"},
    {"PLANT", "admin", "plant"},
    {"CORP", "agent", "agent"},
}};

/// The text of the file `ntlm-users`: one account a line.
[[nodiscard]] std::string accountList();

/// A computer of one lab: its model under the name and address that it has there.
struct LabComputer {
  std::string name, address;
  LabModel model;
};

/// The computers of a lab of `count`, the manager's own computer left out: a model of the name `managerName`
/// is named otherwise. The same arguments give the same lab.
[[nodiscard]] std::vector<LabComputer> labComputers(int count, std::string_view managerName);

/// The text of the computer's `host.ini`.
[[nodiscard]] std::string hostIni(const LabComputer& computer);

/// Makes `lab/<NAME>` for each computer and for the manager's own. Errors as in home_files.h.
void makeLab(const std::filesystem::path& home, const std::vector<LabComputer>& computers,
             const std::string& managerName);

/// The list file of the lab: one name a line.
[[nodiscard]] std::string systemList(const std::vector<LabComputer>& computers);

}  // namespace varnhold::provision
