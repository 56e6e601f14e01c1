// A mounted test volume with one database, and short ways to write and read
// records in tests of the CE property database.
#pragma once

#include <string>
#include <vector>

#include "platform/cedb.h"
#include "platform/lasterror.h"
#include "platform/localmem.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {

inline constexpr wchar_t kTestVolume[] = L"\\IPSM\\test.vol";

// Values under a whole property identifier, and under an index with the type.
CEPROPVAL RawI2(CEPROPID id, SHORT value);
CEPROPVAL RawI4(CEPROPID id, LONG value);
CEPROPVAL RawText(CEPROPID id, const wchar_t* text);
inline CEPROPVAL PropI2(WORD id, SHORT value) { return RawI2(PROPID(id, CEVT_I2), value); }
inline CEPROPVAL PropI4(WORD id, LONG value) { return RawI4(PROPID(id, CEVT_I4), value); }
inline CEPROPVAL PropString(WORD id, const wchar_t* value) { return RawText(PROPID(id, CEVT_LPWSTR), value); }
CEPROPVAL PropBlob(WORD id, std::vector<BYTE>* bytes);
CEPROPVAL PropDelete(CEPROPID propid);

class CedbTest : public DeviceTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  CEOID CreateDatabase(const wchar_t* name);
  // Opens a database of the test volume; flags CEDB_AUTOINCREMENT by default.
  HANDLE OpenDatabase(const wchar_t* name, DWORD flags = CEDB_AUTOINCREMENT,
                      CENOTIFYREQUEST* request = nullptr);
  CEOID Write(CEOID oid, std::vector<CEPROPVAL> props, HANDLE db = nullptr);
  // Reads at the handle's position into the fixture's growing buffer: every
  // property, or the chosen ones. Returns the record's identifier (0 on failure).
  CEOID Read(std::vector<CEPROPVAL>* props, std::vector<CEPROPID> ids = {}, HANDLE db = nullptr);
  // The identifiers of every record, seeking to the beginning first.
  std::vector<CEOID> Walk(HANDLE db = nullptr);
  CEDBASEINFOEX Info(CEOID oid = 0);
  // The file of the test volume.
  std::string VolumeFile() const;

  CEGUID volume_{};
  CEOID db_oid_ = 0;
  HANDLE db_ = INVALID_HANDLE_VALUE;
  BYTE* buffer_ = nullptr;
  DWORD buffer_size_ = 0;
};

}  // namespace velmo::testing
