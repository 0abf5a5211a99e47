#include "robot/scripted_messages.h"

#include <fmt/format.h>

#include <utility>

#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const char* NameOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return "Information";
    case MessageIcon::Question:
      return "Question";
    case MessageIcon::Exclamation:
      return "Exclamation";
    case MessageIcon::Stop:
      return "Stop";
    case MessageIcon::None:
      break;
  }
  return "None";
}

// "Name, 10" or "Name, 10, Bold"; nothing when there is no size in it.
std::optional<FontChoice> ReadFont(const std::string& text) {
  FontChoice font;
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) return std::nullopt;
  font.name = Trim(text.substr(0, comma));
  std::string rest = text.substr(comma + 1);
  if (const std::size_t second = rest.find(','); second != std::string::npos) {
    font.bold = EqualText(Trim(rest.substr(second + 1)), "Bold");
    rest.resize(second);
  }
  font.size = NumberOrZero(rest);
  if (font.name.empty() || font.size <= 0) return std::nullopt;
  return font;
}

// The number between two commas, or behind the last; what isn't told stays.
void TakeNumber(std::string& rest, int& number) {
  if (rest.empty()) return;
  const std::size_t comma = rest.find(',');
  number = static_cast<int>(NumberOrZero(rest.substr(0, comma)));
  rest = comma == std::string::npos ? "" : rest.substr(comma + 1);
}

PrinterChoice ReadPrinter(const std::string& text, const PrinterChoice& preset) {
  PrinterChoice choice = preset;
  const std::size_t comma = text.find(',');
  choice.deviceName = Trim(text.substr(0, comma));
  std::string rest = comma == std::string::npos ? "" : text.substr(comma + 1);
  TakeNumber(rest, choice.paperSize);
  TakeNumber(rest, choice.orientation);
  TakeNumber(rest, choice.copies);
  return choice;
}

}  // namespace

Json ScriptedMessages::TakeShown() {
  return std::exchange(shown_, Json::array());
}

std::optional<std::string> ScriptedMessages::Next() {
  if (answers_.empty()) return std::nullopt;
  std::string answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

std::optional<std::string> ScriptedMessages::NextText(const std::string& preset) {
  std::optional<std::string> answer = Next();
  if (!answer || *answer == "Cancel") return std::nullopt;
  return *answer == "OK" ? preset : answer;
}

void ScriptedMessages::Record(const std::string& text, const std::string& title, const char* icon, const char* buttons,
                              const std::string& answer) {
  shown_.push_back({{"text", text}, {"title", title}, {"icon", icon}, {"buttons", buttons}, {"answer", answer}});
}

MessageAnswer ScriptedMessages::MessageBox(const std::string& text, const std::string& title, MessageIcon icon, MessageButtons buttons) {
  const std::optional<std::string> answer = Next();
  if (buttons == MessageButtons::Ok) {
    Record(text, title, NameOf(icon), "OK", "OK");
    return MessageAnswer::Ok;
  }
  const bool yes = answer == "Yes";
  Record(text, title, NameOf(icon), "YesNo", yes ? "Yes" : "No");
  return yes ? MessageAnswer::Yes : MessageAnswer::No;
}

std::optional<std::string> ScriptedMessages::InputBox(const std::string& prompt, const std::string& title, const std::string& preset) {
  // The default of an input box is what already stands in it.
  std::optional<std::string> entered = answers_.empty() ? preset : NextText(preset);
  Record(prompt, title, "None", "OKCancel", entered.value_or("Cancel"));
  return entered;
}

std::optional<FontChoice> ScriptedMessages::FontDialog(const FontChoice& preset) {
  const std::optional<std::string> entered =
      NextText(fmt::format("{}, {}{}", preset.name, PlainNumber(preset.size), preset.bold ? ", Bold" : ""));
  const std::optional<FontChoice> font = entered ? ReadFont(*entered) : std::nullopt;
  Record("", "Font", "None", "OKCancel", font ? *entered : "Cancel");
  return font;
}

std::optional<PrinterChoice> ScriptedMessages::PrinterDialog(const PrinterChoice& preset) {
  const std::optional<std::string> entered =
      NextText(fmt::format("{}, {}, {}, {}", preset.deviceName, preset.paperSize, preset.orientation, preset.copies));
  Record("", "Printer", "None", "OKCancel", entered.value_or("Cancel"));
  if (!entered) return std::nullopt;
  return ReadPrinter(*entered, preset);
}

std::optional<std::string> ScriptedMessages::FileDialog(const std::string& title, const std::string& preset) {
  std::optional<std::string> entered = NextText(preset);
  Record("", title, "None", "OKCancel", entered.value_or("Cancel"));
  return entered;
}

}  // namespace karvel
