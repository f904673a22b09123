// Which computers can be picked, and how rows move between the lists of the selection page.
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::IsEmpty;

class SelectionTest : public WizardTest {
 protected:
  Lines candidates() { return names(targets.lvSelect); }
  Lines selected() { return names(targets.lvSelected); }
  /// The selected rows of a list.
  static Lines chosen(const ui::ListView& list) {
    Lines lines;
    for (const auto& row : list.ListItems) {
      if (row.Selected) lines.push_back(row.Text);
    }
    return lines;
  }
  static std::string focused(const ui::ListView& list) {
    const auto row = list.SelectedItem();
    return row ? row->Text.get() : "";
  }
  static Lines withTags(const ui::ListView& list) {
    Lines lines;
    for (const auto& row : list.ListItems) lines.push_back(row.Text + "|" + row.Tag.get());
    return lines;
  }
  void addUnmanaged(const Lines& computers) {
    for (const auto& computer : computers) addComputer(computer);
  }
  void pick(const std::vector<int>& rows) { targets.lvSelect.userSelection(rows, rows.back()); }
};

// What can be picked.

TEST_F(SelectionTest, AllOffersEveryComputerThatTheConsoleShowsInTheOrderOfTheInventory) {
  addUnmanaged({"HOST2", "HOST1", "HOST3"});
  show(1, 1, [this] {
    EXPECT_EQ(targets.cboGroups.Text, "All");
    EXPECT_THAT(candidates(), LinesAre({"HOST2", "HOST1", "HOST3"}));
    EXPECT_THAT(withTags(targets.lvSelect),
                LinesAre({"HOST2|Unmanaged", "HOST1|Unmanaged", "HOST3|Unmanaged"}));
    EXPECT_THAT(chosen(targets.lvSelect), LinesAre({"HOST2"}));
  });
}

TEST_F(SelectionTest, AllAsksForTheComputersAsTheConsoleDoes) {
  addUnmanaged({"HOST1"});
  show(1, 1, [] {});
  EXPECT_THAT(fake.journal, testing::Contains("SQL: SELECT * FROM System_Table WHERE System_Type <> 99999"));
}

TEST_F(SelectionTest, WhatTheConsoleDoesNotShowCannotBePicked) {
  addUnmanaged({"HOST1", "HOST2"});
  console.lvListView.ListItems.Remove(1);
  show(1, 1, [this] { EXPECT_THAT(candidates(), LinesAre({"HOST2"})); });
}

TEST_F(SelectionTest, TheConsolesNamesAreFoundWithoutRegardToCase) {
  addUnmanaged({"HOST1"});
  console.lvListView.ListItems(1).Text = "host1";
  show(1, 1, [this] { EXPECT_THAT(candidates(), LinesAre({"HOST1"})); });
}

TEST_F(SelectionTest, SomeTypesAreNoCandidatesOfAllButOfAGroup) {
  addComputer("SUN", "Unmanaged", 101);
  addComputer("SYSLOG", "Unmanaged", 301);
  addComputer("HIDDEN", "Unmanaged", 99999);
  addComputer("HOST1");
  addGroup("Lab", {"SUN", "SYSLOG", "HIDDEN", "HOST1"});
  show(1, 1, [this] {
    EXPECT_THAT(candidates(), LinesAre({"HOST1"}));
    targets.cboGroups.userSelect(1);
    EXPECT_THAT(candidates(), testing::UnorderedElementsAre("SUN", "SYSLOG", "HIDDEN", "HOST1"));
  });
}

