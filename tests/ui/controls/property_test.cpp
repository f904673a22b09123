#include "ui/controls/property.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "ui/controls/collection_errors.h"
#include "ui/controls/event.h"

namespace varnhold::ui {
namespace {

class Thing : public Component {
 public:
  Property<std::string> Caption{*this, "design"};
  Property<int> Value{*this, 1, [](const int& value) {
                        if (value > 9) raiseInvalidValue("Value", "it is above 9");
                      }};
  Event<int> Happened{*this};
  std::vector<std::string> told;

 protected:
  void changed(const PropertyBase& property) override {
    told.push_back(&property == &Caption ? "Caption" : "Value");
  }
  void runHandler(const std::function<void()>& handler) const override { handler(); }
};

TEST(Property, ReadsAsItsValue) {
  Thing thing;
  const std::string caption = thing.Caption;
  EXPECT_EQ(caption, "design");
  EXPECT_EQ(thing.Caption, "design");
  EXPECT_NE(thing.Caption, "other");
  EXPECT_EQ(thing.Value + 1, 2);
  EXPECT_EQ("'" + thing.Caption + "'", "'design'");
}

TEST(Property, TellsItsOwnerWhenItIsSet) {
  Thing thing;
  thing.Caption = "new";
  thing.Value = 2;
  EXPECT_EQ(thing.Caption, "new");
  EXPECT_THAT(thing.told, LinesAre({"Caption", "Value"}));
}

TEST(Property, TellsNobodyWhenItIsSetToWhatItIsAlready) {
  Thing thing;
  thing.Caption = "design";
  thing.Value = 1;
  EXPECT_THAT(thing.told, testing::IsEmpty());
}

TEST(Property, TakesTheValueOfAnotherPropertyAndNotItsOwner) {
  Thing thing, other;
  other.Caption.settle("theirs");
  thing.Caption = other.Caption;
  EXPECT_EQ(thing.Caption, "theirs");
  EXPECT_THAT(thing.told, LinesAre({"Caption"}));
  EXPECT_THAT(other.told, testing::IsEmpty());
}

TEST(Property, KeepsItsValueWhenItRefusesAnother) {
  Thing thing;
  try {
    thing.Value = 10;
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 380);
    EXPECT_EQ(error.description(), "Invalid property value for Value: it is above 9.");
  }
  EXPECT_EQ(thing.Value, 1);
  EXPECT_THAT(thing.told, testing::IsEmpty());
}

TEST(Property, GoesBackToItsDesignAndTellsNobody) {
  Thing thing;
  thing.Caption.settle("as designed");
  thing.keepDesign();
  thing.Caption = "at run time";
  thing.told.clear();
  thing.restoreDesign();
  EXPECT_EQ(thing.Caption, "as designed");
  EXPECT_THAT(thing.told, testing::IsEmpty());
}

TEST(Event, RunsItsHandlerAndDoesNothingWithoutOne) {
  Thing thing;
  EXPECT_FALSE(thing.Happened.isHandled());
  thing.Happened.raise(1);
  int sum = 0;
  thing.Happened = [&](int by) { sum += by; };
  EXPECT_TRUE(thing.Happened.isHandled());
  thing.Happened.raise(2);
  thing.Happened.raise(3);
  EXPECT_EQ(sum, 5);
}

}  // namespace
}  // namespace varnhold::ui
