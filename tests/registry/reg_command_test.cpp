// velmo reg export / import through the real binary, and several processes
// writing one registry at once.
#include <string>

#include "platform/device.h"
#include "tests/app/child_process.h"
#include "tests/settings/settings_fixture.h"

namespace velmo {
namespace {

using Result = testing::RunResult;

class RegCommandTest : public testing::SettingsTest {
 protected:
  Result Velmo(std::vector<std::string> args) {
    args.insert(args.begin(), {"--root", device::Root().string()});
    return testing::RunProgram(VELMO_BIN, args);
  }
  std::filesystem::path Write(const std::string& name, const std::string& text) {
    testing::WriteFileBytes(root() / name, text);
    return root() / name;
  }
};

TEST_F(RegCommandTest, ExportShowsTheSavedSettingsInTheUsualForm) {
  SaveFirstStart();
  const Result r = Velmo({"reg", "export"});
  ASSERT_EQ(0, r.code) << r.err;
  EXPECT_EQ(0u, r.out.find("Windows Registry Editor Version 5.00\n\n"
                           "[HKEY_CURRENT_USER\\Software\\Velmo ToDo]\n"
                           "\"ReminderTime\"=dword:000001e0\n"
                           "\"ReminderDelta\"=dword:00000000\n"
                           "\"NotesSynchro\"=dword:00000001\n"
                           "\"Sort\"=hex:02,00,00,00,01,00,01,00,"));
  EXPECT_NE(std::string::npos, r.out.find("\"Path\"=\"/opt/velmo/bin/velmo-todo\"\n"));
  EXPECT_NE(std::string::npos, r.out.find("\"Txt20\"=\"\"\n\"NTxt1\"=hex(7):00,00\n"));

  EXPECT_EQ(1, Velmo({"reg", "export", "HKEY_CURRENT_USER\\Software\\Nothing"}).code);
  const Result bad_root = Velmo({"reg", "export", "HKEY_USERS\\x"});
  EXPECT_EQ(2, bad_root.code);
  EXPECT_NE(std::string::npos, bad_root.err.find("HKEY_CURRENT_USER"));
}

TEST_F(RegCommandTest, ExportAndImportRoundTripByteExact) {
  SaveFirstStart();
  Settings s;
  LoadSettings(s);
  s.txt[0] = L"C:\\Temp \"quoted\" Grüße \U0001F600";
  s.long_txt[0] = L"two\r\nlines";
  s.reminder_delta = -2;
  SaveSettings(s, true);
  Set(L"Odd", REG_BINARY, {1, 2, 3});
  Set(L"", 11, {1, 2, 3, 4, 5, 6, 7, 8});
  HKEY key = OpenSettingsKey();
  HKEY sub = nullptr;
  RegCreateKeyExW(key, L"Sub\\Deeper", 0, nullptr, 0, 0, nullptr, &sub, nullptr);
  RegSetValueExW(sub, L"Bare", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"ab"), 2 * sizeof(wchar_t));
  RegCloseKey(sub);
  RegCloseKey(key);
  const std::vector<registry::RawValue> before = Stored();

  const Result exported = Velmo({"reg", "export"});
  ASSERT_EQ(0, exported.code) << exported.err;
  const std::filesystem::path file = Write("settings.reg", exported.out);

  device::SetRoot(root() / "other-device");
  const Result imported = Velmo({"reg", "import", file.string()});
  ASSERT_EQ(0, imported.code) << imported.err;
  const std::vector<registry::RawValue> after = Stored();
  ASSERT_EQ(before.size(), after.size());
  for (size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(before[i].name, after[i].name);
    EXPECT_EQ(before[i].type, after[i].type);
    EXPECT_EQ(before[i].bytes, after[i].bytes);
  }
  EXPECT_EQ(exported.out, Velmo({"reg", "export"}).out) << "sub-keys included";
  Settings loaded;
  EXPECT_EQ(0, LoadSettings(loaded));
  EXPECT_EQ(s.txt[0], loaded.txt[0]);
  EXPECT_EQ(-2, loaded.reminder_delta);
}

TEST_F(RegCommandTest, AMalformedFileIsReportedByLineAndWritesNothing) {
  SaveFirstStart();
  const std::filesystem::path file =
      Write("bad.reg",
            "Windows Registry Editor Version 5.00\n\n"
            "[HKEY_CURRENT_USER\\Software\\Velmo ToDo]\n"
            "\"NDays\"=dword:00000003\n"
            "\"ADays\"=dword:nope\n"
            "\"Sort\"=hex:01,02,zz\n");
  const Result r = Velmo({"reg", "import", file.string()});
  EXPECT_EQ(1, r.code);
  EXPECT_NE(std::string::npos, r.err.find("bad.reg:5:"));
  EXPECT_NE(std::string::npos, r.err.find("bad.reg:6:"));
  EXPECT_EQ(7u, StoredDword(L"NDays")) << "the valid line before was not written either";

  const Result missing = Velmo({"reg", "import", (root() / "absent.reg").string()});
  EXPECT_EQ(1, missing.code);
  EXPECT_NE(std::string::npos, missing.err.find("absent.reg"));
  EXPECT_EQ(2, Velmo({"reg", "frobnicate"}).code);
}

TEST_F(RegCommandTest, ADamagedRegistryIsNamedAndLeftAlone) {
  Write("registry.db", std::string(2048, 'z'));
  const Result r = Velmo({"reg", "export"});
  EXPECT_EQ(1, r.code);
  EXPECT_NE(std::string::npos, r.err.find((root() / "registry.db").string()));
  EXPECT_EQ(std::string(2048, 'z'), testing::ReadFileBytes(root() / "registry.db"));
}

TEST_F(RegCommandTest, SeveralProcessesWritingAtOnceLoseNothing) {
  constexpr int kProcesses = 4;
  constexpr int kRounds = 5;
  constexpr int kValues = 50;
  for (int p = 0; p < kProcesses; ++p) {
    std::string text = "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Shared]\n";
    for (int v = 0; v < kValues; ++v)
      text += "\"p" + std::to_string(p) + "v" + std::to_string(v) + "\"=dword:" + std::to_string(p) + "\n";
    Write("p" + std::to_string(p) + ".reg", text);
  }
  std::string script;
  for (int p = 0; p < kProcesses; ++p) {
    script += "(for i in $(seq " + std::to_string(kRounds) + "); do " + VELMO_BIN + " --root '" +
              root().string() + "' reg import '" + (root() / ("p" + std::to_string(p) + ".reg")).string() +
              "' || echo FAILED; done) & ";
  }
  script += "wait\n";
  const std::string out = root() / "parallel.txt";
  const std::string script_file = Write("parallel.sh", script);
  ASSERT_EQ(0, std::system(("sh '" + script_file + "' >'" + out + "' 2>&1").c_str()));
  EXPECT_EQ("", testing::ReadFileBytes(out));

  std::vector<registry::RawKey> keys;
  ASSERT_EQ(ERROR_SUCCESS, registry::ExportTree(L"HKEY_CURRENT_USER\\Software\\Shared", &keys));
  ASSERT_EQ(1u, keys.size());
  EXPECT_EQ(static_cast<size_t>(kProcesses * kValues), keys[0].values.size());
}

}  // namespace
}  // namespace velmo
