// Many selected rows at once: the rows move in the order of the documented passes, which are walked here one
// row at a time over plain names.
#include <algorithm>
#include <random>

#include "base/text.h"
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

struct Row {
  std::string name;
  bool selected;
};

/// The two lists by the description of "Add", places counted from 1.
struct Lists {
  std::vector<Row> candidates;
  Lines chosen;
  int focused = 0;  ///< the place of the selected item; 0 for none

  [[nodiscard]] bool isChosen(const std::string& name) const {
    return std::any_of(chosen.begin(), chosen.end(),
                       [&](const std::string& other) { return equalsIgnoringCase(other, name); });
  }
  [[nodiscard]] int count() const { return static_cast<int>(candidates.size()); }
  Row& row(int place) { return candidates[static_cast<std::size_t>(place) - 1]; }

  void remove(int place) {
    candidates.erase(candidates.begin() + place - 1);
    if (focused > place) --focused;
    focused = std::min(focused, count());
  }

  void add() {
    int restored = 0;
    for (int i = count(); i != 0;) {
      if (!row(i).selected) {
        --i;
        continue;
      }
      restored = focused;
      int n = count();
      for (int k = 1; k <= n; ++k) {
        if (isChosen(row(k).name) || !row(k).selected) continue;
        chosen.push_back(row(k).name);
        remove(k);
        --n;
      }
      i = n > 0 && n < i ? n : i - 1;
    }
    restore(restored);
  }

  void restore(int position) {
    if (position == 0 || count() == 0) return;
    if (count() < position) position = 1;
    for (auto& each : candidates) each.selected = false;
    row(position).selected = true;
    focused = position;
  }
};

class AddPassesTest : public WizardTest {
 protected:
  /// Some candidates: runs of selected and unselected rows, now and then a name twice or one that is chosen
  /// already, in another case.
  Lists someLists() {
    Lists lists;
    const int rows = number(1, 60);
    bool selected = number(0, 1) == 1;
    for (int i = 1; i <= rows; ++i) {
      if (number(1, 5) == 1) selected = !selected;
      const int drawn = number(1, 12) == 1 ? number(1, rows) : i;
      lists.candidates.push_back({"H" + std::to_string(drawn), selected});
    }
    for (int i = number(0, 3); i > 0; --i) lists.chosen.push_back("h" + std::to_string(number(1, rows)));
    lists.focused = number(1, rows);
    return lists;
  }
  void fill(const Lists& lists) {
    targets.lvSelect.ListItems.Clear();
    targets.lvSelected.ListItems.Clear();
    for (const auto& name : lists.chosen) choose(name);
    for (const auto& row : lists.candidates)
      targets.lvSelect.ListItems.Add(row.name).Tag = "status of " + row.name;
    std::vector<int> selected;
    for (int place = 1; place <= static_cast<int>(lists.candidates.size()); ++place) {
      if (lists.candidates[static_cast<std::size_t>(place) - 1].selected) selected.push_back(place);
    }
    targets.lvSelect.userSelection(selected, lists.focused);
  }
  Lists shown() {
    Lists lists;
    for (const auto& row : targets.lvSelect.ListItems) {
      EXPECT_EQ(row.Tag.get(), "status of " + row.Text);
      lists.candidates.push_back({row.Text, row.Selected});
    }
    lists.chosen = names(targets.lvSelected);
    const auto focused = targets.lvSelect.SelectedItem();
    lists.focused = focused ? focused->Index() : 0;
    return lists;
  }
  static Lines asText(const Lists& lists) {
    Lines lines{"focus on " + std::to_string(lists.focused)};
    for (const auto& row : lists.candidates) lines.push_back(row.name + (row.selected ? " selected" : ""));
    lines.push_back("chosen:");
    lines.insert(lines.end(), lists.chosen.begin(), lists.chosen.end());
    return lines;
  }

 private:
  int number(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

  std::mt19937 random_{20031};
};

TEST_F(AddPassesTest, MoveRowsInTheOrderOfTheirPassesWhateverIsSelected) {
  show(1, 1, [this] {
    for (int round = 0; round < 300; ++round) {
      auto lists = someLists();
      fill(lists);
      const auto before = asText(lists);
      lists.add();
      targets.cmdAdd.userClick();
      ASSERT_EQ(asText(shown()), asText(lists)) << "from " << testing::PrintToString(before);
    }
  });
}

TEST_F(AddPassesTest, CopyTheStatusOfEachRow) {
  show(1, 1, [this] {
    Lists lists;
    for (const char* const name : {"H1", "H2", "H3", "H4"}) lists.candidates.push_back({name, true});
    lists.focused = 1;
    fill(lists);
    targets.cmdAdd.userClick();
    Lines statuses;
    for (const auto& row : targets.lvSelected.ListItems) statuses.push_back(row.Tag);
    EXPECT_THAT(statuses, LinesAre({"status of H1", "status of H3", "status of H2", "status of H4"}));
  });
}

TEST_F(AddPassesTest, RemoveLeavesTheOthersInTheirOrderWithTheirStatus) {
  show(1, 1, [this] {
    std::vector<int> selected;
    Lines left;
    for (int i = 1; i <= 1000; ++i) {
      choose("H" + std::to_string(i), "status of H" + std::to_string(i));
      if (i % 3 == 0 || i > 900) {
        selected.push_back(i);
      } else {
        left.push_back("H" + std::to_string(i));
      }
    }
    targets.lvSelected.userSelection(selected, 6);
    targets.cmdRemove.userClick();
    EXPECT_EQ(names(targets.lvSelected), left);
    for (const auto& row : targets.lvSelected.ListItems) EXPECT_EQ(row.Tag.get(), "status of " + row.Text);
    EXPECT_EQ(targets.lvSelected.SelectedItem()->Index(), 6);
  });
}

}  // namespace
}  // namespace varnhold::deployment
