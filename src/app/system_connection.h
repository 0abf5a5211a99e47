#pragma once

#include <QElapsedTimer>
#include <QHostAddress>
#include <QList>
#include <QNetworkInterface>
#include <QTcpSocket>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "platform/connection.h"

namespace karvel {

// Whether somebody listens at a place of the network. Never waits: it answers with what it found last, and looks again meanwhile.
class ServerProbe {
 public:
  ServerProbe(const std::string& host, int port);
  [[nodiscard]] bool Reached();

 private:
  void Found(bool reached);

  const QString host_;
  const quint16 port_;
  bool looking_ = false, reached_ = false;
  QElapsedTimer found_;  // since the last look ended
  QTcpSocket socket_;
  QTimer patience_;
};

// Up while any network card leads out of the machine, looked up anew each time, in less than a millisecond; or while a watched server
// answers.
class SystemConnection : public Connection {
 public:
  void WatchServers(const std::vector<ServerPlace>& servers) override;
  [[nodiscard]] bool Up() const override;
  [[nodiscard]] bool ServerAnswers() const override;

  // Whether a card leads out: it is up and running, is not the machine's own loop, and has an address other than the loop's.
  [[nodiscard]] static bool LeadsOut(QNetworkInterface::InterfaceFlags flags, const QList<QHostAddress>& addresses);

 private:
  std::vector<std::unique_ptr<ServerProbe>> servers_;
};

}  // namespace karvel
