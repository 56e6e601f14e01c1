// How a record's properties are kept (the stored form, described in
// platform/cedb_in_place.h). Reading lays the properties out the platform's way:
// an array of CEPROPVAL followed by the strings and blobs they point into.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/cedb.h"
#include "platform/cedb_in_place.h"

namespace velmo::cedb {

// Splits stored bytes into properties. False when they are damaged: a length
// running past the end, an unknown value type, a size the type cannot have.
bool ParseRecord(const BYTE* bytes, size_t size, std::vector<StoredProp>* out);

// The stored bytes of record `old` with `count` changes applied: a property
// flagged CEDB_PROPDELETE is removed, any other replaces the property of the same
// identifier in place or is added at the end. False (nothing produced) when a
// change has an unknown type or a null string or blob pointer.
bool ApplyChanges(const std::vector<StoredProp>& old, const CEPROPVAL* changes, WORD count,
                  std::string* out);

// The properties a read returns: every stored one, or for each requested
// identifier the stored property or null (not found).
void SelectProps(const std::vector<StoredProp>& stored, const CEPROPID* ids, WORD count,
                 std::vector<const StoredProp*>* out);

// Bytes the read buffer needs for the selected properties (the CEPROPVAL array
// and the data behind it).
size_t ReadBufferSize(const std::vector<const StoredProp*>& selected);

// Writes the selected properties into buffer (at least ReadBufferSize bytes); a
// null entry of `ids` order comes out flagged CEDB_PROPNOTFOUND with requested id.
void FillReadBuffer(const std::vector<const StoredProp*>& selected, const CEPROPID* ids,
                    BYTE* buffer);

// A read of every property, the common case, straight from the stored bytes
// without a list between: MeasureRecord checks them as ParseRecord does (false
// when damaged) and gives the number of properties and the read buffer's size;
// FillEveryProp lays them out into buffer.
bool MeasureRecord(const BYTE* bytes, size_t size, size_t* count, size_t* buffer_size);
void FillEveryProp(const BYTE* bytes, size_t size, size_t count, BYTE* buffer);

}  // namespace velmo::cedb
