#include "robot/printed_jobs.h"

#include <fmt/format.h>

#include <QFile>
#include <utility>

#include "app/private_files.h"
#include "app/qt_text.h"

namespace karvel {
namespace {

Json ItemOf(const DrawingStep& step, int page) {
  if (const auto* text = std::get_if<DrawnText>(&step)) {
    const PrintFont& font = text->font;
    return {{"text", text->text}, {"x", text->x},      {"y", text->y},      {"width", text->width},
            {"font", font.name},  {"size", font.size}, {"bold", font.bold}, {"underline", font.underline},
            {"page", page}};
  }
  if (const auto* line = std::get_if<DrawnLine>(&step)) return {{"line", {line->x1, line->y1, line->x2, line->y2}}, {"page", page}};
  const auto& picture = std::get<DrawnPicture>(step);
  return {{"picture", {picture.x, picture.y, picture.width, picture.height}}, {"page", page}};
}

}  // namespace

PrintedJobs::PrintedJobs(QtPrinter& printer, const std::string& home) : folder_(home + "/printed") {
  connections_ += printer.jobEnded.Connect([this](const EndedJob& job) { Add(job); });
}

Json PrintedJobs::Take() {
  return std::exchange(jobs_, Json::array());
}

void PrintedJobs::Add(const EndedJob& job) {
  Json items = Json::array();
  int page = 0;
  for (const PageSteps& steps : job.pages) {
    ++page;
    for (const DrawingStep& step : steps) items.push_back(ItemOf(step, page));
  }
  jobs_.push_back({{"printer", job.printer},
                   {"paperSize", job.paperSize},
                   {"end", job.handedOver ? "EndDoc" : "KillDoc"},
                   {"pdf", job.file.empty() ? Keep(job.pdf) : job.file},
                   {"items", std::move(items)}});
}

std::string PrintedJobs::Keep(const QByteArray& pdf) {
  if (!MakePrivateFolder(folder_).Ok()) return "";
  std::string path;
  do path = fmt::format("{}/{:04}.pdf", folder_, ++kept_);
  while (QFile::exists(ToQt(path)));
  QFile file(ToQt(path));
  if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size()) return "";
  return path;
}

}  // namespace karvel
