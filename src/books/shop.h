// What every book is opened with: the stores, the shop's clock, and the terminal that writes.
//
// The order of locks, the same for every posting, so that no two terminals ever wait for each other:
//   1. The settings' lock, for a slip number alone. It is given back before the posting begins: a number that was given and not used is a
//      gap in the numbers, never the same number twice.
//   2. The turn of the whole shop, which Action takes: one terminal writes at a time, all others stand in line.
//   3. Within the turn, rows in whatever order the bookkeeping wants: nobody else holds one.
// What a book decides on it reads within its turn: what the screen shows was read a while ago, and another terminal may have come first.
//
// What stays true of every book:
// - It writes all of its rows or none, over all files, in one action; it joins an action that is open already.
// - It reads plain values and cursors of its own. No list on a screen moves while it works, and nobody is asked anything.
// - A single step that fails is passed over and noted in the log (steps.h); a fault of the stores undoes the whole.
// - It answers with what it wrote, or with why it wrote nothing. ErrorKind::NoRecord says that what was to be booked on is gone: a card or
//   line that another terminal deleted or cancelled meanwhile. Every other kind is the stores' own: nothing is known to be gone.
// - ErrorKind::Unknown says that all may be written or nothing (Stores::AskOutcome): then the answer also bears what it would have written.
#pragma once

#include <expected>
#include <optional>
#include <string>
#include <utility>

#include "platform/clock.h"
#include "platform/status.h"
#include "store/stores.h"

namespace karvel {

struct Shop {
  Stores& stores;
  const Clock& clock;
  const std::string& terminalNo;  // two digits, "01"
};

// Why a book wrote nothing, or isn't known to have written.
template <typename Booked>
struct Failure : Status {
  Failure(Status status) : Status(std::move(status)) {}
  Failure(Status status, Booked booked) : Status(std::move(status)) {
    if (Kind() == ErrorKind::Unknown) ifItStands = std::move(booked);
  }
  std::optional<Booked> ifItStands;  // what it wrote then; there is one only for an unknown outcome of its own
};

// What a book answers.
template <typename Booked>
using Outcome = std::expected<Booked, Failure<Booked>>;

// The end of a book: its action is committed, and this is what it wrote.
template <typename Booked>
Outcome<Booked> Answer(Action& action, Booked booked) {
  Status done = action.Finish();
  if (done.Ok()) return booked;
  return std::unexpected(Failure<Booked>(std::move(done), std::move(booked)));
}

}  // namespace karvel
