#include "res/dialog_table.h"

#include "res/strings.h"

namespace velmo::res {

LoadedDialog::LoadedDialog(const DialogDef& def) : title_(Text(def.title_id)) {
  texts_.reserve(def.items.size());
  items_.reserve(def.items.size());
  for (const DialogItemDef& item : def.items) {
    texts_.push_back(item.text_id ? Text(item.text_id) : std::wstring());
    items_.push_back({item.class_name, texts_.back().c_str(), item.id, item.style, item.x, item.y,
                      item.cx, item.cy});
  }
  dialog_ = {title_.c_str(), 0, 0, 0, items_.data(), static_cast<int>(items_.size())};
}

}  // namespace velmo::res
