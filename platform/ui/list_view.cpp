// The list view control.
#include "platform/ui/list_view.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/ui/gdi.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

struct Row {
  LPARAM param = 0;
  std::wstring text;
  UINT state = 0;
};

struct ListViewData : ControlData {
  std::vector<Row> rows;
  int top = 0;
  int row_height = 1;
};

ListViewData* Data(HWND hwnd) { return ControlOf<ListViewData>(hwnd); }

int Count(const ListViewData* d) { return static_cast<int>(d->rows.size()); }

int PerPage(HWND hwnd, const ListViewData* d) {
  RECT rc;
  GetClientRect(hwnd, &rc);
  int rows = (rc.bottom - rc.top) / std::max(d->row_height, 1);
  return std::max(rows, 1);
}

void Notify(HWND hwnd, NMHDR* hdr, UINT code) {
  hdr->hwndFrom = hwnd;
  hdr->idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(hwnd));
  hdr->code = code;
  if (HWND parent = GetParent(hwnd)) {
    SendMessageW(parent, WM_NOTIFY, hdr->idFrom, reinterpret_cast<LPARAM>(hdr));
  }
}

// Sets the state bits of one row and reports the change.
void ChangeState(HWND hwnd, int i, UINT state, UINT mask) {
  ListViewData* d = Data(hwnd);
  if (!d || i < 0 || i >= Count(d)) return;
  Row& row = d->rows[static_cast<size_t>(i)];
  UINT old = row.state;
  UINT now = (old & ~mask) | (state & mask);
  if (now == old) return;
  row.state = now;
  LPARAM param = row.param;
  MarkScreenDirty();
  NMLISTVIEW nm{};
  nm.iItem = i;
  nm.uNewState = now;
  nm.uOldState = old;
  nm.uChanged = LVIF_STATE;
  nm.lParam = param;
  Notify(hwnd, &nm.hdr, LVN_ITEMCHANGED);
}

// A row becoming focused (or, in a single-selection list, selected) takes that
// state from every other row.
void SetState(HWND hwnd, int i, UINT state, UINT mask) {
  ListViewData* d = Data(hwnd);
  if (!d) return;
  if (i < 0) {
    for (int k = 0; k < Count(d); ++k) ChangeState(hwnd, k, state, mask & ~LVIS_FOCUSED);
    return;
  }
  UINT exclusive = LVIS_FOCUSED;
  if (GetWindowLongPtrW(hwnd, GWL_STYLE) & LVS_SINGLESEL) exclusive |= LVIS_SELECTED;
  UINT taken = state & mask & exclusive;
  if (taken) {
    for (int k = 0; (d = Data(hwnd)) && k < Count(d); ++k) {
      if (k != i) ChangeState(hwnd, k, 0, taken);
    }
  }
  ChangeState(hwnd, i, state, mask);
}

void EnsureVisible(HWND hwnd, int i) {
  ListViewData* d = Data(hwnd);
  if (!d || i < 0 || i >= Count(d)) return;
  int page = PerPage(hwnd, d);
  if (i < d->top) d->top = i;
  if (i >= d->top + page) d->top = i - page + 1;
  MarkScreenDirty();
}

void ClampTop(HWND hwnd, ListViewData* d) {
  int page = PerPage(hwnd, d);
  d->top = std::clamp(d->top, 0, std::max(0, Count(d) - page));
}

int Focused(const ListViewData* d) {
  for (int i = 0; i < Count(d); ++i) {
    if (d->rows[static_cast<size_t>(i)].state & LVIS_FOCUSED) return i;
  }
  return -1;
}

// Where a navigation key moves the focus, or -1 for keys that do not move it.
int NavigationTarget(HWND hwnd, const ListViewData* d, UINT vk) {
  int n = Count(d);
  if (n == 0) return -1;
  int focus = Focused(d);
  int page = PerPage(hwnd, d);
  int last_on_page = std::min(d->top + page - 1, n - 1);
  switch (vk) {
    case VK_UP: return focus < 0 ? 0 : std::max(focus - 1, 0);
    case VK_DOWN: return focus < 0 ? 0 : std::min(focus + 1, n - 1);
    case VK_HOME: return 0;
    case VK_END: return n - 1;
    case VK_NEXT:
      if (focus < last_on_page) return last_on_page;
      return std::min(focus + page, n - 1);
    case VK_PRIOR:
      if (focus > d->top) return d->top;
      return std::max(focus - page, 0);
    default: return -1;
  }
}