TEST_F(SelectionTest, EachOperationOffersTheStatusesThatItCanDoSomethingWith) {
  addComputer("AGENTLESS", "Managed - Agentless Mode");
  addComputer("BOTH", "Tracking Changes & Events");
  addComputer("CHANGES", "Tracking Changes");
  addComputer("HIGH", "Managed - High Performance Mode");
  addComputer("LOWER", "unmanaged");
  addComputer("NOSTATUS", "");
  addComputer("NOT", "Not Applicable");
  addComputer("PART", "Managed - Standard");
  addComputer("STANDARD", "Managed - Standard Mode");
  addComputer("UNMANAGED", "Unmanaged");
  show(1, 1, [this] { EXPECT_THAT(candidates(), LinesAre({"CHANGES", "NOSTATUS", "UNMANAGED"})); });
  targets.Unload();
  show(2, 1, [this] {
    EXPECT_THAT(candidates(), LinesAre({"AGENTLESS", "BOTH", "HIGH", "NOSTATUS", "PART", "STANDARD"}));
  });
  targets.Unload();
  show(3, 1, [this] {
    EXPECT_THAT(candidates(), LinesAre({"BOTH", "HIGH", "NOSTATUS", "PART", "STANDARD"}));
  });
}

TEST_F(SelectionTest, TheManagerIsNotOfferedInWhateverCase) {
  addUnmanaged({"manager", "HOST1"});
  show(1, 1, [this] { EXPECT_THAT(candidates(), LinesAre({"HOST1"})); });
}

TEST_F(SelectionTest, AGroupOffersItsMembers) {
  addUnmanaged({"HOST1", "HOST2", "HOST3"});
  addGroup("Lab", {"HOST3", "HOST1", "ELSEWHERE"});
  show(1, 1, [this] {
    targets.cboGroups.userSelect(1);
    EXPECT_THAT(candidates(), testing::UnorderedElementsAre("HOST1", "HOST3"));
    targets.cboGroups.userSelect(0);
    EXPECT_THAT(candidates(), LinesAre({"HOST1", "HOST2", "HOST3"}));
  });
}

