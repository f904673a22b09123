// The local check of an account, call by call.
#include "deployment/ssp_logon.h"

#include <gmock/gmock.h>

#include <array>

#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using fakes::Journal;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class SspLogon : public testing::Test {
 protected:
  SspLogon() {
    fake.secur32.passwords[R"(CORP\ADMIN)"] = "secret";
    fake.security.passwords[R"(CORP\ADMIN)"] = "secret";
  }

  bool logon(const std::string& password = "secret") { return SSPLogon(program, "admin", "CORP", password); }
  /// The calls from the first that begins so to the end.
  Journal from(const std::string& beginning) const {
    auto first = fake.journal.begin();
    while (first != fake.journal.end() && !first->starts_with(beginning)) ++first;
    return {first, fake.journal.end()};
  }
  void expectNothingOpen() const {
    EXPECT_EQ(fake.secur32.live(), 0u);
    EXPECT_EQ(fake.heap.live(), 0u);
  }

  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle};
};

TEST_F(SspLogon, MakesFourStepsAndGivesEverythingBack) {
  EXPECT_TRUE(logon());
  EXPECT_THAT(
      fake.journal,
      LinesAre(
          {"GetVersionEx -> 6 platform 2", "secur32: QuerySecurityPackageInfo NTLM -> 0",
           "secur32: FreeContextBuffer 1", "HeapAlloc 64 -> 1", "HeapAlloc 64 -> 2",
           R"(secur32: AcquireCredentialsHandle NTLM use 2 CORP\admin flags 1 -> 0, credential 2)",
           "secur32: InitializeSecurityContext 2 context 0 request 0 drep 16 input none room 64 -> 0x90312, "
           "context 3",
           "secur32: AcquireCredentialsHandle NTLM use 1 no identity -> 0, credential 4",
           "secur32: AcceptSecurityContext 4 context 0 request 0 drep 16 input 9 room 64 -> 0x90312, context "
           "5",
           "secur32: InitializeSecurityContext 2 context 3 request 0 drep 16 input 9 room 64 -> 0, context 3",
           "secur32: AcceptSecurityContext 4 context 5 request 0 drep 16 input 34 room 64 -> 0, context 5",
           "secur32: DeleteSecurityContext 3", "secur32: FreeCredentialsHandle 2",
           "secur32: DeleteSecurityContext 5", "secur32: FreeCredentialsHandle 4", "HeapFree 1",
           "HeapFree 2"}));
  expectNothingOpen();
}

TEST_F(SspLogon, RefusesAWrongPasswordInItsLastStepWithEverythingGivenBack) {
  EXPECT_FALSE(logon("wrong"));
  EXPECT_THAT(from("secur32: AcceptSecurityContext 4 context 5"),
              LinesAre({"secur32: AcceptSecurityContext 4 context 5 request 0 drep 16 input 34 room 64 -> "
                        "-2146893044",
                        "secur32: DeleteSecurityContext 3", "secur32: FreeCredentialsHandle 2",
                        "secur32: DeleteSecurityContext 5", "secur32: FreeCredentialsHandle 4", "HeapFree 1",
                        "HeapFree 2"}));
  expectNothingOpen();
}

TEST_F(SspLogon, PassesAnEmptyDomainOn) {
  fake.secur32.passwords[R"(\ADMIN)"] = "secret";
  EXPECT_TRUE(SSPLogon(program, "admin", "", "secret"));
}

TEST_F(SspLogon, LeavesThePasswordOutOfWhatTheHostIsToldInWords) {
  static_cast<void>(logon());
  EXPECT_THAT(fake.journal, Each(Not(HasSubstr("secret"))));
}

TEST_F(SspLogon, HandsTheIdentityOverWithItsLengthsInCharacters) {
  fake.secur32.passwords[R"(CORP\MÜLLER)"] = "pä";
  EXPECT_TRUE(SSPLogon(program, "Müller", "CORP", "pä"));
  ASSERT_TRUE(fake.secur32.identity);
  const auto& identity = *fake.secur32.identity;
  EXPECT_EQ(identity.User, "Müller");
  EXPECT_EQ(identity.UserLength, 6u);
  EXPECT_EQ(identity.DomainLength, 4u);
  EXPECT_EQ(identity.PasswordLength, 2u);
  EXPECT_EQ(identity.Flags, 1u);
}

