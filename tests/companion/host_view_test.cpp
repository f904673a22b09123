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
