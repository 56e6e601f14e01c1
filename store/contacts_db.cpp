#include "store/contacts_db.h"

#include <map>

#include "platform/localmem.h"
#include "store/connection.h"
#include "store/task_props.h"

namespace velmo {
namespace {

struct PhoneProp {
  PhoneKind kind;
  CEPROPID prop;
};
constexpr PhoneProp kPhoneProps[] = {{PhoneKind::kMobile, kPropContactMobile},
                                     {PhoneKind::kHome, kPropContactHome},
                                     {PhoneKind::kWork, kPropContactWork},
                                     {PhoneKind::kOther, kPropContactOtherPhone}};
constexpr CEPROPID kEmailProps[] = {kPropContactEmail1, kPropContactEmail2, kPropContactEmail3};

class ContactsDatabase {
 public:
  ContactsDatabase() {
    MountTasksVolume();
    handle_ = CeOpenDatabaseEx(&Store().volume, &oid_, Store().contacts_name.c_str(), 0,
                               CEDB_AUTOINCREMENT, nullptr);
  }
  ~ContactsDatabase() {
    if (ok()) CeCloseHandle(handle_);
  }
  ContactsDatabase(const ContactsDatabase&) = delete;
  ContactsDatabase& operator=(const ContactsDatabase&) = delete;
  bool ok() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE handle() const { return handle_; }

  DWORD Count() const {
    CEOIDINFOEX info{};
    info.wVersion = CEOIDINFOEX_VERSION;
    return CeOidGetInfoEx(&Store().volume, oid_, &info) && info.wObjType == OBJTYPE_DATABASE
               ? info.infDatabase.dwNumRecords
               : 0;
  }

 private:
  CEOID oid_ = 0;
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

CEPROPVAL Text(CEPROPID id, const std::wstring& text) {
  CEPROPVAL v{};
  v.propid = id;
  v.val.lpwstr = const_cast<LPWSTR>(text.c_str());
  if (text.empty()) v.wFlags = CEDB_PROPDELETE;
  return v;
}

// Every record's properties, one call per record.
template <typename Each>
void ForEachRecord(const ContactsDatabase& db, Each each) {
  const DWORD count = db.Count();
  if (count == 0 || CeSeekDatabase(db.handle(), CEDB_SEEK_BEGINNING, 0, nullptr) == 0) return;
  BYTE* buffer = nullptr;
  DWORD size = 0;
  for (DWORD i = 0; i < count; ++i) {
    WORD props = 0;
    const CEOID oid = CeReadRecordProps(db.handle(), CEDB_ALLOWREALLOC, &props, nullptr, &buffer, &size);
    if (!oid) continue;
    Contact c;
    const auto* values = reinterpret_cast<const CEPROPVAL*>(buffer);
    for (WORD p = 0; p < props; ++p) {
      const CEPROPVAL& v = values[p];
      if (v.wFlags != 0 || TypeFromPropID(v.propid) != CEVT_LPWSTR || !v.val.lpwstr) continue;
      const std::wstring text = v.val.lpwstr;
      if (v.propid == kPropContactName) c.name = text;
      if (v.propid == kPropContactUid) c.uid = text;
      if (v.propid == kPropCategories) c.categories = text;
      for (const PhoneProp& pp : kPhoneProps)
        if (v.propid == pp.prop) c.phones.push_back({pp.kind, text});
      for (CEPROPID e : kEmailProps)
        if (v.propid == e) c.emails.push_back(text);
    }
    each(oid, std::move(c));
  }
  LocalFree(buffer);
}

}  // namespace

bool WriteContacts(const std::vector<Contact>& contacts, size_t* added, size_t* replaced) {
  *added = *replaced = 0;
  ContactsDatabase db;
  if (!db.ok()) return false;
  std::map<std::wstring, CEOID> by_uid;
  ForEachRecord(db, [&](CEOID oid, Contact c) {
    if (!c.uid.empty()) by_uid[c.uid] = oid;
  });
  bool ok = cedb::BeginWriteBatch(&Store().volume);
  for (const Contact& c : contacts) {
    if (!ok) break;
    std::vector<CEPROPVAL> values{Text(kPropContactName, c.name), Text(kPropContactUid, c.uid),
                                  Text(kPropCategories, c.categories)};
    for (const PhoneProp& pp : kPhoneProps) {
      std::wstring none;
      const std::wstring* number = &none;
      for (const ContactPhone& p : c.phones)
        if (p.kind == pp.kind) { number = &p.number; break; }
      values.push_back(Text(pp.prop, *number));
    }
    static const std::wstring kNone;
    for (size_t i = 0; i < std::size(kEmailProps); ++i)
      values.push_back(Text(kEmailProps[i], i < c.emails.size() ? c.emails[i] : kNone));
    const auto found = c.uid.empty() ? by_uid.end() : by_uid.find(c.uid);
    const CEOID oid = found == by_uid.end() ? 0 : found->second;
    const CEOID written = CeWriteRecordProps(db.handle(), oid, static_cast<WORD>(values.size()), values.data());
    ok = written != 0;
    if (ok && oid) ++*replaced;
    if (ok && !oid) {
      ++*added;
      if (!c.uid.empty()) by_uid[c.uid] = written;
    }
  }
  return cedb::EndWriteBatch(&Store().volume) && ok;
}

std::vector<Contact> ReadContacts() {
  std::vector<Contact> contacts;
  ContactsDatabase db;
  if (db.ok()) ForEachRecord(db, [&](CEOID, Contact c) { contacts.push_back(std::move(c)); });
  return contacts;
}

}  // namespace velmo
