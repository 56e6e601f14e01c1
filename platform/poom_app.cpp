// The application object: logging on opens the tasks database; items come from
// it by object identifier or new.
#include <atomic>

#include "platform/poom_task.h"

namespace velmo::poom {
namespace {

// Returned before Logon and after Logoff.
constexpr HRESULT E_NOT_LOGGED_ON = E_FAIL;

class TasksFolder final : public IFolder {
 public:
  ULONG AddRef() override { return ++refs_; }
  ULONG Release() override {
    const ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT get_DefaultItemType(int* type) override {
    if (!type) return E_POINTER;
    *type = olTaskItem;
    return S_OK;
  }

 private:
  ~TasksFolder() = default;
  std::atomic<ULONG> refs_{1};
};

class Application final : public IPOutlookApp {
 public:
  ULONG AddRef() override { return ++refs_; }
  ULONG Release() override {
    const ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT Logon(HWND) override {
    if (session_) return S_OK;
    return Session::Open(&session_);
  }

  HRESULT Logoff() override {
    session_.reset();
    return S_OK;
  }

  HRESULT GetDefaultFolder(int kind, IFolder** folder) override {
    if (!folder) return E_POINTER;
    *folder = nullptr;
    if (kind != olFolderTasks) return E_INVALIDARG;
    if (!session_) return E_NOT_LOGGED_ON;
    *folder = new TasksFolder();
    return S_OK;
  }

  HRESULT GetItemFromOid(CEOID oid, ITask** item) override {
    if (!item) return E_POINTER;
    *item = nullptr;
    if (!session_) return E_NOT_LOGGED_ON;
    RecordProps record;
    const HRESULT hr = session_->Read(oid, &record);
    if (FAILED(hr)) return hr;
    TaskValues values;
    DecodeTask(record.begin(), record.end(), &values);
    *item = new TaskItem(session_, oid, values);
    return S_OK;
  }

  HRESULT CreateItem(int type, ITask** item) override {
    if (!item) return E_POINTER;
    *item = nullptr;
    if (type != olTaskItem) return E_INVALIDARG;
    if (!session_) return E_NOT_LOGGED_ON;
    *item = new TaskItem(session_, 0, TaskValues{});
    return S_OK;
  }

 private:
  ~Application() = default;
  std::atomic<ULONG> refs_{1};
  std::shared_ptr<Session> session_;
};

}  // namespace
}  // namespace velmo::poom

HRESULT CreatePOutlookApp(IPOutlookApp** app) {
  if (!app) return E_POINTER;
  *app = new velmo::poom::Application();
  return S_OK;
}
