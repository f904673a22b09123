#include "companion/host_view.h"

#include <gtest/gtest.h>

#include "tests/companion/lab_fixture.h"

namespace varnhold::companion::test {
namespace {

class HostView : public testing::Test {
 protected:
  HostView() {
    host_ = lab_.addHost("WKS01",
                         "[host]\nsecurity_log = no\n[account]\nuser = CORP\\admin\npassword = secret\n");
    writeText(host_ / "services.ini", "[Varnhold Agent]\nstate=running\n");
    lab_.addHost("DEAD", "[host]\nanswers = no\n");
    lab_.addHost("SHUT", "[refuse]\nservice_manager = yes\nshare = yes\n");
  }

  LabFixture lab_;
  std::filesystem::path host_;
  LabNetwork network_ = lab_.network();
};

TEST_F(HostView, OpensTheServiceManagerOfAComputerThatAnswers) {
  EXPECT_EQ(openServiceManager(network_, R"(\\WKS01)"), kDone);
  EXPECT_EQ(openServiceManager(network_, R"(\\DEAD)"), kServerUnavailable);
  EXPECT_EQ(openServiceManager(network_, R"(\\NOBODY)"), kServerUnavailable);
  EXPECT_EQ(openServiceManager(network_, R"(\\SHUT)"), kAccessDenied);
}

TEST_F(HostView, StopsAndStartsAService) {
  EXPECT_EQ(openService(network_, R"(\\WKS01)", "varnhold agent"), kDone);
  EXPECT_EQ(openService(network_, R"(\\WKS01)", "Other"), kServiceMissing);
  EXPECT_EQ(startService(network_, R"(\\WKS01)", "Varnhold Agent"), kServiceRunning);
  EXPECT_EQ(controlService(network_, R"(\\WKS01)", "Varnhold Agent", 1), kDone);
  EXPECT_EQ(controlService(network_, R"(\\WKS01)", "Varnhold Agent", 1), kServiceNotActive);
  EXPECT_EQ(controlService(network_, R"(\\WKS01)", "Varnhold Agent", 2), kInvalidControl);
  EXPECT_EQ(startService(network_, R"(\\WKS01)", "Varnhold Agent"), kDone);
  EXPECT_EQ(startService(network_, R"(\\WKS01)", "Other"), kServiceMissing);
  EXPECT_EQ(startService(network_, R"(\\DEAD)", "Varnhold Agent"), kServerUnavailable);
}

TEST_F(HostView, OpensEveryLogButARefusedSecurityLog) {
  EXPECT_EQ(openEventLog(network_, R"(\\WKS01)", "security"), kAccessDenied);
  EXPECT_EQ(openEventLog(network_, R"(\\WKS01)", "System"), kDone);
  EXPECT_EQ(openEventLog(network_, R"(\\SHUT)", "Security"), kDone);
  EXPECT_EQ(openEventLog(network_, R"(\\DEAD)", "Security"), kServerUnavailable);
  EXPECT_EQ(openEventLog(network_, R"(\\NOBODY)", "Security"), kServerUnavailable);
}

TEST_F(HostView, ConnectsAShareOnlyForTheAccountThatTheComputerDemands) {
  ShareConnections shares;
  EXPECT_EQ(shares.connect(network_, R"(\\WKS01\c$)", R"(corp\ADMIN)", "secret"), kDone);
  EXPECT_EQ(shares.connect(network_, R"(\\WKS01\c$)", R"(CORP\admin)", "Secret"), kLogonRefused);
  EXPECT_EQ(shares.connect(network_, R"(\\WKS01\c$)", R"(CORP\other)", "secret"), kLogonRefused);
  EXPECT_EQ(shares.connect(network_, R"(\\NOBODY\c$)", "a", "b"), kNetworkPathMissing);
  EXPECT_EQ(shares.connect(network_, R"(\\DEAD\c$)", "a", "b"), kNetworkPathMissing);
  EXPECT_EQ(shares.connect(network_, R"(\\SHUT\c$)", "a", "b"), kAccessDenied);
  EXPECT_EQ(shares.connect(network_, R"(\\WKS01\public)", "a", "b"), kShareMissing);
}

TEST_F(HostView, DisconnectsOnlyWhatIsConnected) {
  ShareConnections shares;
  EXPECT_EQ(shares.disconnect(R"(\\WKS01\c$)"), kNotConnected);
  ASSERT_EQ(shares.connect(network_, R"(\\WKS01\c$)", R"(CORP\admin)", "secret"), kDone);
  EXPECT_EQ(shares.disconnect(R"(\\wks01\C$)"), kDone);
  EXPECT_EQ(shares.disconnect(R"(\\WKS01\c$)"), kNotConnected);
}

TEST_F(HostView, KnowsWhichComputersAreConnectedByEitherShareAndAnyOfTheirNames) {
  ShareConnections shares;
  lab_.addHost("WKS02", "[host]\naddress = 10.1.1.12\n");
  EXPECT_FALSE(shares.isConnected(network_, "WKS02"));
  EXPECT_EQ(shares.connect(network_, R"(\\WKS01\c$)", R"(CORP\admin)", "wrong"), kLogonRefused);
  EXPECT_FALSE(shares.isConnected(network_, "WKS01"));
  ASSERT_EQ(shares.connect(network_, R"(\\wks02\c$)", "a", "b"), kDone);
  ASSERT_EQ(shares.connect(network_, R"(\\wks02\d$)", "a", "b"), kDone);
  EXPECT_TRUE(shares.isConnected(network_, R"(\\WKS02)"));
  EXPECT_TRUE(shares.isConnected(network_, "10.1.1.12"));
  EXPECT_FALSE(shares.isConnected(network_, "WKS01"));
  EXPECT_FALSE(shares.isConnected(network_, "NOBODY"));
  ASSERT_EQ(shares.disconnect(R"(\\WKS02\c$)"), kDone);
  EXPECT_TRUE(shares.isConnected(network_, "WKS02"));
  ASSERT_EQ(shares.disconnect(R"(\\WKS02\d$)"), kDone);
  EXPECT_FALSE(shares.isConnected(network_, "WKS02"));
}

TEST_F(HostView, TellsAndChangesTheAccountOfAService) {
  const std::string machine = R"(\\WKS01)", service = "Varnhold Agent";
  std::string account;
  ASSERT_EQ(queryServiceAccount(network_, machine, service, account), kDone);
  EXPECT_EQ(account, "LocalSystem");
  EXPECT_EQ(changeServiceAccount(network_, machine, service, R"(CORP\admin)", "secret"), kDone);
  ASSERT_EQ(queryServiceAccount(network_, machine, service, account), kDone);
  EXPECT_EQ(account, R"(CORP\admin)");
  EXPECT_EQ(readText(host_ / "services.ini").find("secret"), std::string::npos);
  EXPECT_EQ(changeServiceAccount(network_, machine, service, "", ""), kDone);
  ASSERT_EQ(queryServiceAccount(network_, machine, service, account), kDone);
  EXPECT_EQ(account, R"(CORP\admin)");
  EXPECT_EQ(changeServiceAccount(network_, machine, service, "LocalSystem", ""), kDone);
}

TEST_F(HostView, TakesOnlyAnAccountThatTheComputerLetsIn) {
  const std::string machine = R"(\\WKS01)", service = "Varnhold Agent";
  EXPECT_EQ(changeServiceAccount(network_, machine, service, R"(CORP\admin)", "wrong"), kInvalidAccount);
  EXPECT_EQ(changeServiceAccount(network_, machine, service, R"(CORP\other)", "secret"), kInvalidAccount);
  writeText(lab_.addHost("WKS02") / "services.ini", "[Varnhold Agent]\n");
  EXPECT_EQ(changeServiceAccount(network_, R"(\\WKS02)", service, R"(CORP\other)", "any"), kDone);
}

TEST_F(HostView, RefusesAnAccountThatNoServiceCanHave) {
  for (const std::string account : {"agent", R"(\agent)", R"(CORP\)", "localsystem"})
    EXPECT_EQ(changeServiceAccount(network_, R"(\\WKS01)", "Varnhold Agent", account, "x"), kInvalidAccount)
        << account;
  writeText(lab_.addHost("BARRED", "[refuse]\naccount = 1057\n") / "services.ini", "[Varnhold Agent]\n");
  EXPECT_EQ(changeServiceAccount(network_, R"(\\BARRED)", "Varnhold Agent", R"(CORP\a)", "x"),
            kInvalidAccount);
  std::string account;
  EXPECT_EQ(queryServiceAccount(network_, R"(\\WKS01)", "Other", account), kServiceMissing);
  EXPECT_EQ(changeServiceAccount(network_, R"(\\WKS01)", "Other", R"(CORP\a)", "x"), kServiceMissing);
  EXPECT_EQ(queryServiceAccount(network_, R"(\\DEAD)", "Varnhold Agent", account), kServerUnavailable);
  EXPECT_EQ(changeServiceAccount(network_, R"(\\SHUT)", "Varnhold Agent", R"(CORP\a)", "x"), kAccessDenied);
}

TEST_F(HostView, RestartsAServiceThatRunsAndOneThatRests) {
  EXPECT_EQ(restartService(network_, "WKS01", "Varnhold Agent"), kDone);
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
  ASSERT_EQ(controlService(network_, "WKS01", "Varnhold Agent", 1), kDone);
  EXPECT_EQ(restartService(network_, "WKS01", "Varnhold Agent"), kDone);
  EXPECT_TRUE(serviceOn(lab_, "WKS01").running);
}

TEST_F(HostView, DoesNotRestartWhatCannotBeStoppedOrStarted) {
  EXPECT_EQ(restartService(network_, "WKS01", "Other"), kServiceMissing);
  EXPECT_EQ(restartService(network_, "NOBODY", "Varnhold Agent"), kServerUnavailable);
  lab_.addHost("WKS01", "[refuse]\nstop = yes\n");
  EXPECT_EQ(restartService(network_, "WKS01", "Varnhold Agent"), kAccessDenied);
  lab_.addHost("WKS01", "[refuse]\nstart = 1069\n");
  EXPECT_EQ(restartService(network_, "WKS01", "Varnhold Agent"), kLogonFailed);
}

TEST_F(HostView, TranslatesAPathOnAnAdministrativeShare) {
  std::filesystem::path place;
  ASSERT_EQ(network_.sharePath(R"(\\wks01\c$\Folder\file.tmp)", place), kDone);
  EXPECT_EQ(place, host_ / "C" / "Folder" / "file.tmp");
  ASSERT_EQ(network_.sharePath(R"(\\WKS01\D$)", place), kDone);
  EXPECT_EQ(place, host_ / "D");
  EXPECT_TRUE(std::filesystem::is_directory(host_ / "D"));
}

TEST_F(HostView, RefusesAPathThatIsNotReached) {
  std::filesystem::path place = "as it was";
  EXPECT_EQ(network_.sharePath(R"(\\NOBODY\C$\x)", place), kNetworkPathMissing);
  EXPECT_EQ(network_.sharePath(R"(\\DEAD\C$\x)", place), kNetworkPathMissing);
  EXPECT_EQ(network_.sharePath(R"(\\SHUT\C$\x)", place), kAccessDenied);
  EXPECT_EQ(network_.sharePath(R"(\\WKS01\X$\x)", place), kShareMissing);
  EXPECT_EQ(network_.sharePath(R"(\\WKS01\C$\..\host.ini)", place), kBadPathName);
  EXPECT_EQ(network_.sharePath(R"(\\..\C$\x)", place), kNetworkPathMissing);
  EXPECT_EQ(network_.sharePath(R"(C:\x)", place), kBadPathName);
  EXPECT_EQ(place, "as it was");
}

}  // namespace
}  // namespace varnhold::companion::test
