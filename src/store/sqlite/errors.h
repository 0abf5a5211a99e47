// The one place where SQLite's codes and exceptions become Status kinds.
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>

#include <concepts>
#include <string>
#include <string_view>

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

}  // namespace karvel::sqlite
