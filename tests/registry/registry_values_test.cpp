// Registry values: types kept byte-exact, the size protocol, key and value
// deletion, enumeration order.
#include <cstring>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "tests/support/temp_root.h"

namespace {

class RegistryTest : public velmo::testing::DeviceTest {
 protected:
  void SetUp() override {
    DWORD disposition = 0;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Test", 0, nullptr, 0,
                                             KEY_ALL_ACCESS, nullptr, &key_, &disposition));
    EXPECT_EQ(REG_CREATED_NEW_KEY, disposition);
  }
  void TearDown() override { RegCloseKey(key_); }

  std::vector<BYTE> Query(const wchar_t* name, DWORD* type) {
    DWORD size = 0;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key_, name, nullptr, type, nullptr, &size));
    std::vector<BYTE> data(size);
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key_, name, nullptr, type, data.data(), &size));
    return data;
  }

  // The bytes as stored, through the export.
  std::vector<BYTE> Stored(const wchar_t* name) {
    std::vector<velmo::registry::RawKey> keys;
    EXPECT_EQ(ERROR_SUCCESS, velmo::registry::ExportTree(L"HKEY_CURRENT_USER\\Software\\Test", &keys));
    for (const auto& v : keys.at(0).values)
      if (v.name == name) return v.bytes;
    ADD_FAILURE() << "no stored value";
    return {};
  }

  HKEY key_ = nullptr;
};

LONG SetDword(HKEY key, const wchar_t* name, DWORD value) {
  return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
}

std::vector<BYTE> WideBytes(const std::wstring& text_with_nuls) {
  std::vector<BYTE> bytes(text_with_nuls.size() * sizeof(wchar_t));
  std::memcpy(bytes.data(), text_with_nuls.data(), bytes.size());
  return bytes;
}

std::vector<BYTE> Utf16Le(std::initializer_list<unsigned> units) {
  std::vector<BYTE> bytes;
  for (unsigned u : units) bytes.insert(bytes.end(), {BYTE(u & 0xFF), BYTE(u >> 8)});
  return bytes;
}

TEST_F(RegistryTest, ValuesComeBackByteExactAndStringsAreStoredAsUtf16) {
  // The bytes as the caller passes them, and as the registry keeps them.
  struct Case { const wchar_t* name; DWORD type; std::vector<BYTE> data; std::vector<BYTE> stored; };
  const std::vector<Case> cases = {
      {L"Dword", REG_DWORD, {0xE0, 0x01, 0, 0}, {0xE0, 0x01, 0, 0}},
      {L"Binary", REG_BINARY, {0, 1, 0, 0xFF, 0}, {0, 1, 0, 0xFF, 0}},
      {L"EmptyBinary", REG_BINARY, {}, {}},
      {L"Short dword", REG_DWORD, {7, 0}, {7, 0}},
      {L"Text", REG_SZ, WideBytes(std::wstring(L"Ab\0", 3)), Utf16Le({'A', 'b', 0})},
      {L"Unterminated", REG_SZ, WideBytes(L"Ab"), Utf16Le({'A', 'b'})},
      {L"Multi", REG_MULTI_SZ, WideBytes(std::wstring(L"a\0b\0\0", 5)), Utf16Le({'a', 0, 'b', 0, 0})},
      {L"Beyond BMP", REG_SZ, WideBytes(std::wstring(L"\U0001F600\u00E9\0", 3)),
       Utf16Le({0xD83D, 0xDE00, 0xE9, 0})},
      {L"", REG_SZ, WideBytes(std::wstring(L"default\0", 8)),
       Utf16Le({'d', 'e', 'f', 'a', 'u', 'l', 't', 0})},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << "value '" << (c.name[0] ? "named" : "default") << "' type " << c.type);
    ASSERT_EQ(ERROR_SUCCESS, RegSetValueExW(key_, c.name, 0, c.type, c.data.data(),
                                            static_cast<DWORD>(c.data.size())));
    DWORD type = REG_NONE;
    EXPECT_EQ(c.data, Query(c.name, &type));
    EXPECT_EQ(c.type, type);
    EXPECT_EQ(c.stored, Stored(c.name));
  }
}

