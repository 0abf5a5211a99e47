#pragma once

#include <QHostAddress>
#include <QList>
#include <QNetworkInterface>

#include "platform/connection.h"

namespace karvel {

// Up while any network card leads out of the machine. Looked up anew each time, in less than a millisecond.
class SystemConnection : public Connection {
 public:
  [[nodiscard]] bool Up() const override;

  // Whether a card leads out: it is up and running, is not the machine's own loop, and has an address other than the loop's.
  [[nodiscard]] static bool LeadsOut(QNetworkInterface::InterfaceFlags flags, const QList<QHostAddress>& addresses);
};

}  // namespace karvel
