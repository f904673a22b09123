// The wizard's ways from page to page, and what is checked on them.
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::IsEmpty;

constexpr const char* kNotDeep =
    "MessageBox critical: Please ensure that the installation path is at least 2 levels deep.";

class MovesTest : public WizardTest {
 protected:
  void onlyVarnhold() { program.gChangesRoot.clear(); }

  /// Presses the button as long as it is enabled, and gives the pages that came up, joined by blanks.
  std::string press(ui::CommandButton& button) {
    std::string pages;
    while (button.Enabled && pages.size() < 20) {
      button.userClick();
      pages += (pages.empty() ? "" : " ") + std::to_string(targets.CurrentPage);
    }
    return pages;
  }
  std::string forwards() { return press(targets.cmdNext); }
  std::string backwards() { return press(targets.cmdBack); }

  /// Shows the wizard on page 1 with a computer selected.
  void showSelected(int operation, const std::function<void()>& script) {
    targets.Load();
    choose("HOST1", operation == 1 ? "Unmanaged" : "Managed - Standard Mode");
    show(operation, 1, script);
  }
};

TEST_F(MovesTest, InstallWithOneProductGoesOverTheAgentTypeToThePathAndBack) {
  onlyVarnhold();
  showSelected(1, [this] {
    EXPECT_EQ(forwards(), "3 5");
    EXPECT_EQ(backwards(), "3 1");
  });
}

TEST_F(MovesTest, InstallWithBothProductsAsksForTheSoftwareToo) {
  showSelected(1, [this] {
    EXPECT_EQ(forwards(), "3 4 5");
    EXPECT_EQ(backwards(), "4 3 1");
  });
}

TEST_F(MovesTest, InstallReachesTheConfigurationByAdvanced) {
  showSelected(1, [this] {
    forwards();
    EXPECT_EQ(press(targets.cmdAdvanced), "6");
    EXPECT_TRUE(targets.freConfig.Visible);
    EXPECT_EQ(backwards(), "5 4 3 1");
  });
}

TEST_F(MovesTest, InstallFromTheListBeginsOnPage2AndGoesBackToPage1) {
  targets.Load();
  addRow("HOST1");
  choose("HOST1");
  show(1, 2, [this] {
    EXPECT_EQ(forwards(), "3 4 5");
    EXPECT_EQ(backwards(), "4 3 1");
  });
  onlyVarnhold();
  show(1, 2, [this] { EXPECT_EQ(forwards(), "3 5"); });
}

/// The pop-up menus of the list and of the tree fill the run list, and the selection for an install alone.
TEST_F(MovesTest, UninstallFromAPopUpMenuBeginsOnPage2AndFindsNoSelectionOnPage1) {
  targets.Load();
  addRow("HOST1", "Managed - Standard Mode");
  show(2, 2, [this] {
    EXPECT_EQ(forwards(), "3 4");
    EXPECT_EQ(backwards(), "3 1");
    EXPECT_FALSE(targets.cmdNext.Enabled);
  });
  onlyVarnhold();
  show(2, 2, [this] {
    EXPECT_EQ(forwards(), "");
    EXPECT_TRUE(targets.cmdInstall.Enabled);
  });
}

TEST_F(MovesTest, UpgradeFromAPopUpMenuBeginsOnPage2AndFindsNoSelectionOnPage1) {
  for (const bool both : {true, false}) {
    if (!both) onlyVarnhold();
    targets.Load();
    addRow("HOST1", "Managed - Standard Mode");
    fake.journal.clear();
    show(3, 2, [&] {
      EXPECT_EQ(forwards(), "5");
      EXPECT_EQ(backwards(), both ? "4 2 1" : "2 1");
      targets.cmdNext.userClick();
      EXPECT_EQ(targets.CurrentPage, 1);
    });
    EXPECT_THAT(boxes(), LinesAre({"MessageBox exclamation: No computer selected."}));
  }
}

TEST_F(MovesTest, UninstallWithOneProductEndsOnPage2) {
  onlyVarnhold();
  showSelected(2, [this] {
    EXPECT_EQ(forwards(), "2");
    EXPECT_TRUE(targets.cmdInstall.Enabled);
    EXPECT_EQ(backwards(), "1");
  });
}

TEST_F(MovesTest, UninstallWithBothProductsGoesBackFromPage3ToPage1) {
  showSelected(2, [this] {
    EXPECT_EQ(forwards(), "2 3 4");
    EXPECT_TRUE(targets.cmdInstall.Enabled);
    EXPECT_EQ(backwards(), "3 1");
  });
}

TEST_F(MovesTest, UpgradeWithOneProductGoesBackFromItsOptionsToPage2) {
  onlyVarnhold();
  showSelected(3, [this] {
    EXPECT_EQ(forwards(), "2 5");
    EXPECT_TRUE(targets.freUpgradeOpts.Visible);
    EXPECT_EQ(backwards(), "2 1");
  });
}

