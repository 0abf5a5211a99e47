// A cursor of a book's own: it stands on the first row of its source, and no list moves with it.
#pragma once

#include <string>

#include "store/cursor.h"

namespace karvel {

class BookCursor : public Cursor {
 public:
  // The file by its bare name ("Cari.Mdb"); a table's name, or a Select text of sources.h.
  BookCursor(Stores& stores, const std::string& name, const std::string& file, const std::string& source) : Cursor(stores, name) {
    SetDatabaseName(file);
    Open(source).Ignore();  // the cursor notes why, and each of its steps fails from there on
  }
};

// A cursor that only adds rows to a table: it stands behind them, and reads none.
class RowAdder : public BookCursor {
 public:
  RowAdder(Stores& stores, const std::string& name, const std::string& file, const std::string& table)
      : BookCursor(stores, name, file, table) {
    MoveBehindLast().Ignore();
  }
};

}  // namespace karvel
