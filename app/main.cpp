// velmo-todo: the program's entry point.
#include <cstdio>

int main() {
  std::puts("Velmo ToDo List");
  return 0;
}
