#pragma once

namespace karvel {

// Whether the machine has a way to the network.
class Connection {
 public:
  virtual ~Connection() = default;
  // As it is at this moment.
  [[nodiscard]] virtual bool Up() const = 0;
};

}  // namespace karvel
