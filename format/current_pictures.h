// The program-wide date and time pictures: derived from the user's locale at
// start-up and again whenever the main window asks (the locale or the screen
// changed).
#pragma once

#include "format/date_pictures.h"

namespace velmo::format {

// The current pictures; the first call derives them.
const DatePictures& Pictures();

// Derives the pictures again from the user's locale and the screen. When the
// locale cannot be read the previous pictures stay and the failure is returned.
HRESULT RefreshPictures();

// The screen the pictures are made for. A terminal has no density of its own:
// 96 logical pixels per inch unless set.
void SetScreenTraits(const ScreenTraits& screen);
ScreenTraits CurrentScreenTraits();

}  // namespace velmo::format
