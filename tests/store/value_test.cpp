#include "store/value.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/runtime_error.h"
#include "store/rows.h"

namespace varnhold::store {
namespace {

std::int32_t errorOf(const Value& value) {
  try {
    (void)value.asInteger();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

TEST(Value, NullHasNoTextAndNoNumber) {
  const Value null;
  EXPECT_TRUE(null.isNull());
  EXPECT_EQ(errorOf(null), kInvalidUseOfNull);
  EXPECT_THROW((void)null.asText(), RuntimeError);
  EXPECT_THROW((void)null.asBoolean(), RuntimeError);
}

TEST(Value, ReadsTextAsAWholeNumber) {
  EXPECT_EQ(Value("42").asInteger(), 42);
  EXPECT_EQ(Value(" -7 ").asInteger(), -7);
  EXPECT_EQ(Value("2.5").asInteger(), 2);
  EXPECT_EQ(Value("3.5").asInteger(), 4);
  for (const char* text : {"", " ", "x", "4x", "1e400", "nan"})
    EXPECT_EQ(errorOf(text), kTypeMismatch) << text;
}

TEST(Value, RoundsANumberToTheNearestWholeOneHalvesToTheEven) {
  EXPECT_EQ(Value(0.5).asInteger(), 0);
  EXPECT_EQ(Value(1.5).asInteger(), 2);
  EXPECT_EQ(Value(-2.5).asInteger(), -2);
  EXPECT_EQ(errorOf(1e19), kTypeMismatch);
  EXPECT_EQ(errorOf(std::numeric_limits<double>::quiet_NaN()), kTypeMismatch);
}

TEST(Value, IsTrueUnlessItIsZero) {
  EXPECT_TRUE(Value(1).asBoolean());
  EXPECT_TRUE(Value(-1).asBoolean());
  EXPECT_FALSE(Value(0).asBoolean());
  EXPECT_FALSE(Value("0").asBoolean());
}

TEST(Value, ShowsNumbersAsPlainText) {
  EXPECT_EQ(Value(0).asText(), "0");
  EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::min()).asText(), "-9223372036854775808");
  EXPECT_EQ(Value(1514.0).asText(), "1514");
  EXPECT_EQ(Value(0.1).asText(), "0.1");
}

TEST(Column, KeepsWhatItIsGivenInItsOwnKind) {
  Column column;
  column.kind = ColumnKind::Integer;
  column.append(Value("15"));
  column.appendNull();
  column.append(std::int64_t{7});
  EXPECT_EQ(column.at(0), Value(15));
  EXPECT_TRUE(column.at(1).isNull());
  column.set(1, Value(9));
  column.set(2, Value());
  EXPECT_EQ(column.at(1), Value(9));
  EXPECT_TRUE(column.at(2).isNull());
}

TEST(Column, TakesAChangedTextOfAnyLength) {
  Column column;
  column.append(Value("first"));
  column.append(Value(""));
  column.set(0, Value("much longer than the first was"));
  EXPECT_EQ(column.at(0), Value("much longer than the first was"));
  EXPECT_EQ(column.at(1), Value(""));
  EXPECT_EQ(column.normalised(Value(12)), Value("12"));
}

}  // namespace
}  // namespace varnhold::store
