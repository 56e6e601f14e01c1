// velmo beam: sends an iCalendar file to a paired Bluetooth device by object
// push (BlueZ's obexd on the session bus) and stays until the transfer ends,
// since the session ends with its connection. velmo-todo's Beam starts it and
// goes on at once.
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "cli/subcommand.h"
#include "platform/bluetooth.h"

namespace velmo::cli {
namespace {

constexpr const char* kUsage = "usage: velmo beam --to ADDRESS FILE\n";
constexpr int kTransferWaitSeconds = 120;

}  // namespace

int RunBeam(int argc, char** argv) {
  if (argc != 3 || std::strcmp(argv[0], "--to") != 0) return std::fputs(kUsage, stderr), 2;
  const std::string address = argv[1];
  std::error_code ec;
  const std::filesystem::path file = std::filesystem::absolute(argv[2], ec);
  if (ec || !std::filesystem::is_regular_file(file, ec))
    return std::fprintf(stderr, "velmo beam: %s: no such file\n", argv[2]), 1;
  std::string error;
  if (!bluetooth::PushFile(address, file.string(), kTransferWaitSeconds, &error))
    return std::fprintf(stderr, "velmo beam: %s: %s\n", file.c_str(), error.c_str()), 1;
  std::printf("%s sent to %s\n", file.c_str(), address.c_str());
  return 0;
}

}  // namespace velmo::cli
