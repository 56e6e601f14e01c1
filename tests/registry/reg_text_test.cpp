// The registry-export text form: accepted spellings and refused lines.
#include <gtest/gtest.h>

#include "cli/reg_text.h"

namespace velmo::cli {
namespace {

const std::string kHeader = "Windows Registry Editor Version 5.00\r\n\r\n";

TEST(RegText, ReadsEveryFormIncludingContinuationsCrLfAndUtf16) {
  const std::string text = kHeader +
                           "; a comment\r\n"
                           "[HKEY_LOCAL_MACHINE\\Explorer\\Database]\r\n"
                           "\"TasksDatabase\"=\"Work \\\"A\\\"\"\r\n"
                           "\"Bits\"=hex:01,02,\\\r\n"
                           "  03\r\n"
                           "\"Size\"=dword:FFFFFFFF\r\n"
                           "\"Empty\"=hex:\r\n"
                           "@=hex(0):\r\n";
  std::vector<registry::RawKey> keys;
  std::vector<RegTextError> errors;
  ASSERT_TRUE(ParseRegText(text, &keys, &errors)) << errors[0].message;
  ASSERT_EQ(1u, keys.size());
  EXPECT_EQ(L"HKEY_LOCAL_MACHINE\\Explorer\\Database", keys[0].path);
  const auto& v = keys[0].values;
  ASSERT_EQ(5u, v.size());
  EXPECT_EQ(REG_SZ, v[0].type);
  EXPECT_EQ(18u, v[0].bytes.size()) << "8 characters and one terminator in UTF-16";
  EXPECT_EQ((std::vector<BYTE>{1, 2, 3}), v[1].bytes);
  EXPECT_EQ((std::vector<BYTE>{0xFF, 0xFF, 0xFF, 0xFF}), v[2].bytes);
  EXPECT_TRUE(v[3].bytes.empty());
  EXPECT_EQ(L"", v[4].name);
  EXPECT_EQ(REG_NONE, v[4].type);

  // The same file saved as UTF-16LE with its byte-order mark.
  std::string utf16 = "\xFF\xFE";
  for (char c : text) utf16 += {c, '\0'};
  std::vector<registry::RawKey> again;
  ASSERT_TRUE(ParseRegText(utf16, &again, &errors));
  EXPECT_EQ(v[1].bytes, again[0].values[1].bytes);
}

TEST(RegText, ReportsEveryMalformedLineWithItsNumberAndKeepsNothing) {
  struct Case {
    std::string body;  // after the header and a key line (line 3)
    int line;
  };
  const Case cases[] = {
      {"\"a\"=dword:123456789\n", 4},            {"\"a\"=dword:\n", 4},
      {"\"a\"=hex:1,2g\n", 4},                   {"\"a\"=hex:01,,02\n", 4},
      {"\"a\"=\"open\n", 4},                     {"\"a\"=\"x\" trailing\n", 4},
      {"\"a\\n\"=dword:1\n", 4},                 {"\"a\"=-\n", 4},
      {"\"a\"dword:1\n", 4},                     {"a=dword:1\n", 4},
      {"\"a\"=hex(zz):00\n", 4},                 {"\"a\"=qword:1\n", 4},
      {"\n[-HKEY_CURRENT_USER\\X]\n", 5},        {"[HKEY_CLASSES_ROOT\\X]\n", 4},
      {"[HKEY_CURRENT_USER\\X\n", 4},            {"\"ok\"=dword:1\n\"bad\"=hex:100\n", 5},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.body);
    std::vector<registry::RawKey> keys;
    std::vector<RegTextError> errors;
    EXPECT_FALSE(ParseRegText("Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\T]\n" +
                                  c.body, &keys, &errors));
    ASSERT_EQ(1u, errors.size());
    EXPECT_EQ(c.line, errors[0].line);
    EXPECT_TRUE(keys.empty());
  }
  std::vector<registry::RawKey> keys;
  std::vector<RegTextError> errors;
  EXPECT_FALSE(ParseRegText("REGEDIT4\n[HKEY_CURRENT_USER\\T]\n", &keys, &errors));
  EXPECT_EQ(1, errors.at(0).line);
  EXPECT_FALSE(ParseRegText("", &keys, &errors));
  EXPECT_FALSE(ParseRegText(kHeader + "\"orphan\"=dword:1\n", &keys, &errors));
  EXPECT_EQ(3, errors.at(0).line);
}

TEST(RegText, WritesTextOnlyWhenItComesBackTheSame) {
  const std::vector<registry::RawKey> keys = {{L"HKEY_CURRENT_USER\\T",
      {{L"Plain", REG_SZ, {'a', 0, 0, 0}},
       {L"NoTerminator", REG_SZ, {'a', 0}},
       {L"TwoTerminators", REG_SZ, {'a', 0, 0, 0, 0, 0}},
       {L"Newline", REG_SZ, {'\n', 0, 0, 0}},
       {L"LoneSurrogate", REG_SZ, {0x3D, 0xD8, 0, 0}},
       {L"ShortDword", REG_DWORD, {1, 0}},
       {L"Dword", REG_DWORD, {0xE0, 1, 0, 0}}}}};
  EXPECT_EQ(kHeader.substr(0, 36) + "\n\n[HKEY_CURRENT_USER\\T]\n"
            "\"Plain\"=\"a\"\n"
            "\"NoTerminator\"=hex(1):61,00\n"
            "\"TwoTerminators\"=hex(1):61,00,00,00,00,00\n"
            "\"Newline\"=hex(1):0a,00,00,00\n"
            "\"LoneSurrogate\"=hex(1):3d,d8,00,00\n"
            "\"ShortDword\"=hex(4):01,00\n"
            "\"Dword\"=dword:000001e0\n\n", FormatRegText(keys));
}

}  // namespace
}  // namespace velmo::cli
