#include "links/links_view.h"

#include "links/link_text_view.h"
#include "platform/ui/dialog.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/command_ids.h"
#include "res/dialogs_links.h"
#include "res/strings.h"

namespace velmo {
namespace {

constexpr UINT kTextNoSubject = 197;

void Fill(HWND view, const LinkTask& task) {
  const std::wstring subject = task.subject.empty() ? res::Text(kTextNoSubject) : task.subject;
  SendMessageW(view, kTextViewBegin, 0, 0);
  SendMessageW(view, kTextViewAdd, 0, reinterpret_cast<LPARAM>(subject.c_str()));
  SendMessageW(view, kTextViewBreak, 0, 0);
  SendMessageW(view, kTextViewAdd, 0, reinterpret_cast<LPARAM>(task.notes.c_str()));
  SendMessageW(view, kTextViewEnd, 0, 0);
}

void ActOnChosen(HWND dialog, const LinkTask& task) {
  ChosenLink link;
  if (!SendDlgItemMessageW(dialog, res::kLinkTextView, kTextViewChosenLink, 0,
                           reinterpret_cast<LPARAM>(&link)))
    return;
  switch (link.kind) {
    case LinkKind::kEmail: {
      const size_t at = link.text.find(L'@');
      ActOnEmail(dialog, EmailAddress{link.text.substr(0, at), link.text.substr(at + 1)});
      break;
    }
    case LinkKind::kWeb: ActOnWebAddress(dialog, link.text); break;
    case LinkKind::kPhone: DialNumber(link.text, task.subject); break;
  }
}

INT_PTR LinksViewProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_INITDIALOG: {
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      HWND view = GetDlgItem(dialog, res::kLinkTextView);
      Fill(view, *reinterpret_cast<const LinkTask*>(lparam));
      const std::wstring left = res::Text(res::kLinksViewBar.left.text_id);
      const std::wstring right = res::Text(res::kLinksViewBar.right.text_id);
      SOFTKEY l{left.c_str(), res::kLinksViewBar.left.command, nullptr};
      SOFTKEY r{right.c_str(), res::kLinksViewBar.right.command, nullptr};
      CreateSoftKeyBar(dialog, &l, &r);
      SetFocus(view);
      return FALSE;
    }
    case WM_COMMAND: {
      const auto* task = reinterpret_cast<const LinkTask*>(GetWindowLongPtrW(dialog, DWLP_USER));
      switch (LOWORD(wparam)) {
        case cmd::kEdit: EndDialog(dialog, cmd::kEdit); return TRUE;
        case IDCANCEL: EndDialog(dialog, 0); return TRUE;
        case IDOK:
          if (task) ActOnChosen(dialog, *task);
          return TRUE;
        default: return FALSE;
      }
    }
    default:
      return FALSE;
  }
}

}  // namespace

INT_PTR ShowLinksView(HWND owner, const LinkTask& task) {
  RegisterLinkTextView();
  const res::LoadedDialog dialog(res::kLinksViewDialog);
  const INT_PTR result = DialogBoxIndirectParamW(nullptr, dialog.get(), owner, LinksViewProc,
                                                 reinterpret_cast<LPARAM>(&task));
  return result < 0 ? 0 : result;
}

}  // namespace velmo
