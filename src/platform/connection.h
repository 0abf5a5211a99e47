#pragma once

namespace karvel {

// Whether the machine has a way to the network.
class Connection {
 public:
  virtual ~Connection() = default;
  [[nodiscard]] virtual bool Up() const = 0;
};

}  // namespace karvel
