#include "app/system_connection.h"

#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTest>

namespace karvel {
namespace {

using Card = QNetworkInterface;

const QHostAddress kOwn(QHostAddress::LocalHost);
const QHostAddress kShop(QStringLiteral("192.168.1.7"));
const QHostAddress kShop6(QStringLiteral("fd00::2"));

TEST(SystemConnection, a_card_leads_out_when_it_runs_and_has_an_address) {
  EXPECT_TRUE(SystemConnection::LeadsOut(Card::IsUp | Card::IsRunning | Card::CanBroadcast, {kShop}));
  EXPECT_TRUE(SystemConnection::LeadsOut(Card::IsUp | Card::IsRunning, {kOwn, kShop6}));
  EXPECT_FALSE(SystemConnection::LeadsOut(Card::IsUp | Card::IsRunning, {}));
}

TEST(SystemConnection, a_pulled_plug_or_a_card_that_is_off_leads_nowhere) {
  EXPECT_FALSE(SystemConnection::LeadsOut(Card::IsUp, {kShop}));
  EXPECT_FALSE(SystemConnection::LeadsOut(Card::IsRunning, {kShop}));
}

TEST(SystemConnection, the_machines_own_loop_leads_nowhere) {
  EXPECT_FALSE(SystemConnection::LeadsOut(Card::IsUp | Card::IsRunning | Card::IsLoopBack, {kShop}));
  EXPECT_FALSE(SystemConnection::LeadsOut(Card::IsUp | Card::IsRunning, {kOwn, QHostAddress(QHostAddress::LocalHostIPv6)}));
}

TEST(ServerProbe, a_server_that_listens_is_reached_and_one_that_went_is_not) {
  QTcpServer server;
  ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
  ServerProbe probe("127.0.0.1", server.serverPort());
  EXPECT_FALSE(probe.Reached());  // it never waits
  EXPECT_TRUE(QTest::qWaitFor([&] { return probe.Reached(); }, 3000));
  server.close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !probe.Reached(); }, 5000));
}

TEST(ServerProbe, a_name_that_nobody_has_is_never_reached) {
  ServerProbe probe("yok.invalid", 21);
  QTest::qWait(200);
  EXPECT_FALSE(probe.Reached());
}

}  // namespace
}  // namespace karvel
