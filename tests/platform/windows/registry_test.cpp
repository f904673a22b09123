#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/adapters.h"

namespace varnhold::platform::windows {
namespace {

constexpr auto kKey = R"(Software\VarnholdTest)";

/// A key under HKEY_CURRENT_USER, and values written past the adapter.
class WindowsRegistryTest : public ::testing::Test {
 protected:
  WindowsRegistryTest() { RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\VarnholdTest", &key_); }
  ~WindowsRegistryTest() override {
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VarnholdTest");
  }

  /// `bytes` must not go on with a NUL, which the host would store too.
  void store(const wchar_t* name, DWORD type, const void* bytes, DWORD size) {
    RegSetValueExW(key_, name, 0, type, static_cast<const BYTE*>(bytes), size);
  }
  RegistryOutcome query(const char* name, std::size_t capacity = 1024) {
    return registry_->query(RegistryHive::CurrentUser, kKey, name, capacity, value_);
  }

  HKEY key_ = nullptr;
  std::unique_ptr<Registry> registry_ = makeRegistry();
  RegistryValue value_;
};

TEST_F(WindowsRegistryTest, ReadsTextThatOthersStoreWithItsClosingNul) {
  store(L"path", REG_SZ, L"C:\\Gr\u00F6\u00DFe", sizeof L"C:\\Gr\u00F6\u00DFe");
  ASSERT_EQ(query("path"), RegistryOutcome::Done);
  EXPECT_EQ(value_.type, kRegText);
  EXPECT_EQ(value_.bytes, std::string("C:\\Größe\0", 11));
}

TEST_F(WindowsRegistryTest, ReadsAnExpandableTextAsText) {
  store(L"path", REG_EXPAND_SZ, L"%x%...", 3 * sizeof(wchar_t));
  ASSERT_EQ(query("path"), RegistryOutcome::Done);
  EXPECT_EQ(value_.type, static_cast<std::uint32_t>(REG_EXPAND_SZ));
  EXPECT_EQ(value_.bytes, "%x%");
}

TEST_F(WindowsRegistryTest, LeavesOutHalfACharacterAtTheEndOfAText) {
  store(L"odd", REG_SZ, L"ab", 3);
  ASSERT_EQ(query("odd"), RegistryOutcome::Done);
  EXPECT_EQ(value_.bytes, "a");
}

TEST_F(WindowsRegistryTest, CountsTheRoomInUtf8Bytes) {
  store(L"euros", REG_SZ, L"\u20AC\u20AC...", 2 * sizeof(wchar_t));
  EXPECT_EQ(query("euros", 5), RegistryOutcome::TooLong);
  EXPECT_EQ(query("euros", 6), RegistryOutcome::Done);
}

TEST_F(WindowsRegistryTest, StoresTextAsWindowsReadsIt) {
  ASSERT_EQ(registry_->set(RegistryHive::CurrentUser, kKey, "Straße", {kRegText, std::string("Köln\0", 6)}),
            RegistryOutcome::Done);
  wchar_t stored[16] = {};
  DWORD size = sizeof stored, type = 0;
  ASSERT_EQ(RegQueryValueExW(key_, L"Stra\u00DFe", nullptr, &type, reinterpret_cast<BYTE*>(stored), &size),
            ERROR_SUCCESS);
  EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
  EXPECT_EQ(size, sizeof L"K\u00F6ln");
  EXPECT_STREQ(stored, L"K\u00F6ln");
}

TEST_F(WindowsRegistryTest, RefusesToMakeAKeyWithoutParentHive) {
  EXPECT_EQ(registry_->createKey(static_cast<RegistryHive>(0x8000FFFF), kKey), RegistryOutcome::Refused);
}

}  // namespace
}  // namespace varnhold::platform::windows
