#include "core/list_box.h"

#include <gmock/gmock.h>

#include <vector>

#include "base/text.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::core {
namespace {

/// A list box of which the test sees the messages.
class RecordingListBox : public ListBox {
 public:
  std::vector<std::string> entries, messages;
  bool twips = false;
  double widthOfLetter = 7;

  std::int32_t findString(std::int32_t after, std::string_view text) override {
    messages.push_back("LB_FINDSTRING " + std::to_string(after) + " " + std::string(text));
    for (std::size_t i = 0; i < entries.size(); ++i) {
      if (equalsIgnoringCase(entries[i].substr(0, text.size()), text)) return static_cast<std::int32_t>(i);
    }
    return -1;
  }
  void setTopIndex(std::int32_t index) override {
    messages.push_back("LB_SETTOPINDEX " + std::to_string(index));
  }
  void setCurSel(std::int32_t index) override { messages.push_back("LB_SETCURSEL " + std::to_string(index)); }
  void setHorizontalExtent(std::int32_t pixels) override {
    messages.push_back("LB_SETHORIZONTALEXTENT " + std::to_string(pixels));
  }
  std::int32_t count() override { return static_cast<std::int32_t>(entries.size()); }
  std::string entry(std::int32_t index) override { return entries[static_cast<std::size_t>(index)]; }
  double textWidth(std::string_view text) override {
    return widthOfLetter * static_cast<double>(text.size());
  }
  bool isScaledInTwips() override { return twips; }
};

TEST(FindInList, ScrollsToTheFirstEntryThatBeginsWithTheTextAndSelectsIt) {
  RecordingListBox list;
  list.entries = {"ALPHA", "BETA", "BETA2"};
  EXPECT_TRUE(FindInList(list, "be"));
  EXPECT_THAT(list.messages, LinesAre({"LB_FINDSTRING -1 be", "LB_SETTOPINDEX 1", "LB_SETCURSEL 1"}));
}

TEST(FindInList, ClearsTheSelectionWhenNothingBeginsSo) {
  RecordingListBox list;
  list.entries = {"ALPHA"};
  EXPECT_FALSE(FindInList(list, "x"));
  EXPECT_THAT(list.messages, LinesAre({"LB_FINDSTRING -1 x", "LB_SETTOPINDEX -1", "LB_SETCURSEL -1"}));
}

TEST(FindInList, ScrollsToTheTopForAnEmptyText) {
  RecordingListBox list;
  list.entries = {"ALPHA"};
  EXPECT_FALSE(FindInList(list, ""));
  EXPECT_THAT(list.messages, LinesAre({"LB_SETTOPINDEX 0", "LB_SETCURSEL -1"}));
}

TEST(FitListExtent, TakesTheWidestEntryInPixels) {
  RecordingListBox list;
  list.entries = {"AB", "ABCDE", "ABC"};
  FitListExtent(list);
  EXPECT_THAT(list.messages, LinesAre({"LB_SETHORIZONTALEXTENT 35"}));
}

TEST(FitListExtent, DividesTwipsByFifteen) {
  RecordingListBox list;
  list.entries = {"ABCDE"};
  list.twips = true;
  list.widthOfLetter = 105;
  FitListExtent(list);
  EXPECT_THAT(list.messages, LinesAre({"LB_SETHORIZONTALEXTENT 35"}));
}

TEST(FitListExtent, GivesAnEmptyListNoExtent) {
  RecordingListBox list;
  FitListExtent(list);
  EXPECT_THAT(list.messages, LinesAre({"LB_SETHORIZONTALEXTENT 0"}));
}

}  // namespace
}  // namespace varnhold::core
