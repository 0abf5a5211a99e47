// Which followers keep still while a handler moves the cursors. A move fires them inside the very handler that moves, and a field must not
// change under a finger because the desk looked something up.
#pragma once

namespace karvel {

// The numbers are those that support reads in the desk's state.
enum class Mute {
  Nothing = 0,
  Items = 66,       // prices and fields don't follow the stock list
  Fields = 99,      // no field follows: the lists move, what stands in the fields stays
  DayBook = 100,    // the day total doesn't follow the day book, nor any field the customer list
  Customers = 555,  // nothing follows the customer list
};

// FormState::RepositionGuard: what keeps still now.
class Muting {
 public:
  [[nodiscard]] bool ItemsStill() const { return now_ == Mute::Items; }
  [[nodiscard]] bool ItemFieldsStill() const { return now_ == Mute::Fields; }
  [[nodiscard]] bool DayBookStill() const { return now_ == Mute::DayBook; }
  [[nodiscard]] bool CustomersStill() const { return now_ == Mute::Customers; }
  // Name, balance and books of the customer keep still; what no field shows follows all the same.
  [[nodiscard]] bool CustomerFieldsStill() const { return now_ >= Mute::Fields; }
  [[nodiscard]] double Number() const { return static_cast<double>(now_); }
  // Lasts beyond the handler, until the next one that mutes something has ended: a refusal leaves the desk as it stands.
  void Keep(Mute what) { now_ = what; }

 private:
  friend class Muted;
  Mute now_ = Mute::Nothing;
  int depth_ = 0;
};

// Keeps something still for as long as this lives. Afterwards what a handler around it kept still is so again; after the outermost,
// everything follows.
class [[nodiscard]] Muted {
 public:
  Muted(Muting& muting, Mute what) : muting_(muting), before_(muting.depth_ > 0 ? muting.now_ : Mute::Nothing) {
    ++muting_.depth_;
    muting_.now_ = what;
  }
  ~Muted() {
    --muting_.depth_;
    muting_.now_ = before_;
  }
  Muted(const Muted&) = delete;
  Muted& operator=(const Muted&) = delete;

 private:
  Muting& muting_;
  const Mute before_;
};

}  // namespace karvel
