#include "inventory/frmDetails.h"

#include "tests/fakes/lines_are.h"
#include "tests/inventory/inventory_fixture.h"

namespace varnhold::inventory {
namespace {

using testing::ElementsAre;

class DetailsTest : public InventoryRowTest {
 protected:
  DetailsTest() { openConsole(); }

  void show(const std::function<void()>& script) {
    forgetJournal();
    ui.nextModal("frmDetails", [&](ui::Form&) { script(); });
    form.ShowModal();
  }

  frmDetails form{program, ui.screen, parts()};
};

class ComputerDetailsTest : public DetailsTest {
 protected:
  ComputerDetailsTest() {
    addComputer("WKS01", 7, "10.1.1.11", "");
    item = &select("WKS01", {"Windows 2000 - Server", "-none-", "Managed", "32001"});
    form.ShowDetailsOfListItem = true;
  }

  static constexpr const char* kLook = "SQL: SELECT * FROM System_Table WHERE System_Name = 'WKS01'";

  ui::ListItem* item = nullptr;
};

TEST_F(ComputerDetailsTest, ShowTheSelectedComputer) {
  show([&] {
    EXPECT_EQ(form.Caption, "Details");
    EXPECT_EQ(form.freInfo.Caption, "System: WKS01");
    EXPECT_EQ(form.lblIPA.Caption, "10.1.1.11");
    EXPECT_EQ(form.lblSysType.Caption, "Windows 2000 - Server");
    EXPECT_EQ(form.txtDes.Text, "-none-");
    EXPECT_EQ(form.lblAgents.Caption, "Managed");
    EXPECT_EQ(form.lblManagedPort.Caption, "32001");
    EXPECT_TRUE(form.freInfo.Visible);
    EXPECT_FALSE(form.freGroup.Visible);
    EXPECT_FALSE(form.freGroup.Enabled);
    EXPECT_EQ(form.ActiveControl(), &form.cmdOK);
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fake.journal, LinesAre({"Show modal frmDetails", kLook, "Close frmDetails"}));
}

TEST_F(ComputerDetailsTest, ShowNoComputerWhereNoRowHasTheFocus) {
  console.lvListView.SetSelectedItem(nullptr);
  show([&] {
    EXPECT_EQ(form.lblIPA.Caption, "-error retrieving data-");
    EXPECT_EQ(form.txtDes.Text, "");
    form.cmdOK.userClick();
  });
  EXPECT_FALSE(form.isLoaded());
}

TEST_F(ComputerDetailsTest, ShowThatANameDoesNotResolveOrIsNotThere) {
  for (const char* address : {"''", "NULL"}) {
    inventory.execute("UPDATE System_Table SET IP_Address = " + std::string(address));
    show([&] {
      EXPECT_EQ(form.lblIPA.Caption, "-Not Resolved-") << address;
      form.cmdOK.userClick();
    });
  }
  inventory.execute("DELETE FROM System_Table");
  show([&] {
    EXPECT_EQ(form.lblIPA.Caption, "-error retrieving data-");
    form.cmdOK.userClick();
  });
}

TEST_F(ComputerDetailsTest, SelectTheWholeDescriptionOnFocus) {
  show([&] {
    form.txtDes.userFocus();
    EXPECT_EQ(form.txtDes.SelStart, 0);
    EXPECT_EQ(form.txtDes.SelLength, 6);
    form.cmdOK.userClick();
  });
}

TEST_F(ComputerDetailsTest, StoreAChangedDescriptionAndShowItInTheList) {
  show([&] {
    form.txtDes.userType("It's the mail server");
    form.cmdOK.userClick();
  });
  EXPECT_EQ(stored("WKS01", "System_Description"), "It's the mail server");
  EXPECT_EQ(item->SubItems(2).get(), "It's the mail server");
  EXPECT_THAT(fake.journal, ElementsAre("Show modal frmDetails", kLook, kLook,
                                        testing::StartsWith("SQL: UPDATE "), "Close frmDetails"));
}

TEST_F(ComputerDetailsTest, StoreTheWordNoneAsItStandsOnceSomethingWasTyped) {
  show([&] {
    form.txtDes.userType("x");
    form.txtDes.userEdit("-none-", 6);
    form.cmdOK.userClick();
  });
  EXPECT_EQ(stored("WKS01", "System_Description"), "-none-");
}

TEST_F(ComputerDetailsTest, StoreNothingThatWasNotTyped) {
  show([&] { form.cmdOK.userClick(); });
  EXPECT_EQ(stored("WKS01", "System_Description"), "");
  show([&] {
    form.txtDes.userType("x");
    form.userClose();
  });
  EXPECT_EQ(stored("WKS01", "System_Description"), "");
  EXPECT_EQ(item->SubItems(2).get(), "-none-");
}

TEST_F(ComputerDetailsTest, TellThatTheComputerWasRemovedMeanwhileAndLeaveTheList) {
  show([&] {
    inventory.execute("DELETE FROM System_Table");
    form.txtDes.userType("x");
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fake.journal,
              LinesAre({"Show modal frmDetails", kLook, kLook,
                        "MessageBox information: Could not update the description.", "Close frmDetails"}));
  EXPECT_EQ(item->SubItems(2).get(), "-none-");
}

TEST_F(ComputerDetailsTest, PassOverAnUpdateThatFailsAndChangeTheListAllTheSame) {
  inventory.execute(
      "CREATE TRIGGER Refuse BEFORE UPDATE ON System_Table BEGIN SELECT RAISE(ABORT, 'no'); END");
  show([&] {
    form.txtDes.userType("x");
    form.cmdOK.userClick();
  });
  EXPECT_EQ(stored("WKS01", "System_Description"), "");
  EXPECT_EQ(item->SubItems(2).get(), "x");
  EXPECT_FALSE(form.isLoaded());
}

TEST_F(ComputerDetailsTest, OpenTheHelpWithF1) {
  show([&] {
    form.userKeyDown(ui::kKeyF1);
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fakes::linesOf(fake.journal, "ShellExecute"), testing::SizeIs(1));
}

class GroupDetailsTest : public DetailsTest {
 protected:
  GroupDetailsTest() {
    root = &console.tvTreeView.Nodes.Add("qrv_Root_Node_Key", "Groups");
    group = &console.tvTreeView.Nodes.Add("qrv_Root_Node_Key", ui::Relationship::Child, "", "Web");
    group->Select();
    form.ShowDetailsOfListItem = false;
  }

  void addRule(const std::string& osType, const std::string& subnet, const std::string& domain) {
    inventory.execute("INSERT INTO System_Group_Master VALUES ('Web', 'All web servers', 0)");
    inventory.execute("INSERT INTO System_Group_Detail VALUES ('Web', " + osType + ", " + subnet + ", " +
                      domain + ")");
  }

  ui::TreeNode* root = nullptr;
  ui::TreeNode* group = nullptr;
};

TEST_F(GroupDetailsTest, ShowTheRule) {
  addRule("4", "'10.1.0.0'", "'CORP'");
  show([&] {
    EXPECT_EQ(form.freGroup.Caption, "Group: Web");
    EXPECT_EQ(form.lblOS.Caption, "Windows NT - Workstation");
    EXPECT_EQ(form.lblIPSubnet.Caption, "10.1.0.0");
    EXPECT_EQ(form.lblDomain.Caption, "CORP");
    EXPECT_EQ(form.txtGrDes.Text, "All web servers");
    EXPECT_FALSE(form.freInfo.Visible);
    EXPECT_FALSE(form.freInfo.Enabled);
    EXPECT_EQ(form.ActiveControl(), &form.cmdOK);
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fake.journal,
              LinesAre({"Show modal frmDetails",
                        "SQL: SELECT * FROM System_Group_Master, System_Group_Detail WHERE "
                        "System_Group_Master.Group_Name = 'Web' AND System_Group_Master.Group_Name = "
                        "System_Group_Detail.Group_Name",
                        "Close frmDetails"}));
}

TEST_F(GroupDetailsTest, NameTheClassByTheTableOfTypes) {
  addRule("5", "''", "''");
  for (const auto& [osType, name] : {std::pair{"5", "Windows NT - Server"}, std::pair{"2", "Windows 95"}}) {
    inventory.execute("UPDATE System_Group_Detail SET OS_Type = " + std::string(osType));
    show([&, shown = name] {
      EXPECT_EQ(form.lblOS.Caption, shown);
      form.cmdOK.userClick();
    });
  }
}

TEST_F(GroupDetailsTest, SayAllWhereARuleHasNoSuchPart) {
  addRule("0", "''", "NULL");
  show([&] {
    EXPECT_EQ(form.lblOS.Caption, "All");
    EXPECT_EQ(form.lblIPSubnet.Caption, "All");
    EXPECT_EQ(form.lblDomain.Caption, "All");
    form.cmdOK.userClick();
  });
}

TEST_F(GroupDetailsTest, ShowTheRootWithoutAskingTheInventory) {
  root->Select();
  show([&] {
    EXPECT_EQ(form.freGroup.Caption, "Group: Groups");
    EXPECT_EQ(form.txtGrDes.Text, "All Computers");
    EXPECT_EQ(form.lblOS.Caption, "All");
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fake.journal, LinesAre({"Show modal frmDetails", "Close frmDetails"}));
}

TEST_F(GroupDetailsTest, WriteNothingWhateverIsTyped) {
  addRule("0", "''", "''");
  show([&] {
    form.txtGrDes.userType("another text");
    form.cmdOK.userClick();
  });
  EXPECT_THAT(fakes::linesOf(fake.journal, "SQL: UPDATE"), ElementsAre());
}

TEST_F(GroupDetailsTest, ShowAtLeastTheNameOfAGroupThatWasRemovedMeanwhile) {
  show([&] {
    EXPECT_EQ(form.freGroup.Caption, "Group: Web");
    EXPECT_EQ(form.txtGrDes.Text, "");
    form.cmdOK.userClick();
  });
}

TEST_F(GroupDetailsTest, AndThoseOfAComputerDoNotMixAfterEachOther) {
  addRule("4", "''", "''");
  addComputer("WKS01", 7, "10.1.1.11", "");
  select("WKS01", {"Windows 2000 - Server", "", "", ""});
  show([&] { form.cmdOK.userClick(); });
  form.ShowDetailsOfListItem = true;
  show([&] {
    EXPECT_TRUE(form.freInfo.Visible);
    EXPECT_TRUE(form.freInfo.Enabled);
    EXPECT_FALSE(form.freGroup.Visible);
    form.cmdOK.userClick();
  });
}

}  // namespace
}  // namespace varnhold::inventory