TEST_F(SelectionTest, AGroupsNameGoesIntoTheFilterAsItStands) {
  addUnmanaged({"HOST1"});
  addGroup("O''Hara");
  show(1, 1, [this] {
    fake.journal.clear();
    targets.cboGroups.userSelect(1);
    EXPECT_THAT(fake.journal,
                testing::Contains("SQL: SELECT * FROM System_Group WHERE Group_Name = 'O'Hara'"));
    // The engine refuses that, which is passed over.
    EXPECT_THAT(candidates(), IsEmpty());
  });
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(SelectionTest, WhatIsSelectedIsNotOfferedAgain) {
  addUnmanaged({"HOST1", "HOST2"});
  addGroup("Lab", {"HOST1", "HOST2"});
  show(1, 1, [this] {
    pick({1});
    targets.cmdAdd.userClick();
    targets.cboGroups.userSelect(1);
    EXPECT_THAT(candidates(), LinesAre({"HOST2"}));
  });
}

TEST_F(SelectionTest, AnInventoryThatIsGoneLeavesTheListEmpty) {
  addUnmanaged({"HOST1"});
  show(1, 1, [this] {
    program.gConn.Close();
    reactivate();
    targets.cboGroups.Click.raise();
    EXPECT_THAT(candidates(), IsEmpty());
  });
  EXPECT_THAT(boxes(), IsEmpty());
}

// cmdAdd.

TEST_F(SelectionTest, AddMovesARowWithItsStatusAndOffersTheNextPage) {
  addUnmanaged({"HOST1", "HOST2", "HOST3"});
  show(1, 1, [this] {
    ASSERT_FALSE(targets.cmdNext.Enabled);
    pick({2});
    targets.cmdAdd.userClick();
    EXPECT_THAT(candidates(), LinesAre({"HOST1", "HOST3"}));
    EXPECT_THAT(withTags(targets.lvSelected), LinesAre({"HOST2|Unmanaged"}));
    EXPECT_TRUE(targets.cmdNext.Enabled);
    EXPECT_EQ(targets.lvSystems.ListItems.Count(), 0);
  });
}

TEST_F(SelectionTest, AddMovesNeighboursInSpiteOfTheShift) {
  addUnmanaged({"HOST1", "HOST2", "HOST3"});
  show(1, 1, [this] {
    pick({1, 2});
    targets.cmdAdd.userClick();
    EXPECT_THAT(candidates(), LinesAre({"HOST3"}));
    EXPECT_THAT(selected(), LinesAre({"HOST1", "HOST2"}));
  });
}

/// A pass takes every second of neighbouring rows, the next pass every second of those left.
TEST_F(SelectionTest, AddTakesManyNeighboursInTheOrderOfItsPasses) {
  addUnmanaged({"H1", "H2", "H3", "H4", "H5", "H6"});
  show(1, 1, [this] {
    pick({1, 2, 3, 4, 5, 6});
    targets.cmdAdd.userClick();
    EXPECT_THAT(candidates(), IsEmpty());
    EXPECT_THAT(selected(), LinesAre({"H1", "H3", "H5", "H2", "H6", "H4"}));
  });
}

TEST_F(SelectionTest, AddTakesRowsApartInTheirOrder) {
  addUnmanaged({"H1", "H2", "H3", "H4", "H5"});
  show(1, 1, [this] {
    pick({1, 3, 5});
    targets.cmdAdd.userClick();
    EXPECT_THAT(candidates(), LinesAre({"H2", "H4"}));
    EXPECT_THAT(selected(), LinesAre({"H1", "H3", "H5"}));
  });
}

TEST_F(SelectionTest, AddSelectsTheRowThatTookThePlaceOfTheFocusedOneAndNoOther) {
  addUnmanaged({"H1", "H2", "H3", "H4"});
  show(1, 1, [this] {
    pick({2});
    targets.cmdAdd.userClick();
    EXPECT_THAT(chosen(targets.lvSelect), LinesAre({"H3"}));
    EXPECT_EQ(focused(targets.lvSelect), "H3");
  });
}

TEST_F(SelectionTest, AddOfTheLastRowSelectsTheFirst) {
  addUnmanaged({"H1", "H2", "H3"});
  show(1, 1, [this] {
    pick({3});
    targets.cmdAdd.userClick();
    EXPECT_THAT(chosen(targets.lvSelect), LinesAre({"H1"}));
  });
}

TEST_F(SelectionTest, AddDoesNothingWithoutAFocusedRow) {
  show(1, 1, [this] {
    targets.cmdAdd.userClick();
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_FALSE(targets.cmdNext.Enabled);
  });
}

TEST_F(SelectionTest, AddLeavesARowWhoseNameIsSelectedAlready) {
  addUnmanaged({"H1", "H2"});
  show(1, 1, [this] {
    choose("h1", "Unmanaged");
    pick({1, 2});
    targets.cmdAdd.userClick();
    EXPECT_THAT(candidates(), LinesAre({"H1"}));
    EXPECT_THAT(selected(), LinesAre({"h1", "H2"}));
  });
}

// cmdRemove.

TEST_F(SelectionTest, RemoveGivesTheComputersBackByTheRulesAndNotAtTheEnd) {
  addUnmanaged({"H1", "H2", "H3"});
  show(1, 1, [this] {
    pick({1});
    targets.cmdAdd.userClick();
    targets.lvSelected.userClick(1);
    targets.cmdRemove.userClick();
    EXPECT_THAT(candidates(), LinesAre({"H1", "H2", "H3"}));
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_FALSE(targets.cmdNext.Enabled);
  });
}

TEST_F(SelectionTest, AComputerOfAnotherGroupDoesNotComeBack) {
  addUnmanaged({"H1", "H2"});
  addGroup("Lab", {"H2"});
  show(1, 1, [this] {
    pick({1});
    targets.cmdAdd.userClick();
    targets.cboGroups.userSelect(1);
    targets.lvSelected.userClick(1);
    targets.cmdRemove.userClick();
    EXPECT_THAT(candidates(), LinesAre({"H2"}));
    EXPECT_THAT(selected(), IsEmpty());
  });
}

TEST_F(SelectionTest, RemoveTakesEverySelectedRowAndSelectsTheOneInThePlaceOfTheFocused) {
  show(1, 1, [this] {
    for (const char* const name : {"H1", "H2", "H3", "H4", "H5"}) choose(name);
    targets.lvSelected.userSelection({2, 4}, 2);
    targets.cmdRemove.userClick();
    EXPECT_THAT(selected(), LinesAre({"H1", "H3", "H5"}));
    EXPECT_THAT(chosen(targets.lvSelected), LinesAre({"H3"}));
  });
}

TEST_F(SelectionTest, RemoveOfTheLastRowSelectsTheFirst) {
  show(1, 1, [this] {
    for (const char* const name : {"H1", "H2", "H3"}) choose(name);
    targets.lvSelected.userClick(3);
    targets.cmdRemove.userClick();
    EXPECT_THAT(selected(), LinesAre({"H1", "H2"}));
    EXPECT_THAT(chosen(targets.lvSelected), LinesAre({"H1"}));
  });
}

TEST_F(SelectionTest, RemoveDoesNothingWithoutAFocusedRow) {
  show(1, 1, [this] {
    choose("H1");
    targets.cmdRemove.userClick();
    EXPECT_THAT(selected(), LinesAre({"H1"}));
  });
}

TEST_F(SelectionTest, RemovingTheLastRowEndsTheOfferOfTheNextPageInAnUpgradeToo) {
  show(3, 1, [this] {
    choose("H1");
    ASSERT_TRUE(targets.cmdNext.Enabled);
    targets.lvSelected.userClick(1);
    targets.cmdRemove.userClick();
    EXPECT_FALSE(targets.cmdNext.Enabled);
  });
}

// cmdselectall and cmdremoveall.

TEST_F(SelectionTest, AddAllMovesEveryRowAndFillsTheRunListToo) {
  addUnmanaged({"H1", "H2"});
  addComputer("H3", "Tracking Changes");
  show(1, 1, [this] {
    targets.cmdselectall.userClick();
    EXPECT_THAT(candidates(), IsEmpty());
    EXPECT_THAT(withTags(targets.lvSelected),
                LinesAre({"H1|Unmanaged", "H2|Unmanaged", "H3|Tracking Changes"}));
    EXPECT_THAT(names(targets.lvSystems), LinesAre({"H1", "H2", "H3"}));
    EXPECT_THAT(statuses(), LinesAre({"Unmanaged", "Unmanaged", "Tracking Changes"}));
    EXPECT_TRUE(targets.cmdNext.Enabled);
  });
}

TEST_F(SelectionTest, AddAllWritesStatusesFromTheTopOfARunListThatHeldRowsBefore) {
  addComputer("H1", "Tracking Changes");
  targets.Load();
  addRow("OLD", "Unmanaged");
  show(1, 1, [this] {
    targets.cmdselectall.userClick();
    EXPECT_THAT(names(targets.lvSystems), LinesAre({"OLD", "H1"}));
    EXPECT_THAT(statuses(), LinesAre({"Tracking Changes", ""}));
  });
}

TEST_F(SelectionTest, AddAllOfNothingLeavesTheNextPageAlone) {
  show(1, 1, [this] {
    choose("H1");
    targets.cmdselectall.userClick();
    EXPECT_FALSE(targets.cmdNext.Enabled);
    targets.cmdNext.Enabled = true;
    targets.lvSelected.ListItems.Clear();
    targets.cmdselectall.userClick();
    EXPECT_TRUE(targets.cmdNext.Enabled);
  });
}

TEST_F(SelectionTest, RemoveAllGivesEveryComputerBackButLeavesTheRunList) {
  addUnmanaged({"H1", "H2"});
  show(1, 1, [this] {
    targets.cmdselectall.userClick();
    targets.cmdremoveall.userClick();
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_THAT(candidates(), LinesAre({"H1", "H2"}));
    EXPECT_FALSE(targets.cmdNext.Enabled);
    EXPECT_THAT(names(targets.lvSystems), LinesAre({"H1", "H2"}));
  });
}

TEST_F(SelectionTest, RemoveAllOfNothingDoesNothing) {
  show(3, 1, [this] {
    targets.cmdremoveall.userClick();
    EXPECT_TRUE(targets.cmdNext.Enabled);
  });
}

}  // namespace
}  // namespace varnhold::deployment
