#include "tests/fakes/fake_security_package.h"

#include <algorithm>
#include <functional>
#include <sstream>

#include "base/text.h"

namespace varnhold::fakes {
namespace {

using platform::SecBuffer;
using platform::SecurityHandle;

constexpr const char* kNegotiate = "NEGOTIATE";
constexpr const char* kChallenge = "CHALLENGE";
constexpr const char* kAuthenticate = "AUTHENTICATE ";

std::string statusText(long status) {
  std::ostringstream text;
  if (status < 0) text << status;
  if (status >= 0) text << (status == 0 ? "" : "0x") << std::hex << std::uppercase << status;
  return text.str();
}

std::string tokenOf(const SecBuffer* buffer) {
  if (buffer == nullptr) return {};
  return {reinterpret_cast<const char*>(buffer->pvBuffer), buffer->cbBuffer};
}

bool putToken(const std::string& token, SecBuffer& output) {
  if (token.size() > output.cbBuffer) return false;
  std::copy(token.begin(), token.end(), output.pvBuffer);
  output.cbBuffer = static_cast<std::uint32_t>(token.size());
  return true;
}

/// Of ten digits, always.
std::uint64_t hashOf(const std::string& password) {
  return 1'000'000'000 + std::hash<std::string>{}(password) % 1'000'000'000;
}

std::string stepText(const char* call, SecurityHandle credential, const SecurityHandle* context,
                     std::uint32_t request, std::uint32_t drep, const SecBuffer* input, std::uint32_t room) {
  std::ostringstream text;
  text << call << ' ' << credential << " context " << (context == nullptr ? 0 : *context) << " request "
       << request << " drep " << drep << " input ";
  if (input == nullptr) text << "none";
  if (input != nullptr) text << input->cbBuffer;
  text << " room " << room;
  return text.str();
}

}  // namespace

void FakeSecurityPackage::note(const std::string& line) {
  journal_.push_back(library_ + ": " + line);
}

long FakeSecurityPackage::statusFor(const std::string& call, long own) {
  const auto told = statusOf.find(call + " " + std::to_string(++calls_[call]));
  return told == statusOf.end() ? own : told->second;
}

SecurityHandle FakeSecurityPackage::contextFor(const SecurityHandle* context) {
  if (context != nullptr) return *context;
  contexts_.insert(++last_);
  return last_;
}

long FakeSecurityPackage::querySecurityPackageInfo(const std::string& package,
                                                   platform::SecurityPackageInfo& info) {
  const auto status = statusFor("QuerySecurityPackageInfo",
                                package == "NTLM" ? platform::kSecOk : platform::kSecPackageNotFound);
  note("QuerySecurityPackageInfo " + package + " -> " + statusText(status));
  if (status < 0) return status;
  records_.insert(++last_);
  info = {cbMaxToken, last_};
  return status;
}

long FakeSecurityPackage::freeContextBuffer(SecurityHandle contextBuffer) {
  note("FreeContextBuffer " + std::to_string(contextBuffer));
  return records_.erase(contextBuffer) != 0 ? platform::kSecOk : platform::kSecInvalidHandle;
}

long FakeSecurityPackage::acquireCredentialsHandle(const std::string& package, std::uint32_t use,
                                                   const platform::SecWinntAuthIdentity* given,
                                                   SecurityHandle& credential) {
  auto line = "AcquireCredentialsHandle " + package + " use " + std::to_string(use);
  line += given == nullptr
              ? " no identity"
              : " " + given->Domain + "\\" + given->User + " flags " + std::to_string(given->Flags);
  const auto status = statusFor("AcquireCredentialsHandle",
                                package == "NTLM" ? platform::kSecOk : platform::kSecPackageNotFound);
  line += " -> " + statusText(status);
  if (status < 0) {
    note(line);
    return status;
  }
  credential = ++last_;
  auto& made = credentials_[credential];
  made.use = use;
  if (given != nullptr) {
    identity = *given;
    made.account = toUpper(given->Domain + "\\" + given->User);
    made.passwordHash = hashOf(given->Password);
  }
  note(line + ", credential " + std::to_string(credential));
  return status;
}

long FakeSecurityPackage::initializeSecurityContext(SecurityHandle credential, const SecurityHandle* context,
                                                    std::uint32_t contextRequest,
                                                    std::uint32_t dataRepresentation, const SecBuffer* input,
                                                    SecurityHandle& newContext, SecBuffer& output) {
  const auto text = stepText("InitializeSecurityContext", credential, context, contextRequest,
                             dataRepresentation, input, output.cbBuffer);
  const auto known = credentials_.find(credential);
  auto token = std::string(kNegotiate);
  auto own = platform::kSecContinueNeeded;
  if (known == credentials_.end() || known->second.use != platform::kSecpkgCredOutbound) {
    own = platform::kSecInvalidHandle;
  } else if (context != nullptr) {
    own = tokenOf(input) == kChallenge ? platform::kSecOk : platform::kSecInvalidToken;
    token = kAuthenticate + known->second.account + " " + std::to_string(known->second.passwordHash);
  }
  const auto status = statusFor("InitializeSecurityContext", own);
  if (status >= 0) {
    newContext = contextFor(context);
    putToken(token, output);
  }
  note(text + " -> " + statusText(status) + (status < 0 ? "" : ", context " + std::to_string(newContext)));
  return status;
}

long FakeSecurityPackage::acceptSecurityContext(SecurityHandle credential, const SecurityHandle* context,
                                                const SecBuffer& input, std::uint32_t contextRequest,
                                                std::uint32_t dataRepresentation, SecurityHandle& newContext,
                                                SecBuffer& output) {
  const auto text = stepText("AcceptSecurityContext", credential, context, contextRequest, dataRepresentation,
                             &input, output.cbBuffer);
  const auto known = credentials_.find(credential);
  auto own = platform::kSecContinueNeeded;
  if (known == credentials_.end() || known->second.use != platform::kSecpkgCredInbound) {
    own = platform::kSecInvalidHandle;
  } else if (context == nullptr) {
    if (tokenOf(&input) != kNegotiate) own = platform::kSecInvalidToken;
  } else {
    const auto isGood = [&](const auto& account) {
      return tokenOf(&input) == kAuthenticate + account.first + " " + std::to_string(hashOf(account.second));
    };
    own = std::any_of(passwords.begin(), passwords.end(), isGood) ? platform::kSecOk
                                                                  : platform::kSecLogonDenied;
  }
  const auto status = statusFor("AcceptSecurityContext", own);
  if (status >= 0) {
    putToken(context == nullptr ? kChallenge : "", output);
    newContext = contextFor(context);
  }
  note(text + " -> " + statusText(status) + (status < 0 ? "" : ", context " + std::to_string(newContext)));
  return status;
}

long FakeSecurityPackage::completeAuthToken(SecurityHandle context, SecBuffer&) {
  const auto status = statusFor("CompleteAuthToken", platform::kSecOk);
  note("CompleteAuthToken " + std::to_string(context) + " -> " + statusText(status));
  return status;
}

long FakeSecurityPackage::deleteSecurityContext(SecurityHandle context) {
  note("DeleteSecurityContext " + std::to_string(context));
  return contexts_.erase(context) != 0 ? platform::kSecOk : platform::kSecInvalidHandle;
}

long FakeSecurityPackage::freeCredentialsHandle(SecurityHandle credential) {
  note("FreeCredentialsHandle " + std::to_string(credential));
  return credentials_.erase(credential) != 0 ? platform::kSecOk : platform::kSecInvalidHandle;
}

}  // namespace varnhold::fakes
