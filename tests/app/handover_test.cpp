#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "app/handover.h"

namespace velmo::app {
namespace {

std::vector<BYTE> Utf16Bytes(const char16_t* text, size_t units) {
  std::vector<BYTE> bytes(units * 2);
  std::memcpy(bytes.data(), text, bytes.size());
  return bytes;
}

TEST(Handover, CodesForEachRequest) {
  struct Case { LONG request; bool sent; ULONG_PTR code; } cases[] = {
      {kCmdTodayView, true, 2}, {kCmdDefaultView, true, 3}, {kCmdNewTask, true, 4},
      {kAfterSyncRequest, true, 100}, {kNoRequest, false, 0}};
  for (const Case& c : cases) {
    OutgoingHandover out;
    EXPECT_EQ(BuildHandover({c.request, 0}, &out), c.sent) << c.request;
    if (!c.sent) continue;
    EXPECT_EQ(out.record.dwData, c.code);
    EXPECT_EQ(out.record.cbData, 0u);
    EXPECT_EQ(out.record.lpData, nullptr);
  }
}

TEST(Handover, TaskIdentifierTravelsInTwentyBytesAndComesBackWhole) {
  for (CEOID oid : {1u, 12345u, 999999999u, 1000000000u, 4294967295u}) {
    OutgoingHandover out;
    ASSERT_TRUE(BuildHandover({kNoRequest, oid}, &out));
    EXPECT_EQ(out.record.dwData, 0u);
    ASSERT_EQ(out.record.cbData, 20u);
    // Exactly the twenty bytes sent, nothing beyond.
    const std::vector<BYTE> sent(static_cast<const BYTE*>(out.record.lpData),
                                 static_cast<const BYTE*>(out.record.lpData) + 20);
    const HandoverRequest got = DecodeHandover(0, 20, sent.data(), sent.size());
    EXPECT_EQ(got.code, 0u);
    EXPECT_EQ(got.task_oid, oid);
  }
  // A 10-digit identifier fills all ten characters: no terminator is sent.
  OutgoingHandover out;
  ASSERT_TRUE(BuildHandover({kNoRequest, 4000000000u}, &out));
  EXPECT_EQ(std::u16string(out.text.data(), 10), u"4000000000");
  // A short one is followed by zeros inside the 20 bytes.
  ASSERT_TRUE(BuildHandover({kNoRequest, 77u}, &out));
  EXPECT_EQ(out.text[2], u'\0');
}

TEST(Handover, DecodingReadsTenCharactersAtMost) {
  // cb is cbData as sent; negative values count as 40 bytes.
  struct Case { const char16_t* text; size_t units; DWORD cb; ULONG_PTR code; CEOID oid; } cases[] = {
      {u"123456789012345", 15, 30, 0, 1234567890u},  // cut after ten characters
      {u"4294967295", 10, 20, 5, 4294967295u},
      {u"12345", 5, 6, 0, 123u},                     // cbData counts bytes: three units
      {u"12345", 5, 0, 0, 0u},
      {u"abc", 3, 6, 0, 0u},                         // garbage gives no identifier
      {u"  77xyz", 7, 14, 0, 77u},
      {u"123456789012345678901234567890", 30, 0xFFFFFFFFu, 0, 1234567890u},  // negative
      {u"123456789012345678901234567890", 30, 60, 5, 1234567890u},          // oversize
      {u"42", 2, 40, 0, 42u},  // 40 bytes claimed, 4 arrived: the rest stays zero
  };
  for (const Case& c : cases) {
    const std::vector<BYTE> bytes = Utf16Bytes(c.text, c.units);
    const HandoverRequest got = DecodeHandover(c.code, c.cb, bytes.data(), bytes.size());
    EXPECT_EQ(got.code, c.code);
    EXPECT_EQ(got.task_oid, c.oid) << "cbData " << c.cb;
  }
  EXPECT_EQ(DecodeHandover(0, 40, nullptr, 0).task_oid, 0u);
}

TEST(Handover, OtherCodesCarryNoIdentifier) {
  const std::vector<BYTE> bytes = Utf16Bytes(u"99", 2);
  for (ULONG_PTR code : {2u, 3u, 4u, 100u, 7u}) {
    const HandoverRequest got = DecodeHandover(code, 4, bytes.data(), bytes.size());
    EXPECT_EQ(got.code, code);
    EXPECT_EQ(got.task_oid, 0u);
  }
  EXPECT_TRUE(IsIgnoredHandover(100));
  EXPECT_FALSE(IsIgnoredHandover(0));
}

}  // namespace
}  // namespace velmo::app
