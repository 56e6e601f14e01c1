#include "cli/demo_tasks.h"

#include <cmath>
#include <iterator>

#include "store/task_recurrence.h"

namespace velmo::cli {
namespace {

constexpr const wchar_t* kVerbs[] = {
    L"Call", L"E-mail", L"Buy", L"Review", L"Pay", L"Book", L"Fix", L"Plan", L"Send", L"Renew",
    L"Prepare", L"Pick up", L"Clean", L"Schedule", L"Return", L"Cancel", L"Print", L"Check"};
constexpr const wchar_t* kObjects[] = {
    L"the dentist", L"car insurance", L"quarterly report", L"birthday present for Anna",
    L"train tickets to Lyon", L"the plumber", L"electricity bill", L"team meeting agenda",
    L"library books", L"passport photos", L"Müller's offer", L"garden hose", L"flat lease",
    L"slides for Thursday", L"tax return", L"café reservation", L"parcel at the post office",
    L"invoice #4711", L"photos from the holiday", L"bike service", L"vet appointment for Rex"};
constexpr const wchar_t* kPhoneNumbers[] = {L"+44 20 7946 0958", L"(555) 013-4567",
                                            L"0171 2345678", L"+1 212 555 0199", L"555-0134"};
constexpr const wchar_t* kMail[] = {L"anna.berg@example.org", L"support@shop.example.com",
                                    L"j.doe@mail.example.net", L"office@dentist.example"};
constexpr const wchar_t* kWeb[] = {L"www.example.com/tickets", L"https://example.net/order?id=81",
                                   L"http://wiki.example.org/Agenda", L"www.bahn.example/booking"};
constexpr const wchar_t* kSentences[] = {
    L"Remember to bring the documents.", L"Ask about the discount for members.",
    L"Costs about 45 € in total.", L"Last time it took two weeks — start early.",
    L"Parking is behind the building, entrance B.", L"Compare with last year's numbers first.",
    L"Only weekdays between 9 and 17 o'clock.", L"Reference: K-2291/B", L"Don't forget the receipt!",
    L"See the attached list: milk, eggs, bread, coffee.", L"Meeting room 3.14, second floor."};
constexpr const wchar_t* kCategories[] = {L"Business", L"Personal", L"Holiday", L"Gifts",
                                          L"Ideas", L"Phone Calls", L"Errands", L"Waiting"};

// Notes past this length with "]" at the end are the long notes the list marks.
constexpr size_t kVeryLongNotes = 32000;

template <typename T, size_t N>
constexpr size_t Count(const T (&)[N]) { return N; }

}  // namespace

std::wstring DemoTaskMaker::Subject() {
  std::wstring subject = kVerbs[Pick(Count(kVerbs))];
  subject += L' ';
  subject += kObjects[Pick(Count(kObjects))];
  if (Chance(10)) subject += std::wstring(L" ") + kPhoneNumbers[Pick(Count(kPhoneNumbers))];
  if (Chance(4)) subject += std::wstring(L" (") + kMail[Pick(Count(kMail))] + L")";
  return subject;
}

std::wstring DemoTaskMaker::Notes() {
  // Mostly short, some of a page or two, a very few beyond the long-notes mark.
  const size_t roll = Pick(1000);
  const size_t target = roll < 600 ? 20 + Pick(120) : roll < 950 ? 200 + Pick(800)
                        : roll < 998 ? 2000 + Pick(6000) : kVeryLongNotes;
  std::wstring notes;
  while (notes.size() < target) {
    const size_t kind = Pick(10);
    if (kind == 0)
      notes += std::wstring(L"Phone: ") + kPhoneNumbers[Pick(Count(kPhoneNumbers))];
    else if (kind == 1)
      notes += std::wstring(L"Mail ") + kMail[Pick(Count(kMail))];
    else if (kind == 2)
      notes += std::wstring(L"Details at ") + kWeb[Pick(Count(kWeb))];
    else
      notes += kSentences[Pick(Count(kSentences))];
    notes += Chance(20) ? L"\r\n" : L" ";
  }
  if (target == kVeryLongNotes) notes += L"[end of notes]";
  return notes;
}

void DemoTaskMaker::Dates(DemoTask* task) {
  const size_t kind = Pick(100);
  if (kind < 20) return;  // undated
  const double due_offset = kind < 35 ? -1.0 - Pick(30) : kind < 50 ? 0.0 : 1.0 + Pick(60);
  task->due = today_ + due_offset;
  if (Chance(35)) task->start = task->due - static_cast<double>(Pick(10));
  if (Chance(35)) {
    // On the day at a round hour, or the evening before; always within the
    // 45 days the object model allows.
    const double hour = 7 + static_cast<double>(Pick(12));
    task->reminder = Chance(70) ? task->due + hour / 24.0 : task->due - 1.0 + 18.0 / 24.0;
  }
  if (Chance(10)) task->recurrence = 1 + static_cast<int>(Pick(12));
  task->complete = due_offset < 0 && task->recurrence == 0 && Chance(40);
}

DemoTask DemoTaskMaker::Next() {
  DemoTask task;
  task.subject = Subject();
  Dates(&task);
  const size_t priority = Pick(100);
  task.importance = priority < 15 ? 2 : priority < 25 ? 0 : 1;
  if (Chance(60)) {
    task.categories = kCategories[Pick(Count(kCategories))];
    if (Chance(25)) task.categories += std::wstring(L",") + kCategories[Pick(Count(kCategories))];
  }
  if (Chance(50)) task.notes = Notes();
  task.is_private = Chance(5);
  return task;
}

HRESULT SaveDemoTask(const DemoTask& t, IPOutlookApp* app) {
  ITask* item = nullptr;
  HRESULT result = app->CreateItem(olTaskItem, &item);
  if (FAILED(result) || !item) return FAILED(result) ? result : E_FAIL;
  item->put_Subject(t.subject.c_str());
  item->put_StartDate(t.start);
  item->put_DueDate(t.due);
  item->put_Importance(t.importance);
  item->put_Sensitivity(t.is_private ? olPrivate : olNormal);
  if (!t.categories.empty()) item->put_Categories(t.categories.c_str());
  if (!t.notes.empty()) item->put_Body(t.notes.c_str());
  if (t.reminder != kNoDate) {
    item->put_ReminderSet(VARIANT_TRUE);
    item->put_ReminderTime(t.reminder);
  }
  if (t.recurrence != 0)
    WriteRecurrenceToItem(item, t.recurrence, t.start != kNoDate ? t.start : t.due, kNoDate);
  if (t.complete) item->put_Complete(VARIANT_TRUE);
  result = item->Save();
  item->Release();
  return result;
}

}  // namespace velmo::cli
