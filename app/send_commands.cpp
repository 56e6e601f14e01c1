#include "app/send_commands.h"

#include <cstring>

#include "app/main_window_state.h"
#include "app/save_as_dialog.h"
#include "app/task_file.h"
#include "app/task_text.h"
#include "links/link_actions.h"
#include "links/link_uris.h"
#include "platform/ui/message_box.h"
#include "platform/ui/messages.h"
#include "platform/wstr.h"
#include "res/dialogs_links.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

int Ask(UINT text_id, const std::wstring& insert, UINT type) {
  const std::wstring text = res::FormatId(text_id, {insert});
  const std::wstring caption = res::Text(res::kTextSaveAsCaption);
  return MessageBoxW(MainWindow().window, text.c_str(), caption.c_str(), type);
}

}  // namespace

void SaveTaskAs(CEOID oid) {
  SummaryTask task;
  std::wstring text;
  if (!ReadTaskText(oid, &task, &text)) return;
  const std::string bytes = ToUtf8(text);
  std::wstring name = DefaultTaskFileName(task.subject);
  // Until the file is written or the user gives up: a name that is taken is
  // asked about, and a refused replacement asks for another name.
  while (AskSaveAsFileName(MainWindow().window, &name)) {
    const std::string path = ExpandUserPath(ToUtf8(name));
    const std::wstring shown = FromUtf8(path);
    int error = 0;
    FileWrite result = WriteTaskFile(path, bytes, false, &error);
    if (result == FileWrite::kExists) {
      if (Ask(res::kTextReplaceFile, shown, MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2) != IDYES)
        continue;
      result = WriteTaskFile(path, bytes, true, &error);
    }
    if (result == FileWrite::kWritten) return;
    const std::wstring text_of_error = FromUtf8(std::strerror(error));
    const std::wstring message = res::FormatId(res::kTextSaveFailed, {shown, text_of_error});
    const std::wstring caption = res::Text(res::kTextSaveAsCaption);
    MessageBoxW(MainWindow().window, message.c_str(), caption.c_str(), MB_OK | MB_ICONHAND);
  }
}

void MailTask(CEOID oid) {
  SummaryTask task;
  std::wstring text;
  if (ReadTaskText(oid, &task, &text)) OpenWithDesktop(MailtoUri(L"", task.subject, text));
}

}  // namespace velmo::app
