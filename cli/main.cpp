// velmo: the companion command.
#include <cstdio>

int main() {
  std::puts("velmo");
  return 0;
}
