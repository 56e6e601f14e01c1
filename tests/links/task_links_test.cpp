#include "links/task_links.h"

#include <gtest/gtest.h>

#include "platform/ansi_codepage.h"

namespace velmo {
namespace {

// Null notes: the record has none.
struct LinksCase { const wchar_t* subject; const wchar_t* notes; const wchar_t* phone; LONG web, mail; };

TEST(FillTaskLinks, SubjectNumberFirstAddressesFromEither) {
  const LinksCase cases[] = {
      {L"Call 0171 2345678", L"or 030 9876543 www.example.com", L"0171 2345678", 1, 0},
      {L"Call back", L"at 030 9876543, mail bob@example.com", L"030 9876543", 0, 1},
      {L"See www.example.com", nullptr, L"", 1, 0},
      {L"Write to anna@example.org", L"about http://example.org", L"", 1, 1},
      {L"Plain subject", L"plain notes", L"", 0, 0},
      // Longer subjects, their links at every offset within the counted blocks.
      {L"Ring the office on +44 20 7946 0958 today", nullptr, L"+44 20 7946 0958", 0, 0},
      {L"Docs at ftp://files.example.org/a", nullptr, L"", 1, 0},
      {L"Forward it to the team: anna@example.org", nullptr, L"", 0, 1},
      {L"www.example.com", nullptr, L"", 1, 0},
      {L"Order 1234 and 567, with the new window", nullptr, L"", 0, 0},
      {L"", L"", L"", 0, 0},
  };
  for (const LinksCase& c : cases) {
    Task task;
    task.subject = c.subject;
    task.phone_number = L"stale";
    task.web_link_count = task.mail_link_count = 7;
    const std::string notes = ToWindows1252(c.notes ? c.notes : L"");
    FillTaskLinks(task, c.notes ? notes.c_str() : nullptr);
    EXPECT_EQ(task.phone_number, c.phone) << ::testing::PrintToString(std::wstring(c.subject));
    EXPECT_EQ(task.web_link_count, c.web) << ::testing::PrintToString(std::wstring(c.subject));
    EXPECT_EQ(task.mail_link_count, c.mail) << ::testing::PrintToString(std::wstring(c.subject));
  }
}

}  // namespace
}  // namespace velmo
