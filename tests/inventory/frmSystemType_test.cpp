#include "inventory/frmSystemType.h"

#include "tests/fakes/lines_are.h"
#include "tests/inventory/inventory_fixture.h"

namespace varnhold::inventory {
namespace {

using testing::ElementsAre;

class SystemTypeTest : public InventoryRowTest {
 protected:
  SystemTypeTest() {
    addComputer("WKS01", 7, "10.1.1.11", "Desk");
    openConsole();
    item = &select("WKS01", {"Windows 2000 - Server", "Desk", "Unmanaged", ""});
  }

  void show(const std::function<void()>& script) {
    forgetJournal();
    ui.nextModal("frmSystemType", [&](ui::Form&) { script(); });
    form.ShowModal();
  }
  void choose(const std::string& type) {
    for (int i = 0; i < form.cmbSysType.ListCount(); ++i)
      if (form.cmbSysType.List(i) == type) return form.cmbSysType.userSelect(i);
    ADD_FAILURE() << type;
  }

  static constexpr const char* kLook = "SQL: SELECT * FROM System_Table WHERE System_Name = 'WKS01'";

  frmSystemType form{program, ui.screen, parts()};
  ui::ListItem* item = nullptr;
};

TEST_F(SystemTypeTest, ShowsTheSelectedComputer) {
  show([&] {
    EXPECT_EQ(form.Caption, "Modify System Type");
    EXPECT_EQ(form.freInfo.Caption, "System: WKS01");
    EXPECT_EQ(form.lblIPA.Caption, "10.1.1.11");
    EXPECT_EQ(form.txtDes.Text, "Desk");
    EXPECT_EQ(form.lblAgents.Caption, "Unmanaged");
    EXPECT_EQ(form.ActiveControl(), &form.cmdOK);
    EXPECT_EQ(form.cmbSysType.ListIndex, -1);
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fake.journal, LinesAre({"Show modal frmSystemType", kLook, "Close frmSystemType"}));
}

TEST_F(SystemTypeTest, OffersNineTypesInTheirOrder) {
  Lines types;
  for (int i = 0; i < form.cmbSysType.ListCount(); ++i) types.push_back(form.cmbSysType.List(i));
  EXPECT_THAT(types,
              LinesAre({"Windows NT - Workstation", "Windows 2000 - Professional", "Windows 2000 - Server",
                        "Windows 2000 - Advanced Server", "Windows NT - Cluster", "Windows XP",
                        "Windows 2003 - Server", "Sun Solaris (BSM)", "SysLog System"}));
}

TEST_F(SystemTypeTest, ShowsThatANameDoesNotResolveOrIsNotThere) {
  inventory.execute("UPDATE System_Table SET IP_Address = ''");
  show([&] {
    EXPECT_EQ(form.lblIPA.Caption, "-Not Resolved-");
    form.cmdOK.userClick();
  });
  inventory.execute("DELETE FROM System_Table");
  show([&] {
    EXPECT_EQ(form.lblIPA.Caption, "-error retrieving data-");
    form.cmdOK.userClick();
  });
}

TEST_F(SystemTypeTest, StoresEachTypeAndShowsItInTheList) {
  const std::vector<std::pair<std::string, std::string>> codes = {
      {"Windows NT - Workstation", "4"}, {"Windows 2000 - Professional", "6"},
      {"Windows 2000 - Server", "7"},    {"Windows 2000 - Advanced Server", "8"},
      {"Windows NT - Cluster", "9"},     {"Windows XP", "10"},
      {"Windows 2003 - Server", "14"},   {"Sun Solaris (BSM)", "101"},
      {"SysLog System", "301"}};
  for (const auto& [type, code] : codes) {
    show([&] {
      choose(type);
      form.cmdOK.userClick();
    });
    EXPECT_EQ(stored("WKS01", "System_Type"), code) << type;
    EXPECT_EQ(item->SubItems(1).get(), type);
  }
}

TEST_F(SystemTypeTest, LooksTheRowUpAndUpdatesIt) {
  show([&] {
    choose("Windows XP");
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fake.journal, ElementsAre("Show modal frmSystemType", kLook, kLook,
                                        testing::StartsWith("SQL: UPDATE "), "Close frmSystemType"));
}

TEST_F(SystemTypeTest, ChangesNothingWithoutAClickOnTheList) {
  show([&] { form.cmdOK.userClick(); });
  EXPECT_EQ(stored("WKS01", "System_Type"), "7");
  EXPECT_EQ(item->SubItems(1).get(), "Windows 2000 - Server");
}

TEST_F(SystemTypeTest, ChangesNothingWhenItsFrameIsClosed) {
  show([&] {
    choose("Windows XP");
    form.userClose();
  });
  EXPECT_EQ(stored("WKS01", "System_Type"), "7");
}

TEST_F(SystemTypeTest, TellsThatTheComputerWasRemovedMeanwhileAndLeavesTheList) {
  show([&] {
    inventory.execute("DELETE FROM System_Table");
    choose("Windows XP");
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fake.journal,
              LinesAre({"Show modal frmSystemType", kLook, kLook,
                        "MessageBox information: Could not update the system type.", "Close frmSystemType"}));
  EXPECT_EQ(item->SubItems(1).get(), "Windows 2000 - Server");
}

TEST_F(SystemTypeTest, PassesOverAnUpdateThatFailsAndChangesTheListAllTheSame) {
  inventory.execute(
      "CREATE TRIGGER Refuse BEFORE UPDATE ON System_Table BEGIN SELECT RAISE(ABORT, 'no'); END");
  show([&] {
    choose("Windows XP");
    form.cmdOK.userClick();
  });
  EXPECT_EQ(stored("WKS01", "System_Type"), "7");
  EXPECT_EQ(item->SubItems(1).get(), "Windows XP");
  EXPECT_FALSE(form.isLoaded());
}

TEST_F(SystemTypeTest, OpensTheHelpWithF1) {
  show([&] {
    form.userKeyDown(ui::kKeyF1);
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fakes::linesOf(fake.journal, "ShellExecute"), testing::SizeIs(1));
}

}  // namespace
}  // namespace varnhold::inventory
