#include "app/system_printers.h"

#include <cups/cups.h>

#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <memory>
#include <set>
#include <tuple>

#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr int kLongestWait = 5000;  // milliseconds, for a server that doesn't answer

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

// A printer of the printing system, with a connection to it.
struct Destination {
  explicit Destination(const std::string& name) : dest(cupsGetNamedDest(nullptr, name.c_str(), nullptr)) {
    if (!dest) return;
    connection.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, kLongestWait, nullptr));
    if (connection) info.reset(cupsCopyDestInfo(connection.get(), dest.get()));
  }
  [[nodiscard]] Status Reached() const {
    if (!dest) return {ErrorKind::Missing, "no such printer"};
    return connection && info ? Status() : LastError();
  }

  std::unique_ptr<cups_dest_t, FreeDest> dest;
  std::unique_ptr<http_t, CloseHttp> connection;
  std::unique_ptr<cups_dinfo_t, FreeDestInfo> info;
};

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

std::vector<PrinterDevice> SystemPrinters::List() const {
  std::vector<PrinterDevice> devices;
  for (const QPrinterInfo& info : QPrinterInfo::availablePrinters())
    devices.push_back({ToUtf8(info.printerName()), ToUtf8(info.makeAndModel()), ToUtf8(info.location())});
  return devices;
}

std::string SystemPrinters::Default() const {
  return ToUtf8(QPrinterInfo::defaultPrinterName());
}

std::vector<Paper> SystemPrinters::Papers(const std::string& printer) const {
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
  const Destination to(printer);
  if (const Status reached = to.Reached(); !reached.Ok()) return reached;
  const char* const accepts = cupsGetOption("printer-is-accepting-jobs", to.dest->num_options, to.dest->options);
  if (accepts && std::string(accepts) == "false") return {ErrorKind::Other, printer + ": it takes no jobs"};
  return {};
}

Status SystemPrinters::HandOver(const SystemJob& job) {
  const Destination to(job.printer);
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
  if (!sent.Ok()) cupsCancelDestJob(to.connection.get(), to.dest.get(), id);
  return sent;
}

}  // namespace karvel
