#include "app/plain_instance.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cstdio>

#include "app/startup.h"
#include "platform/cedb.h"
#include "platform/ipc.h"
#include "platform/lasterror.h"
#include "platform/localmem.h"
#include "platform/wstr.h"

namespace velmo::app {
namespace {

constexpr CEPROPID kSubjectProperty = 0x0037001F;

void PrintLine(const std::string& line) {
  std::fputs((line + "\n").c_str(), stdout);
  std::fflush(stdout);
}

// SIGINT and SIGTERM as a readable descriptor, so the loop sees them in turn.
int SignalDescriptor() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC);
}

}  // namespace

bool ReadTaskSubjects(const Settings& settings, std::vector<std::wstring>* subjects) {
  CEGUID volume;
  if (!CeMountDBVol(&volume, settings.db_path.c_str(), OPEN_EXISTING)) return false;
  CEOID database = 0;
  HANDLE db = CeOpenDatabaseEx(&volume, &database, settings.tasks_database.c_str(), 0,
                               CEDB_AUTOINCREMENT, nullptr);
  if (db == INVALID_HANDLE_VALUE) {
    CeUnmountDBVol(&volume);
    return false;
  }
  BYTE* buffer = nullptr;
  DWORD size = 0;
  for (;;) {
    WORD count = 1;
    CEPROPID property = kSubjectProperty;
    if (!CeReadRecordProps(db, CEDB_ALLOWREALLOC, &count, &property, &buffer, &size)) {
      if (GetLastError() == ERROR_INVALID_DATA) continue;  // damaged: already moved on
      break;
    }
    const auto* value = reinterpret_cast<const CEPROPVAL*>(buffer);
    const bool has_subject = !(value->wFlags & CEDB_PROPNOTFOUND) && value->val.lpwstr;
    subjects->push_back(has_subject ? value->val.lpwstr : L"");
  }
  LocalFree(buffer);
  CeCloseHandle(db);
  CeUnmountDBVol(&volume);
  return true;
}

std::string DescribeHandover(const HandoverRequest& request) {
  std::string line = "hand-over: code=" + std::to_string(request.code);
  if (IsIgnoredHandover(request.code)) return line + " ignored";
  if (request.code == kHandoverSelect || request.code == kHandoverSelectAndOpen)
    line += " oid=" + std::to_string(request.task_oid);
  return line;
}

int RunPlainInstance(const StartRequest& start) {
  const int signals = SignalDescriptor();
  // The window exists from here on: a second instance now finds it.
  ipc::Listener listener;
  if (!listener.Open(kMainWindowClass)) {
    if (signals >= 0) close(signals);
    return 0;
  }
  std::vector<std::wstring> subjects;
  if (!ReadTaskSubjects(CurrentSettings(), &subjects))
    std::fprintf(stderr, "velmo-todo: %s\n", cedb::LastFailure().c_str());
  PrintLine("tasks: " + std::to_string(subjects.size()));
  for (const std::wstring& subject : subjects) PrintLine("  " + ToUtf8(subject));
  PrintLine("start: request=" + std::to_string(start.request) +
            " oid=" + std::to_string(start.task_oid));
  ipc::Handlers handlers;
  handlers.copy_data = [](ULONG_PTR code, DWORD size, const BYTE* bytes) -> LRESULT {
    PrintLine(DescribeHandover(DecodeHandover(code, size, bytes, bytes ? size : 0)));
    return 0;
  };
  handlers.dismiss_dialogs = [] { PrintLine("hand-over: dismiss dialogs"); };

  pollfd watched[] = {{listener.fd(), POLLIN, 0}, {signals, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
  for (;;) {
    if (poll(watched, 3, -1) < 0) continue;  // EINTR
    if (watched[0].revents & POLLIN) listener.ReceiveOne(handlers);
    if (watched[1].revents & POLLIN) break;
    if (watched[2].revents & POLLNVAL) watched[2].fd = -1;  // no standard input
    if (watched[2].revents & (POLLIN | POLLHUP)) {
      char discard[256];
      if (read(STDIN_FILENO, discard, sizeof discard) <= 0) break;
    }
  }
  if (signals >= 0) close(signals);
  return 0;
}

}  // namespace velmo::app
