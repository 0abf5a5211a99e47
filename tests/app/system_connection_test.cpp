#include "app/system_connection.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace karvel
