// The object model's connection to the tasks database: the mounted volume and
// one handle on "Tasks Database", shared by the application object and every
// item it hands out (an item may outlive the application object).
#pragma once

#include <memory>
#include <vector>

#include "platform/cedb.h"

namespace velmo::poom {

// The properties of one record as read: an array of CEPROPVAL in a local-heap
// buffer that is freed with the object.
class RecordProps {
 public:
  RecordProps() = default;
  ~RecordProps();
  RecordProps(const RecordProps&) = delete;
  RecordProps& operator=(const RecordProps&) = delete;

  const CEPROPVAL* begin() const { return reinterpret_cast<const CEPROPVAL*>(buffer_); }
  const CEPROPVAL* end() const { return begin() + count_; }
  WORD count() const { return count_; }

 private:
  friend class Session;
  BYTE* buffer_ = nullptr;
  DWORD size_ = 0;
  WORD count_ = 0;
};

class Session {
 public:
  // Mounts the volume named by "DbPath" (HKCU\Software\Microsoft\Windows, default
  // \IPSM\mxip_initdb.vol), making it when missing, and opens the tasks database
  // ("TasksDatabase" under HKLM\Explorer\Database, default "Tasks Database"),
  // making it when missing. An HRESULT from the last error on failure.
  static HRESULT Open(std::shared_ptr<Session>* out);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Whether oid is a record of the tasks database.
  bool IsTaskRecord(CEOID oid) const;
  // Every property of the record; E_INVALIDARG when it is not a task record.
  HRESULT Read(CEOID oid, RecordProps* out) const;
  // Writes the properties into record oid (0: a new record, *written receives
  // its identifier). E_INVALIDARG when the record is gone.
  HRESULT Write(CEOID oid, std::vector<CEPROPVAL>& props, CEOID* written) const;
  HRESULT Delete(CEOID oid) const;

  // Several writes as one transaction.
  bool BeginBatch();
  bool EndBatch();

 private:
  Session() = default;
  CEGUID volume_{};
  bool mounted_ = false;
  HANDLE db_ = INVALID_HANDLE_VALUE;
  CEOID db_oid_ = 0;
};

}  // namespace velmo::poom
