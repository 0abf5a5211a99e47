// The world around a desk under test: a fixed clock, scripted boxes, a loop that never waits, and nothing on the screen.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/elements.h"
#include "platform/connection.h"
#include "platform/event_loop.h"
#include "platform/ftp.h"
#include "platform/keyboard.h"
#include "platform/messages.h"
#include "platform/scanner.h"
#include "platform/shell.h"
#include "platform/window.h"
#include "tests/support/fixed_clock.h"
#include "text/turkish.h"

namespace karvel {

class ScriptedMessages final : public Messages {
 public:
  struct Box {
    std::string text, title;
    MessageIcon icon = MessageIcon::None;
    std::string preset{};  // what an input box offers
  };
  MessageAnswer MessageBox(const std::string& text, const std::string& title, MessageIcon icon, MessageButtons buttons) override {
    shown.push_back({text, title, icon});
    const std::string answer = Next().value_or("");
    if (buttons == MessageButtons::YesNo) return answer == "Yes" ? MessageAnswer::Yes : MessageAnswer::No;
    return MessageAnswer::Ok;
  }
  std::optional<std::string> InputBox(const std::string& prompt, const std::string& title, const std::string& preset) override {
    shown.push_back({prompt, title, MessageIcon::None, preset});
    return Next();
  }
  std::optional<FontChoice> FontDialog(const FontChoice& preset) override {
    offeredFont = preset;
    return chosenFont;
  }
  std::optional<PrinterChoice> PrinterDialog(const PrinterChoice& preset) override {
    offeredPrinter = preset;
    return chosenPrinter;
  }
  std::optional<std::string> FileDialog(const std::string&, const std::string&) override { return Next(); }

  std::optional<FontChoice> chosenFont;  // none: the font box is cancelled
  FontChoice offeredFont;
  std::optional<PrinterChoice> chosenPrinter;  // none: the printer box is cancelled
  PrinterChoice offeredPrinter;
  std::deque<std::string> answers;
  std::vector<Box> shown;

