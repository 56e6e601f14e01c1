// Arbitrary bytes as a task's iCalendar file from the synchronised folder: the
// reader takes one VTODO or says what is wrong, and never crashes.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "sync/todo.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > velmo::sync::kMaxTodoFileBytes) return 0;
  velmo::sync::Todo todo;
  std::string error;
  velmo::sync::ReadTodo(std::string_view(reinterpret_cast<const char*>(data), size), &todo, &error);
  return 0;
}
