// A device root with the settings key, and raw access to its stored values.
#pragma once

#include <string>
#include <vector>

#include "platform/registry.h"
#include "settings/settings.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {

class SettingsTest : public DeviceTest {
 protected:
  static constexpr const wchar_t* kProgram = L"/opt/velmo/bin/velmo-todo";
  void SetUp() override { SetProgramFilePath(kProgram); }
  void TearDown() override { SetProgramFilePath(L""); }

  // A registry holding every value of a first start, saved.
  void SaveFirstStart() {
    Settings s;
    ASSERT_EQ(1, LoadSettings(s));
    ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s, true));
  }

  static HKEY OpenSettingsKey() {
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, nullptr, 0, 0,
                                             nullptr, &key, nullptr));
    return key;
  }

  static void Set(const wchar_t* name, DWORD type, const std::vector<BYTE>& bytes) {
    HKEY key = OpenSettingsKey();
    EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(key, name, 0, type, bytes.data(),
                                            static_cast<DWORD>(bytes.size())));
    RegCloseKey(key);
  }
  static void SetDword(const wchar_t* name, DWORD value) {
    Set(name, REG_DWORD, {BYTE(value), BYTE(value >> 8), BYTE(value >> 16), BYTE(value >> 24)});
  }
  static void SetText(const wchar_t* name, DWORD type, const std::wstring& text) {
    std::vector<BYTE> bytes((text.size() + 1) * sizeof(wchar_t));
    std::copy_n(reinterpret_cast<const BYTE*>(text.c_str()), bytes.size(), bytes.begin());
    Set(name, type, bytes);
  }
  static void Delete(const wchar_t* name) {
    HKEY key = OpenSettingsKey();
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteValueW(key, name));
    RegCloseKey(key);
  }

  // The values as stored, in stored order.
  static std::vector<registry::RawValue> Stored() {
    std::vector<registry::RawKey> keys;
    EXPECT_EQ(ERROR_SUCCESS, registry::ExportTree(L"HKEY_CURRENT_USER\\Software\\Velmo ToDo", &keys));
    return keys.empty() ? std::vector<registry::RawValue>{} : keys[0].values;
  }
  static registry::RawValue Stored(const std::wstring& name) {
    for (const registry::RawValue& v : Stored())
      if (v.name == name) return v;
    ADD_FAILURE() << "value not stored";
    return {};
  }
  static DWORD StoredDword(const std::wstring& name) {
    const registry::RawValue v = Stored(name);
    EXPECT_EQ(REG_DWORD, v.type);
    EXPECT_EQ(4u, v.bytes.size());
    return v.bytes.size() == 4 ? DWORD(v.bytes[0] | v.bytes[1] << 8 | v.bytes[2] << 16 |
                                       DWORD(v.bytes[3]) << 24)
                               : 0xDEADBEEF;
  }
};

}  // namespace velmo::testing
