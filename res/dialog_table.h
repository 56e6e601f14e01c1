// Dialogs as tables of constants, as the menus are: each control names its
// class, the string resource of its text, its identifier, style and cells.
// A dialog's template is made from its table with the texts loaded.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/ui/dialog.h"
#include "platform/wintypes.h"

namespace velmo::res {

struct DialogItemDef {
  LPCWSTR class_name;
  UINT text_id;  // 0: no text
  int id;
  DWORD style;
  int x;
  int y;
  int cx;  // 0 or less: counted back from the dialog's right edge
  int cy;  // 0 or less: counted back from its bottom edge
};

struct DialogDef {
  UINT title_id;
  std::span<const DialogItemDef> items;
};

// The template of a dialog table, its texts loaded from the string table; it
// lives as long as this object.
class LoadedDialog {
 public:
  explicit LoadedDialog(const DialogDef& def);
  LoadedDialog(const LoadedDialog&) = delete;
  LoadedDialog& operator=(const LoadedDialog&) = delete;
  const DLGTEMPLATEW* get() const { return &dialog_; }

 private:
  std::wstring title_;
  std::vector<std::wstring> texts_;
  std::vector<DLGITEMTEMPLATEW> items_;
  DLGTEMPLATEW dialog_{};
};

}  // namespace velmo::res
