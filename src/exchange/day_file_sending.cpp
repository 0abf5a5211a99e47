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
  if (!screen_.FtpVar.Checked() || !day.lastSent.empty()) return;
  const DayToSend file{DayFileName(parts_.settings.Title(), std::exchange(form_.SlipNo, "")), day.customerCode, day.source};
  const Status outcome = ShowBooked<std::string>(form_, LayDayFile(parts_.shop, world_.files, file), [this](const std::string& name) {
    PlaceLeft();
    ShowLaid(name);
  });
  if (!outcome.Ok() && outcome.Kind() != ErrorKind::NoRecord) TellRefusal(outcome);
}

void DayFileSending::PlaceLeft() {
  step("place", PlaceDayFiles(parts_.shop, world_.files));
}

void DayFileSending::ShowLaid(const std::string& name) {
  Tell(screen_, "Gün dosyası yazıldı: " + name);
  transfer_.FileLaid(name);
  transfer_.FtpGönder();
}

void DayFileSending::TellRefusal(const Status& why) {
  step("lay", why);
  Tell(screen_, "Gün dosyası yazılamadı: " + Reason(why));
}

}  // namespace karvel
