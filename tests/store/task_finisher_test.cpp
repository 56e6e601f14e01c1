// The second half of a load's filling, on the reading thread alone and with
// a second thread taking the tasks as they come.
#include "store/task_finisher.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "categories/category_state.h"

namespace velmo::testing {
namespace {

// UTF-16 bytes as a record stores a string.
std::string Utf16Bytes(const std::u16string& text) {
  return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
}

class TaskFinisherTest : public ::testing::Test {
 protected:
  // Adds `count` tasks whose texts, kept in one place, are overwritten after
  // each Add: the finisher must work from its own copies.
  void AddTasks(TaskFinisher& finisher, size_t count) {
    std::string subject, categories, notes;
    for (size_t i = 0; i < count; ++i) {
      auto& task = tasks_.emplace_back(std::make_unique<Task>());
      subject = Utf16Bytes(u"Task " + std::u16string(1, static_cast<char16_t>(u'a' + i % 26)));
      categories = Utf16Bytes(i % 2 ? u"Odd" : u"Even");
      notes = i % 3 ? "call 030 9876543 today" : "nothing to find";
      StoredTexts texts{subject, categories, {}, notes};
      finisher.Add(task.get(), texts);
      subject.assign(subject.size(), 'x');
      notes.assign(notes.size(), 'x');
    }
  }

  void ExpectFinished() {
    for (size_t i = 0; i < tasks_.size(); ++i) {
      const Task& t = *tasks_[i];
      ASSERT_EQ(t.subject, L"Task " + std::wstring(1, static_cast<wchar_t>(L'a' + i % 26))) << i;
      EXPECT_EQ(t.categories, i % 2 ? L"Odd" : L"Even");
      EXPECT_EQ(t.phone_number, i % 3 ? L"030 9876543" : L"") << i;
    }
    std::vector<std::wstring> marked;
    for (const CategoryEntry& e : CategoryCatalogue().entries)
      if (e.marks & InLoadedTasks) marked.push_back(e.name);
    EXPECT_EQ(marked, (std::vector<std::wstring>{L"Even", L"Odd"}));
  }

  std::vector<std::unique_ptr<Task>> tasks_;
};

TEST_F(TaskFinisherTest, WithoutASecondThreadTheReadingThreadFinishesEveryTask) {
  TaskFinisher finisher;
  CategoryUseMarking marking;
  finisher.Reset(10, &marking);
  AddTasks(finisher, 10);
  finisher.Close();
  ExpectFinished();
}

TEST_F(TaskFinisherTest, ASecondThreadTakesTheTasksAsTheyArePublished) {
  TaskFinisher finisher;
  for (int load = 0; load < 3; ++load) {  // the arena and the list are used again
    tasks_.clear();
    CategoryUseMarking marking;
    finisher.Reset(1000, &marking);
    std::thread second(&TaskFinisher::WorkOnSecondThread, &finisher);
    AddTasks(finisher, 999);  // not a whole number of groups
    finisher.Close();
    second.join();
    ExpectFinished();
  }
}

}  // namespace
}  // namespace velmo::testing
