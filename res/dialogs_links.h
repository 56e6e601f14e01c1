// The links part's dialogs as tables: the Links View (one text view filling
// it) and the file name asked by "Save As...".
#pragma once

#include "res/dialog_table.h"
#include "res/menu_table.h"

namespace velmo::res {

// The Links View: the text view control over the whole dialog; "Edit" (40000)
// ends it with 40000, "Cancel" and the back key with 0.
constexpr wchar_t kLinkTextViewClass[] = L"STViewCtrl";
constexpr int kLinkTextView = 100;
extern const DialogDef kLinksViewDialog;
extern const SoftKeyBarDef kLinksViewBar;

// "Save As...": a label and the file's name.
constexpr int kSaveAsFileName = 101;
extern const DialogDef kSaveAsDialog;
extern const SoftKeyBarDef kSaveAsBar;

constexpr UINT kTextLinksViewTask = 43100;   // "Task": the text view's window text
constexpr UINT kTextSaveAsTitle = 43101;     // "Save As"
constexpr UINT kTextSaveAsLabel = 43102;     // "File name:"
constexpr UINT kTextReplaceFile = 43103;     // "%1 already exists.\r\nReplace it?"
constexpr UINT kTextSaveFailed = 43104;      // "The task could not be saved to %1: %2"
constexpr UINT kTextBeamSaved = 43105;       // "No Bluetooth adapter. The tasks were saved to %1"
constexpr UINT kTextBeamSent = 43106;        // "Sending %1 to %2."
constexpr UINT kTextBeamCaption = 43107;     // "Beam"
constexpr UINT kTextSaveAsCaption = 40493;   // "Save As..."

}  // namespace velmo::res
