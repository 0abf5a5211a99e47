// The quiet line at the bottom of the window (Durum): in a few words what was just booked, or why something was not. It never takes the
// focus and asks nothing.
#pragma once

#include <string>

#include "desk/screen.h"

namespace karvel {

// Says it until the next thing is said; "" says nothing.
inline void Tell(Screen& screen, const std::string& text) {
  screen.Durum.SetCaption(text);
}

// A payment that was typed where none is taken.
inline void TellPaymentNotTaken(Screen& screen) {
  Tell(screen, screen.Text2(2).Text() + " alınmadı: tutarı müşteri listesinde yazıp Tamam'a dokunun");
}

}  // namespace karvel
