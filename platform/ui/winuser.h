// Everything the program uses of the window system, in one include: windows and
// messages, the queue and timers, hot keys, drawing, menus and the soft-key bar,
// the controls, dialogs and the message box, and the desktop the screen is
// attached to.
#pragma once

#include "platform/ui/colours.h"
#include "platform/ui/desktop.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/gdi.h"
#include "platform/ui/hotkeys.h"
#include "platform/ui/list_view.h"
#include "platform/ui/menu.h"
#include "platform/ui/message_box.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/timers.h"
#include "platform/ui/types.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