TEST_F(MovesTest, UpgradeWithBothProductsComesOnPage4OnlyByTheWayBack) {
  showSelected(3, [this] {
    EXPECT_EQ(forwards(), "2 5");
    EXPECT_EQ(backwards(), "4 2 1");
  });
}

TEST_F(MovesTest, UpgradeReachesTheConfigurationByAdvanced) {
  showSelected(3, [this] {
    forwards();
    EXPECT_EQ(press(targets.cmdAdvanced), "6");
    EXPECT_TRUE(targets.freConfig.Visible);
    EXPECT_TRUE(targets.freUpgradeOpts.Visible);
  });
}

TEST_F(MovesTest, TheFirstActivationOffersNoWayBackFromPage2AndTheNextOneDoes) {
  show(2, 2, [this] {
    EXPECT_FALSE(targets.cmdBack.Enabled);
    reactivate();
    EXPECT_TRUE(targets.cmdBack.Enabled);
  });
}

TEST_F(MovesTest, NothingSelectedStaysOnPage1) {
  show(3, 1, [this] {
    ASSERT_TRUE(targets.cmdNext.Enabled);
    targets.cmdNext.userClick();
    EXPECT_EQ(targets.CurrentPage, 1);
    EXPECT_TRUE(targets.lvSelect.Visible);
    EXPECT_EQ(ui.screen.MousePointer, ui::Pointer::Default);
  });
  EXPECT_THAT(boxes(), LinesAre({"MessageBox exclamation: No computer selected."}));
}

TEST_F(MovesTest, Page2ListsTheSelectionAnewWithItsStatuses) {
  targets.Load();
  addRow("OLD");
  choose("HOST1", "Managed - Standard Mode");
  choose("HOST2", "Tracking Changes & Events");
  show(3, 1, [this] {
    targets.cmdNext.userClick();
    EXPECT_THAT(names(targets.lvSystems), LinesAre({"HOST1", "HOST2"}));
    EXPECT_THAT(statuses(), LinesAre({"Managed - Standard Mode", "Tracking Changes & Events"}));
  });
}

TEST_F(MovesTest, AnUninstallAsksWhatBecomesOfSnapshots) {
  targets.Load();
  choose("HOST1", "Managed - Standard Mode");
  choose("HOST2", "Tracking Changes & Events");
  choose("HOST3", "tracking changes");
  const auto cells = [this] {
    Lines lines;
    for (auto& row : targets.lvSystems.ListItems) {
      auto cell = row.ListSubItems(kKeepSnapsSubItem);
      lines.push_back(cell.Text.get() + "|" + cell.Tag.get());
    }
    return lines;
  };
  show(2, 1, [&] {
    targets.cmdNext.userClick();
    EXPECT_THAT(cells(), LinesAre({"|", "No|2", "No|2"}));
  });
  show(3, 1, [&] {
    targets.cmdNext.userClick();
    EXPECT_THAT(cells(), LinesAre({"|", "|", "|"}));
  });
  program.gChangesRoot.clear();
  show(2, 1, [&] {
    targets.cmdNext.userClick();
    EXPECT_THAT(cells(), LinesAre({"|", "|", "|"}));
  });
}

/// No button leads from page 6 to page 7; its check is there for whoever enables one.
TEST_F(MovesTest, Page7WantsACustomFileThatIsThere) {
  const auto next = [this](const std::string& file) {
    targets.optConfig(1).Value = true;
    targets.txtTemplate.Text = file;
    targets.CurrentPage = 6;
    targets.cmdNext.Enabled = true;
    targets.cmdNext.userClick();
    return targets.CurrentPage;
  };
  fake.files.put(R"(C:\vhaconfig.ini)", "x");
  show(1, 1, [&] {
    turnTo(6);
    EXPECT_EQ(next(R"(C:\missing.ini)"), 6);
    EXPECT_TRUE(targets.freConfig.Visible);
    EXPECT_EQ(ui.screen.MousePointer, ui::Pointer::Default);
    EXPECT_EQ(next(""), 6);
    EXPECT_THAT(
        boxes(),
        LinesAre(
            {"MessageBox exclamation: The specified config file either does not exist or cannot be reached.",
             "MessageBox exclamation: The specified config file either does not exist or cannot be "
             "reached."}));
    EXPECT_EQ(next(R"(C:\vhaconfig.ini)"), 7);
    EXPECT_TRUE(targets.freLogon.Visible);
  });
}

