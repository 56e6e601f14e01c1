// A logged-on application object on a fresh device, with a raw handle on the
// tasks database to look at and change the records behind the object model.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/poom.h"
#include "tests/platform/cedb_fixture.h"

namespace velmo::testing {

// One property of a record as read raw.
struct RawProp {
  CEPROPID propid = 0;
  LONG number = 0;          // I2 (sign-extended) and I4
  std::wstring text;        // LPWSTR
  std::string bytes;        // BLOB
  DATE date = 0;            // FILETIME
};

class PoomTest : public DeviceTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // A new item with the subject, saved; its identifier.
  CEOID NewTask(const wchar_t* subject, DATE start = kNoDate, DATE due = kNoDate);
  // The item of the record (the test fails when there is none).
  ITask* Item(CEOID oid);
  // A new, unsaved item (the test fails when there is none).
  ITask* Fresh();
  // Every property of the record, by identifier; empty when it is gone.
  std::map<CEPROPID, RawProp> Raw(CEOID oid);
  // Writes properties straight into the record (0: a new record).
  CEOID WriteRaw(CEOID oid, std::vector<CEPROPVAL> props);
  // Record identifiers of the tasks database in database order.
  std::vector<CEOID> Records();

  IPOutlookApp* app_ = nullptr;
  CEGUID volume_{};
  HANDLE db_ = INVALID_HANDLE_VALUE;
};

// Releases an interface when it goes.
template <typename T>
struct Ref {
  T* p = nullptr;
  Ref() = default;
  explicit Ref(T* q) : p(q) {}
  Ref(const Ref&) = delete;
  ~Ref() {
    if (p) p->Release();
  }
  T* operator->() const { return p; }
  T** operator&() { return &p; }
};

// A BSTR getter's text, the BSTR freed.
std::wstring TextOf(HRESULT (ITask::*get)(BSTR*), ITask* item);
// The item's record identifier and reminder time.
CEOID OidOf(ITask* item);
DATE ReminderOf(ITask* item);

}  // namespace velmo::testing
