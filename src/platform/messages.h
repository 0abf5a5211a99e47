#pragma once

#include <optional>
#include <string>

namespace karvel {

enum class MessageIcon { None, Information, Question, Exclamation, Stop };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

struct FontChoice {
  std::string name;
  double size = 0;  // points
  bool bold = false;
};

// What is chosen for a printer: paper and orientation by their numbers.
struct PrinterChoice {
  std::string deviceName, driverName, port;
  int copies = 1, orientation = 1, paperSize = 0;
};

// The boxes that wait for the clerk. No commit may be open when one is shown.
class Messages {
 public:
  virtual ~Messages() = default;
  // A box with no answer at hand takes its default: Ok, or No for Yes and No.
  virtual MessageAnswer MessageBox(const std::string& text, const std::string& title, MessageIcon icon, MessageButtons buttons) = 0;
  // Asks for a line of text; nothing when the clerk cancels.
  virtual std::optional<std::string> InputBox(const std::string& prompt, const std::string& title, const std::string& preset) = 0;
  virtual std::optional<FontChoice> FontDialog(const FontChoice& preset) = 0;
  // Offers the printers of the machine, with the papers of each.
  virtual std::optional<PrinterChoice> PrinterDialog(const PrinterChoice& preset) = 0;
  // A path chosen by the clerk, in the desk's form (C:\…); nothing when he cancels.
  virtual std::optional<std::string> FileDialog(const std::string& title, const std::string& preset) = 0;
};

}  // namespace karvel