struct VersionCase {
  const char* what;
  platform::OsVersion version;
  bool isSecurityDll;
};

class SspLibrary : public SspLogon, public testing::WithParamInterface<VersionCase> {};

TEST_P(SspLibrary, IsSecurityUpToNt4AndSecur32Elsewhere) {
  fake.environment.version = GetParam().version;
  program.gUseSecurityDll = !GetParam().isSecurityDll;
  EXPECT_TRUE(logon());
  EXPECT_EQ(program.gUseSecurityDll, GetParam().isSecurityDll);
  const auto* const used = GetParam().isSecurityDll ? "security: " : "secur32: ";
  const auto* const other = GetParam().isSecurityDll ? "secur32: " : "security: ";
  EXPECT_EQ(fakes::linesOf(fake.journal, used).size(), 12u);
  EXPECT_THAT(fakes::linesOf(fake.journal, other), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(Versions, SspLibrary,
                         testing::Values(VersionCase{"Nt351", {3, 2}, true}, VersionCase{"Nt4", {4, 2}, true},
                                         VersionCase{"Windows2000", {5, 2}, false},
                                         VersionCase{"Windows98", {4, 1}, false}),
                         [](const auto& test) { return std::string(test.param.what); });

struct FailingCall {
  const char* what;
  const char* call;  ///< as for `statusOf`
  Journal cleanup;   ///< what follows the call
};

class SspFailure : public SspLogon, public testing::WithParamInterface<FailingCall> {};

TEST_P(SspFailure, EndsTheCheckAndGivesBackWhatWasOpened) {
  fake.secur32.statusOf[GetParam().call] = platform::kSecInternalError;
  EXPECT_FALSE(logon());
  auto last = fake.journal.end();
  while (last != fake.journal.begin() && !(last - 1)->ends_with("-> -2146893052")) --last;
  EXPECT_EQ(Journal(last, fake.journal.end()), GetParam().cleanup);
  expectNothingOpen();
}

const Journal kClientCredential{"secur32: FreeCredentialsHandle 2", "HeapFree 1", "HeapFree 2"};
const Journal kClient{"secur32: DeleteSecurityContext 3", "secur32: FreeCredentialsHandle 2", "HeapFree 1",
                      "HeapFree 2"};
const Journal kClientAndCredential{"secur32: DeleteSecurityContext 3", "secur32: FreeCredentialsHandle 2",
                                   "secur32: FreeCredentialsHandle 4", "HeapFree 1", "HeapFree 2"};
const Journal kAll{"secur32: DeleteSecurityContext 3",
                   "secur32: FreeCredentialsHandle 2",
                   "secur32: DeleteSecurityContext 5",
                   "secur32: FreeCredentialsHandle 4",
                   "HeapFree 1",
                   "HeapFree 2"};

INSTANTIATE_TEST_SUITE_P(
    Calls, SspFailure,
    testing::Values(FailingCall{"PackageInfo", "QuerySecurityPackageInfo 1", {}},
                    FailingCall{
                        "ClientCredentials", "AcquireCredentialsHandle 1", {"HeapFree 1", "HeapFree 2"}},
                    FailingCall{"Negotiate", "InitializeSecurityContext 1", kClientCredential},
                    FailingCall{"ServerCredentials", "AcquireCredentialsHandle 2", kClient},
                    FailingCall{"Challenge", "AcceptSecurityContext 1", kClientAndCredential},
                    FailingCall{"Authenticate", "InitializeSecurityContext 2", kAll},
                    FailingCall{"Acceptance", "AcceptSecurityContext 2", kAll}),
    [](const auto& test) { return std::string(test.param.what); });

TEST_F(SspLogon, EndsWithoutMemoryForTheClientsToken) {
  fake.heap.refused = {1};
  EXPECT_FALSE(logon());
  EXPECT_THAT(from("HeapAlloc"), LinesAre({"HeapAlloc 64 -> 0"}));
  expectNothingOpen();
}

TEST_F(SspLogon, EndsWithoutMemoryForTheServersToken) {
  fake.heap.refused = {2};
  EXPECT_FALSE(logon());
  EXPECT_THAT(from("HeapAlloc"), LinesAre({"HeapAlloc 64 -> 1", "HeapAlloc 64 -> 0", "HeapFree 1"}));
  expectNothingOpen();
}

TEST_F(SspLogon, MakesExactlyFourStepsThoughThePackageIsNeverDone) {
  fake.secur32.statusOf["AcceptSecurityContext 2"] = platform::kSecContinueNeeded;
  fake.secur32.statusOf["InitializeSecurityContext 2"] = platform::kSecContinueNeeded;
  EXPECT_TRUE(logon());
  EXPECT_EQ(fakes::linesOf(fake.journal, "secur32: AcceptSecurityContext").size(), 2u);
  EXPECT_EQ(fakes::linesOf(fake.journal, "secur32: InitializeSecurityContext").size(), 2u);
}

TEST_F(SspLogon, CompletesTheTokenWhereThePackageAsksForIt) {
  fake.secur32.statusOf["InitializeSecurityContext 1"] = platform::kSecCompleteAndContinue;
  fake.secur32.statusOf["AcceptSecurityContext 2"] = platform::kSecCompleteNeeded;
  EXPECT_TRUE(logon());
  EXPECT_THAT(fakes::linesOf(fake.journal, "secur32: CompleteAuthToken"),
              LinesAre({"secur32: CompleteAuthToken 3 -> 0", "secur32: CompleteAuthToken 5 -> 0"}));
}

TEST_F(SspLogon, EndsWhenATokenCannotBeCompletedAndDeletesItsContext) {
  fake.secur32.statusOf["InitializeSecurityContext 1"] = platform::kSecCompleteNeeded;
  fake.secur32.statusOf["CompleteAuthToken 1"] = platform::kSecInvalidHandle;
  EXPECT_FALSE(logon());
  EXPECT_THAT(from("secur32: CompleteAuthToken"),
              LinesAre({"secur32: CompleteAuthToken 3 -> -2146893055", "secur32: DeleteSecurityContext 3",
                        "secur32: FreeCredentialsHandle 2", "HeapFree 1", "HeapFree 2"}));
  expectNothingOpen();
}

/// One step of the client's role by itself.
class ClientStep : public SspLogon {
 protected:
  bool step() {
    length = static_cast<std::uint32_t>(output.size());
    return GenClientContext(fake.secur32, state, identity, nullptr, 0, output.data(), length, done);
  }
  void TearDown() override {
    if (state.HaveCtxtHandle) fake.secur32.deleteSecurityContext(state.CtxtHandle);
    if (state.HaveCredHandle) fake.secur32.freeCredentialsHandle(state.CredHandle);
  }

  NtlmAuthState state;
  platform::SecWinntAuthIdentity identity{"admin", 5, "CORP", 4, "secret", 6, 1};
  std::array<std::uint8_t, 64> output{};
  std::uint32_t length = 0;
  bool done = false;
};

TEST_F(ClientStep, IsDoneUnlessThePackageWantsToGoOn) {
  const std::pair<long, bool> cases[] = {{platform::kSecOk, true},
                                         {platform::kSecContinueNeeded, false},
                                         {platform::kSecCompleteNeeded, true},
                                         {platform::kSecCompleteAndContinue, false}};
  for (const auto& [status, isDone] : cases) {
    TearDown();
    state = {};
    fake.secur32.statusOf.clear();
    fake.secur32.forgetCalls();
    fake.secur32.statusOf["InitializeSecurityContext 1"] = status;
    done = !isDone;
    EXPECT_TRUE(step());
    EXPECT_EQ(done, isDone) << status;
  }
}

TEST_F(ClientStep, TellsTheLengthOfItsToken) {
  EXPECT_TRUE(step());
  EXPECT_EQ(std::string(output.begin(), output.begin() + length), "NEGOTIATE");
  EXPECT_TRUE(state.Initialized && state.HaveCredHandle && state.HaveCtxtHandle);
}

TEST_F(ClientStep, KnowsWhichHandlesToGiveBackWhenItFails) {
  fake.secur32.statusOf["InitializeSecurityContext 1"] = platform::kSecInternalError;
  EXPECT_FALSE(step());
  EXPECT_TRUE(state.HaveCredHandle);
  EXPECT_FALSE(state.HaveCtxtHandle);
  EXPECT_FALSE(state.Initialized);
}

}  // namespace
}  // namespace varnhold::deployment
