#include "app/second_instance.h"

#include <chrono>
#include <thread>

#include "app/handover.h"
#include "app/startup.h"
#include "platform/ipc.h"
#include "platform/lasterror.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

constexpr UINT kNoAnswerText = 41760;   // "... did not answer within %2 seconds ..."
constexpr UINT kUnreachableText = 41761;  // "... but cannot be reached ..."
constexpr auto kFindRetry = std::chrono::milliseconds(50);

std::wstring Reason(UINT text, int waited_ms) {
  const pid_t holder = ipc::MutexHolderProcess(kInstanceMutexName);
  return res::FormatId(text, {holder > 0 ? std::to_wstring(holder) : L"?",
                              std::to_wstring((waited_ms + 999) / 1000)});
}

// The running instance's window; it answers once the instance has made it.
HWND WaitForWindow(int timeout_ms) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
  for (;;) {
    if (HWND window = FindWindowW(kMainWindowClass, nullptr)) return window;
    if (std::chrono::steady_clock::now() >= end) return nullptr;
    std::this_thread::sleep_for(kFindRetry);
  }
}

}  // namespace

std::wstring HandOverToRunningInstance(const StartRequest& start, const HandoverWaits& waits) {
  HWND window = WaitForWindow(waits.find_ms);
  if (!window) return Reason(kUnreachableText, waits.find_ms);
  // The lowest bit brings the window forward together with its owned windows.
  if (start.request != kAfterSyncRequest)
    ipc::SetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(window) | 1));

  OutgoingHandover handover;
  // Synchronous: the payload lives in this frame until the receiver is done.
  if (BuildHandover(start, &handover))
    ipc::SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&handover.record),
                      waits.answer_ms);
  else
    ipc::DismissDialogs(window, waits.answer_ms);
  const DWORD error = GetLastError();
  if (error == ERROR_SUCCESS) return {};
  return error == ERROR_TIMEOUT ? Reason(kNoAnswerText, waits.answer_ms)
                                : Reason(kUnreachableText, waits.find_ms);
}

}  // namespace velmo::app
