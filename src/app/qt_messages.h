#pragma once

#include "platform/messages.h"

namespace karvel {

class DiskFiles;
class QtPrinter;
class Settings;

// Boxes on the desk's screen: plain text, buttons that a finger hits.
class QtMessages : public Messages {
 public:
  QtMessages(const DiskFiles& files, const QtPrinter& printer, Settings& options);
  MessageAnswer MessageBox(const std::string& text, const std::string& title, MessageIcon icon, MessageButtons buttons) override;
  std::optional<std::string> InputBox(const std::string& prompt, const std::string& title, const std::string& preset) override;
  std::optional<FontChoice> FontDialog(const FontChoice& preset) override;
  std::optional<PrinterChoice> PrinterDialog(const PrinterChoice& preset) override;
  std::optional<std::string> FileDialog(const std::string& title, const std::string& preset) override;

 private:
  const DiskFiles& files_;
  const QtPrinter& printer_;
  Settings& options_;
};

}  // namespace karvel
