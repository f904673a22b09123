// A companion library that writes down each call in $VARNHOLD_CALL_LOG and hands it on to the real one: what
// the real program asks of the library, in order, seen from outside.
#include "tests/cli/recorder.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "companion/include/qrvutil.h"

namespace {

using varnhold::cli::forwardedFunction;

template <typename Function>
Function* real(const char* name) {
  return reinterpret_cast<Function*>(forwardedFunction(name));
}

void note(const std::string& line) {
  if (std::FILE* log = std::fopen(std::getenv("VARNHOLD_CALL_LOG"), "ab")) {
    std::fprintf(log, "%s\n", line.c_str());
    std::fclose(log);
  }
}

std::string text(const char* value) {
  return value;
}
std::string number(long long value) {
  return std::to_string(value);
}

std::string jobText(const QrvDeploymentJob& job) {
  std::string line = "SystemName=" + text(job.SystemName) + " InstallDirectory=" + text(job.InstallDirectory);
  for (const auto* other :
       {job.Spare0, job.Spare2, job.Spare3, job.Spare4, job.Spare6, job.Spare7, job.KeepSnapshots, job.Spare9,
        job.ServiceUser, job.ServicePassword, job.ConfigFile}) {
    if (*other != '\0') line += " other=" + text(other);
  }
  return line + " OSFlag=" + number(job.OSFlag) + " AgentKind=" + number(job.AgentKind) +
         " AgentMode=" + number(job.AgentMode) + " RemedialFlag=" + number(job.RemedialFlag) +
         " UseDefaultConfig=" + number(job.UseDefaultConfig);
}

QrvThread startJob(const char* name, QrvDeploymentJob* job, char* libraryPath) {
  const auto asked = jobText(*job) + ", " + text(libraryPath);
  const auto thread = real<decltype(qrvCInstall)>(name)(job, libraryPath);
  note(text(name) + "(" + asked + ") = " + (thread == nullptr ? "no thread" : "thread"));
  return thread;
}

}  // namespace

QrvThread QRV_CALL qrvCInstall(QrvDeploymentJob* job, char* libraryPath) {
  return startJob("qrvCInstall", job, libraryPath);
}

QrvThread QRV_CALL qrvCUninstall(QrvDeploymentJob* job, char* libraryPath) {
  return startJob("qrvCUninstall", job, libraryPath);
}

int32_t QRV_CALL qrvCCreateConfigurationFile(char* libraryPath, char* systemName, char* installDirectory,
                                             int32_t agentMode) {
  const auto asked =
      text(libraryPath) + ", " + text(systemName) + ", " + text(installDirectory) + ", " + number(agentMode);
  const auto result = real<decltype(qrvCCreateConfigurationFile)>("qrvCCreateConfigurationFile")(
      libraryPath, systemName, installDirectory, agentMode);
  note("qrvCCreateConfigurationFile(" + asked + ") = " + number(result));
  return result;
}

int32_t QRV_CALL qrvCReadNWriteVhaConfigINI4Turbo(char* agentLibraryPath, char* agentFolder, char* iniPath,
                                                  int32_t mode) {
  const auto asked =
      text(agentLibraryPath) + ", " + text(agentFolder) + ", " + text(iniPath) + ", " + number(mode);
  const auto result = real<decltype(qrvCReadNWriteVhaConfigINI4Turbo)>("qrvCReadNWriteVhaConfigINI4Turbo")(
      agentLibraryPath, agentFolder, iniPath, mode);
  note("qrvCReadNWriteVhaConfigINI4Turbo(" + asked + ") = " + (result != 0 ? "done" : "0"));
  return result;
}

int32_t QRV_CALL qrvGetSystemIPAddress(char* systemName, char* address) {
  const auto asked = text(systemName);
  const auto result = real<decltype(qrvGetSystemIPAddress)>("qrvGetSystemIPAddress")(systemName, address);
  note("qrvGetSystemIPAddress(" + asked +
       ") = " + (result != 0 ? text(systemName) + " " + text(address) : "not resolved"));
  return result;
}

int32_t QRV_CALL qrvFindSystemAndReturnDetails(QrvSystemDetails* details) {
  const auto asked = text(details->SystemName) + ", " + number(details->DetailLevel);
  const auto result = real<decltype(qrvFindSystemAndReturnDetails)>("qrvFindSystemAndReturnDetails")(details);
  note("qrvFindSystemAndReturnDetails(" + asked + ") = " + (result != 0 ? "found" : "not found"));
  return result;
}

int32_t QRV_CALL qrvUpdateSystemDetailsInDB(QrvSystemDetails* details) {
  const auto asked = text(details->SystemName) + ", " + number(details->SystemType);
  const auto result = real<decltype(qrvUpdateSystemDetailsInDB)>("qrvUpdateSystemDetailsInDB")(details);
  note("qrvUpdateSystemDetailsInDB(" + asked + ") = " + (result != 0 ? "done" : "0"));
  return result;
}

int16_t QRV_CALL qrvChkRmtRegNGetPrgFilePath(char* computer, char* path) {
  const auto asked = text(computer);
  const auto result =
      real<decltype(qrvChkRmtRegNGetPrgFilePath)>("qrvChkRmtRegNGetPrgFilePath")(computer, path);
  note("qrvChkRmtRegNGetPrgFilePath(" + asked + ") = " + (result != 0 ? text(path) : "0"));
  return result;
}
