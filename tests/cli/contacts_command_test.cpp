// velmo contacts import on a folder as an address book keeps it: the good
// cards go into the device's contacts database (their categories with them),
// the broken files are named, and a second import replaces instead of doubling.
#include <gtest/gtest.h>

#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

using ContactsCommandTest = DeviceTest;

TEST_F(ContactsCommandTest, GoodCardsAreImportedBadFilesNamedAndAReimportReplaces) {
  const auto dir = root() / "cards";
  WriteFileBytes(dir / "ann.vcf",
                 "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:ann-1\r\nFN:Ann Smith\r\nTEL;TYPE=CELL:+1 555 1234567\r\n"
                 "EMAIL:ann@example.org\r\nCATEGORIES:Clients\r\nEND:VCARD\r\n");
  WriteFileBytes(dir / "broken.vcf", "BEGIN:VCARD\nFN:Half\n");
  WriteFileBytes(dir / "big.vcf", std::string(2 << 20, 'x'));
  WriteFileBytes(dir / "notes.txt", "BEGIN:VCARD\nFN:Not a card file\nEND:VCARD\n");

  RunResult r = RunProgram(VELMO_BIN, {"contacts", "import", dir.string()});
  EXPECT_EQ(r.code, 1) << "a broken file makes the import end in failure";
  EXPECT_EQ(r.out, "1 contact(s) added, 0 replaced\n");
  EXPECT_NE(r.err.find("broken.vcf: line 1: a card that is not closed"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("big.vcf: larger than 1 MB"), std::string::npos) << r.err;

  r = RunProgram(VELMO_BIN, {"contacts", "import", (dir / "ann.vcf").string()});
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out, "0 contact(s) added, 1 replaced\n");
  r = RunProgram(VELMO_BIN, {"contacts", "list"});
  EXPECT_EQ(r.out, "Ann Smith\t+1 555 1234567\tann@example.org\tClients\n");

  r = RunProgram(VELMO_BIN, {"contacts", "import", (root() / "missing").string()});
  EXPECT_EQ(r.code, 1);
  EXPECT_NE(r.err.find("missing"), std::string::npos) << r.err;
}

}  // namespace
}  // namespace velmo::testing
