#include "sync/task_records.h"

#include "platform/lasterror.h"
#include "platform/localmem.h"
#include "platform/wstr.h"

namespace velmo::sync {
namespace {

class ReadBuffer {
 public:
  ~ReadBuffer() {
    if (data_) LocalFree(data_);
  }
  BYTE** data() { return &data_; }
  DWORD* size() { return &size_; }

 private:
  BYTE* data_ = nullptr;
  DWORD size_ = 0;
};

void Decode(CEOID oid, const CEPROPVAL* props, WORD count, SyncRecord* out) {
  *out = SyncRecord{};
  out->oid = oid;
  poom::DecodeTask(props, props + count, &out->values);
  for (WORD i = 0; i < count; ++i) {
    const CEPROPVAL& v = props[i];
    if (v.wFlags & CEDB_PROPNOTFOUND) continue;
    if (v.propid == kPropSyncUid && v.val.lpwstr) out->uid = ToUtf8(v.val.lpwstr);
    if (v.propid == kPropSyncKept && v.val.blob.lpb)
      out->kept.assign(reinterpret_cast<const char*>(v.val.blob.lpb), v.val.blob.dwCount);
  }
}

void AddIdentity(const std::wstring& uid, const std::string& kept, std::vector<CEPROPVAL>* props) {
  CEPROPVAL u{kPropSyncUid, 0, 0, {}};
  u.val.lpwstr = const_cast<wchar_t*>(uid.c_str());
  props->push_back(u);
  CEPROPVAL k{kPropSyncKept, 0, 0, {}};
  k.val.blob.dwCount = static_cast<DWORD>(kept.size());
  k.val.blob.lpb = reinterpret_cast<BYTE*>(const_cast<char*>(kept.data()));
  props->push_back(k);
}

}  // namespace

bool ReadSyncRecord(HANDLE db, CEOID oid, SyncRecord* out) {
  if (CeSeekDatabase(db, CEDB_SEEK_CEOID, oid, nullptr) != oid) return false;
  ReadBuffer buffer;
  WORD count = 0;
  if (CeReadRecordProps(db, CEDB_ALLOWREALLOC, &count, nullptr, buffer.data(), buffer.size()) != oid)
    return false;
  Decode(oid, reinterpret_cast<CEPROPVAL*>(*buffer.data()), count, out);
  return true;
}

bool ReadAllSyncRecords(HANDLE db, std::vector<SyncRecord>* out) {
  out->clear();
  if (CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 0, nullptr) == 0)
    return GetLastError() == ERROR_NO_MORE_ITEMS || GetLastError() == ERROR_INVALID_PARAMETER ||
           GetLastError() == 0;
  ReadBuffer buffer;
  for (;;) {
    WORD count = 0;
    const CEOID oid =
        CeReadRecordProps(db, CEDB_ALLOWREALLOC, &count, nullptr, buffer.data(), buffer.size());
    if (oid == 0) return GetLastError() == ERROR_NO_MORE_ITEMS;
    out->emplace_back();
    Decode(oid, reinterpret_cast<CEPROPVAL*>(*buffer.data()), count, &out->back());
  }
}

CEOID WriteSyncRecord(HANDLE db, CEOID oid, const poom::TaskValues& values, const std::string& uid,
                      const std::string& kept) {
  poom::EncodedProps props;
  poom::EncodeTask(values, poom::kAllFields, &props);
  const std::wstring wide_uid = FromUtf8(uid);
  AddIdentity(wide_uid, kept, &props.values);
  return CeWriteRecordProps(db, oid, static_cast<WORD>(props.values.size()), props.values.data());
}

bool WriteSyncIdentity(HANDLE db, CEOID oid, const std::string& uid, const std::string& kept) {
  std::vector<CEPROPVAL> props;
  const std::wstring wide_uid = FromUtf8(uid);
  AddIdentity(wide_uid, kept, &props);
  return CeWriteRecordProps(db, oid, static_cast<WORD>(props.size()), props.data()) == oid;
}

}  // namespace velmo::sync
