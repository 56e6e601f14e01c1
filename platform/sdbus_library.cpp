#include "platform/sdbus_library.h"

#include <dlfcn.h>

#include <string>

#include "platform/library_function.h"

namespace velmo {
namespace {

constexpr const char* kLibraryFile = "libsystemd.so.0";

std::string& Failure() {
  static std::string failure;
  return failure;
}

template <typename Function>
bool Find(void* library, const char* name, Function* out) {
  if (FindLibraryFunction(library, name, out)) return true;
  Failure() = std::string(kLibraryFile) + " has no " + name;
  return false;
}

bool Load(SdBusLibrary* p) {
  void* lib = dlopen(kLibraryFile, RTLD_NOW | RTLD_LOCAL);
  if (!lib) {
    const char* why = dlerror();
    Failure() = why ? why : std::string("cannot load ") + kLibraryFile;
    return false;
  }
  return Find(lib, "sd_bus_open_user", &p->open_user) &&
         Find(lib, "sd_bus_flush_close_unref", &p->flush_close_unref) &&
         Find(lib, "sd_bus_is_open", &p->is_open) && Find(lib, "sd_bus_get_fd", &p->get_fd) &&
         Find(lib, "sd_bus_get_events", &p->get_events) &&
         Find(lib, "sd_bus_get_timeout", &p->get_timeout) &&
         Find(lib, "sd_bus_process", &p->process) && Find(lib, "sd_bus_flush", &p->flush) &&
         Find(lib, "sd_bus_match_signal", &p->match_signal) &&
         Find(lib, "sd_bus_slot_unref", &p->slot_unref) &&
         Find(lib, "sd_bus_call_method", &p->call_method) && Find(lib, "sd_bus_call", &p->call) &&
         Find(lib, "sd_bus_message_new_method_call", &p->message_new_method_call) &&
         Find(lib, "sd_bus_message_append", &p->message_append) &&
         Find(lib, "sd_bus_message_read", &p->message_read) &&
         Find(lib, "sd_bus_message_read_strv", &p->message_read_strv) &&
         Find(lib, "sd_bus_message_unref", &p->message_unref) &&
         Find(lib, "sd_bus_error_is_set", &p->error_is_set) &&
         Find(lib, "sd_bus_error_free", &p->error_free) &&
         Find(lib, "sd_bus_open_system", &p->open_system) &&
         Find(lib, "sd_bus_message_enter_container", &p->message_enter_container) &&
         Find(lib, "sd_bus_message_exit_container", &p->message_exit_container) &&
         Find(lib, "sd_bus_message_skip", &p->message_skip) &&
         Find(lib, "sd_bus_message_peek_type", &p->message_peek_type) &&
         Find(lib, "sd_bus_message_open_container", &p->message_open_container) &&
         Find(lib, "sd_bus_message_close_container", &p->message_close_container) &&
         Find(lib, "sd_bus_set_method_call_timeout", &p->set_method_call_timeout);
}

}  // namespace

const SdBusLibrary* SdBus() {
  static SdBusLibrary library;
  static const bool loaded = Load(&library);
  return loaded ? &library : nullptr;
}

const char* SdBusLoadFailure() {
  SdBus();
  return Failure().c_str();
}

}  // namespace velmo
