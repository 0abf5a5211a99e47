#pragma once

#include "platform/connection.h"

namespace karvel {

// Up while any network card but the machine's own loop has an address.
class SystemConnection : public Connection {
 public:
  [[nodiscard]] bool Up() const override;
};

}  // namespace karvel
