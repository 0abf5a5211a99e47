// The one place where SQLite's codes and exceptions become Status kinds.
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>

#include <concepts>
#include <string>
#include <string_view>
#include <thread>

#include "platform/patience.h"
#include "platform/status.h"

namespace karvel::sqlite {

// `connection` may be null where none was opened.
Status StatusOf(const SQLite::Exception& error, SQLite::Database* connection, std::string_view what);

// Runs work that may throw, and tells how it went.
template <typename Work>
Status Run(SQLite::Database* connection, std::string_view what, Work work) {
  try {
    if constexpr (std::same_as<decltype(work()), Status>) {
      return work();
    } else {
      work();
      return {};
    }
  } catch (const SQLite::Exception& error) {
    return StatusOf(error, connection, what);
  }
}

// Does work again while another program keeps it Busy, as long as the patience lasts. The engine's own busy waits can't serve: nobody may
// read on a connection that waits in the middle of a statement, and the window reads while it paints.
template <typename Work>
Status Patiently(Patience& patience, Work work) {
  for (Wait wait(patience);;) {
    Status done = work();
    if (done.Kind() != ErrorKind::Busy) return done;
    const auto nap = wait.Nap();
    if (nap == std::chrono::milliseconds(0)) return done;
    std::this_thread::sleep_for(nap);
  }
}

}  // namespace karvel::sqlite
