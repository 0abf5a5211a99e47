#pragma once

#include <deque>
#include <string>

#include "platform/messages.h"
#include "robot/json.h"

namespace karvel {

// Boxes answered from a queue, and kept for the record. A box with no answer in the queue, or one that doesn't fit it, takes its
// default: OK; No of Yes and No; Cancel where something is asked for.
class ScriptedMessages : public Messages {
 public:
  // "Yes", "No", "OK", "Cancel", or the text to enter; a font is given as "Name, 10" (points), a printer as its
  // name or as "Name, 11, 2, 1": paper size, orientation and copies behind it, as far as they are told.
  void QueueAnswer(const std::string& answer) { answers_.push_back(answer); }
  // The boxes since the last call: text, title, icon, buttons, answer.
  [[nodiscard]] Json TakeShown();

  MessageAnswer MessageBox(const std::string& text, const std::string& title, MessageIcon icon, MessageButtons buttons) override;
  std::optional<std::string> InputBox(const std::string& prompt, const std::string& title, const std::string& preset) override;
  std::optional<FontChoice> FontDialog(const FontChoice& preset) override;
  std::optional<PrinterChoice> PrinterDialog(const PrinterChoice& preset) override;
  std::optional<std::string> FileDialog(const std::string& title, const std::string& preset) override;

 private:
  std::optional<std::string> Next();
  // The text entered in a box that asks for one; "OK" takes the preset.
  std::optional<std::string> NextText(const std::string& preset);
  void Record(const std::string& text, const std::string& title, const char* icon, const char* buttons, const std::string& answer);

  std::deque<std::string> answers_;
  Json shown_ = Json::array();
};

}  // namespace karvel
