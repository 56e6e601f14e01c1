#include "editor/task_editor.h"

#include "categories/category_state.h"
#include "editor/editor_dialog.h"
#include "editor/fill_fields.h"
#include "platform/clock.h"
#include "settings/settings.h"
#include "store/connection.h"

namespace velmo {
INT_PTR RunTaskEditor(HWND owner, CEOID oid) {
  const Settings& settings = CurrentSettings();
  editor::EditorDialog d;
  d.compact = settings.edit_compact == 1;
  d.input_mode = settings.input_mode;
  d.fields.oid = oid;
  const DATE now = NowAsDate();
  if (oid) {
    ITask* task = nullptr;
    IPOutlookApp* app = Store().app;
    if (!app || FAILED(app->GetItemFromOid(oid, &task)) || !task) return 0;
    const HRESULT read = FillFieldsFromTask(task, settings, now, &d.fields);
    task->Release();
    if (FAILED(read)) return 0;
  } else {
    FillNewTaskDefaults(settings, CategoryFilterList(), now, &d.fields);
  }
  return editor::RunEditorDialog(owner, &d);
}

}  // namespace velmo
