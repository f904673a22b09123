// NTLM between two contexts of this process, by way of the whole check that the wizard makes of an account.
#include "platform/security_package.h"

#include <gmock/gmock.h>

#include "platform/posix/adapters.h"
#include "platform/posix/ntlm_users.h"
#include "tests/platform/posix/user_file.h"

namespace varnhold::platform::posix {
namespace {

using std::filesystem::perms;
using testing::HasSubstr;

constexpr auto kOwner = perms::owner_read | perms::owner_write;

class GssNtlm : public testing::Test {
 protected:
  long acquire(std::uint32_t use, const std::string& account, const std::string& password) {
    const SecWinntAuthIdentity identity{.User = account, .Domain = "CORP", .Password = password};
    SecurityHandle credential = 0;
    const auto status = sspi->acquireCredentialsHandle(
        "NTLM", use, use == kSecpkgCredInbound ? nullptr : &identity, credential);
    if (credential != 0) sspi->freeCredentialsHandle(credential);
    return status;
  }
  long acquireServer() { return acquire(kSecpkgCredInbound, "", ""); }

  UserFile users{"CORP:admin:secret\n"};
  std::unique_ptr<SecurityPackage> sspi = makeSecurityPackage(users.path());
};

TEST_F(GssNtlm, HasCredentialsForItsServerFromAFileOfTheOwnersAlone) {
  EXPECT_EQ(acquireServer(), kSecOk);
}

TEST_F(GssNtlm, UsesNoAccountsThatOthersMayRead) {
  for (const auto wider : {perms::group_read, perms::others_read, perms::group_write}) {
    users.allow(kOwner | wider);
    testing::internal::CaptureStderr();
    EXPECT_EQ(acquireServer(), kSecNoCredentials);
    const auto said = testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, HasSubstr(users.path()));
    EXPECT_THAT(said, testing::Not(HasSubstr("secret")));
  }
}

TEST_F(GssNtlm, HasNoCredentialsForItsServerWithoutTheFile) {
  std::filesystem::remove(users.path());
  testing::internal::CaptureStderr();
  EXPECT_EQ(acquireServer(), kSecNoCredentials);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(GssNtlm, WantsAnIdentityForItsClient) {
  SecurityHandle credential = 0;
  EXPECT_EQ(sspi->acquireCredentialsHandle("NTLM", kSecpkgCredOutbound, nullptr, credential),
            kSecNoCredentials);
}

TEST_F(GssNtlm, HasNoBlankPasswords) {
  EXPECT_EQ(acquire(kSecpkgCredOutbound, "admin", "secret"), kSecOk);
  EXPECT_LT(acquire(kSecpkgCredOutbound, "admin", ""), 0);
}

TEST_F(GssNtlm, RefusesATokenThatFindsNoRoom) {
  const SecWinntAuthIdentity identity{.User = "admin", .Domain = "CORP", .Password = "secret"};
  SecurityHandle credential = 0, context = 0;
  ASSERT_EQ(sspi->acquireCredentialsHandle("NTLM", kSecpkgCredOutbound, &identity, credential), kSecOk);
  std::array<std::uint8_t, 8> memory{};
  SecBuffer output{memory.size(), memory.data()};
  EXPECT_EQ(
      sspi->initializeSecurityContext(credential, nullptr, 0, kSecurityNativeDrep, nullptr, context, output),
      kSecBufferTooSmall);
  EXPECT_EQ(context, 0u);
  sspi->freeCredentialsHandle(credential);
}

TEST(NtlmUsers, GiveADomainTheLettersThatTheFileHas) {
  const std::string file = "# accounts\nCorp:admin:x\r\nCORP:other:y\nSäles:a:b\nno account\n";
  EXPECT_EQ(domainAsInFile(file, "corp"), "Corp");
  EXPECT_EQ(domainAsInFile(file, "SÄLES"), "Säles");
  EXPECT_EQ(domainAsInFile(file, "plant"), "plant");
  EXPECT_EQ(domainAsInFile(file, "no account"), "no account");
  EXPECT_EQ(domainAsInFile("", "corp"), "corp");
}

}  // namespace
}  // namespace varnhold::platform::posix