 private:
  std::optional<std::string> Next() {
    if (answers.empty()) return std::nullopt;
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

class InstantLoop final : public EventLoop {
 public:
  void RunPending() override {
    if (duringWait) duringWait();
  }
  void RunPendingButInput() override {
    if (duringBusyWait) duringBusyWait();
  }
  void Wait(int milliseconds) override {
    waits.push_back(milliseconds);
    RunPending();
  }
  void Later(std::function<void()> work) override {
    if (defers) {
      deferred.push_back(std::move(work));
    } else {
      work();
    }
  }
  // What was put off while `defers`, as the window does it after the handler.
  void RunDeferred() {
    for (const auto& work : std::exchange(deferred, {})) work();
  }
  bool defers = false;
  std::vector<std::function<void()>> deferred;
  std::shared_ptr<void> Every(int, std::function<void()> tick) override {
    timer = tick;
    return std::shared_ptr<void>(this, [this](void*) { timer = nullptr; });
  }
  std::function<void()> duringWait;
  std::function<void()> duringBusyWait;
  std::vector<int> waits;       // in milliseconds, since the test began
  std::function<void()> timer;  // the timer that runs now
};

class QuietShell final : public Shell {
 public:
  std::expected<Claim, Status> ClaimOnlyCopy(const std::string&) override {
    if (!claimFault.Ok()) return std::unexpected(claimFault);
    return otherCopyRuns ? Claim::Taken : Claim::Ours;
  }
  void MakeShortcut(const std::string& title) override { shortcuts.push_back(title); }
  void PlaySound(const std::string& path) override { sounds.push_back(path); }
  bool otherCopyRuns = false;
  Status claimFault;
  std::vector<std::string> shortcuts, sounds;
};

// Sends keys to the focused element as the window would.
class ElementKeyboard final : public Keyboard {
 public:
  void Send(int virtualKey) override {
    if (!elements || !elements->Focused()) return;
    if (virtualKey == key::kTab) {
      elements->FocusNext();
      return;
    }
    KeyEvent event{virtualKey};
    // The form sees every key before the element that has the focus.
    if (Element* const form = elements->Find("Form1")) form->keyDown(event);
    if (event.dropped || !elements->Focused()) return;
    Element& element = *elements->Focused();
    element.keyDown(event);
    if (event.dropped) return;
    CharacterEvent character{static_cast<char32_t>(virtualKey)};
    element.character(character);
    element.keyUp(event);
  }
  [[nodiscard]] bool CapsLock() const override { return false; }
  void Beep() override { ++beeps; }
  Elements* elements = nullptr;
  int beeps = 0;
};

class QuietWindow final : public Window {
 public:
  void SetTitle(const std::string& text) override { title = text; }
  void RestoreFitting(const std::string&) override {}
  void SaveFitting(const std::string& name) override { savedFitting = name; }
  void SetFixed(bool on) override { fixed = on; }
  void MoveBy(int dx, int dy) override { moved += dx + dy; }
  void SizeBy(int dw, int dh) override { sized += dw + dh; }
  [[nodiscard]] bool IsActive() const override { return active; }
  void Raise() override { ++raises; }
  void Close() override { ++closes; }
  void HearOnly(const std::string& elementName) override { heard = elementName; }
  void End() override { ++ends; }
  [[nodiscard]] int TextWidth(const std::string&, const std::string& text) const override {
    return 10 * static_cast<int>(LetterCount(text));
  }
  [[nodiscard]] int InnerWidth(const std::string&) const override { return 300; }
  [[nodiscard]] int RowHeight(const std::string&) const override { return 40; }
  [[nodiscard]] int InnerHeight(const std::string&) const override { return 210; }
  void SetDeskFont(const std::string& name, double size, bool bold) override { deskFont = {name, size, bold}; }
  void SetGridFont(const std::string& name, double size, bool bold) override { gridFont = {name, size, bold}; }
  std::string title, savedFitting;
  std::string heard;  // the one element that is heard; "" for all
  FontChoice deskFont, gridFont;
  bool fixed = false, active = true;
  int raises = 0, closes = 0, ends = 0, moved = 0, sized = 0;
};

class TestScanner final : public Scanner {
 public:
  bool Start() override { return started = present; }
  void Stop() override { started = false; }
  void SetEnabled(bool on) override { enabled = on; }
  [[nodiscard]] bool Enabled() const override { return enabled; }
  bool present = true, started = false, enabled = true;
};

class TestConnection final : public Connection {
 public:
  void WatchServers(const std::vector<ServerPlace>& servers) override {
    watched.clear();
    for (const ServerPlace& server : servers) watched += (watched.empty() ? "" : ";") + server.host + ":" + std::to_string(server.port);
  }
  [[nodiscard]] bool Up() const override { return ++asked > downFor; }
  [[nodiscard]] bool ServerAnswers() const override { return serverAnswers; }
  int downFor = 0;
  std::string watched;  // "host:port;…"
  bool serverAnswers = true;
  mutable int asked = 0;
};

// Notes what it is told, and answers as the test says: at once, or when `Answer` is called.
class TestFtp final : public Ftp {
 public:
  void SetAccount(const FtpAccount& given) override { account = given; }
  [[nodiscard]] const FtpAccount& Account() const override { return account; }
  void Execute(const std::string& command) override {
    commands.push_back(command);
    executing = true;
    if (!held) Answer();
  }
  [[nodiscard]] bool StillExecuting() const override { return executing; }
  [[nodiscard]] const FtpFailure& Failure() const override { return failure; }
  // The command that runs ends now: badly where it begins as a fault says.
  void Answer() {
    executing = false;
    failure = {};
    for (const auto& [beginning, fault] : faults)
      if (commands.back().starts_with(beginning)) failure = fault;
    stateChanged(failure.fault == FtpFault::None ? FtpState::Completed : FtpState::Error);
  }
  FtpAccount account;
  FtpFailure failure;
  std::map<std::string, FtpFailure> faults;
  std::vector<std::string> commands;
  bool held = false, executing = false;
};

}  // namespace karvel
