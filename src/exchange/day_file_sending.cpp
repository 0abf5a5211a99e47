#include "exchange/day_file_sending.h"

#include <utility>

#include "books/steps.h"
#include "desk/quiet_line.h"
#include "desk/unknown_outcome.h"
#include "exchange/day_file.h"

namespace karvel {
namespace {

const Steps step("SendDayFile");

std::string Reason(const Status& why) {
  switch (why.Kind()) {
    case ErrorKind::BadText:
      return "fiş numarası dosya adı olamaz";
    case ErrorKind::DiskFull:
      return "disk dolu, yer açıp yeniden yazdırın";
    case ErrorKind::NoRights:
      return "C: sürücüsüne yazma izni yok";
    case ErrorKind::Busy:
      return "başka bir terminal kayıt yapıyor, yeniden yazdırın";
    case ErrorKind::Unknown:
      return "disk yanıt vermiyor";
    default:
      return "disk okunamadı veya yazılamadı, yeniden yazdırın";
  }
}

}  // namespace

DayFileSending::DayFileSending(const DeskParts& parts, FtpTransfer& transfer, Signal<>& upkeep)
    : parts_(parts), screen_(parts.screen), form_(parts.form), world_(parts.world), transfer_(transfer) {
  connections_ += upkeep.Connect([this] {
    // On a share the day book is another's, and tells nothing of this machine's files.
    if (!screen_.OnLine.Checked()) PlaceLeft();
    transfer_.TakeSettings();
  });
}

void DayFileSending::SendDayFile(const PrintedDay& day) {
  if (!screen_.FtpVar.Checked()) return;
  if (!day.lastSent.empty()) return SendLeft();
  const DayToSend file{DayFileName(parts_.settings.Title(), std::exchange(form_.SlipNo, "")), day.customerCode, day.source};
  const Status outcome = ShowBooked<std::string>(form_, LayDayFile(parts_.shop, world_.files, file), [this](const std::string& name) {
    PlaceLeft();
    ShowLaid(name);
  });
  if (!outcome.Ok() && outcome.Kind() != ErrorKind::NoRecord) TellRefusal(file.name, outcome);
}

// A file that had no place when its lines were marked: no later print would lay it again.
void DayFileSending::SendLeft() {
  const PlacedDayFiles left = PlaceDayFiles(parts_.shop, world_.files);
  for (const std::string& name : left.placed) ShowLaid(name);
  if (!left.status.Ok()) TellRefusal(left.waiting, left.status);
}

void DayFileSending::PlaceLeft() {
  step("place", PlaceDayFiles(parts_.shop, world_.files).status);
}

void DayFileSending::ShowLaid(const std::string& name) {
  Tell(screen_, "Gün dosyası yazıldı: " + name);
  transfer_.FileLaid(name);
  transfer_.FtpGönder();
}

void DayFileSending::TellRefusal(const std::string& name, const Status& why) {
  step("lay", why);
  const bool isFolder = !name.empty() && world_.files.IsFolder("C:\\" + name);
  Tell(screen_, "Gün dosyası yazılamadı: " +
                    (isFolder ? "C: sürücüsünde " + name + " adında bir klasör var, kaldırıp yeniden yazdırın" : Reason(why)));
}

}  // namespace karvel
