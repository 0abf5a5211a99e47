#include "app/system_printers.h"

#include <cups/cups.h>

#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <memory>
#include <set>
#include <thread>
#include <tuple>

#include "app/qt_text.h"

namespace karvel {
namespace {

using namespace std::chrono_literals;
constexpr auto kSameTap = 2s;          // what asks again so soon belongs to the tap that has waited in vain
constexpr auto kLongestSleep = 10min;  // of a printing system that may wake up with a job half handed over

struct FreeDest {
  void operator()(cups_dest_t* dest) const { cupsFreeDests(1, dest); }
};
struct FreeDestInfo {
  void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
struct CloseHttp {
  void operator()(http_t* connection) const { httpClose(connection); }
};

Status LastError() {
  const std::string why = cupsLastErrorString() ? cupsLastErrorString() : "";
  switch (cupsLastError()) {
    case IPP_STATUS_ERROR_NOT_FOUND:
      return {ErrorKind::Missing, why};
    case IPP_STATUS_ERROR_FORBIDDEN:
    case IPP_STATUS_ERROR_NOT_AUTHENTICATED:
    case IPP_STATUS_ERROR_NOT_AUTHORIZED:
      return {ErrorKind::NoRights, why};
    default:
      return {ErrorKind::Other, why};
  }
}

using Connection = std::unique_ptr<http_t, CloseHttp>;

// A connection on which no answer is waited for longer.
Connection Connect(std::chrono::seconds longest) {
  const int milliseconds = static_cast<int>(std::chrono::milliseconds(longest).count());
  Connection connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, milliseconds, nullptr));
  if (connection) httpSetTimeout(connection.get(), static_cast<double>(longest.count()), nullptr, nullptr);
  return connection;
}

// Asks for as little as can be asked for.
bool IsAnswering(http_t* connection) {
  ippDelete(cupsDoRequest(connection, ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/"));
  return httpError(connection) == 0 && cupsLastError() != IPP_STATUS_ERROR_SERVICE_UNAVAILABLE;
}

Status NoAnswer() {
  return {ErrorKind::Other, "the printing system doesn't answer"};
}

// A printer of the printing system, with a connection to it.
struct Destination {
  Destination(const std::string& name, std::chrono::seconds longestTalk) : connection(Connect(longestTalk)) {
    answers = connection && IsAnswering(connection.get());
    if (!answers) return;
    dest.reset(cupsGetNamedDest(connection.get(), name.c_str(), nullptr));
    if (dest) info.reset(cupsCopyDestInfo(connection.get(), dest.get()));
  }
  [[nodiscard]] Status Reached() const {
    if (!answers) return NoAnswer();
    if (!dest) return {ErrorKind::Missing, "no such printer"};
    return info ? Status() : LastError();
  }

  Connection connection;
  bool answers = false;
  std::unique_ptr<cups_dest_t, FreeDest> dest;
  std::unique_ptr<cups_dinfo_t, FreeDestInfo> info;
};

// A job that was told as refused must not come out when a printing system that hangs wakes up: it is told so beside the desk's work.
void CancelWhenItAnswers(const std::string& printer, int job) {
  std::thread([printer, job] {
    if (const Connection connection = Connect(kLongestSleep)) cupsCancelJob2(connection.get(), printer.c_str(), job, 0);
  }).detach();
}

// Options of a job, freed with it.
struct JobOptions {
  JobOptions() = default;
  ~JobOptions() { cupsFreeOptions(count, all); }
  JobOptions(const JobOptions&) = delete;
  JobOptions& operator=(const JobOptions&) = delete;
  void Add(const char* name, const std::string& value) { count = cupsAddOption(name, value.c_str(), count, &all); }
  int count = 0;
  cups_option_t* all = nullptr;
};

Status Send(const Destination& to, int job, const SystemJob& what, JobOptions& options) {
  http_t* const http = to.connection.get();
  if (cupsStartDestDocument(http, to.dest.get(), to.info.get(), job, what.title.c_str(), CUPS_FORMAT_PDF, options.count, options.all, 1) !=
      HTTP_STATUS_CONTINUE)
    return LastError();
  if (cupsWriteRequestData(http, what.pdf.constData(), static_cast<std::size_t>(what.pdf.size())) != HTTP_STATUS_CONTINUE)
    return LastError();
  return cupsFinishDestDocument(http, to.dest.get(), to.info.get()) <= IPP_STATUS_OK_EVENTS_COMPLETE ? Status() : LastError();
}

Paper PaperOf(QPrinter& printer, const QPageSize& size, int number) {
  const QSizeF millimetres = size.size(QPageSize::Millimeter);
  printer.setPageSize(size);
  QPageLayout layout = printer.pageLayout();
  layout.setUnits(QPageLayout::Millimeter);
  const QMarginsF least = layout.minimumMargins();
  return {number,       ToUtf8(size.name()), ToUtf8(size.key()), millimetres.width(), millimetres.height(),
          least.left(), least.top(),         least.right(),      least.bottom(),      false};
}

// Sheets have the number that the platform gave them; what has none counts on from 256 by its size, which doesn't change with the list.
std::vector<std::pair<QPageSize, int>> Numbered(QList<QPageSize> sizes) {
  std::vector<std::pair<QPageSize, int>> numbered;
  std::set<int> given;
  std::vector<QPageSize> media;
  for (const QPageSize& size : sizes) {
    const int number = size.windowsId();
    if (number > 0 && number < paper::kFirstRoll && given.insert(number).second) {
      numbered.emplace_back(size, number);
    } else {
      media.push_back(size);
    }
  }
  const auto order = [](const QPageSize& size) {
    const QSize points = size.sizePoints();
    return std::tuple(points.width(), points.height(), ToUtf8(size.key()));
  };
  std::ranges::sort(media, {}, order);
  int number = paper::kFirstRoll;
  for (const QPageSize& size : media) numbered.emplace_back(size, number++);
  return numbered;
}

}  // namespace

// One talk with the printing system. What comes soon behind one that has waited in vain may not begin.
class SystemPrinters::Talk {
 public:
  explicit Talk(const SystemPrinters& printers) : printers_(printers), begun_(Clock::now()), may_(begun_ >= printers.silentUntil_) {}
  ~Talk() {
    if (may_ && Clock::now() - begun_ >= printers_.longestTalk_) printers_.silentUntil_ = Clock::now() + kSameTap;
  }
  Talk(const Talk&) = delete;
  Talk& operator=(const Talk&) = delete;
  [[nodiscard]] bool MayBegin() const { return may_; }

 private:
  using Clock = std::chrono::steady_clock;
  const SystemPrinters& printers_;
  const Clock::time_point begun_;
  const bool may_;
};

// The toolkit asks without a limit: so it asks only a printing system that answers.
bool SystemPrinters::Answers() const {
  const Talk talk(*this);
  if (!talk.MayBegin()) return false;
  const Connection connection = Connect(longestTalk_);
  return connection && IsAnswering(connection.get());
}

std::vector<PrinterDevice> SystemPrinters::List() const {
  std::vector<PrinterDevice> devices;
  if (!Answers()) return devices;
  for (const QPrinterInfo& info : QPrinterInfo::availablePrinters())
    devices.push_back({ToUtf8(info.printerName()), ToUtf8(info.makeAndModel()), ToUtf8(info.location())});
  return devices;
}

std::string SystemPrinters::Default() const {
  return Answers() ? ToUtf8(QPrinterInfo::defaultPrinterName()) : "";
}

std::vector<Paper> SystemPrinters::Papers(const std::string& printer) const {
  if (Answers()) papers_[printer] = AskPapers(printer);
  return papers_[printer];
}

std::vector<Paper> SystemPrinters::AskPapers(const std::string& printer) const {
  const QPrinterInfo info = QPrinterInfo::printerInfo(ToQt(printer));
  if (info.isNull()) return {};
  std::vector<Paper> papers;
  QPrinter asked(info);  // knows what can't be printed on
  const QPageSize own = info.defaultPageSize();
  for (const auto& [size, number] : Numbered(info.supportedPageSizes())) {
    const Paper found = PaperOf(asked, size, number);
    papers.insert(size.key() == own.key() ? papers.begin() : papers.end(), found);
    if (number != paper::kA5) continue;
    papers.push_back(found.Turned());
    papers.back().number = paper::kSmallSlip;
    papers.back().name += " yatay";
  }
  if (papers.empty()) papers.push_back(PaperOf(asked, QPageSize(QPageSize::A4), paper::kA4));
  return papers;
}

Status SystemPrinters::Accepts(const std::string& printer) const {
  const Talk talk(*this);
  if (!talk.MayBegin()) return NoAnswer();
  const Destination to(printer, longestTalk_);
  if (const Status reached = to.Reached(); !reached.Ok()) return reached;
  const char* const accepts = cupsGetOption("printer-is-accepting-jobs", to.dest->num_options, to.dest->options);
  if (accepts && std::string(accepts) == "false") return {ErrorKind::Other, printer + ": it takes no jobs"};
  return {};
}

Status SystemPrinters::HandOver(const SystemJob& job) {
  const Talk talk(*this);
  if (!talk.MayBegin()) return NoAnswer();
  const Destination to(job.printer, longestTalk_);
  if (const Status reached = to.Reached(); !reached.Ok()) return reached;
  JobOptions options;
  options.Add(CUPS_COPIES, std::to_string(job.copies));
  if (!job.media.empty()) options.Add(CUPS_MEDIA, job.media);
  options.Add("print-scaling", "none");  // every text stands where the desk has put it
  int id = 0;
  if (cupsCreateDestJob(to.connection.get(), to.dest.get(), to.info.get(), &id, job.title.c_str(), options.count, options.all) >
      IPP_STATUS_OK_EVENTS_COMPLETE)
    return LastError();
  const Status sent = Send(to, id, job, options);
  if (!sent.Ok()) CancelWhenItAnswers(job.printer, id);
  return sent;
}

}  // namespace karvel
