#include "companion/subnet.h"

#include <gtest/gtest.h>

namespace varnhold::companion::test {
namespace {

struct Case {
  const char* address;
  const char* subnet;
  bool belongs;
};

constexpr Case kCases[] = {
    {"10.1.2.3", "10.1.2.0", true},
    {"10.1.2.0", "10.1.2.0", true},
    {"10.1.3.3", "10.1.2.0", false},
    {"11.1.2.3", "10.1.2.0", false},
    // Every part left open at the end stands for any value.
    {"10.1.99.3", "10.1.0.0", true},
    {"10.2.99.3", "10.1.0.0", false},
    {"10.2.99.3", "10.0.0.0", true},
    {"192.168.1.1", "0.0.0.0", true},
    // A 0 with another part behind it is a part like others.
    {"10.0.2.3", "10.0.2.0", true},
    {"10.1.2.3", "10.0.2.0", false},
    // A subnet without an open part is one address.
    {"10.1.2.3", "10.1.2.3", true},
    {"10.1.2.4", "10.1.2.3", false},
    // Parts are numbers and no text.
    {"10.1.20.3", "10.1.2.0", false},
    {"10.1.002.3", "10.1.2.0", true},
    // No address, no subnet.
    {"", "10.1.2.0", false},
    {"", "0.0.0.0", false},
    {"10.1.2.3", "", false},
    {"10.1.2", "10.1.2.0", false},
    {"10.1.2.3.4", "10.1.2.0", false},
    {"10.1.2.3 ", "10.1.2.0", false},
    {"10.1.2.256", "10.1.2.0", false},
    {"10.1.2.-1", "10.1.2.0", false},
    {"10.1..3", "10.1.0.0", false},
    {"10.1.2.", "10.1.2.0", false},
    {"-Not Resolved-", "0.0.0.0", false},
    {"10.1.2.3", "10.1.2", false},
};

TEST(Subnet, HoldsTheAddressesOfItsFixedParts) {
  for (const auto& [address, subnet, belongs] : kCases)
    EXPECT_EQ(belongsToSubnet(address, subnet), belongs) << address << " in " << subnet;
}

}  // namespace
}  // namespace varnhold::companion::test