TEST_F(RegistryTest, SmallBufferGivesMoreDataAndTheSizeNeeded) {
  const std::wstring text = L"Velmo";  // 6 wide characters with the terminator
  ASSERT_EQ(ERROR_SUCCESS,
            RegSetValueExW(key_, L"Name", 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                           static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
  BYTE small[8] = {};
  DWORD size = sizeof small;
  DWORD type = REG_NONE;
  EXPECT_EQ(ERROR_MORE_DATA, RegQueryValueExW(key_, L"Name", nullptr, &type, small, &size));
  EXPECT_EQ(6 * sizeof(wchar_t), size);
  EXPECT_EQ(REG_SZ, type);

  size = 0;
  EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key_, L"name", nullptr, nullptr, nullptr, &size))
      << "names compare without case";
  EXPECT_EQ(6 * sizeof(wchar_t), size);

  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegQueryValueExW(key_, L"Absent", nullptr, &type, small, &size));
  EXPECT_EQ(ERROR_INVALID_PARAMETER,
            RegSetValueExW(key_, L"Odd", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"ab"), 5))
      << "a string must be whole wide characters";
}

TEST_F(RegistryTest, DeletingAKeyNeverDeletesAValueOfThatName) {
  ASSERT_EQ(ERROR_SUCCESS, SetDword(key_, L"Both", 1));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteKeyW(key_, L"Both"));
  DWORD type = 0;
  EXPECT_EQ((std::vector<BYTE>{1, 0, 0, 0}), Query(L"Both", &type));

  HKEY sub = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(key_, L"Both\\Deeper", 0, nullptr, 0, 0, nullptr, &sub,
                                           nullptr));
  ASSERT_EQ(ERROR_SUCCESS, SetDword(sub, L"Inner", 1));
  EXPECT_EQ(ERROR_SUCCESS, RegDeleteValueW(key_, L"Both"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteValueW(key_, L"Both"));
  HKEY reopened = nullptr;
  EXPECT_EQ(ERROR_SUCCESS, RegOpenKeyExW(key_, L"Both\\Deeper", 0, 0, &reopened))
      << "deleting the value left the key";
  RegCloseKey(reopened);

  EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(key_, L"Both"));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegOpenKeyExW(key_, L"Both\\Deeper", 0, 0, &reopened));
  EXPECT_EQ(ERROR_KEY_DELETED, SetDword(sub, L"Inner", 1));
  RegCloseKey(sub);
}

TEST_F(RegistryTest, EnumerationFollowsCreationOrderAndRewritesKeepTheirPlace) {
  for (DWORD v : {3u, 1u, 2u})
    ASSERT_EQ(ERROR_SUCCESS, SetDword(key_, (L"V" + std::to_wstring(v)).c_str(), v));
  ASSERT_EQ(ERROR_SUCCESS, SetDword(key_, L"V3", 9));
  std::vector<std::wstring> names;
  for (DWORD i = 0;; ++i) {
    wchar_t name[16];
    DWORD name_size = 16;
    const LONG rc = RegEnumValueW(key_, i, name, &name_size, nullptr, nullptr, nullptr, nullptr);
    if (rc == ERROR_NO_MORE_ITEMS) break;
    ASSERT_EQ(ERROR_SUCCESS, rc);
    names.emplace_back(name, name_size);
  }
  EXPECT_EQ((std::vector<std::wstring>{L"V3", L"V1", L"V2"}), names);

  HKEY again_key = nullptr;
  DWORD disposition = 0;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, L"\\software\\TEST\\", 0, nullptr, 0,
                                           0, nullptr, &again_key, &disposition));
  EXPECT_EQ(REG_OPENED_EXISTING_KEY, disposition) << "key names compare without case";
  RegCloseKey(again_key);
}

}  // namespace
