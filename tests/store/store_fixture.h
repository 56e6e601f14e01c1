// A device with the tasks database open through the store's connection, and
// records made property by property, for tests of the store and reminders.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/cedb.h"
#include "platform/clock.h"
#include "store/task.h"
#include "tests/platform/cedb_fixture.h"

namespace velmo::testing {

// The properties of one record, typed by their identifiers.
class Props {
 public:
  Props& Text(CEPROPID id, const std::wstring& text);
  Props& Int(CEPROPID id, LONG value);  // 16 or 32 bits, as the identifier says
  Props& Date(CEPROPID id, DATE date);
  Props& Blob(CEPROPID id, const std::string& bytes);
  std::vector<CEPROPVAL>& values() { return values_; }

 private:
  std::vector<CEPROPVAL> values_;
  std::deque<std::wstring> texts_;
  std::deque<std::string> blobs_;
};

class StoreTest : public DeviceTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  CEOID AddRecord(Props props);
  Task Read(CEOID oid);

  ScopedClock clock_{MakeDate(2024, 5, 15, 12, 0)};
};

}  // namespace velmo::testing
