#include "editor/occurs_list.h"

#include <gtest/gtest.h>

#include "editor/recurrence_choices.h"
#include "platform/oletime.h"
#include "platform/locale.h"

namespace velmo {
namespace {

TEST(OccursList, RewordsForANewDayAndKeepsSelectionAndCustom) {
  locale::ScopedLocale locale("en_US");
  OccursList list;
  FillOccursList(&list, MakeDate(2026, 1, 29));
  ASSERT_EQ(list.entries.size(), static_cast<size_t>(kFixedChoices));
  EXPECT_EQ(list.entries[2], L"Every Thursday");

  SelectOccursChoice(&list, 6);
  FillOccursList(&list, MakeDate(2026, 1, 30, 9, 0));
  EXPECT_EQ(list.entries[2], L"Every Friday");
  EXPECT_EQ(list.entries[6], L"Last Friday of every month");
  EXPECT_EQ(list.selection, 6);

  SelectOccursChoice(&list, kCustomPattern);
  ASSERT_EQ(list.entries.size(), static_cast<size_t>(kFixedChoices + 1));
  EXPECT_EQ(list.entries.back(), L"Custom pattern");
  EXPECT_EQ(list.selection, kCustomPattern);
  FillOccursList(&list, MakeDate(2026, 2, 2));
  EXPECT_EQ(list.entries.size(), static_cast<size_t>(kFixedChoices + 1));
  EXPECT_EQ(list.entries[2], L"Every Monday");
  EXPECT_EQ(list.selection, kCustomPattern);

  // The same day at another time changes nothing, not even entries edited meanwhile.
  list.entries[1] = L"marker";
  FillOccursList(&list, MakeDate(2026, 2, 2, 23, 59));
  EXPECT_EQ(list.entries[1], L"marker");

  SelectOccursChoice(&list, 14);
  EXPECT_EQ(list.selection, kCustomPattern);
}

}  // namespace
}  // namespace velmo
