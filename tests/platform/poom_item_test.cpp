// Task items through the object model: the record format they are stored in,
// what Save writes and leaves alone, Copy and Delete, items whose record is gone.
#include "platform/clock.h"
#include "platform/oletime.h"
#include "platform/poom_props.h"
#include "tests/platform/poom_fixture.h"

namespace velmo::testing {
namespace {

using namespace velmo::poom;

TEST_F(PoomTest, EveryFieldIsStoredInTheRecordFormat) {
  Ref<ITask> item{Fresh()};
  const DATE start = MakeDate(2025, 3, 10);
  const DATE due = MakeDate(2025, 3, 14);
  item->put_Subject(L"Call Müller");
  item->put_Body(L"Price 5 \u20ac\r\nline two");
  item->put_Categories(L"Work,Home");
  item->put_StartDate(start);
  item->put_DueDate(due);
  item->put_Importance(olImportanceHigh);
  item->put_Sensitivity(olPrivate);
  item->put_TeamTask(VARIANT_TRUE);
  item->put_ReminderSet(VARIANT_TRUE);
  item->put_ReminderTime(due - 90.0 / 1440);
  item->put_ReminderOptions(olLED | olSound);
  item->put_ReminderSoundFile(L"alarm3");
  ASSERT_EQ(item->Save(), S_OK);
  const CEOID oid = OidOf(item.p);
  ASSERT_NE(oid, 0u);

  auto raw = Raw(oid);
  EXPECT_EQ(raw[kPropSubject].text, L"Call Müller");
  EXPECT_EQ(raw[kPropNotes].bytes, std::string("Price 5 \x80\r\nline two"));
  EXPECT_EQ(raw[kPropCategories].text, L"Work,Home");
  EXPECT_EQ(raw[kPropStartDate].date, start);
  EXPECT_EQ(raw[kPropDueDate].date, due);
  EXPECT_EQ(raw[kPropDateCompleted].date, kNoDate);
  const std::pair<CEPROPID, LONG> numbers[] = {
      {kPropComplete, 0}, {kPropRecurring, 0}, {kPropImportance, 1}, {kPropSensitivity, 1},
      {kPropTeamTask, 1}, {kPropReminderSet, 1}, {kPropReminderMinutes, 90},
      {kPropReminderOptions, olLED | olSound}};
  for (const auto& [prop, number] : numbers) EXPECT_EQ(raw[prop].number, number) << std::hex << prop;
  EXPECT_NE(raw[kPropReminderBaseFlag].number, 0);
  EXPECT_EQ(raw[kPropReminderSound].text, L"alarm3");
  EXPECT_EQ(raw.count(kPropNotificationHandle), 0u);

  Ref<ITask> again{Item(oid)};
  ASSERT_NE(again.p, nullptr);
  EXPECT_EQ(TextOf(&ITask::get_Body, again.p), L"Price 5 \u20ac\r\nline two");
  EXPECT_EQ(TextOf(&ITask::get_Subject, again.p), L"Call Müller");
  EXPECT_NEAR(ReminderOf(again.p), due - 90.0 / 1440, 1e-9);
  LONG importance = -1, sensitivity = -1;
  again->get_Importance(&importance);
  again->get_Sensitivity(&sensitivity);
  EXPECT_EQ(importance, olImportanceHigh);
  EXPECT_EQ(sensitivity, olPrivate);
}

TEST_F(PoomTest, NotesOutsideTheCodePageBecomeQuestionMarks) {
  Ref<ITask> item{Fresh()};
  item->put_Body(L"\u65e5 ok");
  ASSERT_EQ(item->Save(), S_OK);
  const CEOID oid = OidOf(item.p);
  EXPECT_EQ(Raw(oid)[kPropNotes].bytes, "? ok");
  item->put_Body(L"");
  ASSERT_EQ(item->Save(), S_OK);
  EXPECT_EQ(Raw(oid).count(kPropNotes), 0u) << "empty notes remove the property";
}

struct EncodingCase { CEPROPID propid; LONG stored; HRESULT (ITask::*get)(LONG*); LONG read; };

TEST_F(PoomTest, StoredImportanceAndSensitivityRead) {
  const EncodingCase cases[] = {
      {kPropImportance, 1, &ITask::get_Importance, olImportanceHigh},
      {kPropImportance, 2, &ITask::get_Importance, olImportanceNormal},
      {kPropImportance, 3, &ITask::get_Importance, olImportanceLow},
      {kPropImportance, 0, &ITask::get_Importance, olImportanceNormal},
      {kPropImportance, 7, &ITask::get_Importance, olImportanceNormal},
      {kPropSensitivity, 1, &ITask::get_Sensitivity, olPrivate},
      {kPropSensitivity, 0, &ITask::get_Sensitivity, olNormal},
      {kPropSensitivity, 3, &ITask::get_Sensitivity, olNormal},
  };
  for (const EncodingCase& c : cases) {
    const CEPROPVAL v = TypeFromPropID(c.propid) == CEVT_I2
                            ? RawI2(c.propid, static_cast<SHORT>(c.stored))
                            : RawI4(c.propid, c.stored);
    const CEOID oid = WriteRaw(0, {v});
    ASSERT_NE(oid, 0u);
    Ref<ITask> item{Item(oid)};
    LONG value = -1;
    ASSERT_EQ((item.p->*c.get)(&value), S_OK);
    EXPECT_EQ(value, c.read) << std::hex << c.propid << " stored " << c.stored;
  }
}

TEST_F(PoomTest, ImportanceAndSensitivityAreStoredEncoded) {
  struct Case { LONG importance, sensitivity, stored_importance, stored_sensitivity; } const cases[] = {
      {olImportanceLow, olNormal, 3, 0}, {olImportanceNormal, olPrivate, 2, 1},
      {olImportanceHigh, olNormal, 1, 0}};
  for (const Case& c : cases) {
    Ref<ITask> item{Fresh()};
    ASSERT_EQ(item->put_Importance(c.importance), S_OK);
    ASSERT_EQ(item->put_Sensitivity(c.sensitivity), S_OK);
    ASSERT_EQ(item->Save(), S_OK);
    const CEOID oid = OidOf(item.p);
    auto raw = Raw(oid);
    EXPECT_EQ(raw[kPropImportance].number, c.stored_importance);
    EXPECT_EQ(raw[kPropSensitivity].number, c.stored_sensitivity);
  }
  Ref<ITask> item{Fresh()};
  EXPECT_EQ(item->put_Importance(3), E_INVALIDARG);
  EXPECT_EQ(item->put_Sensitivity(1), E_INVALIDARG);
  EXPECT_EQ(item->put_DueDate(1e12), E_INVALIDARG);
}

TEST_F(PoomTest, SaveWritesOnlyWhatChanged) {
  const CEOID oid = NewTask(L"Before");
  Ref<ITask> item{Item(oid)};
  // Written straight into the record after the item was read.
  ASSERT_EQ(WriteRaw(oid, {RawText(kPropCategories, L"Direct"), RawI4(kPropNotificationHandle, 42),
                           RawI4(0x7777'0003, 5)}), oid);
  item->put_Subject(L"After");
  ASSERT_EQ(item->Save(), S_OK);
  auto raw = Raw(oid);
  EXPECT_EQ(raw[kPropSubject].text, L"After");
  EXPECT_EQ(raw[kPropCategories].text, L"Direct");
  EXPECT_EQ(raw[kPropNotificationHandle].number, 42);
  EXPECT_EQ(raw[0x7777'0003].number, 5);
}

TEST_F(PoomTest, PropertiesOfAnotherTypeAreNotTheModels) {
  // The subject's identifier with a 32-bit value, importance as a string.
  const CEOID oid = WriteRaw(0, {RawI4(0x00370003, 9), RawText(0x0026001F, L"high")});
  ASSERT_NE(oid, 0u);
  Ref<ITask> item{Item(oid)};
  EXPECT_EQ(TextOf(&ITask::get_Subject, item.p), L"");
  LONG importance = -1;
  item->get_Importance(&importance);
  EXPECT_EQ(importance, olImportanceNormal);
  item->put_Subject(L"Fixed");
  ASSERT_EQ(item->Save(), S_OK);
  auto raw = Raw(oid);
  EXPECT_EQ(raw[0x00370003].number, 9) << "left as it was";
  EXPECT_EQ(raw[kPropSubject].text, L"Fixed");
}

TEST_F(PoomTest, ItemsWhoseRecordIsGone) {
  const CEOID oid = NewTask(L"Doomed");
  Ref<ITask> item{Item(oid)};
  ASSERT_TRUE(CeDeleteRecord(db_, oid));
  item->put_Subject(L"Too late");
  EXPECT_EQ(item->Save(), E_INVALIDARG);
  Ref<ITask> unchanged;
  EXPECT_EQ(app_->GetItemFromOid(oid, &unchanged), E_INVALIDARG);
  EXPECT_EQ(unchanged.p, nullptr);
  EXPECT_EQ(Records().size(), 0u) << "a failed save makes no record";

  // A record of another database is no task.
  CEOID contacts_oid = 0;
  HANDLE contacts = CeOpenDatabaseEx(&volume_, &contacts_oid, cedb::kContactsDatabaseName, 0, 0, nullptr);
  if (contacts == INVALID_HANDLE_VALUE) {
    CEDBASEINFO info{};
    info.dwFlags = CEDB_VALIDNAME;
    std::wcscpy(info.szDbaseName, L"Other");
    ASSERT_NE(CeCreateDatabaseEx(&volume_, &info), 0u);
    contacts = CeOpenDatabaseEx(&volume_, &contacts_oid, L"Other", 0, 0, nullptr);
  }
  CEPROPVAL name = RawText(kPropSubject, L"Not a task");
  const CEOID other = CeWriteRecordProps(contacts, 0, 1, &name);
  ASSERT_NE(other, 0u);
  EXPECT_EQ(app_->GetItemFromOid(other, &unchanged), E_INVALIDARG);
  CeCloseHandle(contacts);
}

TEST_F(PoomTest, CopyMakesASavedTaskWithoutTheNotificationHandle) {
  const CEOID oid = NewTask(L"Original", MakeDate(2025, 1, 1), MakeDate(2025, 1, 2));
  ASSERT_EQ(WriteRaw(oid, {RawI4(kPropNotificationHandle, 7), RawI4(0x7777'0003, 5)}), oid);
  Ref<ITask> item{Item(oid)};
  item->put_Body(L"new notes");
  Ref<ITask> copy;
  ASSERT_EQ(item->Copy(&copy), S_OK);
  const CEOID copy_oid = OidOf(copy.p);
  EXPECT_NE(copy_oid, oid);
  EXPECT_EQ(Records(), (std::vector<CEOID>{oid, copy_oid}));
  auto copied = Raw(copy_oid);
  EXPECT_EQ(copied[kPropSubject].text, L"Original");
  EXPECT_EQ(copied[kPropNotes].bytes, "new notes");
  EXPECT_EQ(copied[0x7777'0003].number, 5);
  EXPECT_EQ(copied.count(kPropNotificationHandle), 0u);
  EXPECT_EQ(Raw(oid).count(kPropNotes), 0u) << "Copy does not save the source";

  ASSERT_EQ(item->Delete(), S_OK);
  EXPECT_EQ(Records(), (std::vector<CEOID>{copy_oid}));
}

TEST_F(PoomTest, CompleteSetsAndClearsTheCompletionDate) {
  ScopedClock clock(MakeDate(2025, 6, 3, 14, 30));
  const CEOID oid = NewTask(L"Finish");
  Ref<ITask> item{Item(oid)};
  item->put_Complete(VARIANT_TRUE);
  ASSERT_EQ(item->Save(), S_OK);
  EXPECT_EQ(Raw(oid)[kPropComplete].number, 1);
  EXPECT_EQ(Raw(oid)[kPropDateCompleted].date, MakeDate(2025, 6, 3));
  item->put_Complete(VARIANT_FALSE);
  ASSERT_EQ(item->Save(), S_OK);
  EXPECT_EQ(Raw(oid)[kPropComplete].number, 0);
  EXPECT_EQ(Raw(oid)[kPropDateCompleted].date, kNoDate);
}

TEST_F(PoomTest, ReminderIsStoredAsMinutesBeforeTheDueDate) {
  const DATE start = MakeDate(2025, 5, 1);
  const DATE due = MakeDate(2025, 5, 20);
  struct Case { DATE reminder; LONG minutes; } const cases[] = {
      {due - 1.5, 2160}, {due + 10.0 / 1440, -10}, {due, 0}};
  for (const Case& c : cases) {
    Ref<ITask> item{Fresh()};
    item->put_StartDate(start);
    item->put_DueDate(due);
    item->put_ReminderTime(c.reminder);
    ASSERT_EQ(item->Save(), S_OK);
    const CEOID oid = OidOf(item.p);
    auto raw = Raw(oid);
    EXPECT_EQ(raw[kPropReminderMinutes].number, c.minutes);
    EXPECT_NE(raw[kPropReminderBaseFlag].number, 0);
  }
}

TEST_F(PoomTest, StoredReminderReadsFromItsBaseDate) {
  const DATE start = MakeDate(2025, 5, 1);
  const DATE due = MakeDate(2025, 5, 20);
  CEPROPVAL start_prop{kPropStartDate, 0, 0, {}};
  DateToFileTime(start, &start_prop.val.filetime);
  CEPROPVAL due_prop{kPropDueDate, 0, 0, {}};
  DateToFileTime(due, &due_prop.val.filetime);
  struct Case { std::vector<CEPROPVAL> props; DATE expected; } const cases[] = {
      {{due_prop, RawI2(kPropReminderBaseFlag, 1), RawI4(kPropReminderMinutes, 60)}, due - 1.0 / 24},
      {{start_prop, due_prop, RawI2(kPropReminderBaseFlag, 0), RawI4(kPropReminderMinutes, 30)},
       start - 30.0 / 1440},
      {{RawI2(kPropReminderBaseFlag, -1), RawI4(kPropReminderMinutes, 60)}, kNoDate},
      // No start date: the count goes back from the no-date value itself.
      {{RawI2(kPropReminderBaseFlag, 0), RawI4(kPropReminderMinutes, 1440)}, kNoDate - 1},
  };
  for (const Case& c : cases) {
    const CEOID oid = WriteRaw(0, c.props);
    Ref<ITask> item{Item(oid)};
    EXPECT_NEAR(ReminderOf(item.p), c.expected, 1e-9) << "record " << oid;
  }
}

TEST_F(PoomTest, MovingTheDueDateMovesTheReminder) {
  const DATE due = MakeDate(2025, 5, 20);
  const CEOID oid = NewTask(L"Moves", kNoDate, due);
  Ref<ITask> item{Item(oid)};
  item->put_ReminderTime(due - 1);
  ASSERT_EQ(item->Save(), S_OK);
  item->put_DueDate(due + 3);
  ASSERT_EQ(item->Save(), S_OK);
  Ref<ITask> again{Item(oid)};
  EXPECT_NEAR(ReminderOf(again.p), due + 2, 1e-9);
}

}  // namespace
}  // namespace velmo::testing
