#include "app/system_connection.h"

#include <QNetworkAddressEntry>
#include <algorithm>

namespace karvel {

bool SystemConnection::Up() const {
  return std::ranges::any_of(QNetworkInterface::allInterfaces(), [](const QNetworkInterface& card) {
    QList<QHostAddress> addresses;
    for (const QNetworkAddressEntry& entry : card.addressEntries()) addresses.push_back(entry.ip());
    return LeadsOut(card.flags(), addresses);
  });
}

bool SystemConnection::LeadsOut(QNetworkInterface::InterfaceFlags flags, const QList<QHostAddress>& addresses) {
  constexpr QNetworkInterface::InterfaceFlags kWorking = QNetworkInterface::IsUp | QNetworkInterface::IsRunning;
  if ((flags & kWorking) != kWorking || flags.testFlag(QNetworkInterface::IsLoopBack)) return false;
  return std::ranges::any_of(addresses, [](const QHostAddress& address) { return !address.isNull() && !address.isLoopback(); });
}

}  // namespace karvel
