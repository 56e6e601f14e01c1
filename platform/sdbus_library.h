// The bus library (sd-bus of libsystemd), loaded on first use: it brings
// libgcrypt, libcap and four compression libraries with it, which every start
// of the programs would otherwise pay for, while only the reminder service
// talks to the session bus.
#pragma once

#include <systemd/sd-bus.h>

namespace velmo {

struct SdBusLibrary {
  decltype(&sd_bus_open_user) open_user;
  decltype(&sd_bus_flush_close_unref) flush_close_unref;
  decltype(&sd_bus_is_open) is_open;
  decltype(&sd_bus_get_fd) get_fd;
  decltype(&sd_bus_get_events) get_events;
  decltype(&sd_bus_get_timeout) get_timeout;
  decltype(&sd_bus_process) process;
  decltype(&sd_bus_flush) flush;
  decltype(&sd_bus_match_signal) match_signal;
  decltype(&sd_bus_slot_unref) slot_unref;
  decltype(&sd_bus_call_method) call_method;
  decltype(&sd_bus_call) call;
  decltype(&sd_bus_message_new_method_call) message_new_method_call;
  decltype(&sd_bus_message_append) message_append;
  decltype(&sd_bus_message_read) message_read;
  decltype(&sd_bus_message_read_strv) message_read_strv;
  decltype(&sd_bus_message_unref) message_unref;
  decltype(&sd_bus_error_is_set) error_is_set;
  decltype(&sd_bus_error_free) error_free;
  decltype(&sd_bus_open_system) open_system;
  decltype(&sd_bus_message_enter_container) message_enter_container;
  decltype(&sd_bus_message_exit_container) message_exit_container;
  decltype(&sd_bus_message_skip) message_skip;
  decltype(&sd_bus_message_peek_type) message_peek_type;
  decltype(&sd_bus_message_open_container) message_open_container;
  decltype(&sd_bus_message_close_container) message_close_container;
  decltype(&sd_bus_set_method_call_timeout) set_method_call_timeout;
};

// The library's functions, or null when it or one of them cannot be loaded
// (SdBusLoadFailure() then says why).
const SdBusLibrary* SdBus();
const char* SdBusLoadFailure();

}  // namespace velmo
