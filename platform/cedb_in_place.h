// Reading a record's properties in place: the stored bytes of the record at a
// handle's position, checked, without laying them out into a read buffer first.
// A table load reads thousands of records once each; reading them in place spares
// it widening every string into the buffer, copying every blob and measuring the
// strings again when it keeps them.
//
// The stored form of a record is one byte string, the properties one after
// another, each as its identifier (4 bytes), the length of its data (4 bytes) and
// the data, in host byte order. Strings are UTF-16 code units without a
// terminator, integers and times are kept at their own width, BOOL as 4 bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "platform/cedb.h"

namespace velmo::cedb {

constexpr size_t kStoredHeaderSize = 8;  // identifier and data length

// One stored property, pointing into the stored bytes.
struct StoredProp {
  CEPROPID propid;
  const BYTE* data;
  DWORD size;
};

// What a property's stored size must be, by its value type (every type is
// below 128): a fixed width, an even count of bytes (UTF-16 strings), any size
// (blobs), or 0 for a type the database does not know.
constexpr BYTE kEvenSize = 0xFE;
constexpr BYTE kAnySize = 0xFF;
struct StoredSizes {
  BYTE by_type[128] = {};
  constexpr StoredSizes() {
    by_type[CEVT_I2] = by_type[CEVT_UI2] = 2;
    by_type[CEVT_I4] = by_type[CEVT_UI4] = by_type[CEVT_BOOL] = 4;
    by_type[CEVT_R8] = by_type[CEVT_FILETIME] = 8;
    by_type[CEVT_LPWSTR] = kEvenSize;
    by_type[CEVT_BLOB] = kAnySize;
  }
};
constexpr StoredSizes kStoredSizes;

// The stored size rule of the property's type; 0 for an unknown type.
inline BYTE StoredSizeRule(CEPROPID propid) {
  const WORD type = TypeFromPropID(propid);
  return type < 128 ? kStoredSizes.by_type[type] : 0;
}

inline bool StoredSizeFits(CEPROPID propid, DWORD size) {
  switch (const BYTE rule = StoredSizeRule(propid)) {
    case 0: return false;
    case kAnySize: return true;
    case kEvenSize: return size % 2 == 0;
    default: return size == rule;
  }
}

// A record's stored bytes, stepped through in place. Each step checks the
// property it splits off (its header whole, its type known, its size one the
// type can have); at damage the walk ends and damaged() tells.
class StoredRecord {
 public:
  StoredRecord() = default;
  StoredRecord(const BYTE* bytes, size_t size) : bytes_(bytes), size_(size) {}

  // The next property; false after the last, or at damage.
  bool Next(StoredProp* prop) {
    if (at_ == size_) return false;
    if (size_ - at_ < kStoredHeaderSize) return Damaged();
    std::memcpy(&prop->propid, bytes_ + at_, 4);
    std::memcpy(&prop->size, bytes_ + at_ + 4, 4);
    at_ += kStoredHeaderSize;
    if (prop->size > size_ - at_ || !StoredSizeFits(prop->propid, prop->size)) return Damaged();
    prop->data = bytes_ + at_;
    at_ += prop->size;
    return true;
  }

  bool damaged() const { return damaged_; }

 private:
  bool Damaged() {
    damaged_ = true;
    at_ = size_;
    return false;
  }

  const BYTE* bytes_ = nullptr;
  size_t size_ = 0;
  size_t at_ = 0;
  bool damaged_ = false;
};

// Reads the record at the handle's position as CeReadRecordProps reads every
// property, with the same moves (the handle may move on by itself), but hands
// over the stored bytes, unchecked until stepped through. They stay valid until
// the next call with this handle. Returns the record's identifier, or 0 on
// failure (last error set).
CEOID ReadRecordInPlace(HANDLE db, StoredRecord* record);

// One record handed to a visitor.
struct InPlaceRecord {
  CEOID oid;
  StoredRecord props;
};

class RecordVisitor {
 public:
  virtual void Visit(const InPlaceRecord& record) = 0;

 protected:
  ~RecordVisitor() = default;
};

// Visits up to `max` records from the handle's position on, in database order,
// with one statement: each record's bytes come straight from the database file's
// pages and stay valid only during its visit. The whole visit reads one snapshot
// of the database. A handle that moves on by itself ends past the last record
// visited. The volume stays locked during the visit, so the visitor must not call
// into the database. Returns how many records were visited; when fewer than
// `max`, the last error says why (ERROR_NO_MORE_ITEMS at the end).
size_t VisitRecordsInPlace(HANDLE db, size_t max, RecordVisitor* visitor);

// The values of stored properties, by the property's type (the step that split
// the property off made sure the size fits it).
inline std::int16_t Int16Of(const StoredProp& p) {
  std::int16_t v;
  std::memcpy(&v, p.data, 2);
  return v;
}
inline std::uint16_t UInt16Of(const StoredProp& p) { return static_cast<std::uint16_t>(Int16Of(p)); }
inline std::int32_t Int32Of(const StoredProp& p) {
  std::int32_t v;
  std::memcpy(&v, p.data, 4);
  return v;
}
inline std::uint32_t UInt32Of(const StoredProp& p) { return static_cast<std::uint32_t>(Int32Of(p)); }
inline FILETIME FileTimeOf(const StoredProp& p) {
  FILETIME v;
  std::memcpy(&v, p.data, 8);
  return v;
}

// Stored UTF-16 bytes as wide text (a lone surrogate becomes U+FFFD); the
// string keeps its room for the next one. AssignText does it for a string
// property.
void AssignUtf16(const BYTE* data, size_t size, std::wstring* out);
inline void AssignText(const StoredProp& p, std::wstring* out) { AssignUtf16(p.data, p.size, out); }

}  // namespace velmo::cedb
