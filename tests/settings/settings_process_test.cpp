// The settings through the real program: the first normal start saves them, and
// a normal start of a moved program file migrates old settings and re-registers
// it for the after-synchronisation start.
#include <csignal>
#include <filesystem>

#include "platform/notify.h"
#include "platform/wstr.h"
#include "tests/app/child_process.h"
#include "tests/settings/settings_fixture.h"

namespace velmo {
namespace {

using testing::ChildProcess;

class SettingsProcessTest : public testing::SettingsTest {
 protected:
  void NormalStart(const std::string& program) {
    ChildProcess start(program, {});
    ASSERT_NE("", start.WaitForLine("--- screen")) << start.error_output();
    start.Signal(SIGINT);
    EXPECT_EQ(0, start.Wait());
  }
  static std::wstring StoredText(const wchar_t* name) {
    const registry::RawValue v = Stored(name);
    std::u16string units;
    for (size_t i = 0; i + 1 < v.bytes.size(); i += 2)
      units += static_cast<char16_t>(v.bytes[i] | v.bytes[i + 1] << 8);
    return FromUtf16(units.substr(0, units.find(u'\0')));
  }
};

TEST_F(SettingsProcessTest, AMovedProgramWithOldSettingsMigratesAndReRegisters) {
  NormalStart(VELMO_TODO_BIN);  // the first start saves every setting
  const std::wstring original = FromUtf8(std::filesystem::canonical(VELMO_TODO_BIN).string());
  EXPECT_EQ(original, StoredText(L"Path"));
  EXPECT_EQ(480u, StoredDword(L"ReminderTime"));
  EXPECT_EQ(REG_MULTI_SZ, Stored(L"NTxt4").type);

  SetDword(L"VersionMajor", 5);
  SetDword(L"VersionMinor", 10);
  SetDword(L"TodayFont", 4);
  const std::filesystem::path moved = root() / "moved" / "velmo-todo";
  std::filesystem::create_directories(moved.parent_path());
  std::filesystem::copy_file(VELMO_TODO_BIN, moved);
  NormalStart(moved.string());

  EXPECT_EQ(FromUtf8(moved.string()), StoredText(L"Path"));
  EXPECT_EQ(3u, StoredDword(L"TodayFont"));
  EXPECT_EQ(6u, StoredDword(L"VersionMajor"));
  EXPECT_EQ(17u, StoredDword(L"VersionMinor"));
  std::vector<notify::RunAtEventRegistration> registered;
  ASSERT_TRUE(notify::ListRunAppAtEvent(NOTIFICATION_EVENT_SYNC_END, &registered));
  ASSERT_FALSE(registered.empty());
  EXPECT_EQ(FromUtf8(moved.string()), registered.back().app);
}

}  // namespace
}  // namespace velmo