TEST_F(MovesTest, Page7TakesAFolderForTheCustomFileToo) {
  fake.files.makeFolder(R"(C:\configs)");
  show(1, 1, [this] {
    turnTo(6);
    targets.optConfig(1).Value = true;
    targets.txtTemplate.Text = R"(C:\configs)";
    targets.cmdNext.Enabled = true;
    targets.cmdNext.userClick();
    EXPECT_EQ(targets.CurrentPage, 7);
  });
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(MovesTest, TheDefaultConfigurationNeedsNoFileForPage7) {
  show(1, 1, [this] {
    turnTo(6);
    targets.txtTemplate.Text = R"(C:\missing.ini)";
    targets.cmdNext.Enabled = true;
    targets.cmdNext.userClick();
    EXPECT_EQ(targets.CurrentPage, 7);
    EXPECT_TRUE(targets.optAccounts(0).Value);
  });
  EXPECT_THAT(boxes(), IsEmpty());
}

/// The page of the install path.
class PathTest : public MovesTest {
 protected:
  /// Where `cmdAdvanced` leads with this path, and what the box holds then.
  std::string advance(const std::string& path, int client = 0) {
    std::string outcome;
    targets.Load();
    show(1, 2, [&] {
      turnTo(5);
      targets.optClient(client).Value = true;
      auto& box = client == 0 ? targets.txtPathVHW : targets.txtPathTKW;
      box.Text = path;
      targets.cmdAdvanced.userClick();
      outcome = std::to_string(targets.CurrentPage) + " " + box.Text;
    });
    targets.Unload();
    return outcome;
  }
};

TEST_F(PathTest, TheDesignsPathsAreDeepEnough) {
  EXPECT_EQ(advance(R"(%ProgramFiles%\Kelmont Works\Varnhold)"),
            R"(6 %ProgramFiles%\Kelmont Works\Varnhold)");
  targets.Load();
  EXPECT_EQ(targets.txtPathVHW.Text, R"(%ProgramFiles%\Kelmont Works\Varnhold)");
  EXPECT_EQ(targets.txtPathTKW.Text, R"(%Program Files%\Kelmont Works\Tessmark)");
}

TEST_F(PathTest, APathNeedsTwoLevels) {
  for (const char* const path : {R"(C:\Program Files\Foo)", R"(C:\a\b)", R"(\\a\bc)"}) {
    EXPECT_EQ(advance(path), std::string("6 ") + path);
  }
  EXPECT_THAT(boxes(), IsEmpty());
  for (const char* const path : {R"(C:\Foo)", "C:FooBar", R"(C:\a)", "", R"(a\b\c)"}) {
    fake.journal.clear();
    EXPECT_EQ(advance(path), std::string("5 ") + path);
    EXPECT_THAT(boxes(), LinesAre({kNotDeep})) << path;
  }
}

TEST_F(PathTest, AClosingBackslashCountsForTheLengthAndNotForTheLevels) {
  EXPECT_EQ(advance(R"(C:\ab\)"), R"(5 C:\ab)");
  EXPECT_THAT(boxes(), LinesAre({kNotDeep}));
  EXPECT_EQ(advance(R"(C:\a\b\)"), R"(6 C:\a\b)");
}

TEST_F(PathTest, OnlyOneClosingBackslashIsTaken) {
  EXPECT_EQ(advance(R"(C:\abc\\)"), R"(6 C:\abc\)");
}

TEST_F(PathTest, LettersOutsideAsciiCountAsOneCharacterEach) {
  EXPECT_EQ(advance("ä\\ö\\"), "5 ä\\ö\\");
  EXPECT_EQ(advance("C:\\ä\\ö"), "6 C:\\ä\\ö");
}

TEST_F(PathTest, TheBoxOfTheChosenProductIsChecked) {
  EXPECT_EQ(advance(R"(C:\Foo)", 1), R"(5 C:\Foo)");
  EXPECT_THAT(boxes(), LinesAre({kNotDeep}));
}

/// The page of the agentless options.
class PollingTest : public MovesTest {
 protected:
  std::string advance(const std::string& hour, const std::string& minute) {
    std::string outcome;
    targets.Load();
    show(1, 2, [&] {
      targets.OptAgentless.Value = true;
      turnTo(5);
      targets.txtStartHour.Text = hour;
      targets.txtStartMin.Text = minute;
      fake.journal.clear();
      targets.cmdAdvanced.userClick();
      outcome = std::to_string(targets.CurrentPage);
      for (const auto& box : boxes()) outcome += " " + box;
    });
    targets.Unload();
    return outcome;
  }
};

TEST_F(PollingTest, AStartTimeThatIsOneGoesToTheConfiguration) {
  EXPECT_EQ(advance("00", "00"), "6");
  EXPECT_EQ(advance("23", "59"), "6");
  EXPECT_EQ(advance("24", "00"), "6");
}

TEST_F(PollingTest, AStartTimeThatIsNoneStays) {
  EXPECT_EQ(advance("24", "01"),
            "5 MessageBox exclamation: Start time is in the HH:MM format and value of minutes cannot be "
            "greater than 59.");
  EXPECT_EQ(advance("25", "00"),
            "5 MessageBox exclamation: Start time is in the HH:MM format and value of hour cannot be greater "
            "than 24 hours.");
  EXPECT_EQ(advance("12", "60"), "5 MessageBox exclamation: Value of minutes cannot be greater than 59.");
}

TEST_F(PollingTest, AnAgentBasedInstallDoesNotLookAtIt) {
  show(1, 2, [this] {
    turnTo(5);
    targets.txtStartHour.Text = "99";
    targets.cmdAdvanced.userClick();
    EXPECT_EQ(targets.CurrentPage, 6);
  });
}

}  // namespace
}  // namespace varnhold::deployment
