#include "app/system_connection.h"

#include <QNetworkAddressEntry>
#include <algorithm>

namespace karvel {
namespace {
constexpr int kLookMilliseconds = 3000, kAgainMilliseconds = 1000;
}  // namespace

ServerProbe::ServerProbe(const std::string& host, int port)
    : host_(QString::fromStdString(host).remove('[').remove(']')), port_(static_cast<quint16>(port)) {
  patience_.setSingleShot(true);
  patience_.setInterval(kLookMilliseconds);
  QObject::connect(&socket_, &QTcpSocket::connected, &patience_, [this] { Found(true); });
  QObject::connect(&socket_, &QTcpSocket::errorOccurred, &patience_, [this] { Found(false); });
  QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { Found(false); });
}

bool ServerProbe::Reached() {
  if (!looking_ && (!found_.isValid() || found_.elapsed() >= kAgainMilliseconds)) {
    looking_ = true;
    patience_.start();
    socket_.connectToHost(host_, port_);
  }
  return reached_;
}

void ServerProbe::Found(bool reached) {
  if (!looking_) return;
  looking_ = false;
  reached_ = reached;
  found_.start();
  patience_.stop();
  socket_.abort();
}

void SystemConnection::WatchServers(const std::vector<ServerPlace>& servers) {
  servers_.clear();
  for (const ServerPlace& server : servers) servers_.push_back(std::make_unique<ServerProbe>(server.host, server.port));
}

bool SystemConnection::Up() const {
  const bool byCard = std::ranges::any_of(QNetworkInterface::allInterfaces(), [](const QNetworkInterface& card) {
    QList<QHostAddress> addresses;
    for (const QNetworkAddressEntry& entry : card.addressEntries()) addresses.push_back(entry.ip());
    return LeadsOut(card.flags(), addresses);
  });
  return byCard || ServerAnswers();
}

bool SystemConnection::ServerAnswers() const {
  // Each of them is asked: one that was down may be back by the next look.
  return std::ranges::count_if(servers_, [](const auto& server) { return server->Reached(); }) > 0;
}

bool SystemConnection::LeadsOut(QNetworkInterface::InterfaceFlags flags, const QList<QHostAddress>& addresses) {
  constexpr QNetworkInterface::InterfaceFlags kWorking = QNetworkInterface::IsUp | QNetworkInterface::IsRunning;
  if ((flags & kWorking) != kWorking || flags.testFlag(QNetworkInterface::IsLoopBack)) return false;
  return std::ranges::any_of(addresses, [](const QHostAddress& address) { return !address.isNull() && !address.isLoopback(); });
}

}  // namespace karvel