void OnKeyDown(HWND hwnd, UINT vk) {
  NMLVKEYDOWN key{};
  key.wVKey = static_cast<WORD>(vk);
  Notify(hwnd, &key.hdr, LVN_KEYDOWN);
  ListViewData* d = Data(hwnd);
  if (!d) return;
  if (vk == VK_RETURN) {
    NMITEMACTIVATE nm{};
    nm.iItem = Focused(d);
    Notify(hwnd, &nm.hdr, LVN_ITEMACTIVATE);
    return;
  }
  int target = NavigationTarget(hwnd, d, vk);
  if (target < 0) return;
  SetState(hwnd, target, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  EnsureVisible(hwnd, target);
}

void DrawRowDefault(HDC hdc, const RECT& rc, const Row& row) {
  RECT text = rc;
  text.left += 1;
  DrawTextW(hdc, row.text.c_str(), -1, &text, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
}

void Paint(HWND hwnd) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  ListViewData* d = Data(hwnd);
  RECT client;
  GetClientRect(hwnd, &client);
  LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
  bool has_focus = GetFocus() == hwnd;
  if (d && d->rows.empty()) {
    int length = GetWindowTextLengthW(hwnd);
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    GetWindowTextW(hwnd, text.data(), length + 1);
    text.resize(static_cast<size_t>(length));
    RECT line{0, 0, client.right, 1};
    SetBkMode(hdc, TRANSPARENT);
    DrawTextW(hdc, text.c_str(), -1, &line, DT_SINGLELINE | DT_CENTER | DT_END_ELLIPSIS);
  }
  int page = d ? PerPage(hwnd, d) : 0;
  for (int r = 0; d && r < page; ++r) {
    int i = d->top + r;
    if (i >= Count(d)) break;
    Row row = d->rows[static_cast<size_t>(i)];
    RECT rc{0, r * d->row_height, client.right, (r + 1) * d->row_height};
    bool selected = (row.state & LVIS_SELECTED) && (has_focus || (style & LVS_SHOWSELALWAYS));
    int back = selected ? COLOR_HIGHLIGHT : COLOR_WINDOW;
    FillRect(hdc, &rc, GetSysColorBrush(back));
    SetTextColor(hdc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkColor(hdc, GetSysColor(back));
    SetBkMode(hdc, TRANSPARENT);
    BOOL drawn = FALSE;
    if (style & LVS_OWNERDRAWFIXED) {
      DRAWITEMSTRUCT dis{};
      dis.CtlType = ODT_LISTVIEW;
      dis.CtlID = static_cast<UINT>(GetDlgCtrlID(hwnd));
      dis.itemID = static_cast<UINT>(i);
      dis.itemAction = ODA_DRAWENTIRE;
      dis.itemState = (selected ? ODS_SELECTED : 0) |
                      ((row.state & LVIS_FOCUSED) && has_focus ? ODS_FOCUS : 0);
      dis.hwndItem = hwnd;
      dis.hDC = hdc;
      dis.rcItem = rc;
      dis.itemData = static_cast<ULONG_PTR>(row.param);
      drawn = static_cast<BOOL>(SendMessageW(GetParent(hwnd), WM_DRAWITEM, dis.CtlID,
                                             reinterpret_cast<LPARAM>(&dis)));
      if (!(d = Data(hwnd))) break;
    }
    if (!drawn) DrawRowDefault(hdc, rc, row);
  }
  EndPaint(hwnd, &ps);
}

void CopyOut(const Row& row, LVITEMW* item) {
  if (item->mask & LVIF_PARAM) item->lParam = row.param;
  if (item->mask & LVIF_STATE) item->state = row.state & item->stateMask;
  if ((item->mask & LVIF_TEXT) && item->pszText && item->cchTextMax > 0) {
    size_t n = std::min(row.text.size(), static_cast<size_t>(item->cchTextMax - 1));
    std::copy_n(row.text.data(), n, item->pszText);
    item->pszText[n] = 0;
  }
}

LRESULT Insert(HWND hwnd, ListViewData* d, const LVITEMW* item) {
  if (!item) return -1;
  Row row;
  if (item->mask & LVIF_PARAM) row.param = item->lParam;
  if ((item->mask & LVIF_TEXT) && item->pszText) row.text = item->pszText;
  int at = std::clamp(item->iItem, 0, Count(d));
  d->rows.insert(d->rows.begin() + at, row);
  if ((item->mask & LVIF_STATE) && item->stateMask) {
    SetState(hwnd, at, item->state, item->stateMask);
  }
  MarkScreenDirty();
  return at;
}

}  // namespace

LRESULT ListViewProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_NCCREATE) {
    if (WindowData* w = Find(hwnd)) w->control = std::make_unique<ListViewData>();
    return TRUE;
  }
  ListViewData* d = Data(hwnd);
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  int n = Count(d);
  int i = static_cast<int>(static_cast<LONG_PTR>(wparam));
  bool valid = i >= 0 && i < n;
  switch (msg) {
    case WM_CREATE:
      if (GetWindowLongPtrW(hwnd, GWL_STYLE) & LVS_OWNERDRAWFIXED) {
        MEASUREITEMSTRUCT mis{ODT_LISTVIEW, static_cast<UINT>(GetDlgCtrlID(hwnd)), 0, 0, 1, 0};
        SendMessageW(GetParent(hwnd), WM_MEASUREITEM, mis.CtlID, reinterpret_cast<LPARAM>(&mis));
        if ((d = Data(hwnd))) d->row_height = std::max<int>(static_cast<int>(mis.itemHeight), 1);
      }
      return 0;
    case WM_PAINT:
      Paint(hwnd);
      return 0;
    case WM_SIZE:
      ClampTop(hwnd, d);
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      MarkScreenDirty();
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      OnKeyDown(hwnd, static_cast<UINT>(wparam));
      return 0;
    case LVM_GETITEMCOUNT:
      return n;
    case LVM_INSERTITEMW:
      return Insert(hwnd, d, reinterpret_cast<const LVITEMW*>(lparam));
    case LVM_DELETEITEM:
      if (!valid) return FALSE;
      d->rows.erase(d->rows.begin() + i);
      ClampTop(hwnd, d);
      MarkScreenDirty();
      return TRUE;
    case LVM_DELETEALLITEMS:
      d->rows.clear();
      d->top = 0;
      MarkScreenDirty();
      return TRUE;
    case LVM_GETITEMW:
    case LVM_SETITEMW: {
      auto* item = reinterpret_cast<LVITEMW*>(lparam);
      if (!item || item->iItem < 0 || item->iItem >= n) return FALSE;
      Row& row = d->rows[static_cast<size_t>(item->iItem)];
      if (msg == LVM_GETITEMW) {
        CopyOut(row, item);
        return TRUE;
      }
      if (item->mask & LVIF_PARAM) row.param = item->lParam;
      if ((item->mask & LVIF_TEXT) && item->pszText) row.text = item->pszText;
      if (item->mask & LVIF_STATE) SetState(hwnd, item->iItem, item->state, item->stateMask);
      MarkScreenDirty();
      return TRUE;
    }
    case LVM_SETITEMSTATE: {
      auto* item = reinterpret_cast<const LVITEMW*>(lparam);
      if (!item || (i != -1 && !valid)) return FALSE;
      SetState(hwnd, i, item->state, item->stateMask);
      return TRUE;
    }
    case LVM_GETITEMSTATE:
      return valid ? static_cast<LRESULT>(d->rows[static_cast<size_t>(i)].state & lparam) : 0;
    case LVM_GETNEXTITEM: {
      UINT flags = static_cast<UINT>(lparam) & (LVNI_FOCUSED | LVNI_SELECTED);
      for (int k = std::max(i + 1, 0); k < n; ++k) {
        if ((d->rows[static_cast<size_t>(k)].state & flags) == flags) return k;
      }
      return -1;
    }
    case LVM_GETSELECTEDCOUNT:
      return std::count_if(d->rows.begin(), d->rows.end(),
                           [](const Row& r) { return r.state & LVIS_SELECTED; });
    case LVM_ENSUREVISIBLE:
      if (!valid) return FALSE;
      EnsureVisible(hwnd, i);
      return TRUE;
    case LVM_GETTOPINDEX:
      return d->top;
    case LVM_GETCOUNTPERPAGE:
      return PerPage(hwnd, d);
    case LVM_REDRAWITEMS:
      MarkScreenDirty();
      return TRUE;
    case LVM_GETITEMRECT: {
      auto* rect = reinterpret_cast<RECT*>(lparam);
      if (!rect || !valid) return FALSE;
      RECT client;
      GetClientRect(hwnd, &client);
      int y = (i - d->top) * d->row_height;
      *rect = RECT{0, y, client.right, y + d->row_height};
      return TRUE;
    }
    case LVM_SORTITEMS: {
      auto compare = reinterpret_cast<PFNLVCOMPARE>(lparam);
      if (!compare) return FALSE;
      LPARAM sort_param = static_cast<LPARAM>(wparam);
      std::stable_sort(d->rows.begin(), d->rows.end(), [&](const Row& a, const Row& b) {
        return compare(a.param, b.param, sort_param) < 0;
      });
      MarkScreenDirty();
      return TRUE;
    }
    case LVM_FINDITEMW: {
      auto* find = reinterpret_cast<const LVFINDINFOW*>(lparam);
      if (!find) return -1;
      for (int k = std::max(i + 1, 0); k < n; ++k) {
        const Row& row = d->rows[static_cast<size_t>(k)];
        if ((find->flags & LVFI_PARAM) ? row.param == find->lParam
                                       : (find->psz && row.text == find->psz)) {
          return k;
        }
      }
      return -1;
    }
    case LVM_SETROWHEIGHT:
      d->row_height = std::max(i, 1);
      ClampTop(hwnd, d);
      MarkScreenDirty();
      return TRUE;
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace velmo::ui::internal
