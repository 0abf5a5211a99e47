#pragma once

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "tests/app/paper_tools.h"
#include "tests/support/ftp_server.h"

namespace karvel::testing {

// vsftpd, which speaks encrypted alone: from the first byte, or when it is asked to. It lets "ftp" in with any password.
class EncryptedFtp : public ServerProcess {
 public:
  explicit EncryptedFtp(bool fromTheStart) {
    port_ = FreePort();
    OutputOf("openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=127.0.0.1 -addext subjectAltName=IP:127.0.0.1 -keyout " +
             In("key.pem") + " -out " + Certificate());
    std::filesystem::create_directories(In("empty"));
    std::ofstream(In("vsftpd.conf")) << "listen=YES\nlisten_address=127.0.0.1\nlisten_port=" << port_
                                     << "\nbackground=NO\nrun_as_launching_user=YES\nseccomp_sandbox=NO\nanonymous_enable=YES\n"
                                        "local_enable=NO\nallow_writeable_chroot=YES\nwrite_enable=YES\nanon_upload_enable=YES\n"
                                        "anon_other_write_enable=YES\nxferlog_enable=NO\nssl_enable=YES\nallow_anon_ssl=YES\n"
                                        "force_anon_logins_ssl=YES\nforce_anon_data_ssl=YES\nimplicit_ssl="
                                     << (fromTheStart ? "YES" : "NO") << "\nanon_root=" << Root() << "\nsecure_chroot_dir=" << In("empty")
                                     << "\nrsa_cert_file=" << Certificate() << "\nrsa_private_key_file=" << In("key.pem") << "\n";
    Start({"vsftpd", In("vsftpd.conf")}, false);
    for (int i = 0; i < 200 && !Answers(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(25));
  }
  [[nodiscard]] std::string Certificate() const { return In("cert.pem"); }

 private:
  static int FreePort() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
  }
  [[nodiscard]] bool Answers() const {
    QTcpSocket socket;
    socket.connectToHost(QHostAddress(QHostAddress::LocalHost), static_cast<quint16>(port_));
    return socket.waitForConnected(200);
  }
};

}  // namespace karvel::testing
