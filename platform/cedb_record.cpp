#include "platform/cedb_record.h"

#include <cstring>

namespace velmo::cedb {
namespace {

constexpr size_t kDataAlign = 8;   // data behind the CEPROPVAL array

size_t AlignUp(size_t n) { return (n + kDataAlign - 1) & ~(kDataAlign - 1); }

bool IsHighSurrogate(char16_t u) { return u >= 0xD800 && u <= 0xDBFF; }
bool IsLowSurrogate(char16_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

char16_t UnitAt(const BYTE* data, size_t i) {
  char16_t u;
  std::memcpy(&u, data + 2 * i, 2);
  return u;
}

// Decodes UTF-16 units into wide characters (a lone surrogate becomes U+FFFD);
// returns how many were written, never more than units. Text without
// surrogates, nearly all of it, is done by the first, plain widening loop.
size_t DecodeUtf16(const BYTE* data, size_t units, wchar_t* out) {
  // Eight units at a time from a local copy, which the compiler widens in
  // vector registers: it cannot know that out does not overlap data.
  constexpr size_t kBlock = 8;
  bool surrogates = false;
  size_t i = 0;
  for (; i + kBlock <= units; i += kBlock) {
    char16_t block[kBlock];
    std::memcpy(block, data + 2 * i, sizeof block);
    unsigned found = 0;
    for (size_t k = 0; k < kBlock; ++k) {
      out[i + k] = block[k];
      found |= static_cast<unsigned>(block[k] - 0xD800u) < 0x800u;
    }
    surrogates |= found != 0;
  }
  for (; i < units; ++i) {
    const char16_t u = UnitAt(data, i);
    out[i] = u;
    surrogates |= static_cast<unsigned>(u - 0xD800u) < 0x800u;
  }
  if (!surrogates) return units;
  size_t n = 0;
  for (size_t i = 0; i < units; ++i, ++n) {
    char16_t u = UnitAt(data, i);
    wchar_t c = u;
    if (IsHighSurrogate(u) && i + 1 < units && IsLowSurrogate(UnitAt(data, i + 1))) {
      c = 0x10000 + ((u - 0xD800) << 10) + (UnitAt(data, i + 1) - 0xDC00);
      ++i;
    } else if (IsHighSurrogate(u) || IsLowSurrogate(u)) {
      c = 0xFFFD;
    }
    out[n] = c;
  }
  return n;
}

void AppendUnit(std::string* out, char16_t u) {
  out->append(reinterpret_cast<const char*>(&u), 2);
}

void EncodeUtf16(const wchar_t* text, std::string* out) {
  for (; *text; ++text) {
    auto c = static_cast<char32_t>(*text);
    if (c >= 0x10000 && c <= 0x10FFFF) {
      AppendUnit(out, static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
      AppendUnit(out, static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    } else {
      bool invalid = c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF);
      AppendUnit(out, invalid ? u'\xFFFD' : static_cast<char16_t>(c));
    }
  }
}

// The stored data of one value to write; false for a type or pointer it cannot be.
bool EncodeData(const CEPROPVAL& value, std::string* out) {
  const BYTE rule = StoredSizeRule(value.propid);
  if (rule == 0) return false;
  const CEVALUNION& v = value.val;
  switch (TypeFromPropID(value.propid)) {
    case CEVT_LPWSTR:
      if (!v.lpwstr) return false;
      EncodeUtf16(v.lpwstr, out);
      return true;
    case CEVT_BLOB:
      if (v.blob.dwCount && !v.blob.lpb) return false;
      out->append(reinterpret_cast<const char*>(v.blob.lpb), v.blob.dwCount);
      return true;
    case CEVT_FILETIME:
      out->append(reinterpret_cast<const char*>(&v.filetime), 8);
      return true;
    case CEVT_R8:
      out->append(reinterpret_cast<const char*>(&v.dblVal), 8);
      return true;
    default:  // the integers and BOOL sit at the start of the union
      out->append(reinterpret_cast<const char*>(&v), rule);
      return true;
  }
}

void AppendStored(CEPROPID propid, const char* data, size_t size, std::string* out) {
  auto length = static_cast<DWORD>(size);
  out->append(reinterpret_cast<const char*>(&propid), 4);
  out->append(reinterpret_cast<const char*>(&length), 4);
  out->append(data, size);
}

size_t DataSize(const StoredProp& prop) {
  switch (TypeFromPropID(prop.propid)) {
    case CEVT_LPWSTR:  // room for one character per unit and the terminator
      return AlignUp((prop.size / 2 + 1) * sizeof(wchar_t));
    case CEVT_BLOB:  // and a zero byte after it
      return AlignUp(prop.size + 1);
    default:
      return 0;
  }
}

// Fills one CEPROPVAL, copying variable data to *cursor and moving it on.
void FillValue(const StoredProp& prop, CEPROPVAL* out, BYTE** cursor) {
  out->propid = prop.propid;
  switch (TypeFromPropID(prop.propid)) {
    case CEVT_LPWSTR: {
      auto* text = reinterpret_cast<wchar_t*>(*cursor);
      size_t n = DecodeUtf16(prop.data, prop.size / 2, text);
      text[n] = L'\0';
      out->val.lpwstr = text;
      *cursor += DataSize(prop);
      break;
    }
    case CEVT_BLOB:
      if (prop.size) std::memcpy(*cursor, prop.data, prop.size);
      (*cursor)[prop.size] = 0;
      out->val.blob = CEBLOB{prop.size, *cursor};
      *cursor += DataSize(prop);
      break;
    case CEVT_FILETIME:
      std::memcpy(&out->val.filetime, prop.data, 8);
      break;
    case CEVT_R8:
      std::memcpy(&out->val.dblVal, prop.data, 8);
      break;
    case CEVT_I2:
    case CEVT_UI2:
      std::memcpy(&out->val, prop.data, 2);
      break;
    default:  // the 4-byte integers and BOOL
      std::memcpy(&out->val, prop.data, 4);
      break;
  }
}

}  // namespace

bool ParseRecord(const BYTE* bytes, size_t size, std::vector<StoredProp>* out) {
  out->clear();
  StoredRecord record(bytes, size);
  StoredProp prop;
  while (record.Next(&prop)) out->push_back(prop);
  return !record.damaged();
}

void AssignUtf16(const BYTE* data, size_t size, std::wstring* out) {
  out->resize(size / 2);
  out->resize(DecodeUtf16(data, size / 2, out->data()));
}

bool MeasureRecord(const BYTE* bytes, size_t size, size_t* count, size_t* buffer_size) {
  size_t props = 0;
  size_t data = 0;
  StoredRecord record(bytes, size);
  StoredProp prop;
  for (; record.Next(&prop); ++props) data += DataSize(prop);
  *count = props;
  *buffer_size = AlignUp(props * sizeof(CEPROPVAL)) + data;
  return !record.damaged();
}

void FillEveryProp(const BYTE* bytes, size_t size, size_t count, BYTE* buffer) {
  auto* values = reinterpret_cast<CEPROPVAL*>(buffer);
  BYTE* cursor = buffer + AlignUp(count * sizeof(CEPROPVAL));
  StoredRecord record(bytes, size);
  StoredProp prop;
  for (size_t i = 0; i < count && record.Next(&prop); ++i) {
    std::memset(&values[i], 0, sizeof values[i]);
    FillValue(prop, &values[i], &cursor);
  }
}

bool ApplyChanges(const std::vector<StoredProp>& old, const CEPROPVAL* changes, WORD count,
                  std::string* out) {
  // The new value of each property in its final order; deleted ones dropped.
  struct Slot {
    CEPROPID propid;
    std::string data;
  };
  std::vector<Slot> slots;
  slots.reserve(old.size() + count);
  for (const StoredProp& prop : old)
    slots.push_back({prop.propid, std::string(reinterpret_cast<const char*>(prop.data), prop.size)});
  for (WORD i = 0; i < count; ++i) {
    const CEPROPVAL& change = changes[i];
    auto slot = slots.begin();
    while (slot != slots.end() && slot->propid != change.propid) ++slot;
    if (change.wFlags & CEDB_PROPDELETE) {
      if (slot != slots.end()) slots.erase(slot);
      continue;
    }
    std::string data;
    if (!EncodeData(change, &data)) return false;
    if (slot != slots.end())
      slot->data = std::move(data);
    else
      slots.push_back({change.propid, std::move(data)});
  }
  out->clear();
  for (const Slot& slot : slots) AppendStored(slot.propid, slot.data.data(), slot.data.size(), out);
  return true;
}

void SelectProps(const std::vector<StoredProp>& stored, const CEPROPID* ids, WORD count,
                 std::vector<const StoredProp*>* out) {
  out->clear();
  if (!ids) {
    for (const StoredProp& prop : stored) out->push_back(&prop);
    return;
  }
  for (WORD i = 0; i < count; ++i) {
    const StoredProp* found = nullptr;
    for (const StoredProp& prop : stored)
      if (prop.propid == ids[i]) found = &prop;
    out->push_back(found);
  }
}

size_t ReadBufferSize(const std::vector<const StoredProp*>& selected) {
  size_t size = AlignUp(selected.size() * sizeof(CEPROPVAL));
  for (const StoredProp* prop : selected)
    if (prop) size += DataSize(*prop);
  return size;
}

void FillReadBuffer(const std::vector<const StoredProp*>& selected, const CEPROPID* ids,
                    BYTE* buffer) {
  auto* values = reinterpret_cast<CEPROPVAL*>(buffer);
  BYTE* cursor = buffer + AlignUp(selected.size() * sizeof(CEPROPVAL));
  for (size_t i = 0; i < selected.size(); ++i) {
    CEPROPVAL& value = values[i];
    std::memset(&value, 0, sizeof value);
    if (selected[i]) {
      FillValue(*selected[i], &value, &cursor);
    } else {
      value.propid = ids[i];
      value.wFlags = CEDB_PROPNOTFOUND;
    }
  }
}

}  // namespace velmo::cedb
