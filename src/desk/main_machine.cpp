#include "desk/main_machine.h"

#include "books/steps.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "platform/connection.h"
#include "platform/event_loop.h"
#include "platform/share.h"
#include "store/stores.h"

namespace karvel {
namespace {

constexpr int kLookMilliseconds = 500;
constexpr int kLooksBetweenQuestions = 4;
constexpr const char* kLost = "Ana makineye ulaşılamıyor: yazdıklarınız duruyor, bağlantı gelince kendiliğinden sürer";
constexpr const char* kFound = "Ana makineyle bağlantı geldi";
const Steps step("MainMachine");

}  // namespace

MainMachine::MainMachine(const DeskParts& parts, StartUp& startUp, CustomerInFront& customer)
    : screen_(parts.screen),
      form_(parts.form),
      world_(parts.world),
      customers_(parts.cursors.CariData),
      startUp_(startUp),
      customer_(customer) {
  connections_ += startUp_.placeChosen.Connect([this] { Follow(); });
  connections_ += world_.stores.serverLost.Connect([this] { TellLost(); });
  connections_ += world_.stores.serverFound.Connect([this] { TellFound(); });
}

void MainMachine::Follow() {
  const bool onShare = IsShare(form_.DataDir);
  if (!onShare) timer_ = nullptr;
  if (onShare && !timer_) timer_ = world_.loop.Every(kLookMilliseconds, [this] { Look(); });
}

// A box that it opens lets the timer run.
void MainMachine::Look() {
  if (looking_ || form_.Closing || form_.BackupRuns || world_.stores.InAction()) return;
  looking_ = true;
  const auto keep = timer_;  // runs this
  if (world_.stores.IsServerAway()) {
    LookForServer();
  } else {
    ShowForeignChanges();
    // Where nobody taps, nobody else would find that it is gone.
    if (++looks_ % kLooksBetweenQuestions == 0) step("ask", world_.stores.AskServer());
  }
  looking_ = false;
}

void MainMachine::ShowForeignChanges() {
  bool cards = false;
  Connections hearing;
  hearing += customers_.shown.Connect([&cards] { cards = true; });
  world_.stores.ShowForeignChanges();
  if (cards) customer_.FollowBalance();
}

void MainMachine::LookForServer() {
  if (!world_.connection.ServerAnswers()) return;
  if (!world_.stores.IsOpen()) return OpenStores();
  if (const Status answered = world_.stores.AskServer(); answered.Kind() != ErrorKind::Unreachable) step("look", answered);
}

// A desk that began without its server has nobody in front yet.
void MainMachine::OpenStores() {
  if (!AtRest(screen_) || !world_.stores.Open(form_.DataDir).Ok()) return;
  if (startUp_.OpenAnew() && world_.stores.IsOpen()) Tell(screen_, kFound);
}

// It may be met in the middle of a painting.
void MainMachine::TellLost() {
  world_.loop.Later([this, here = std::weak_ptr(here_)] {
    if (!here.expired()) TellBesideOutcome(kLost);
  });
}

void MainMachine::TellFound() {
  customer_.FollowBalance();
  TellBesideOutcome(kFound);
}

// What became of his line stays before the clerk's eyes, though the machine goes again in the same breath.
void MainMachine::TellBesideOutcome(const std::string& text) {
  const std::string& outcome = form_.ToldOutcome;
  const bool stands = !outcome.empty() && screen_.Durum.Caption().starts_with(outcome);
  Tell(screen_, stands ? outcome + "; " + text : text);
}

}  // namespace karvel
