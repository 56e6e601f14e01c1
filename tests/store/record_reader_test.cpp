// Reading records of the tasks database into Task records.
#include <gtest/gtest.h>

#include <functional>

#include "list/list_state.h"
#include "list/view_ids.h"
#include "settings/settings.h"
#include "store/notes_text.h"
#include "store/record_reader.h"
#include "store/task_props.h"
#include "tests/store/store_fixture.h"

namespace velmo::testing {
namespace {

class RecordReaderTest : public StoreTest {};

TEST_F(RecordReaderTest, StoredValuesMapToFields) {
  struct Case { CEPROPID id; LONG stored; std::function<LONG(const Task&)> field; LONG expected; };
  const auto importance = [](const Task& t) { return t.importance; };
  const auto sensitivity = [](const Task& t) { return t.sensitivity; };
  const Case cases[] = {
      {kPropImportance, 1, importance, kImportanceHigh},
      {kPropImportance, 2, importance, kImportanceNormal},
      {kPropImportance, 3, importance, kImportanceLow},
      {kPropImportance, 7, importance, kImportanceNormal},
      {kPropSensitivity, 1, sensitivity, kSensitivityPrivate},
      {kPropSensitivity, 3, sensitivity, kSensitivityNormal},
      {kPropReminderBaseFlag, -2, [](const Task& t) { return t.reminder_base_flag; }, -2},
  };
  for (const Case& c : cases) {
    const CEOID oid = AddRecord(Props().Int(c.id, c.stored));
    EXPECT_EQ(c.field(Read(oid)), c.expected) << std::hex << c.id << " stored " << c.stored;
  }
}

TEST_F(RecordReaderTest, AbsentAndMistypedPropertiesReadAsInitialValues) {
  const CEOID oid = AddRecord(Props().Int(0x00370003, 5)         // a subject that is a number
                                  .Text(0x0026001F, L"high")  // an importance that is text
                                  .Date(kPropDueDate, MakeDate(2024, 6, 1)));
  const Task task = Read(oid);
  EXPECT_EQ(task.oid, oid);
  EXPECT_EQ(task.subject, L"");
  EXPECT_EQ(task.importance, kImportanceNormal);
  EXPECT_EQ(task.due_date, MakeDate(2024, 6, 1));
  EXPECT_EQ(task.categories, L"");
}

TEST_F(RecordReaderTest, NotesState) {
  const std::string long_text(kLongNotesChars, 'a');
  const struct { std::string bytes; WORD state; } cases[] = {
      {"", kNoNotes},                                {"\r\n", kNoNotes},
      {std::string(2, '\0'), kNoNotes},              {std::string("\r\n\0\0", 4), kNoNotes},
      {" ", kHasNotes},                              {"\r\n\r\n", kNoNotes},
      {long_text + "]", kLongNotesEndingInBracket},  {long_text.substr(1) + "]", kHasNotes},
      {long_text + "]x", kHasNotes},
      {"\x81\x8d\xff\xfe", kHasNotes},  // not text in any sense, still notes
  };
  for (const auto& c : cases) {
    const CEOID oid = AddRecord(Props().Blob(kPropNotes, c.bytes));
    EXPECT_EQ(Read(oid).notes_state, c.state) << c.bytes.size() << " bytes";
  }
}

TEST_F(RecordReaderTest, NotesAreWindows1252UpToTheirFirstZeroByte) {
  const char kNotes[] = "\x80 5, na\xefve \x93q\x94, call 030 1234567\0 or 0171 2345678";
  const std::string notes(kNotes, sizeof kNotes - 1);
  const CEOID oid = AddRecord(Props().Text(kPropSubject, L"s").Blob(kPropNotes, notes));
  EXPECT_EQ(Read(oid).phone_number, L"030 1234567");
  CurrentSettings().search = L"NA\u00CFVE \u201CQ";
  SetView(kViewSearch);
  EXPECT_EQ(Read(oid).search_match, kSearchMatchNotes);
  CurrentSettings().search = L"0171";
  EXPECT_EQ(Read(oid).search_match, 0u) << "nothing after the zero byte is notes";
  SetView(kViewAllTasks);
}

TEST_F(RecordReaderTest, MegabyteNotesLoadWithTheirLinks) {
  std::string notes(1 << 20, 'x');
  notes.replace(notes.size() - 40, 37, " mail a@example.o, call 0171 2345678");
  const CEOID oid = AddRecord(Props().Text(kPropSubject, L"big").Blob(kPropNotes, notes));
  const Task task = Read(oid);
  EXPECT_EQ(task.notes_state, kHasNotes);
  EXPECT_EQ(task.mail_link_count, 1);
  EXPECT_EQ(task.phone_number, L"0171 2345678");
}

TEST_F(RecordReaderTest, SearchMarksOnlyInTheSearchView) {
  CurrentSettings().search = L"GARAGE";
  const CEOID oid = AddRecord(Props().Text(kPropSubject, L"garage").Blob(kPropNotes, "the Garage"));
  const CEOID bare = AddRecord(Props().Text(kPropSubject, L"garage"));
  EXPECT_EQ(Read(oid).search_match, 0u);
  SetView(kViewSearch);
  EXPECT_EQ(Read(oid).search_match, kSearchMatchNotes | kSearchMatchSubject);
  EXPECT_EQ(Read(bare).search_match, kSearchMatchSubject);
  CurrentSettings().search_case_sensitive = true;
  EXPECT_EQ(Read(oid).search_match, 0u);
  SetView(kViewAllTasks);
}

TEST_F(RecordReaderTest, MissingRecordFailsWithEmptySubject) {
  Task task;
  task.subject = L"old";
  EXPECT_FALSE(ReadTaskRecord(&task, 4242));
  EXPECT_EQ(task.subject, L"");
}

}  // namespace
}  // namespace velmo::testing
