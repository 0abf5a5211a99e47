// The printers of this machine, behind its printing system: found and described by the toolkit, and handed their jobs directly, because the
// toolkit doesn't tell whether a job was taken.
//
// What stays true: no talk with the printing system lasts longer than told, and one that lasted so long in vain is the only one that the
// same tap waits for. A printer whose system doesn't answer keeps the papers that it had, and refuses its jobs.
#pragma once

#include <QByteArray>
#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "app/print_papers.h"
#include "platform/printer.h"
#include "platform/status.h"

namespace karvel {

struct SystemJob {
  std::string printer, title, media;
  int copies = 1;
  QByteArray pdf;
};

class SystemPrinters {
 public:
  explicit SystemPrinters(std::chrono::seconds longestTalk = std::chrono::seconds(10)) : longestTalk_(longestTalk) {}
  virtual ~SystemPrinters() = default;
  [[nodiscard]] virtual std::vector<PrinterDevice> List() const;
  // The one that the machine takes where nobody says which; "" for none.
  [[nodiscard]] virtual std::string Default() const;
  // Its papers, its own first; none where there is no such printer.
  [[nodiscard]] virtual std::vector<Paper> Papers(const std::string& printer) const;
  // Whether it takes jobs now. One that is held does: its jobs wait.
  [[nodiscard]] virtual Status Accepts(const std::string& printer) const;
  virtual Status HandOver(const SystemJob& job);

 private:
  class Talk;
  [[nodiscard]] bool Answers() const;
  [[nodiscard]] std::vector<Paper> AskPapers(const std::string& printer) const;

  const std::chrono::seconds longestTalk_;
  mutable std::chrono::steady_clock::time_point silentUntil_;  // until when it isn't asked again
  mutable std::map<std::string, std::vector<Paper>> papers_;   // of its printers, as they were told last
};

// For a program that must not touch the printers of its user.
class NoPrinters final : public SystemPrinters {
 public:
  [[nodiscard]] std::vector<PrinterDevice> List() const override { return {}; }
  [[nodiscard]] std::string Default() const override { return {}; }
  [[nodiscard]] std::vector<Paper> Papers(const std::string&) const override { return {}; }
};

}  // namespace karvel
